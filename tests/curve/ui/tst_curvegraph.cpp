#include "curve/data/CurveModuleRow.h"
#include "curve/ui/CurveTracker.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/curve/ui/GraphDesk.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <qwt_legend.h>
#include <qwt_legend_data.h>
#include <qwt_painter.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_textlabel.h>
#include <qwt_plot_zoomer.h>
#include <qwt_scale_div.h>
#include <qwt_scale_widget.h>
#include <qwt_symbol.h>

using namespace IVCurve;

Q_DECLARE_METATYPE(IVCurve::TraceKind)

namespace {

using Kinds = QVector<TraceKind>;

struct Switch
{
    const char *name;
    bool (GraphLines::*isShown)() const;
    void (CurveGraph::*show)(bool on);
};

const Switch switches[] = {{"MEAS", &GraphLines::showMEAS, &CurveGraph::displayMEASToggled},
                           {"STC", &GraphLines::showSTC, &CurveGraph::displaySTCToggled},
                           {"NOM", &GraphLines::showNOM, &CurveGraph::displayNOMToggled},
                           {"IV", &GraphLines::showIV, &CurveGraph::displayIVToggled},
                           {"PWR", &GraphLines::showPWR, &CurveGraph::displayPWRToggled}};

/// Turns exactly these switches on.
void showOnly(CurveGraph &graph, const QStringList &names)
{
    for (const Switch &each : switches) {
        const bool on = names.contains(each.name);
        if (on != (graph.*each.isShown)())
            (graph.*each.show)(on);
    }
}

Kinds kindsOf(const CurveGraph &graph, quint32 id)
{
    Kinds kinds;
    for (const TraceKind kind : allTraceKinds) {
        if (graph.line(kind, id))
            kinds.append(kind);
    }
    return kinds;
}

/// The kinds of a string's lines that have the legend attribute.
Kinds kindsInLegend(const CurveGraph &graph, quint32 id)
{
    Kinds kinds;
    for (const TraceKind kind : kindsOf(graph, id)) {
        if (graph.line(kind, id)->testItemAttribute(QwtPlotItem::Legend))
            kinds.append(kind);
    }
    return kinds;
}

/// Is a text with tags drawn as it stands? It is wider then than what the tags leave of it.
bool isPlain(const QwtText &text)
{
    return text.textSize().width() > QwtText(text.text(), QwtText::RichText).textSize(text.font()).width();
}

int lineCount(const CurveGraph &graph)
{
    return graph.itemList(QwtPlotItem::Rtti_PlotCurve).size();
}

int markerCount(const CurveGraph &graph)
{
    return graph.itemList(QwtPlotItem::Rtti_PlotMarker).size();
}

template <typename Item> const Item *onlyItem(const CurveGraph &graph, int rtti)
{
    const QwtPlotItemList items = graph.itemList(rtti);
    return items.size() == 1 ? static_cast<const Item *>(items.first()) : nullptr;
}

} // namespace

class TestCurveGraph : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void startsWithCurrentAtStandardTestConditions();
    void axesLegendAndGridAreThere();
    void titleStandsOnTheCanvas();

    void linesAreTheProductOfKindsAndSources_data();
    void linesAreTheProductOfKindsAndSources();
    void switchesLeadToTheSameLinesInAnyOrder();
    void withNeitherCurrentNorPowerThereIsNoLineAndNoLegend_data();
    void withNeitherCurrentNorPowerThereIsNoLineAndNoLegend();
    void lineHasColourStyleAndAxisOfItsTrace_data();
    void lineHasColourStyleAndAxisOfItsTrace();
    void lineThatIsThereIsNotMadeAgain();
    void axesFollowTheirSwitches();

    void legendTellsEachStringOnce_data();
    void legendTellsEachStringOnce();
    void legendChoosesTheLineByPreference_data();
    void legendChoosesTheLineByPreference();
    void withoutASourceTheLegendStaysAsItWas();
    void legendEntryTellsNameIrradianceAndPenStyle_data();
    void legendEntryTellsNameIrradianceAndPenStyle();
    void namesInLegendAndTitleAreNoMarkup();
    void titleFollowsTheSelection();

    void scalesReachTenPercentBeyondTheLargestValues_data();
    void scalesReachTenPercentBeyondTheLargestValues();
    void scalesGrowWithLinesAndShrinkWhenTheLargestGoes();
    void removingASmallerLineLeavesTheScales();
    void switchingOffRescalesOnlyWhatLosesItsMaximum();
    void withoutLinesTheMaximaAreZero();

    void markerStandsAtTheMaximumPower();
    void powerLinesHaveNoMarker();
    void maximumAtIndexZeroIsMarkedOnMeasuredLinesOnly_data();
    void maximumAtIndexZeroIsMarkedOnMeasuredLinesOnly();
    void curveWithoutAMaximumHasNoMarker();
    void removedLinesTakeTheirMarkersAlong();

    void stringWithoutAModuleHasAnEmptyNominalLine();
    void stringWithoutPointsIsDrawnAsNothing();
    void stringThatIsNotLoadedOrHasNoRowGetsNoLine();
    void rowOfAShownStringIsRemoved();
    void detailsAndModuleRedrawTheString();
    void colourChangeRedrawsTheString_data();
    void colourChangeRedrawsTheString();
    void deletedGraphLeavesTheModelAlone();
    void exceptionIsShownAndHeld();
    void hundredsOfStringsComeAndGo();
    void denseScreensArePaintedFinely();
};

