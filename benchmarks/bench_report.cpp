// Opening a report until it is painted, step by step, and writing a row of results into it.

#include "app/core/Fonts.h"
#include "app/core/Identity.h"
#include "app/core/Language.h"
#include "app/document/ZoomableGraphicsView.h"
#include "benchmarks/support/Comparisons.h"
#include "benchmarks/support/SampleReports.h"
#include "benchmarks/support/TemporaryHome.h"
#include "import/CsvResultsModel.h"
#include "import/ImportStatusMessage.h"
#include "import/ResultsImporter.h"
#include "report/GraphicalReportDocument.h"
#include "report/ReportReader.h"
#include "report/ReportScene.h"
#include "report/file/ReportXml.h"
#include "res/Resources.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QBuffer>
#include <QProcess>
#include <QUndoStack>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

constexpr char firstOpeningArgument[] = "--first-opening";
constexpr QSize documentSize(1000, 900);

TemporaryHome *home = nullptr;

QString pristineReport()
{
    return home->path(QStringLiteral("Pristine.kelatr"));
}

/// The form with two pages, of check boxes and remarks.
QString inspectionReport()
{
    return home->path(QStringLiteral("Inspection.kelir"));
}

QString filledReport()
{
    return home->path(QStringLiteral("Filled.kelatr"));
}

template <typename Step> double seconds(Step step)
{
    const auto start = std::chrono::steady_clock::now();
    step();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Takes the time of a step for each round. `step` returns it, so that it can prepare and clean up
/// unmeasured.
template <typename Step> void measure(benchmark::State &state, Step step)
{
    for (auto _ : state)
        state.SetIterationTime(step());
}

std::unique_ptr<GraphicalReportDocument> open(const QString &path)
{
    auto document = std::make_unique<GraphicalReportDocument>(path);
    document->resize(documentSize);
    return document;
}

double secondsToOpenAndPaint(const QString &path)
{
    std::unique_ptr<GraphicalReportDocument> document;
    return seconds([&] {
        document = open(path);
        benchmark::DoNotOptimize(document->view()->grab());
    });
}

/// Also tells how many items the report has, so that one can see that it is all there.
void openReport(benchmark::State &state, QString (*report)())
{
    const QString path = report();
    measure(state, [&path] { return secondsToOpenAndPaint(path); });
    state.counters["items"] = open(path)->scene()->items().size();
}

/// The first report of a process, which has fonts and icons to load.
void openFirst(benchmark::State &state)
{
    measure(state, [&state] {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QCoreApplication::applicationFilePath(),
                      {QLatin1String(firstOpeningArgument), filledReport()});
        bool isNumber = false;
        const double time = process.waitForFinished() ? process.readAll().toDouble(&isNumber) : 0;
        if (!isNumber)
            state.SkipWithError("the opening process failed");
        return time;
    });
}

/// What reading a report comes to, step by step, as the scene does it.
struct Reading
{
    void readContainers()
    {
        readReportFileEntries(filledReport(), entries);
        readReportFileEntries(QStringLiteral(":res/reports_en/kelatr_rev3.pak"), templateEntries);
    }
    void parse()
    {
        ReportXml::parse(entries.first().data, document);
        ReportXml::parse(templateEntries.first().data, templateDocument);
    }
    void build() { reader.build(templateDocument.documentElement(), templateEntries); }
    void merge() { reader.merge(document.documentElement(), entries); }

    ReportFileEntries entries, templateEntries;
    QDomDocument document, templateDocument;
    QUndoStack undoStack;
    ReportScene scene{&undoStack};
    ReportIndex index;
    ReportReader reader{scene, scene, index};
};

/// The time of a step, with the steps before it unmeasured.
void readingStep(benchmark::State &state, void (Reading::*measured)())
{
    measure(state, [&state, measured] {
        Reading reading;
        for (auto step : {&Reading::readContainers, &Reading::parse, &Reading::build, &Reading::merge}) {
            const double time = seconds([&] { (reading.*step)(); });
            if (step != measured)
                continue;
            if (reading.entries.isEmpty() || reading.templateEntries.isEmpty())
                state.SkipWithError("there is nothing to read");
            return time;
        }
        return 0.0;
    });
}

