// The graph of measured strings: from the selection to the painted plot, switching its views and what the
// tracker tells. Each beside the least that the plot library and the file can do it in.

#include "benchmarks/support/Comparisons.h"
#include "benchmarks/support/RandomNumbers.h"
#include "benchmarks/support/TemporaryHome.h"
#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurvePalette.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/ui/CurveGraph.h"
#include "curve/ui/CurveTracker.h"
#include "res/Resources.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QItemSelectionModel>
#include <QMouseEvent>
#include <QPen>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <qwt_legend.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_textlabel.h>
#include <qwt_symbol.h>

#include <charconv>
#include <cmath>
#include <memory>
#include <vector>

using namespace IVCurve;

namespace {

constexpr int manyStrings = 500;
constexpr int stringsInFolder = 100;
constexpr int pointCount = 128;
const QSize windowSize(900, 640);

TemporaryHome *home = nullptr;

/// Is told when the canvas of a plot is painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QwtPlot &plot) { plot.canvas()->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        m_painted = m_painted || event->type() == QEvent::Paint;
        return false;
    }

    /// Lets events happen until the canvas has been painted and nothing is left to be done.
    void waitForPaint()
    {
        m_painted = false;
        while (!m_painted)
            QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

private:
    bool m_painted = false;
};

CurveTrace someTrace(RandomNumbers &numbers)
{
    CurveTrace trace;
    int current = 7700 + numbers.below(200);
    for (int i = 0; i < pointCount; ++i) {
        current = qMax(0, current - 1 - numbers.below(i > 100 ? 500 : 5));
        trace.addPoint((4163 + 4670 * i + numbers.below(99)) / 1000.0, current / 1000.0,
                       (894596 + numbers.below(4000)) / 1000.0, 0);
    }
    return trace;
}

StringHeader someHeader()
{
    StringHeader header;
    header.fileVersion = 2;
    header.irradiance = QStringLiteral("896.5");
    header.cellTemp = QStringLiteral("43.2");
    header.isc = QStringLiteral("7.71");
    header.voc = QStringLiteral("602.5");
    return header;
}

/// A folder with folders of a hundred strings.
const QString &fileOfStrings()
{
    static const QString path = [] {
        QString file = home->path(QStringLiteral("strings.kelcrv"));
        QFile::copy(QStringLiteral(":res/reports_en/default.kelcrv"), file);
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
        CurveDatabase database(file);
        database.database().transaction();
        CurveTreeModel *tree = database.treeModel();
        tree->insertNewRow(QModelIndex());
        const QModelIndex all = tree->index(0, 0);
        RandomNumbers numbers;
        for (int i = 0; i < manyStrings; ++i) {
            if (i % stringsInFolder == 0)
                tree->insertNewRow(all);
            TreeItem *node = tree->insertNewRow(tree->index(0, 0, all));
            node->setData(TreeItem::NodeDesc, QStringLiteral("String %1").arg(i + 1));
            node->setData(TreeItem::CurveID, database.graphModel()->insertString(
                                                 StringRecord(someHeader(), someTrace(numbers))));
        }
        database.database().commit();
        tree->slotSave();
        return file;
    }();
    return path;
}

// What the program does ------------------------------------------------------------------------------------

/// A curve file, open, with its graph on the screen.
struct Desk
{
    Desk() : database(fileOfStrings()), tree(database.treeModel()), graph(database.graphModel()), watch(graph)
    {
        QObject::connect(&tree, &QItemSelectionModel::selectionChanged, database.graphModel(),
                         &CurveGraphModel::slotTreeSelectionChanged);
        graph.follow();
        graph.resize(windowSize);
        graph.show();
        watch.waitForPaint();
    }