void TestCurveGraph::init()
{
    TestHome::instance()->reset();
}

void TestCurveGraph::startsWithCurrentAtStandardTestConditions()
{
    GraphDesk desk;
    const CurveGraph &graph = desk.graph();
    QVERIFY(graph.showIV());
    QVERIFY(!graph.showPWR());
    QVERIFY(graph.showSTC());
    QVERIFY(!graph.showNOM());
    QVERIFY(!graph.showMEAS());
    QCOMPARE(graph.titleText(), QString("IV Curve"));
    QCOMPARE(lineCount(graph), 0);
    QCOMPARE(graph.maxVoltage() + graph.maxCurrent() + graph.maxPower(), 0.0);
}

void TestCurveGraph::axesLegendAndGridAreThere()
{
    GraphDesk desk;
    const CurveGraph &graph = desk.graph();
    QCOMPARE(graph.axisTitle(QwtPlot::xBottom).text(), QString("Voltage (V)"));
    QCOMPARE(graph.axisTitle(QwtPlot::yLeft).text(), QString("Current (A)"));
    QCOMPARE(graph.axisTitle(QwtPlot::yRight).text(), QString("Power (W)"));
    QVERIFY(graph.axisEnabled(QwtPlot::yLeft));
    QVERIFY(!graph.axisEnabled(QwtPlot::yRight));
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis)
        QCOMPARE(graph.axisWidget(axis)->margin(), 0);
    QCOMPARE(graph.plotLayout()->legendPosition(), QwtPlot::BottomLegend);
    auto *legend = qobject_cast<const QwtLegend *>(graph.legend());
    QVERIFY(legend);
    QCOMPARE(legend->frameStyle(), int(QFrame::Box) | int(QFrame::Sunken));
    auto *canvas = qobject_cast<const QwtPlotCanvas *>(graph.canvas());
    QVERIFY(canvas);
    QCOMPARE(canvas->frameStyle(), 0);
    QVERIFY(!canvas->autoFillBackground());
    const auto *grid = onlyItem<QwtPlotGrid>(graph, QwtPlotItem::Rtti_PlotGrid);
    QVERIFY(grid);
    QCOMPARE(grid->majorPen(), QPen(QBrush(Qt::black), 0, Qt::DotLine));
    QCOMPARE(grid->minorPen(), QPen(QBrush(Qt::gray), 0, Qt::DotLine));
}

void TestCurveGraph::titleStandsOnTheCanvas()
{
    GraphDesk desk;
    const auto *title = onlyItem<QwtPlotTextLabel>(desk.graph(), QwtPlotItem::Rtti_PlotTextLabel);
    QVERIFY(title);
    QCOMPARE(title->text().color(), QColor(Qt::black));
    QCOMPARE(title->text().renderFlags(), int(Qt::AlignTop) | int(Qt::AlignHCenter));
    QCOMPARE(title->text().font().weight(), 75);
    QCOMPARE(title->text().font().family(), QFont().family());
}

void TestCurveGraph::linesAreTheProductOfKindsAndSources_data()
{
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<Kinds>("kinds");
    const QStringList sources{"MEAS", "STC", "NOM"};
    for (int mask = 0; mask < 32; ++mask) {
        QStringList shown;
        Kinds kinds;
        if (mask & 1)
            shown << "IV";
        if (mask & 2)
            shown << "PWR";
        for (int source = 0; source < 3; ++source) {
            if (!(mask & (4 << source)))
                continue;
            shown << sources.at(source);
            if (mask & 1)
                kinds << TraceKind(2 * source);
            if (mask & 2)
                kinds << TraceKind(2 * source + 1);
        }
        QTest::newRow(qPrintable(shown.join('+') + '.')) << shown << kinds;
    }
}

void TestCurveGraph::linesAreTheProductOfKindsAndSources()
{
    QFETCH(QStringList, shown);
    QFETCH(Kinds, kinds);
    GraphDesk desk;
    const quint32 before = desk.add("Before", plainCurve());
    const quint32 after = desk.add("After", plainCurve());
    desk.select({before});
    desk.giveModule(before);
    showOnly(desk.graph(), shown);
    QVERIFY(kindsOf(desk.graph(), before) == kinds);
    // A string that comes later gets the same lines.
    desk.select({after});
    QVERIFY(kindsOf(desk.graph(), before).isEmpty());
    QVERIFY(kindsOf(desk.graph(), after) == kinds);
    QCOMPARE(lineCount(desk.graph()), kinds.size());
}

