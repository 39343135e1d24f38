// Measured curves: decoding their points, correcting them, and keeping them in memory while they are
// selected. Each beside the least that can be done for it.

#include "benchmarks/support/Comparisons.h"
#include "benchmarks/support/PlainCorrection.h"
#include "benchmarks/support/SampleCurves.h"
#include "benchmarks/support/TemporaryHome.h"
#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/data/PointText.h"
#include "res/Resources.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QSqlQuery>
#include <QVariant>

#include <charconv>
#include <cmath>
#include <string>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

using namespace IVCurve;

namespace {

TemporaryHome *home = nullptr;

std::vector<StringRecord> someRecords(STCparameters::Algorithm algorithm)
{
    std::vector<StringRecord> records;
    for (const QString &text : SampleCurves::texts()) {
        CurveTrace trace;
        appendPoints(text, trace);
        records.emplace_back(SampleCurves::header(), CurveTrace());
        records.back().takeMeasured(trace);
        records.back().settings().algorithm = algorithm;
        records.back().settings().perPointIrradiance = true;
    }
    return records;
}

// Points and their text ------------------------------------------------------------------------------------

void decodePoints(benchmark::State &state)
{
    const QStringList &texts = SampleCurves::texts();
    for (auto _ : state) {
        for (const QString &text : texts) {
            CurveTrace trace;
            appendPoints(text, trace);
            benchmark::DoNotOptimize(trace.points.constData());
        }
    }
}

struct PlainPoint
{
    double voltage, current, irradiance;
    long tag;
};

void decodePointsByFromChars(benchmark::State &state)
{
    std::vector<std::string> texts;
    for (const QString &text : SampleCurves::texts())
        texts.push_back(text.toStdString());
    for (auto _ : state) {
        for (const std::string &text : texts) {
            std::vector<PlainPoint> points;
            points.reserve(SampleCurves::pointCount);
            const char *at = text.data();
            const char *const end = at + text.size();
            while (at < end) {
                PlainPoint point{};
                at = std::from_chars(at, end, point.voltage).ptr + 1;
                at = std::from_chars(at, end, point.current).ptr + 1;
                at = std::from_chars(at, end, point.irradiance).ptr + 1;
                at = std::from_chars(at, end, point.tag).ptr + 1;
                points.push_back(point);
            }
            if (points.size() != SampleCurves::pointCount)
                state.SkipWithError("points are missing");
            benchmark::DoNotOptimize(points.data());
        }
    }
}

// Correction ------------------------------------------------------------------------------------------------

void correct(benchmark::State &state, STCparameters::Algorithm algorithm)
{
    std::vector<StringRecord> records = someRecords(algorithm);
    for (auto _ : state) {
        for (StringRecord &record : records) {
            benchmark::DoNotOptimize(record.stcCurve(false).points.constData());
            record.clearDerivedCurves();
        }
    }
}

bool isNear(double a, double b, double highest)
{
    return std::abs(a - b) <= 1e-12 * highest;
}

/// A baseline that computes something else would be none.
bool agrees(const PlainCurve &plain, const CurveTrace &corrected)
{
    if (plain.points.size() != corrected.refs.size() || plain.companions.size() != corrected.refs.size())
        return false;
    for (const TracePoint &point : corrected.refs) {
        const QPointF &other = plain.points[static_cast<size_t>(point.index)];
        if (!isNear(other.x(), point.position().x(), corrected.maxV) ||
            !isNear(other.y(), point.position().y(), corrected.maxI))
            return false;
    }
    return true;
}

void correctPlainly(benchmark::State &state, STCparameters::Algorithm algorithm,
                    PlainCurve (*formula)(const StringRecord &record))
{
    std::vector<StringRecord> records = someRecords(algorithm);
    for (StringRecord &record : records) {
        if (!agrees(formula(record), record.stcCurve(false)))
            state.SkipWithError("the plain loop comes to other curves");
        record.clearDerivedCurves();
    }
    for (auto _ : state) {
        for (const StringRecord &record : records) {
            const PlainCurve curve = formula(record);
            benchmark::DoNotOptimize(curve.points.data());
            benchmark::DoNotOptimize(curve.companions.data());
        }
    }
}

/// The script measures by itself, so that its start does not count.
void correctByNumpy(benchmark::State &state, const char *method)
{
    const QString path = home->path(QStringLiteral("curves.txt"));
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(SampleCurves::texts().join('\n').toLatin1());
    file.close();
    for (auto _ : state) {
        QProcess script;
        script.start(QStringLiteral(NUMPY_SCRIPT), {QLatin1String(method), path});
        script.waitForFinished(-1);
        const double seconds = script.readAllStandardOutput().trimmed().toDouble();
        if (!(seconds > 0)) {
            state.SkipWithError("python3-numpy is not installed");
            return;
        }
        state.SetIterationTime(seconds);
    }
}

// Selection -------------------------------------------------------------------------------------------------

QString fileOfStrings()
{
    static const QString path = [] {
        const QString file = home->path(QStringLiteral("selection.kelcrv"));
        SampleCurves::writeEmptyFile(file);
        CurveDatabase database(file);
        QSqlQuery(database.database()).exec(QStringLiteral("PRAGMA synchronous=OFF"));
        CurveTreeModel *tree = database.treeModel();
        tree->insertNewRow(QModelIndex());
        for (const QString &text : SampleCurves::texts()) {
            CurveTrace trace;
            appendPoints(text, trace);
            TreeItem *node = tree->insertNewRow(tree->index(0, 0));
            node->setData(TreeItem::CurveID,
                          database.graphModel()->insertString(StringRecord(SampleCurves::header(), trace)));
        }
        tree->slotSave();
        return file;
    }();
    return path;
}

/// All the strings of a curve file, selected by their folder.
class Selection
{
public:
    explicit Selection(const CurveDatabase &database) : m_graph(database.graphModel())
    {
        const QModelIndex folder = database.treeModel()->index(0, 0);
        m_row = QItemSelection(folder, folder.sibling(0, CurveTreeModel::LastColumn));
    }