    void select(int strings)
    {
        const QModelIndex all = database.treeModel()->index(0, 0);
        const QModelIndex row = strings == manyStrings ? all : database.treeModel()->index(0, 0, all);
        tree.select(row, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        watch.waitForPaint();
    }

    void selectNothing()
    {
        tree.clearSelection();
        watch.waitForPaint();
    }

    CurveDatabase database;
    QItemSelectionModel tree;
    CurveGraph graph;
    PaintWatch watch;
};

void select(benchmark::State &state, int strings)
{
    Desk desk;
    for (auto _ : state) {
        desk.select(strings);
        state.PauseTiming();
        if (desk.graph.linesStc().size() != size_t(strings))
            state.SkipWithError("lines are missing");
        desk.selectNothing();
        state.ResumeTiming();
    }
}

void deselect500(benchmark::State &state)
{
    Desk desk;
    for (auto _ : state) {
        state.PauseTiming();
        desk.select(manyStrings);
        state.ResumeTiming();
        desk.selectNothing();
    }
}

void select100(benchmark::State &state)
{
    select(state, stringsInFolder);
}
void select500(benchmark::State &state)
{
    select(state, manyStrings);
}

void switchOnAndOff(benchmark::State &state, void (CurveGraph::*show)(bool))
{
    Desk desk;
    desk.select(manyStrings);
    for (auto _ : state) {
        (desk.graph.*show)(true);
        desk.watch.waitForPaint();
        (desk.graph.*show)(false);
        desk.watch.waitForPaint();
    }
}

void switchMEAS(benchmark::State &state)
{
    switchOnAndOff(state, &CurveGraph::displayMEASToggled);
}
void switchPWR(benchmark::State &state)
{
    switchOnAndOff(state, &CurveGraph::displayPWRToggled);
}

void trackerText(benchmark::State &state)
{
    Desk desk;
    desk.select(stringsInFolder);
    const CurveTracker *tracker = desk.graph.tracker();
    double x = 0;
    for (auto _ : state) {
        x = x < 500 ? x + 1 : 100;
        benchmark::DoNotOptimize(tracker->trackerTextF(QPointF(x, 0)));
    }
}

/// With the mouse on the canvas: what the tracker tells is laid out, too.
void trackerRect(benchmark::State &state)
{
    Desk desk;
    desk.select(stringsInFolder);
    QWidget *canvas = desk.graph.canvas();
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(canvas, &enter);
    QMouseEvent move(QEvent::MouseMove, QPointF(300, 200), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(canvas, &move);
    const CurveTracker *tracker = desk.graph.tracker();
    if (!tracker->isActive())
        state.SkipWithError("the tracker does not see the mouse");
    for (auto _ : state)
        benchmark::DoNotOptimize(tracker->trackerRect(tracker->trackerFont()));
}

// The least that it takes
// ------------------------------------------------------------------------------------

struct PlainString
{
    QString name;
    QString irradiance;
    QVector<QPointF> points;
    int mppIndex = 0;
};

double parsed(const QString &text)
{
    return QLocale::c().toDouble(text);
}

/// Reads the points of a string and corrects them in one go.
PlainString correctedString(const QString &irradiance, const QString &cellTemp, const std::string &text)
{
    PlainString string;
    string.irradiance = irradiance;
    string.points.reserve(pointCount + 2);
    const double T = parsed(cellTemp);
    double G = parsed(irradiance);
    double highest = 0;
    const char *at = text.data();
    const char *const end = at + text.size();
    double isc = 0;
    double voc = 600;
    while (at < end) {
        double voltage = 0;
        double current = 0;
        double irradianceOfPoint = 0;
        long tag = 0;
        at = std::from_chars(at, end, voltage).ptr + 1;
        at = std::from_chars(at, end, current).ptr + 1;
        at = std::from_chars(at, end, irradianceOfPoint).ptr + 1;
        at = std::from_chars(at, end, tag).ptr + 1;
        if (string.points.isEmpty())
            isc = current;
        if (irradianceOfPoint > 0)
            G = irradianceOfPoint;
        const double f = ((T - 25) * 0.004 / (1000 / G * isc) + 1) * G / 1000;
        const double h = (0.085 * std::log(G / 1000) + 1) * ((T - 25) * -0.15 / voc + 1);
        const QPointF point(voltage / h, current / f);
        if (string.points.isEmpty())
            string.points.append(QPointF(0, point.y()));
        if (point.x() * point.y() > highest) {
            highest = point.x() * point.y();
            string.mppIndex = string.points.size();
        }
        string.points.append(point);
    }
    string.points.append(QPointF(string.points.constLast().x(), 0));
    return string;
}

std::vector<PlainString> readStrings(const QSqlDatabase &database, int strings)
{
    std::vector<PlainString> all;
    QSqlQuery query(database);
    query.setForwardOnly(true);
    query.exec(
        QStringLiteral("SELECT CurveID, NodeDesc, Curves.Irradiance, Curves.CellTemp, CurvePoints FROM "
                       "Curves JOIN TreeNodes USING (CurveID) LIMIT %1")
            .arg(strings));
    while (query.next()) {
        all.push_back(correctedString(query.value(2).toString(), query.value(3).toString(),
                                      query.value(4).toString().toStdString()));
        all.back().name = query.value(1).toString();
    }
    return all;
}

/// A plot that looks as the graph does.
class PlainPlot : public QwtPlot
{
public:
    PlainPlot()
    {
        setPalette(QPalette(Qt::white));
        plotLayout()->setAlignCanvasToScales(true);
        auto *canvas = new QwtPlotCanvas;
        canvas->setAutoFillBackground(false);
        canvas->setFrameStyle(0);
        setCanvas(canvas);
        auto *grid = new QwtPlotGrid;
        grid->setMajorPen(Qt::black, 0, Qt::DotLine);
        grid->attach(this);
        insertLegend(new QwtLegend, QwtPlot::BottomLegend);
        m_title = new QwtPlotTextLabel;
        m_title->attach(this);
        resize(windowSize);
    }

    void fill(const std::vector<PlainString> &strings)
    {
        m_shown = draw(strings, Qt::SolidLine);
        QwtText title(QStringLiteral("Folder"));
        title.setRenderFlags(Qt::AlignTop | Qt::AlignHCenter);
        m_title->setText(title);
        replot();
    }

    /// Draws them once more, dashed, and has these curves instead of the others in the legend.
    void fillAgain(const std::vector<PlainString> &strings)
    {
        m_added = draw(strings, Qt::DashLine);
        moveLegend(m_shown, false);
        replot();
    }

    void takeBack()
    {
        for (QwtPlotCurve *curve : qAsConst(m_added))
            delete curve;
        const QwtPlotItemList markers = itemList(QwtPlotItem::Rtti_PlotMarker);
        for (int i = m_shown.size(); i < markers.size(); ++i)
            delete markers.at(i);
        moveLegend(m_shown, true);
        replot();
    }

    void empty()
    {
        detachItems(QwtPlotItem::Rtti_PlotCurve);
        detachItems(QwtPlotItem::Rtti_PlotMarker);
        replot();
    }

private:
    QVector<QwtPlotCurve *> draw(const std::vector<PlainString> &strings, Qt::PenStyle style)
    {
        double maxV = 0;
        double maxI = 0;
        CurvePalette palette;
        QVector<QwtPlotCurve *> drawn;
        for (const PlainString &string : strings) {
            const QColor colour = palette.nextColour();
            auto *curve = new QwtPlotCurve(QStringLiteral("%1 (%2)").arg(string.name, string.irradiance));
            curve->setPen(colour, 2.0, style);
            curve->setRenderHint(QwtPlotItem::RenderAntialiased);
            curve->setSamples(string.points);
            curve->attach(this);
            drawn.append(curve);
            auto *marker = new QwtPlotMarker;
            marker->setSymbol(
                new QwtSymbol(QwtSymbol::Ellipse, QBrush(Qt::white), QPen(colour, 2.0), QSize(8, 8)));
            marker->setValue(string.points.at(string.mppIndex));
            marker->attach(this);
            for (const QPointF &point : string.points) {
                maxV = qMax(maxV, point.x());
                maxI = qMax(maxI, point.y());
            }
        }
        setAxisScale(xBottom, 0, maxV * 1.1);
        setAxisScale(yLeft, 0, maxI * 1.1);
        return drawn;
    }

    void moveLegend(const QVector<QwtPlotCurve *> &curves, bool on)
    {
        for (QwtPlotCurve *curve : curves) {
            curve->setItemAttribute(QwtPlotItem::Legend, on);
            updateLegend(curve);
        }
    }

    QwtPlotTextLabel *m_title;
    QVector<QwtPlotCurve *> m_shown;
    QVector<QwtPlotCurve *> m_added;
};

void selectPlainly(benchmark::State &state, int strings)
{
    const CurveDatabase file(fileOfStrings());
    PlainPlot plot;
    PaintWatch watch(plot);
    plot.show();
    watch.waitForPaint();
    for (auto _ : state) {
        const std::vector<PlainString> read = readStrings(file.database(), strings);
        if (read.size() != size_t(strings))
            state.SkipWithError("strings are missing");
        plot.fill(read);
        watch.waitForPaint();
        state.PauseTiming();
        plot.empty();
        watch.waitForPaint();
        state.ResumeTiming();
    }
}

void switchPlainly(benchmark::State &state)
{
    const CurveDatabase file(fileOfStrings());
    const std::vector<PlainString> read = readStrings(file.database(), manyStrings);
    PlainPlot plot;
    PaintWatch watch(plot);
    plot.show();
    plot.fill(read);
    watch.waitForPaint();
    for (auto _ : state) {
        plot.fillAgain(read);
        watch.waitForPaint();
        plot.takeBack();
        watch.waitForPaint();
    }
}

void selectPlainly100(benchmark::State &state)
{
    selectPlainly(state, stringsInFolder);
}
void selectPlainly500(benchmark::State &state)
{
    selectPlainly(state, manyStrings);
}

BENCHMARK(select100)->Unit(benchmark::kMillisecond);
BENCHMARK(selectPlainly100)->Unit(benchmark::kMillisecond);
BENCHMARK(select500)->Unit(benchmark::kMillisecond);
BENCHMARK(selectPlainly500)->Unit(benchmark::kMillisecond);
BENCHMARK(deselect500)->Unit(benchmark::kMillisecond);
BENCHMARK(switchMEAS)->Unit(benchmark::kMillisecond);
BENCHMARK(switchPlainly)->Unit(benchmark::kMillisecond);
BENCHMARK(switchPWR)->Unit(benchmark::kMillisecond);
BENCHMARK(trackerText)->Unit(benchmark::kMillisecond);
BENCHMARK(trackerRect)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    TemporaryHome temporary;
    home = &temporary;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    initResources();
    QLocale::setDefault(QLocale(QLocale::English));
    return Comparisons()
        .ratio("selecting 100 strings until they are painted / SQLite and Qwt in one pass", "select100",
               "selectPlainly100", 1.5)
        .ratio("selecting 500 strings until they are painted / SQLite and Qwt in one pass", "select500",
               "selectPlainly500", 1.5)
        .limit("deselecting 500 strings", "deselect500", 100)
        .ratio("showing the measured curves of 500 strings and hiding them / Qwt in one pass", "switchMEAS",
               "switchPlainly", 1.5)
        .limit("showing the power curves of 500 strings and hiding them", "switchPWR", 500)
        .limit("what the tracker tells of 41 strings", "trackerText", 1)
        .limit("laying out what the tracker tells of 41 strings", "trackerRect", 16)
        .run(argc, argv);
}