void TestCurveGraph::switchesLeadToTheSameLinesInAnyOrder()
{
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    desk.giveModule(id);
    showOnly(desk.graph(), {"MEAS", "STC", "NOM", "IV", "PWR"});
    QCOMPARE(kindsOf(desk.graph(), id).size(), 6);
    showOnly(desk.graph(), {"PWR"});
    QCOMPARE(lineCount(desk.graph()), 0);
    showOnly(desk.graph(), {"NOM", "PWR"});
    showOnly(desk.graph(), {"NOM", "IV"});
    QVERIFY(kindsOf(desk.graph(), id) == Kinds{TraceKind::nominal});
}

void TestCurveGraph::withNeitherCurrentNorPowerThereIsNoLineAndNoLegend_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

void TestCurveGraph::withNeitherCurrentNorPowerThereIsNoLineAndNoLegend()
{
    QFETCH(QString, locale);
    const LocaleSwitch language(locale);
    GraphDesk desk;
    desk.select({desk.add("Roof", plainCurve()), desk.add("Wall", plainCurve())});
    QCOMPARE(desk.legend().size(), 2);
    desk.graph().displayIVToggled(false);
    QCOMPARE(lineCount(desk.graph()), 0);
    QCOMPARE(desk.legend(), QStringList());
    desk.graph().displayMEASToggled(true);
    QCOMPARE(lineCount(desk.graph()), 0);
    QCOMPARE(desk.legend(), QStringList());
    // That the key still draws is told in its own test.
    QCOMPARE(desk.graph().itemList(QwtPlotItem::Rtti_PlotUserItem).size(), 1);
}

void TestCurveGraph::lineHasColourStyleAndAxisOfItsTrace_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<Qt::PenStyle>("style");
    QTest::addColumn<int>("axis");
    QTest::newRow("measured") << 0 << Qt::DashLine << int(QwtPlot::yLeft);
    QTest::newRow("measured power") << 1 << Qt::DashLine << int(QwtPlot::yRight);
    QTest::newRow("corrected") << 2 << Qt::SolidLine << int(QwtPlot::yLeft);
    QTest::newRow("corrected power") << 3 << Qt::SolidLine << int(QwtPlot::yRight);
    QTest::newRow("nominal") << 4 << Qt::DashDotDotLine << int(QwtPlot::yLeft);
    QTest::newRow("nominal power") << 5 << Qt::DashDotDotLine << int(QwtPlot::yRight);
}

void TestCurveGraph::lineHasColourStyleAndAxisOfItsTrace()
{
    QFETCH(int, kind);
    QFETCH(Qt::PenStyle, style);
    QFETCH(int, axis);
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    desk.giveModule(id);
    showOnly(desk.graph(), {"MEAS", "STC", "NOM", "IV", "PWR"});
    const CurveLine *line = desk.graph().line(TraceKind(kind), id);
    QVERIFY(line);
    QCOMPARE(line->colour(), desk.record(id).colour());
    QCOMPARE(line->pen(), QPen(QBrush(line->colour()), 2.0, style));
    QCOMPARE(line->yAxis(), axis);
    QCOMPARE(line->title().text(), QString("Roof"));
    QCOMPARE(line->style(), QwtPlotCurve::Lines);
    QVERIFY(!line->testCurveAttribute(QwtPlotCurve::Fitted));
    QVERIFY(line->testRenderHint(QwtPlotItem::RenderAntialiased));
    QCOMPARE(int(line->dataSize()), line->trace().size());
    QCOMPARE(line->sample(1), line->trace().points.at(1));
    QCOMPARE(int(line->trace().kind), kind);
    QCOMPARE(penStyleOf(TraceKind(6)), Qt::DashLine);
}

void TestCurveGraph::lineThatIsThereIsNotMadeAgain()
{
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    const CurveLine *line = desk.graph().line(TraceKind::stc, id);
    desk.graph().slotInsertCurves(id);
    QCOMPARE(desk.graph().line(TraceKind::stc, id), line);
    QCOMPARE(lineCount(desk.graph()), 1);
}

void TestCurveGraph::axesFollowTheirSwitches()
{
    GraphDesk desk;
    desk.graph().displayPWRToggled(true);
    QVERIFY(desk.graph().axisEnabled(QwtPlot::yRight));
    QVERIFY(desk.graph().axisEnabled(QwtPlot::yLeft));
    desk.graph().displayIVToggled(false);
    QVERIFY(!desk.graph().axisEnabled(QwtPlot::yLeft));
    desk.graph().displayMEASToggled(true);
    QVERIFY(!desk.graph().axisEnabled(QwtPlot::yLeft));
    desk.graph().displayPWRToggled(false);
    QVERIFY(!desk.graph().axisEnabled(QwtPlot::yRight));
    desk.graph().displayIVToggled(true);
    QVERIFY(desk.graph().axisEnabled(QwtPlot::yLeft));
}

