#include "app/platform/Platform.h"
#include "curve/ui/CurveTracker.h"
#include "curve/ui/TrackerText.h"
#include "tests/curve/ui/GraphDesk.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <qwt_plot_canvas.h>

using namespace IVCurve;

namespace {

QRectF boundsOf(const QVector<QPointF> &points)
{
    return QPolygonF(points).boundingRect();
}

std::optional<QLineF> segment(const QVector<QPointF> &points, double x)
{
    return TrackerText::segmentAt(points, boundsOf(points), x);
}

/// The rows of what the tracker tells.
QStringList rows(GraphDesk &desk, double x)
{
    const QString text = desk.graph().tracker()->trackerTextF(QPointF(x, 0)).text();
    return text.isEmpty() ? QStringList() : text.split("<br>");
}

/// What a user reads of a row.
QString readable(QString row)
{
    return row.remove(QRegularExpression("<[^>]*>"));
}

} // namespace

class TestTrackerText : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void segmentIsThatOverTheVoltage_data();
    void segmentIsThatOverTheVoltage();
    void thereIsNoSegment_data();
    void thereIsNoSegment();
    void pointLiesOnItsSegment();

    void rowTellsVoltsAmperesAndWatts_data();
    void rowTellsVoltsAmperesAndWatts();
    void withPowerOnlyTheRowTellsVoltsAndWattsOfThePowerLine_data();
    void withPowerOnlyTheRowTellsVoltsAndWattsOfThePowerLine();
    void withCurrentAndPowerOneRowTellsAllThree_data();
    void withCurrentAndPowerOneRowTellsAllThree();
    void heightOfTheMousePlaysNoPart();
    void beyondTheLastSampleThereIsNoRowAndAtItThereIs_data();
    void beyondTheLastSampleThereIsNoRowAndAtItThereIs();
    void sourcesAreToldInTheirOrderWithTheirSuffix();
    void namesAreNoMarkup();
    void percentSignsInNamesAreNoPlaceholders();
    void emptyNominalCurveGivesNoRow();
    void noMoreThan41StringsAreTold();
    void stringWithoutARecordIsPassedOverAndNotCounted();
    void textIsBlackOnTranslucentWhiteInItsFont();
    void systemsSeparatorReplacesTheComma();
};

void TestTrackerText::init()
{
    TestHome::instance()->reset();
}

void TestTrackerText::segmentIsThatOverTheVoltage_data()
{
    QTest::addColumn<QVector<QPointF>>("points");
    QTest::addColumn<double>("x");
    QTest::addColumn<QLineF>("expected");
    const QVector<QPointF> &plain = plainCurve();
    QTest::newRow("in the first") << plain << 15.0 << QLineF(plain[0], plain[1]);
    QTest::newRow("in the last") << plain << 39.9 << QLineF(plain[2], plain[3]);
    QTest::newRow("at the first sample") << plain << 10.0 << QLineF(plain[0], plain[1]);
    QTest::newRow("at a sample, the one that begins there") << plain << 20.0 << QLineF(plain[1], plain[2]);
    QTest::newRow("at the last sample, the one that ends there")
        << plain << 40.0 << QLineF(plain[2], plain[3]);
    const QVector<QPointF> step{{1, 5}, {2, 5}, {2, 3}, {3, 1}};
    QTest::newRow("at a step, what follows it") << step << 2.0 << QLineF(step[2], step[3]);
    const QVector<QPointF> drop{{0, 5}, {10, 4}, {10, 0}};
    QTest::newRow("in front of a drop") << drop << 9.0 << QLineF(drop[0], drop[1]);
    QTest::newRow("at a drop at the end") << drop << 10.0 << QLineF(drop[1], drop[2]);
}

void TestTrackerText::segmentIsThatOverTheVoltage()
{
    QFETCH(QVector<QPointF>, points);
    QFETCH(double, x);
    const auto found = segment(points, x);
    QVERIFY(found);
    QTEST(*found, "expected");
}