/// The document around the pages: a report without a template has none.
void buildWindow(benchmark::State &state)
{
    const QString path = home->path(QStringLiteral("Empty.kelreport"));
    writeReportFileEntries({{QLatin1String(ReportXml::entryName), "<document/>"}}, path);
    measure(state, [&path] {
        std::unique_ptr<GraphicalReportDocument> document;
        return seconds([&] { document = open(path); });
    });
}

void firstPaint(benchmark::State &state)
{
    measure(state, [] {
        const auto document = open(filledReport());
        return seconds([&] { benchmark::DoNotOptimize(document->view()->grab()); });
    });
}

/// Each round fills the same free column: the one before is undone.
void importRow(benchmark::State &state)
{
    QBuffer device;
    device.setData("PV Tester,4711-0815,V2.10,2\n"
                   "TestType,Index,DD/MM/YYYY,HH:MM:SS,Rpe (Ohm),Voc (VDC),Isc (ADC),Riso (MOhm),Viso (V),"
                   "Iclamp (Amp),Irr (W/m2),Ta (C),Tpv (C),FF,Vmpp (V),Impp(A),IVCurve,StatusCode,Checksum\n"
                   "2,1,8/5/2016,18:50:13,0.36,304.6,9.24,>200,1000,3.7,974,,,,,,,0,0C42\n");
    device.open(QIODevice::ReadOnly);
    CsvResultsModel model;
    model.load(&device);
    const auto document = open(pristineReport());
    measure(state, [&] {
        int status = NowhereToInsert;
        const double time = seconds(
            [&] { status = ResultsImporter(document.get(), &model).importRows({model.index(0, 0)}); });
        if (status != Imported)
            state.SkipWithError("the row was not imported");
        document->undo();
        return time;
    });
}

#define MILLISECONDS ->UseManualTime()->Unit(benchmark::kMillisecond)
BENCHMARK_CAPTURE(openReport, pristine, pristineReport) MILLISECONDS;
BENCHMARK_CAPTURE(openReport, filled, filledReport) MILLISECONDS;
BENCHMARK_CAPTURE(openReport, inspection, inspectionReport) MILLISECONDS;
BENCHMARK(openFirst) MILLISECONDS->Iterations(1);
BENCHMARK(buildWindow) MILLISECONDS;
BENCHMARK_CAPTURE(readingStep, containers, &Reading::readContainers) MILLISECONDS;
BENCHMARK_CAPTURE(readingStep, xml, &Reading::parse) MILLISECONDS;
BENCHMARK_CAPTURE(readingStep, build, &Reading::build) MILLISECONDS;
BENCHMARK_CAPTURE(readingStep, merge, &Reading::merge) MILLISECONDS;
BENCHMARK(firstPaint) MILLISECONDS;
BENCHMARK(importRow) MILLISECONDS;

} // namespace

int main(int argc, char **argv)
{
    TemporaryHome temporaryHome;
    home = &temporaryHome;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    initResources();
    Identity::applyToApplication();
    substituteMissingFonts();
    useLanguage(QStringLiteral("en"), QLocale::c());
    if (argc == 3 && std::strcmp(argv[1], firstOpeningArgument) == 0) {
        std::printf("%.9f", secondsToOpenAndPaint(QFile::decodeName(argv[2])));
        return 0;
    }
    writePristineReport(pristineReport());
    writeFilledReport(filledReport());
    writeFilledReport(inspectionReport());
    return Comparisons()
        .limit("opening a pristine report until it is painted", "openReport/pristine", 100)
        .limit("opening a filled report until it is painted", "openReport/filled", 100)
        .limit("opening a filled inspection report until it is painted", "openReport/inspection", 100)
        .limit("opening the first report of a process until it is painted", "openFirst", 100)
        .share("  of a filled report, the window around the pages", "buildWindow", "openReport/filled")
        .share("  reading the containers", "readingStep/containers", "openReport/filled")
        .share("  parsing the XML", "readingStep/xml", "openReport/filled")
        .share("  building the items of the template", "readingStep/build", "openReport/filled")
        .share("  laying the document over them", "readingStep/merge", "openReport/filled")
        .share("  the first paint", "firstPaint", "openReport/filled")
        .limit("importing a row of results", "importRow", 100)
        .run(argc, argv);
}