void TestCurveGraph::legendTellsEachStringOnce_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QStringList>("legend");
    QTest::newRow("English") << "en" << QStringList{"Roof (1,000)", "Wall (812.5)"};
    QTest::newRow("German") << "de" << QStringList{"Roof (1.000)", "Wall (812,5)"};
}

void TestCurveGraph::legendTellsEachStringOnce()
{
    QFETCH(QString, locale);
    QFETCH(QStringList, legend);
    const LocaleSwitch language(locale);
    GraphDesk desk;
    const quint32 roof = desk.add("Roof", plainCurve());
    const quint32 wall = desk.add("Wall", plainCurve(), QLocale().toString(812.5));
    desk.select({roof, wall});
    QCOMPARE(desk.legend(), legend);
    showOnly(desk.graph(), {"MEAS", "STC", "NOM", "IV", "PWR"});
    QCOMPARE(desk.graph().linesMeasured().size() + desk.graph().linesStcPower().size(), size_t(4));
    QCOMPARE(desk.legend(), legend);
    desk.select({wall});
    QCOMPARE(desk.legend(), QStringList(legend.at(1)));
    desk.select({});
    QCOMPARE(desk.legend(), QStringList());
}

void TestCurveGraph::legendChoosesTheLineByPreference_data()
{
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<Kinds>("chosen");
    for (const char *power : {"", "PWR"}) {
        for (const char *stc : {"", "STC"}) {
            for (const char *nom : {"", "NOM"}) {
                const QStringList shown{"IV", "MEAS", power, stc, nom};
                QTest::newRow(qPrintable(shown.join(' '))) << shown << Kinds{TraceKind::measured};
            }
        }
        for (const char *nom : {"", "NOM"}) {
            const QStringList shown{"IV", "STC", power, nom};
            QTest::newRow(qPrintable(shown.join(' '))) << shown << Kinds{TraceKind::stc};
        }
        const QStringList shown{"IV", "NOM", power};
        QTest::newRow(qPrintable(shown.join(' '))) << shown << Kinds{TraceKind::nominal};
    }
    for (const char *stc : {"", "STC"}) {
        for (const char *nom : {"", "NOM"}) {
            const QStringList shown{"PWR", "MEAS", stc, nom};
            QTest::newRow(qPrintable(shown.join(' '))) << shown << Kinds{TraceKind::measuredPower};
        }
    }
    QTest::newRow("PWR STC") << QStringList{"PWR", "STC"} << Kinds{TraceKind::stcPower};
    QTest::newRow("PWR STC NOM") << QStringList{"PWR", "STC", "NOM"} << Kinds{TraceKind::stcPower};
    QTest::newRow("PWR NOM") << QStringList{"PWR", "NOM"} << Kinds{TraceKind::nominalPower};
    QTest::newRow("none") << QStringList{"MEAS", "STC", "NOM"} << Kinds{};
}

void TestCurveGraph::legendChoosesTheLineByPreference()
{
    QFETCH(QStringList, shown);
    QFETCH(Kinds, chosen);
    GraphDesk desk;
    const QVector<quint32> ids = desk.addSeveral(2);
    desk.select({ids.at(0)});
    showOnly(desk.graph(), shown);
    desk.select(ids);
    for (const quint32 id : ids)
        QVERIFY(kindsInLegend(desk.graph(), id) == chosen);
    QCOMPARE(desk.legend().size(), chosen.size() * ids.size());
}

void TestCurveGraph::withoutASourceTheLegendStaysAsItWas()
{
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    desk.graph().displaySTCToggled(false);
    QCOMPARE(desk.legend(), QStringList());
    desk.graph().displaySTCToggled(true);
    QVERIFY(kindsInLegend(desk.graph(), id) == Kinds{TraceKind::stc});
    QCOMPARE(desk.legend().size(), 1);
}

void TestCurveGraph::legendEntryTellsNameIrradianceAndPenStyle_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("entry");
    QTest::newRow("English") << "en"
                             << "Roof (812.5)";
    QTest::newRow("German") << "de"
                            << "Roof (812,5)";
}

