// The report on curves: from loaded strings to the finished PDF, and its steps. Beside it what the toolkit
// takes to print the same HTML and the same graph by itself.

#include "app/core/Fonts.h"
#include "app/core/Language.h"
#include "benchmarks/support/Comparisons.h"
#include "benchmarks/support/RandomNumbers.h"
#include "benchmarks/support/TemporaryHome.h"
#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/ui/CurveGraph.h"
#include "curve/ui/CurveReport.h"
#include "curve/ui/CurveReportPdf.h"
#include "res/Resources.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QItemSelectionModel>
#include <QPainter>
#include <QPrinter>
#include <QTextDocument>
#include <qwt_plot_renderer.h>

#include <cmath>

using namespace IVCurve;

namespace {

constexpr int pointCount = 128;

TemporaryHome *home = nullptr;

StringRecord someString(RandomNumbers &numbers, int number)
{
    CurveTrace trace;
    const double shortCircuit = 7.7 + numbers.below(200) / 1000.0;
    for (int i = 0; i < pointCount; ++i) {
        const double part = i / double(pointCount);
        trace.addPoint(4 + 4.67 * i, shortCircuit * (1 - std::pow(part, 12)), 894 + numbers.below(4), 0);
    }
    StringHeader header;
    header.fileVersion = 2;
    header.name = QStringLiteral("String %1").arg(number);
    header.testDate = QStringLiteral("2016-05-12T10:11:29");
    header.irradiance = QStringLiteral("896.5");
    header.cellTemp = QStringLiteral("43.2");
    header.ff = QStringLiteral("74.2");
    StringRecord record(header, trace);
    record.findMaximumPower();
    return record;
}

/// A file with so many strings, all of them selected and drawn.
class Sheet
{
public:
    explicit Sheet(int strings)
        : m_file(emptyFile(strings)), m_tree(m_file.treeModel()), m_graph(m_file.graphModel())
    {
        QObject::connect(&m_tree, &QItemSelectionModel::selectionChanged, m_file.graphModel(),
                         &CurveGraphModel::slotTreeSelectionChanged);
        m_graph.follow();
        RandomNumbers numbers;
        CurveTreeModel *tree = m_file.treeModel();
        m_file.database().transaction();
        tree->insertNewRow(QModelIndex());
        for (int i = strings; i > 0; --i) {
            TreeItem *node = tree->insertNewRow(tree->index(0, 0));
            node->setData(TreeItem::NodeDesc, QStringLiteral("String %1").arg(i));
            node->setData(TreeItem::CurveID, m_file.graphModel()->insertString(someString(numbers, i)));
        }
        m_file.database().commit();
        m_tree.select(tree->index(0, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        for (const auto &entry : m_file.graphModel()->records())
            entry.second->module() = ModuleBinding(1, 16, 1, 37.9, 8.6, 31.2, 8.1);
    }

    /// The report's HTML. Its corrected and nominal curves are made anew if `fresh`.
    QString html(bool fresh)
    {
        QString text;
        CurveReport::readTemplate(text);
        CurveReport report(text);
        for (const auto &entry : m_file.graphModel()->records()) {
            if (fresh)
                entry.second->clearDerivedCurves();
            report.addString(*entry.second);
        }
        return report.html();
    }
    CurveGraph &graph() { return m_graph; }

private:
    static QString emptyFile(int strings)
    {
        const QString path = home->path(QStringLiteral("%1.kelcrv").arg(strings));
        QFile::remove(path);
        QFile::copy(QStringLiteral(":res/reports_en/default.kelcrv"), path);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        return path;
    }

    CurveDatabase m_file;
    QItemSelectionModel m_tree;
    CurveGraph m_graph;
};

void report(benchmark::State &state, int strings)
{
    Sheet sheet(strings);
    const QString path = home->path(QStringLiteral("report.pdf"));
    for (auto _ : state) {
        if (!writeReportPdf(sheet.html(false), sheet.graph(), path))
            state.SkipWithError("the report was not written");
    }
    state.counters["kB"] = static_cast<double>(QFileInfo(path).size()) / 1000;
}

void report100(benchmark::State &state)
{
    report(state, 100);
}

void report500(benchmark::State &state)
{
    report(state, 500);
}

void html100(benchmark::State &state)
{
    Sheet sheet(100);
    for (auto _ : state)
        benchmark::DoNotOptimize(sheet.html(true));
}

/// The toolkit's own way to print a text, and the plot library's to render a plot behind it.
void toolkit100(benchmark::State &state)
{
    Sheet sheet(100);
    const QString html = sheet.html(false);
    for (auto _ : state) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFileName(home->path(QStringLiteral("plain.pdf")));
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setPageOrientation(QPageLayout::Landscape);
        QTextDocument document;
        document.setDefaultFont(QFont(QStringLiteral("Arial"), 9));
        document.setHtml(html);
        document.print(&printer);
        QPrinter second(QPrinter::HighResolution);
        second.setOutputFileName(home->path(QStringLiteral("plain graph.pdf")));
        second.setPageOrientation(QPageLayout::Landscape);
        QwtPlotRenderer().renderTo(&sheet.graph(), second);
    }
}

BENCHMARK(report100)->Unit(benchmark::kMillisecond);
BENCHMARK(html100)->Unit(benchmark::kMillisecond);
BENCHMARK(toolkit100)->Unit(benchmark::kMillisecond);
BENCHMARK(report500)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    TemporaryHome temporary;
    home = &temporary;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    initResources();
    substituteMissingFonts();
    useLanguage(QStringLiteral("en"), QLocale(QLocale::English));
    return Comparisons()
        .limit("the report on 100 strings", "report100", 2000)
        .ratio("the report on 100 strings / its HTML and graph by the toolkit's own printing", "report100",
               "toolkit100", 1.5)
        .share("correcting the curves and filling in the values", "html100", "report100")
        .ratio("the report on 500 strings / on 100", "report500", "report100", 5.5)
        .run(argc, argv);
}