void TestTrackerText::thereIsNoSegment_data()
{
    QTest::addColumn<QVector<QPointF>>("points");
    QTest::addColumn<double>("x");
    QTest::newRow("no samples") << QVector<QPointF>() << 1.0;
    QTest::newRow("one sample") << QVector<QPointF>{{1, 1}} << 1.0;
    QTest::newRow("no width") << QVector<QPointF>{{1, 1}, {1, 5}} << 1.0;
    QTest::newRow("no height") << QVector<QPointF>{{1, 2}, {5, 2}} << 3.0;
    QTest::newRow("before the first") << plainCurve() << 9.999;
    QTest::newRow("beyond the last") << plainCurve() << 40.001;
    QTest::newRow("nowhere") << plainCurve() << qQNaN();
    QTest::newRow("of no length") << QVector<QPointF>{{1, 5}, {4, 1}, {4, 1}} << 4.0;
    // What is not sorted is searched all the same, and nothing is made up.
    QTest::newRow("samples that run backwards") << QVector<QPointF>{{5, 1}, {3, 2}, {1, 5}} << 1.0;
}

void TestTrackerText::thereIsNoSegment()
{
    QFETCH(QVector<QPointF>, points);
    QFETCH(double, x);
    QVERIFY(!segment(points, x));
}

void TestTrackerText::pointLiesOnItsSegment()
{
    const QLineF line(10, 5, 20, 4);
    QCOMPARE(TrackerText::pointAt(line, 10), QPointF(10, 5));
    QCOMPARE(TrackerText::pointAt(line, 12.5), QPointF(12.5, 4.75));
    QCOMPARE(TrackerText::pointAt(line, 20), QPointF(20, 4));
    // A drop lies over one voltage alone: told is where it ends.
    QCOMPARE(TrackerText::pointAt(QLineF(10, 4, 10, 0), 10), QPointF(10, 0));
}

void TestTrackerText::rowTellsVoltsAmperesAndWatts_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QString>("expected");
    QTest::newRow("English") << "en"
                             << ","
                             << "<font color=%1>Roof: 15.0V<sub>STC</sub>, 4.9A<sub>STC</sub>, "
                                "73.5W<sub>STC</sub></font>";
    QTest::newRow("German") << "de"
                            << ";"
                            << "<font color=%1>Roof: 15,0V<sub>STC</sub>; 4,9A<sub>STC</sub>; "
                               "73,5W<sub>STC</sub></font>";
}

void TestTrackerText::rowTellsVoltsAmperesAndWatts()
{
    QFETCH(QString, locale);
    QFETCH(QString, separator);
    QFETCH(QString, expected);
    const LocaleSwitch language(locale);
    GraphDesk desk;
    desk.graph().tracker()->setListSeparator(separator);
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    QCOMPARE(rows(desk, 15), QStringList(expected.arg(desk.record(id).colour().name())));
}

void TestTrackerText::withPowerOnlyTheRowTellsVoltsAndWattsOfThePowerLine_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("expected");
    QTest::newRow("English") << "en"
                             << "<font color=%1>Roof: 25.0V, 108.0W</font>";
    QTest::newRow("German") << "de"
                            << "<font color=%1>Roof: 25,0V, 108,0W</font>";
}

void TestTrackerText::withPowerOnlyTheRowTellsVoltsAndWattsOfThePowerLine()
{
    QFETCH(QString, locale);
    QFETCH(QString, expected);
    const LocaleSwitch language(locale);
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    desk.graph().displayMEASToggled(true);
    desk.graph().displaySTCToggled(false);
    desk.graph().displayPWRToggled(true);
    desk.graph().displayIVToggled(false);
    // Between (20, 96) and (30, 120) the power line is at 108; the product of volts and amperes is 110.
    QCOMPARE(rows(desk, 25), QStringList(expected.arg(desk.record(id).colour().name())));
}