void TestCurveGraph::legendEntryTellsNameIrradianceAndPenStyle()
{
    QFETCH(QString, locale);
    QFETCH(QString, entry);
    const LocaleSwitch language(locale);
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve(), QLocale().toString(812.5));
    const quint32 empty = desk.add("Dark", plainCurve(), QString());
    desk.select({id, empty});
    desk.graph().displayMEASToggled(true);
    const QList<QwtLegendData> data = desk.graph().line(TraceKind::measured, id)->legendData();
    QCOMPARE(data.size(), 1);
    QCOMPARE(data.first().title().text(), entry);
    QCOMPARE(data.first().value(QwtLegendData::UserRole).toInt(), int(Qt::DashLine));
    QCOMPARE(desk.graph().line(TraceKind::stc, empty)->legendData().first().title().text(),
             QString("Dark ()"));
}

void TestCurveGraph::namesInLegendAndTitleAreNoMarkup()
{
    GraphDesk desk;
    const QString name = "<b>Roof</b><img src='/etc/passwd'>";
    const quint32 id = desk.add(name, plainCurve());
    desk.select({id});
    const CurveLine *line = desk.graph().line(TraceKind::stc, id);
    QVERIFY(isPlain(line->legendData().first().title()));
    QVERIFY(isPlain(line->title()));
    const auto *title = onlyItem<QwtPlotTextLabel>(desk.graph(), QwtPlotItem::Rtti_PlotTextLabel);
    QVERIFY(isPlain(title->text()));
    QCOMPARE(title->text().text(), name);
    QCOMPARE(desk.legend(), QStringList(name + " (1,000)"));
}

void TestCurveGraph::titleFollowsTheSelection()
{
    GraphDesk desk;
    const quint32 roof = desk.add("Roof", plainCurve());
    const quint32 wall = desk.add("Wall", plainCurve());
    desk.select({roof, wall});
    QCOMPARE(desk.graph().titleText(), QString("Roof, Wall"));
    desk.graph().displayPWRToggled(true);
    QCOMPARE(desk.graph().titleText(), QString("Roof, Wall"));
    desk.select({wall});
    QCOMPARE(desk.graph().titleText(), QString("Wall"));
    desk.select({});
    QCOMPARE(desk.graph().titleText(), QString());
}

void TestCurveGraph::scalesReachTenPercentBeyondTheLargestValues_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

void TestCurveGraph::scalesReachTenPercentBeyondTheLargestValues()
{
    QFETCH(QString, locale);
    const LocaleSwitch language(locale);
    GraphDesk desk;
    desk.graph().displayPWRToggled(true);
    desk.select({desk.add("Roof", plainCurve()), desk.add("Wall", {{10, 8}, {20, 1}})});
    QCOMPARE(desk.graph().maxVoltage(), 40.0);
    QCOMPARE(desk.graph().maxCurrent(), 8.0);
    QCOMPARE(desk.graph().maxPower(), 120.0);
    QCOMPARE(desk.upperEnd(QwtPlot::xBottom), 40.0 * 1.1);
    QCOMPARE(desk.upperEnd(QwtPlot::yLeft), 8.0 * 1.1);
    QCOMPARE(desk.upperEnd(QwtPlot::yRight), 120.0 * 1.1);
    for (const int axis : {QwtPlot::xBottom, QwtPlot::yLeft, QwtPlot::yRight})
        QCOMPARE(desk.graph().axisScaleDiv(axis).lowerBound(), 0.0);
}

void TestCurveGraph::scalesGrowWithLinesAndShrinkWhenTheLargestGoes()
{
    GraphDesk desk;
    const quint32 low = desk.add("Low", {{10, 2}, {20, 1}});
    const quint32 high = desk.add("High", {{50, 9}, {60, 1}});
    desk.select({low});
    QCOMPARE(desk.upperEnd(QwtPlot::xBottom), 20.0 * 1.1);
    desk.select({low, high});
    QCOMPARE(desk.upperEnd(QwtPlot::xBottom), 60.0 * 1.1);
    QCOMPARE(desk.upperEnd(QwtPlot::yLeft), 9.0 * 1.1);
    desk.select({low});
    QCOMPARE(desk.graph().maxVoltage(), 20.0);
    QCOMPARE(desk.upperEnd(QwtPlot::xBottom), 20.0 * 1.1);
    QCOMPARE(desk.upperEnd(QwtPlot::yLeft), 2.0 * 1.1);
}

void TestCurveGraph::removingASmallerLineLeavesTheScales()
{
    GraphDesk desk;
    const quint32 low = desk.add("Low", {{10, 2}, {20, 1}});
    const quint32 high = desk.add("High", {{50, 9}, {60, 1}});
    desk.select({low, high});
    desk.select({high});
    QCOMPARE(desk.upperEnd(QwtPlot::xBottom), 60.0 * 1.1);
    QCOMPARE(desk.upperEnd(QwtPlot::yLeft), 9.0 * 1.1);
}