    void select() { m_graph->slotTreeSelectionChanged(m_row, QItemSelection()); }
    void deselect() { m_graph->slotTreeSelectionChanged(QItemSelection(), m_row); }

    /// Asks each string for all its curves. The number of their points.
    int makeCurves()
    {
        int points = 0;
        for (quint32 id = 1; id <= SampleCurves::stringCount; ++id) {
            StringRecord &record = m_graph->record(id);
            record.module() = ModuleBinding(0, 18, 1, 37.5, 8.8, 30.5, 8.3);
            points += record.measuredPowerCurve().size() + record.stcPowerCurve().size() +
                      record.nominalPowerCurve().size();
            points +=
                record.measuredCurve().size() + record.stcCurve(true).size() + record.nominalCurve().size();
        }
        return points;
    }

private:
    CurveGraphModel *m_graph;
    QItemSelection m_row;
};

/// Loading, correcting and drawing the nominal curves of a thousand strings.
void selectStrings(benchmark::State &state)
{
    const CurveDatabase database(fileOfStrings());
    Selection selection(database);
    for (auto _ : state) {
        selection.select();
        benchmark::DoNotOptimize(selection.makeCurves());
        state.PauseTiming();
        selection.deselect();
        state.ResumeTiming();
    }
}

/// What the toolkit's driver alone takes for their rows.
void readRowsOfStrings(benchmark::State &state)
{
    const CurveDatabase database(fileOfStrings());
    for (auto _ : state) {
        for (quint32 id = 1; id <= SampleCurves::stringCount; ++id) {
            QSqlQuery query(database.database());
            query.setForwardOnly(true);
            query.prepare(QStringLiteral("SELECT * FROM Curves WHERE CurveID = ?"));
            query.addBindValue(id);
            if (!query.exec() || !query.next())
                state.SkipWithError("strings are missing");
            benchmark::DoNotOptimize(query.value(QStringLiteral("CurvePoints")).toString().constData());
        }
    }
}

#ifdef __GLIBC__
double allocatedBytes()
{
    const auto memory = mallinfo2();
    return static_cast<double>(memory.uordblks + memory.hblkhd);
}

/// What the strings hold in memory with all their curves, against 40 bytes a point: two coordinates, and a
/// companion of owner, place, irradiance and tag.
double memoryOfStrings()
{
    const CurveDatabase database(fileOfStrings());
    Selection selection(database);
    const double before = allocatedBytes();
    selection.select();
    const int points = selection.makeCurves();
    return (allocatedBytes() - before) / (40.0 * points);
}
#endif

#define MILLISECONDS ->Unit(benchmark::kMillisecond)
BENCHMARK(decodePoints) MILLISECONDS;
BENCHMARK(decodePointsByFromChars) MILLISECONDS;
BENCHMARK_CAPTURE(correct, Anderson, STCparameters::AndersonAlgorithm) MILLISECONDS;
BENCHMARK_CAPTURE(correct, IEC60891, STCparameters::IEC60891Algorithm) MILLISECONDS;
BENCHMARK_CAPTURE(correct, Blaesser, STCparameters::BlaesserAlgorithm) MILLISECONDS;
BENCHMARK_CAPTURE(correctPlainly, Anderson, STCparameters::AndersonAlgorithm, PlainCorrection::byAnderson)
MILLISECONDS;
BENCHMARK_CAPTURE(correctPlainly, IEC60891, STCparameters::IEC60891Algorithm, PlainCorrection::byIEC60891)
MILLISECONDS;
BENCHMARK_CAPTURE(correctPlainly, Blaesser, STCparameters::BlaesserAlgorithm, PlainCorrection::byBlaesser)
MILLISECONDS;
BENCHMARK_CAPTURE(correctByNumpy, Anderson, "anderson") MILLISECONDS->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(correctByNumpy, IEC60891, "iec60891") MILLISECONDS->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(correctByNumpy, Blaesser, "blaesser") MILLISECONDS->UseManualTime()->Iterations(1);
BENCHMARK(selectStrings) MILLISECONDS;
BENCHMARK(readRowsOfStrings) MILLISECONDS;

} // namespace

int main(int argc, char **argv)
{
    TemporaryHome temporary;
    home = &temporary;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    initResources();
    QLocale::setDefault(QLocale(QLocale::English));
    Comparisons comparisons;
    comparisons.ratio("decoding the points of 1,000 curves / from_chars", "decodePoints",
                      "decodePointsByFromChars", 2);
    for (const std::string method : {"Anderson", "IEC60891", "Blaesser"})
        comparisons
            .ratio("correcting 1,000 curves by " + method + " / plain loop", "correct/" + method,
                   "correctPlainly/" + method, 1.5)
            .ratio("  numpy / plain loop", "correctByNumpy/" + method, "correctPlainly/" + method);
    comparisons
        .each("selecting a string and making all its curves", "selectStrings", SampleCurves::stringCount)
        .ratio("  / reading its row alone", "selectStrings", "readRowsOfStrings");
#ifdef __GLIBC__
    comparisons.number("memory of a selected string / 40 bytes a point of its six curves", memoryOfStrings,
                       1.5);
#endif
    return comparisons.run(argc, argv);
}