void TestTrackerText::withCurrentAndPowerOneRowTellsAllThree_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("expected");
    QTest::newRow("English") << "en"
                             << "Roof: 25.0VSTC, 4.4ASTC, 110.0WSTC";
    QTest::newRow("German") << "de"
                            << "Roof: 25,0VSTC, 4,4ASTC, 110,0WSTC";
}

void TestTrackerText::withCurrentAndPowerOneRowTellsAllThree()
{
    QFETCH(QString, locale);
    QFETCH(QString, expected);
    const LocaleSwitch language(locale);
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    desk.graph().displayPWRToggled(true);
    QVERIFY(desk.graph().line(TraceKind::stc, id));
    QVERIFY(desk.graph().line(TraceKind::stcPower, id));
    QCOMPARE(desk.legend().size(), 1);
    QCOMPARE(rows(desk, 25).size(), 1);
    QCOMPARE(readable(rows(desk, 25).first()), expected);
}

void TestTrackerText::heightOfTheMousePlaysNoPart()
{
    GraphDesk desk;
    desk.select({desk.add("Roof", plainCurve())});
    const CurveTracker *tracker = desk.graph().tracker();
    const QString text = tracker->trackerTextF(QPointF(25, 0)).text();
    QVERIFY(!text.isEmpty());
    QCOMPARE(tracker->trackerTextF(QPointF(25, 4.4)).text(), text);
    QCOMPARE(tracker->trackerTextF(QPointF(25, -1000)).text(), text);
}

void TestTrackerText::beyondTheLastSampleThereIsNoRowAndAtItThereIs_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("atTheEnd");
    QTest::addColumn<QString>("onTheAxis");
    QTest::newRow("English") << "en"
                             << "Long: 50.0V, 1.0A, 50.0W"
                             << "Long: 50.0VSTC, 0.0ASTC, 0.0WSTC";
    QTest::newRow("German") << "de"
                            << "Long: 50,0V, 1,0A, 50,0W"
                            << "Long: 50,0VSTC, 0,0ASTC, 0,0WSTC";
}

void TestTrackerText::beyondTheLastSampleThereIsNoRowAndAtItThereIs()
{
    QFETCH(QString, locale);
    QFETCH(QString, atTheEnd);
    QFETCH(QString, onTheAxis);
    const LocaleSwitch language(locale);
    GraphDesk desk;
    const quint32 shorter = desk.add("Short", plainCurve());
    const quint32 longer = desk.add("Long", {{10, 5}, {50, 1}});
    desk.graph().displayMEASToggled(true);
    desk.graph().displaySTCToggled(false);
    desk.select({shorter, longer});
    QCOMPARE(rows(desk, 40).size(), 2);
    QCOMPARE(rows(desk, 40.01).size(), 1);
    QCOMPARE(rows(desk, 50).size(), 1);
    QCOMPARE(readable(rows(desk, 50).first()), atTheEnd);
    QVERIFY(rows(desk, 50.01).isEmpty());
    QVERIFY(rows(desk, 9.99).isEmpty());
    // The corrected curve is led on to the axis, straight down at its end.
    desk.graph().displayMEASToggled(false);
    desk.graph().displaySTCToggled(true);
    QCOMPARE(rows(desk, 50).size(), 1);
    QCOMPARE(readable(rows(desk, 50).first()), onTheAxis);
    QVERIFY(rows(desk, 50.01).isEmpty());
}

void TestTrackerText::sourcesAreToldInTheirOrderWithTheirSuffix()
{
    GraphDesk desk;
    const quint32 one = desk.add("One", plainCurve());
    const quint32 two = desk.add("Two", plainCurve());
    desk.select({two, one});
    desk.giveModule(one);
    desk.graph().displayMEASToggled(true);
    desk.graph().displayNOMToggled(true);
    const QStringList told = rows(desk, 25);
    QCOMPARE(told.size(), 5);
    QVERIFY(told.at(0).contains(">One: 25.0V, "));
    QVERIFY(told.at(1).contains(">One: 25.0V<sub>STC</sub>, "));
    QVERIFY(told.at(2).contains(">One: 25.0V<sub>nom</sub>, "));
    QVERIFY(told.at(3).contains(">Two: 25.0V, "));
    QVERIFY(told.at(4).contains(">Two: 25.0V<sub>STC</sub>, "));
    desk.graph().displaySTCToggled(false);
    desk.graph().displayMEASToggled(false);
    QCOMPARE(rows(desk, 25).size(), 1);
    desk.graph().displayNOMToggled(false);
    QVERIFY(rows(desk, 25).isEmpty());
}