void TestCurveGraph::switchingOffRescalesOnlyWhatLosesItsMaximum()
{
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    desk.giveModule(id);
    // Two modules in series of 25 V and 6 A lie above the measured 40 V and 5 A.
    showOnly(desk.graph(), {"STC", "NOM", "IV"});
    QCOMPARE(desk.upperEnd(QwtPlot::xBottom), 50.0 * 1.1);
    QVERIFY(desk.upperEnd(QwtPlot::yLeft) > 6.0 * 1.1 - 1e-9);
    const QwtPlotZoomer *zoomer = desk.graph().findChild<QwtPlotZoomer *>();
    const_cast<QwtPlotZoomer *>(zoomer)->zoom(QRectF(1, 1, 10, 2));
    QCOMPARE(zoomer->zoomRectIndex(), 1u);
    // The corrected line reaches no maximum: the view stays as the user zoomed it.
    desk.graph().displaySTCToggled(false);
    QCOMPARE(zoomer->zoomRectIndex(), 1u);
    QCOMPARE(desk.graph().axisScaleDiv(QwtPlot::xBottom).upperBound(), 11.0);
    desk.graph().displaySTCToggled(true);
    QCOMPARE(zoomer->zoomRectIndex(), 0u);
    // The nominal one does: the scales shrink and the zoom is given up.
    const_cast<QwtPlotZoomer *>(zoomer)->zoom(QRectF(1, 1, 10, 2));
    desk.graph().displayNOMToggled(false);
    QCOMPARE(zoomer->zoomRectIndex(), 0u);
    QCOMPARE(zoomer->zoomStack().size(), 1);
    QCOMPARE(desk.upperEnd(QwtPlot::xBottom), 40.0 * 1.1);
    QCOMPARE(desk.upperEnd(QwtPlot::yLeft), 5.0 * 1.1);
}

void TestCurveGraph::withoutLinesTheMaximaAreZero()
{
    GraphDesk desk;
    desk.graph().displayPWRToggled(true);
    desk.select({desk.add("Roof", plainCurve())});
    QVERIFY(desk.graph().maxPower() > 0);
    desk.select({});
    QCOMPARE(desk.graph().maxVoltage(), 0.0);
    QCOMPARE(desk.graph().maxCurrent(), 0.0);
    QCOMPARE(desk.graph().maxPower(), 0.0);
    QCOMPARE(desk.upperEnd(QwtPlot::xBottom), 0.0);
}

