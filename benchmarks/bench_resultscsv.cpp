// Loading a tester's results file, beside splitting the same text into strings.

#include "benchmarks/support/Comparisons.h"
#include "benchmarks/support/RandomNumbers.h"
#include "import/CsvResultsModel.h"

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QLocale>

#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int rowCount = 1000;
constexpr int pointCount = 128;
/// Fields of a row that are not points of its curve: 16 in front, status and check sum behind.
constexpr int otherFieldCount = 18;

QByteArray decimal(int thousandths)
{
    return QByteArray::number(thousandths / 1000.0, 'f', 3);
}

/// A file with a thousand curves of voltage:current:irradiance:tag, as the tester writes it.
const QByteArray &resultsFile()
{
    static const QByteArray file = [] {
        RandomNumbers numbers;
        QByteArray text = "PV Tester,4711-0815,V2.10,2\r\n"
                          "TestType,Index,DD/MM/YYYY,HH:MM:SS,Rpe (Ohm),Voc (VDC),Isc (ADC),Riso (MOhm),"
                          "Viso (V),Iclamp (Amp),Irr (W/m2),Ta (C),Tpv (C),FF,Vmpp (V),Impp(A),IVCurve,"
                          "StatusCode,Checksum\r\n";
        for (int row = 1; row <= rowCount; ++row) {
            text += "16," + QByteArray::number(row) +
                    ",6/2/2016,19:34:23,0.21,774.0,7.71,88.3,250,,892,3.0,27.6,75.2,622.1,7.22";
            for (int point = 0; point < pointCount; ++point)
                text += "," + decimal(4163 + 9670 * point) + ":" + decimal(7713 - numbers.below(40)) + ":" +
                        decimal(894596 + numbers.below(4000)) + ":" + QByteArray::number(numbers.below(4));
            text += ",0,0C42\r\n";
        }
        return text;
    }();
    return file;
}

void loadInto(CsvResultsModel &model)
{
    QBuffer device;
    device.setData(resultsFile());
    device.open(QIODevice::ReadOnly);
    model.load(&device);
}

void load(benchmark::State &state)
{
    CsvResultsModel model;
    loadInto(model);
    for (auto _ : state) {
        loadInto(model);
        if (model.rowCount() != rowCount)
            state.SkipWithError("rows are missing");
    }
    state.SetBytesProcessed(state.iterations() * resultsFile().size());
}

/// A field becomes text when it is asked for: loading and then looking at every cell of the table.
void loadAndLookAtEveryCell(benchmark::State &state)
{
    CsvResultsModel model;
    loadInto(model);
    for (auto _ : state) {
        loadInto(model);
        qint64 characters = 0;
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = 0; column < model.columnCount(); ++column)
                characters += model.index(row, column).data().toString().size();
        }
        if (characters < rowCount * model.columnCount())
            state.SkipWithError("cells are empty");
    }
}

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    size_t begin = 0;
    for (size_t end; (end = text.find(separator, begin)) != std::string_view::npos; begin = end + 1)
        parts.push_back(text.substr(begin, end - begin));
    parts.push_back(text.substr(begin));
    return parts;
}

void splitIntoStrings(benchmark::State &state)
{
    const std::string text = resultsFile().toStdString();
    for (auto _ : state) {
        std::vector<std::vector<std::string>> rows;
        for (std::string_view line : split(text, '\n')) {
            std::vector<std::string> row;
            size_t begin = 0;
            for (size_t end; (end = line.find(',', begin)) != std::string_view::npos; begin = end + 1)
                row.emplace_back(line.substr(begin, end - begin));
            row.emplace_back(line.substr(begin));
            rows.push_back(std::move(row));
        }
        if (rows.back().size() != 1 || rows[2].size() != otherFieldCount + pointCount)
            state.SkipWithError("fields are missing");
        benchmark::DoNotOptimize(rows.data());
    }
    state.SetBytesProcessed(state.iterations() * resultsFile().size());
}

BENCHMARK(load)->Unit(benchmark::kMillisecond);
BENCHMARK(loadAndLookAtEveryCell)->Unit(benchmark::kMillisecond);
BENCHMARK(splitIntoStrings)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    // The separator of fields follows the locale.
    QLocale::setDefault(QLocale::c());
    return Comparisons()
        .ratio("loading 1,000 curves / splitting into strings", "load", "splitIntoStrings", 3)
        .ratio("loading 1,000 curves and looking at every cell / splitting into strings",
               "loadAndLookAtEveryCell", "splitIntoStrings", 3)
        .run(argc, argv);
}