void TestTrackerText::namesAreNoMarkup()
{
    GraphDesk desk;
    desk.select({desk.add("<img src=\"/etc/passwd\"> A & B", plainCurve())});
    QVERIFY(rows(desk, 25).first().contains(">&lt;img src=&quot;/etc/passwd&quot;&gt; A &amp; B: 25.0V"));
}

void TestTrackerText::percentSignsInNamesAreNoPlaceholders()
{
    GraphDesk desk;
    desk.select({desk.add("%3 of %9", plainCurve())});
    QVERIFY(rows(desk, 25).first().contains(">%3 of %9: 25.0V"));
}

void TestTrackerText::emptyNominalCurveGivesNoRow()
{
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    desk.graph().displayNOMToggled(true);
    QVERIFY(desk.graph().line(TraceKind::nominal, id));
    QCOMPARE(rows(desk, 25).size(), 1);
}

void TestTrackerText::noMoreThan41StringsAreTold()
{
    GraphDesk desk;
    desk.addSeveral(45);
    desk.selectAll();
    const QStringList told = rows(desk, 25);
    QCOMPARE(told.size(), 41);
    QVERIFY(told.last().contains(">S41: "));
    // The bound is one of strings, not of rows.
    desk.graph().displayMEASToggled(true);
    QCOMPARE(rows(desk, 25).size(), 82);
    desk.select(desk.addSeveral(41));
    QCOMPARE(rows(desk, 25).size(), 82);
}

void TestTrackerText::stringWithoutARecordIsPassedOverAndNotCounted()
{
    GraphDesk desk;
    const QVector<quint32> ids = desk.addSeveral(44);
    // Their rows go while the tree still has their nodes.
    QSqlQuery(QSqlDatabase::database(desk.path(), false))
        .exec(QString("DELETE FROM Curves WHERE CurveID IN (%1, %2)").arg(ids.at(0)).arg(ids.at(5)));
    desk.selectAll();
    const QStringList told = rows(desk, 25);
    QCOMPARE(told.size(), 41);
    QVERIFY(told.first().contains(">S2: "));
    QVERIFY(told.last().contains(">S43: "));
}

void TestTrackerText::textIsBlackOnTranslucentWhiteInItsFont()
{
    GraphDesk desk;
    CurveTracker *tracker = desk.graph().tracker();
    const QwtText text = tracker->trackerTextF(QPointF(1, 1));
    QVERIFY(text.isEmpty());
    QCOMPARE(text.color(), QColor(Qt::black));
    QCOMPARE(text.backgroundBrush().color(), QColor(255, 255, 255, 200));
    QCOMPARE(text.borderPen(), QPen(QBrush(Qt::white), 2.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    QCOMPARE(tracker->trackerFont(), QFont("Arial", 10, 75, false));
    QCOMPARE(tracker->trackerMode(), QwtPicker::ActiveOnly);
    QCOMPARE(tracker->rubberBand(), QwtPicker::VLineRubberBand);
    QCOMPARE(tracker->rubberBandPen().color(), QColor("MediumOrchid"));
}

void TestTrackerText::systemsSeparatorReplacesTheComma()
{
    GraphDesk desk;
    const QString ofTheSystem = Platform::listSeparator();
    QCOMPARE(desk.graph().tracker()->listSeparator(), ofTheSystem.isEmpty() ? QString(",") : ofTheSystem);
}

KELMAR_TEST_MAIN(TestTrackerText)
#include "tst_trackertext.moc"