void TestCurveGraph::markerStandsAtTheMaximumPower()
{
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    const CurveLine *line = desk.graph().line(TraceKind::stc, id);
    QCOMPARE(line->markers().size(), size_t(1));
    const QwtPlotMarker &marker = *line->markers().front();
    QCOMPARE(marker.value(), QPointF(30, 4));
    QVERIFY(marker.label().isEmpty());
    QCOMPARE(marker.plot(), static_cast<QwtPlot *>(&desk.graph()));
    const QwtSymbol *symbol = marker.symbol();
    QCOMPARE(symbol->style(), QwtSymbol::Ellipse);
    QCOMPARE(symbol->brush(), QBrush(Qt::white, Qt::SolidPattern));
    QCOMPARE(symbol->pen(), QPen(QBrush(line->colour()), 2.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    QCOMPARE(symbol->size(), QSize(8, 8));
}

void TestCurveGraph::powerLinesHaveNoMarker()
{
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    desk.giveModule(id);
    showOnly(desk.graph(), {"MEAS", "STC", "NOM", "PWR"});
    QCOMPARE(lineCount(desk.graph()), 3);
    QCOMPARE(markerCount(desk.graph()), 0);
    desk.graph().displayIVToggled(true);
    QCOMPARE(markerCount(desk.graph()), 3);
}

void TestCurveGraph::maximumAtIndexZeroIsMarkedOnMeasuredLinesOnly_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

void TestCurveGraph::maximumAtIndexZeroIsMarkedOnMeasuredLinesOnly()
{
    QFETCH(QString, locale);
    const LocaleSwitch language(locale);
    GraphDesk desk;
    // A first point below zero is not led on to the axis, so that the corrected curve begins with it, too.
    const quint32 id = desk.add("Roof", {{-1, -5}, {1, 1}, {2, 0.2}});
    desk.select({id});
    // Without a shape the nominal curve runs along the axis, and its maximum is its first point.
    desk.record(id).module() = ModuleBinding(0, 1, 1, 20.0, 5.0, 25.0, 5.0);
    showOnly(desk.graph(), {"MEAS", "STC", "NOM", "IV"});
    QCOMPARE(desk.record(id).measuredCurve().mppIndex, 0);
    QCOMPARE(desk.record(id).stcCurve(true).mppIndex, 0);
    QCOMPARE(desk.record(id).nominalCurve().mppIndex, 0);
    QCOMPARE(desk.graph().line(TraceKind::measured, id)->markers().size(), size_t(1));
    QCOMPARE(desk.graph().line(TraceKind::measured, id)->markers().front()->value(), QPointF(-1, -5));
    QCOMPARE(desk.graph().line(TraceKind::stc, id)->markers().size(), size_t(0));
    QCOMPARE(desk.graph().line(TraceKind::nominal, id)->markers().size(), size_t(0));
}

void TestCurveGraph::curveWithoutAMaximumHasNoMarker()
{
    GraphDesk desk;
    const quint32 id = desk.add("Dead", {{0, 0}, {0, 0}});
    desk.select({id});
    showOnly(desk.graph(), {"MEAS", "IV"});
    QCOMPARE(desk.record(id).measuredCurve().mppIndex, -1);
    QCOMPARE(lineCount(desk.graph()), 1);
    QCOMPARE(markerCount(desk.graph()), 0);
}

void TestCurveGraph::removedLinesTakeTheirMarkersAlong()
{
    GraphDesk desk;
    const QVector<quint32> ids = desk.addSeveral(3);
    desk.select(ids);
    QCOMPARE(markerCount(desk.graph()), 3);
    desk.select({ids.at(1)});
    QCOMPARE(markerCount(desk.graph()), 1);
    desk.graph().displaySTCToggled(false);
    QCOMPARE(markerCount(desk.graph()), 0);
}

void TestCurveGraph::stringWithoutAModuleHasAnEmptyNominalLine()
{
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    showOnly(desk.graph(), {"NOM", "IV"});
    const CurveLine *line = desk.graph().line(TraceKind::nominal, id);
    QVERIFY(line);
    QCOMPARE(int(line->dataSize()), 0);
    QVERIFY(line->markers().empty());
    QCOMPARE(desk.graph().maxVoltage(), 0.0);
    // It is the one that stands in the legend, all the same.
    QCOMPARE(desk.legend(), QStringList("Roof (1,000)"));
}

void TestCurveGraph::stringWithoutPointsIsDrawnAsNothing()
{
    GraphDesk desk;
    const quint32 id = desk.add("Riso only", {});
    desk.select({id});
    showOnly(desk.graph(), {"MEAS", "STC", "NOM", "IV", "PWR"});
    QCOMPARE(kindsOf(desk.graph(), id).size(), 6);
    QCOMPARE(markerCount(desk.graph()), 0);
    desk.show();
    QCOMPARE(desk.upperEnd(QwtPlot::xBottom), 0.0);
}

void TestCurveGraph::stringThatIsNotLoadedOrHasNoRowGetsNoLine()
{
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    const quint32 gone = desk.add("Gone", plainCurve());
    QSqlQuery(QSqlDatabase::database(desk.path(), false))
        .exec(QString("DELETE FROM Curves WHERE CurveID = %1").arg(gone));
    desk.graph().slotInsertCurves(id);
    QCOMPARE(lineCount(desk.graph()), 0);
    desk.select({id, gone});
    QVERIFY(desk.model()->isLoaded(gone));
    QCOMPARE(lineCount(desk.graph()), 1);
    QCOMPARE(desk.legend(), QStringList("Roof (1,000)"));
    desk.graph().displayMEASToggled(true);
    desk.graph().displayPWRToggled(true);
    QVERIFY(kindsOf(desk.graph(), gone).isEmpty());
    QVERIFY(desk.graph().tracker()->trackerTextF(QPointF(25, 0)).text().contains("Roof"));
    desk.graph().slotRemoveCurves(gone);
    desk.graph().slotRemoveCurves(4711);
    QCOMPARE(kindsOf(desk.graph(), id).size(), 4);
    desk.select({});
    QCOMPARE(lineCount(desk.graph()), 0);
}

void TestCurveGraph::rowOfAShownStringIsRemoved()
{
    GraphDesk desk;
    const QVector<quint32> ids = desk.addSeveral(3);
    desk.show();
    desk.select(ids);
    QCOMPARE(lineCount(desk.graph()), 3);
    // New nodes stand in front: this is the last string.
    QVERIFY(const_cast<QAbstractItemModel *>(desk.tree().model())->removeRow(0));
    QCoreApplication::processEvents();
    QVERIFY(kindsOf(desk.graph(), ids.at(2)).isEmpty());
    QCOMPARE(lineCount(desk.graph()), 2);
    QVERIFY(!desk.graph().tracker()->trackerTextF(QPointF(25, 0)).text().contains("S3"));
}

void TestCurveGraph::detailsAndModuleRedrawTheString()
{
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    showOnly(desk.graph(), {"MEAS", "STC", "NOM", "IV"});
    StringRecord edited(desk.record(id));
    edited.header().irradiance = "500";
    edited.setCurveId(id);
    desk.model()->applyDetails(edited, QModelIndex());
    // Half the light: the corrected current doubles.
    QCOMPARE(desk.graph().maxCurrent(), 10.0);
    QCOMPARE(desk.upperEnd(QwtPlot::yLeft), 10.0 * 1.1);
    QCOMPARE(desk.legend(), QStringList("Roof (500)"));
    QCOMPARE(&desk.graph().line(TraceKind::stc, id)->trace(), &desk.record(id).stcCurve(true));
    // The same without a change of the title.
    desk.model()->assignModule(id, CurveModuleRow(), 3);
    QCOMPARE(kindsOf(desk.graph(), id).size(), 3);
    QCOMPARE(desk.legend(), QStringList("Roof (500)"));
    QVERIFY(kindsInLegend(desk.graph(), id) == Kinds{TraceKind::measured});
}

void TestCurveGraph::colourChangeRedrawsTheString_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

void TestCurveGraph::colourChangeRedrawsTheString()
{
    QFETCH(QString, locale);
    const LocaleSwitch language(locale);
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    auto *zoomer = desk.graph().findChild<QwtPlotZoomer *>();
    zoomer->zoom(QRectF(5, 1, 10, 2));
    QCOMPARE(zoomer->zoomRectIndex(), 1u);
    // What the command of the document does.
    desk.record(id).setColour(Qt::red);
    desk.graph().slotRemoveCurves(id);
    desk.graph().slotInsertCurves(id);
    desk.graph().updateLegend(desk.model()->selectedNames());
    QCOMPARE(desk.graph().line(TraceKind::stc, id)->pen().color(), QColor(Qt::red));
    QCOMPARE(zoomer->zoomRectIndex(), 0u);
    QCOMPARE(zoomer->zoomStack().size(), 1);
    QCOMPARE(zoomer->zoomBase(), QRectF(0, 0, 40.0 * 1.1, 5.0 * 1.1));
    QCOMPARE(desk.upperEnd(QwtPlot::xBottom), 40.0 * 1.1);
}

void TestCurveGraph::deletedGraphLeavesTheModelAlone()
{
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    {
        CurveGraph second(desk.model());
        second.follow();
        second.slotInsertCurves(id);
        QCOMPARE(lineCount(second), 1);
    }
    desk.select({});
    desk.select({id});
    QCOMPARE(lineCount(desk.graph()), 1);
}

void TestCurveGraph::exceptionIsShownAndHeld()
{
    GraphDesk desk;
    const QVector<quint32> ids = desk.addSeveral(2);
    desk.select({ids.at(0)});
    bool armed = true;
    connect(&desk.graph(), &QwtPlot::itemAttached, this, [&armed](QwtPlotItem *, bool attached) {
        if (armed && attached) {
            armed = false;
            throw std::runtime_error("no room left");
        }
    });
    BoxWatcher watcher;
    watcher.expect("Exception thrown: no room left", QMessageBox::Ok);
    desk.graph().slotRemoveCurves(ids.at(0));
    desk.graph().slotInsertCurves(ids.at(0));
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes().first().title, QString("Kelmar"));
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Critical);
    // What was not finished is not there, and the graph goes on.
    QCOMPARE(lineCount(desk.graph()), 0);
    desk.graph().slotInsertCurves(ids.at(0));
    QCOMPARE(lineCount(desk.graph()), 1);
}

