// Reading and writing report containers, beside zlib alone on the same bytes.

#include "benchmarks/support/Comparisons.h"
#include "benchmarks/support/RandomNumbers.h"
#include "report/file/ReportFile.h"

#include <benchmark/benchmark.h>

#include <QtEndian>

#include <zlib.h>

namespace {

constexpr int prefixSize = 4;

/// XML as a report is made of: the same few tags and attributes over and over, and some typed text.
QByteArray formText(RandomNumbers &numbers, int size)
{
    QByteArray text = "<document resPak=\":res/reports_en/kelatr_rev3.pak\">\n";
    while (text.size() < size) {
        text += "      <cell row=\"" + QByteArray::number(numbers.below(24)) + "\" col=\"" +
                QByteArray::number(numbers.below(20)) + "\" id=\"Voc (VDC)\" fontSize=\"8.5\">" +
                QByteArray::number(numbers.below(100000) / 100.0) + "</cell>\n";
    }
    return text;
}

/// A drawing: path data, which hardly repeats itself.
QByteArray drawing(RandomNumbers &numbers, int size)
{
    QByteArray text = "<svg xmlns=\"http://www.w3.org/2000/svg\">\n";
    while (text.size() < size) {
        text += "<path d=\"m " + QByteArray::number(numbers.below(79300) / 100.0) + "," +
                QByteArray::number(numbers.below(112300) / 100.0) + " c " +
                QByteArray::number(numbers.below(1000) / 100.0) + ",0 0.51," +
                QByteArray::number(numbers.below(1000) / 100.0) + " 1,1 z\" fill=\"#000000\"/>\n";
    }
    return text;
}

/// A picture that is compressed already.
QByteArray photograph(RandomNumbers &numbers, int size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (char &byte : bytes)
        byte = static_cast<char>(numbers.below(256));
    return bytes;
}

/// A report as it is made from the form: the XML and the logo, 17 kB.
const ReportFileEntries &freshReport()
{
    static const ReportFileEntries entries = [] {
        RandomNumbers numbers;
        return ReportFileEntries{{QStringLiteral("xml"), formText(numbers, 900)},
                                 {QStringLiteral("svg"), drawing(numbers, 16300)}};
    }();
    return entries;
}

/// A report with drawings and photographs, 2 MB.
const ReportFileEntries &reportWithImages()
{
    static const ReportFileEntries entries = [] {
        RandomNumbers numbers;
        return ReportFileEntries{{QStringLiteral("xml"), formText(numbers, 60000)},
                                 {QStringLiteral("svg"), drawing(numbers, 400000)},
                                 {QStringLiteral("jpg"), photograph(numbers, 900000)},
                                 {QStringLiteral("png"), photograph(numbers, 600000)}};
    }();
    return entries;
}

/// The stream inside the container of some entries.
struct Stream
{
    explicit Stream(const ReportFileEntries &entries)
        : container(packReportEntries(entries)), bytes(qUncompress(container))
    {
    }
    QByteArray container;
    QByteArray bytes;
};

void unpack(benchmark::State &state, const ReportFileEntries &entries)
{
    const Stream stream(entries);
    for (auto _ : state) {
        const ReportFileEntries unpacked = unpackReportEntries(stream.container);
        if (unpacked.size() != entries.size())
            state.SkipWithError("the container was not read");
        benchmark::DoNotOptimize(unpacked.constLast().data.constData());
    }
    state.SetBytesProcessed(state.iterations() * stream.bytes.size());
}

void inflateAlone(benchmark::State &state, const ReportFileEntries &entries)
{
    const Stream stream(entries);
    const auto *deflated = reinterpret_cast<const Bytef *>(stream.container.constData() + prefixSize);
    for (auto _ : state) {
        QByteArray inflated(stream.bytes.size(), Qt::Uninitialized);
        uLongf size = static_cast<uLongf>(inflated.size());
        if (uncompress(reinterpret_cast<Bytef *>(inflated.data()), &size, deflated,
                       static_cast<uLong>(stream.container.size() - prefixSize)) != Z_OK)
            state.SkipWithError("zlib failed");
        benchmark::DoNotOptimize(inflated.constData());
    }
    state.SetBytesProcessed(state.iterations() * stream.bytes.size());
}

void pack(benchmark::State &state, const ReportFileEntries &entries)
{
    const Stream stream(entries);
    for (auto _ : state) {
        const QByteArray container = packReportEntries(entries);
        if (container.size() != stream.container.size())
            state.SkipWithError("the container was not written");
        benchmark::DoNotOptimize(container.constData());
    }
    state.SetBytesProcessed(state.iterations() * stream.bytes.size());
}

void deflateAlone(benchmark::State &state, const ReportFileEntries &entries)
{
    const Stream stream(entries);
    for (auto _ : state) {
        uLongf size = compressBound(static_cast<uLong>(stream.bytes.size()));
        QByteArray deflated(static_cast<int>(size), Qt::Uninitialized);
        if (compress2(reinterpret_cast<Bytef *>(deflated.data()), &size,
                      reinterpret_cast<const Bytef *>(stream.bytes.constData()),
                      static_cast<uLong>(stream.bytes.size()), 6) != Z_OK)
            state.SkipWithError("zlib failed");
        benchmark::DoNotOptimize(deflated.constData());
    }
    state.SetBytesProcessed(state.iterations() * stream.bytes.size());
}

BENCHMARK_CAPTURE(unpack, fresh, freshReport());
BENCHMARK_CAPTURE(inflateAlone, fresh, freshReport());
BENCHMARK_CAPTURE(unpack, images, reportWithImages());
BENCHMARK_CAPTURE(inflateAlone, images, reportWithImages());
BENCHMARK_CAPTURE(pack, fresh, freshReport());
BENCHMARK_CAPTURE(deflateAlone, fresh, freshReport());
BENCHMARK_CAPTURE(pack, images, reportWithImages());
BENCHMARK_CAPTURE(deflateAlone, images, reportWithImages());

} // namespace

int main(int argc, char **argv)
{
    return Comparisons()
        .ratio("reading a fresh report / zlib alone", "unpack/fresh", "inflateAlone/fresh", 1.3)
        .ratio("reading 2 MB with images / zlib alone", "unpack/images", "inflateAlone/images", 1.3)
        .ratio("writing a fresh report / zlib alone", "pack/fresh", "deflateAlone/fresh", 1.3)
        .ratio("writing 2 MB with images / zlib alone", "pack/images", "deflateAlone/images", 1.3)
        .run(argc, argv);
}