void TestCurveGraph::hundredsOfStringsComeAndGo()
{
    GraphDesk desk;
    desk.addSeveral(300);
    desk.show();
    desk.selectAll();
    QCOMPARE(lineCount(desk.graph()), 300);
    showOnly(desk.graph(), {"MEAS", "STC", "NOM", "IV", "PWR"});
    QCOMPARE(lineCount(desk.graph()), 1800);
    QCOMPARE(desk.legend().size(), 300);
    QCoreApplication::processEvents();
    showOnly(desk.graph(), {});
    QCOMPARE(lineCount(desk.graph()), 0);
    showOnly(desk.graph(), {"MEAS", "IV"});
    desk.select({});
    QCOMPARE(lineCount(desk.graph()), 0);
    QCoreApplication::processEvents();
}

void TestCurveGraph::denseScreensArePaintedFinely()
{
    class Probe : public QwtPlotItem
    {
    public:
        void draw(QPainter *painter, const QwtScaleMap &, const QwtScaleMap &, const QRectF &) const override
        {
            rounded.append(QwtPainter::roundingAlignment(painter));
        }
        mutable QVector<bool> rounded;
    };
    GraphDesk desk;
    Probe probe;
    probe.attach(&desk.graph());
    for (const qreal ratio : {1.0, 2.0, 1.5, 1.0}) {
        QImage image(desk.graph().canvas()->size() * ratio, QImage::Format_ARGB32);
        image.setDevicePixelRatio(ratio);
        QPainter painter(&image);
        desk.graph().drawCanvas(&painter);
    }
    QCOMPARE(probe.rounded, (QVector<bool>{true, false, false, true}));
    QVERIFY(QwtPainter::roundingAlignment());
    probe.detach();
}

KELMAR_TEST_MAIN(TestCurveGraph)
#include "tst_curvegraph.moc"
