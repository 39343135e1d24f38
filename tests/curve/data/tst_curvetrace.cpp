#include "curve/data/CurvePalette.h"
#include "curve/data/CurveTrace.h"
#include "tests/support/TestMain.h"

#include <cmath>
#include <random>

using namespace IVCurve;

class TestCurveTrace : public QObject
{
    Q_OBJECT

private slots:
    void aTraceStartsEmpty();
    void maximaFollowThePoints();
    void negativePointsLeaveTheMaximaAtZero();
    void noIrradianceCountsForNeitherExtreme();
    void firstIrradianceEndsAtTheFirstOtherThan1000();
    void allPointsAt1000LeaveFirstIrradiance1000();
    void theFirstOfEqualPowersStays();
    void pointsOfAnotherCurveAreTakenInAsIfOneByOne();
    void aCopyOwnsItsPoints();
    void swappedTracesOwnTheirPoints();
    void resetKeepsTheKindAlone();
    void paletteDarkensEachTimeRound();
};

void TestCurveTrace::aTraceStartsEmpty()
{
    const CurveTrace trace(TraceKind::nominal);
    QVERIFY(trace.isEmpty());
    QCOMPARE(trace.maxV, 0.0);
    QCOMPARE(trace.maxI, 0.0);
    QCOMPARE(trace.firstIrradiance, 1000.0);
    QCOMPARE(trace.mppIndex, -1);
    QCOMPARE(trace.minIrradiance, 0.0);
    QCOMPARE(trace.maxIrradiance, 0.0);
    QVERIFY(trace.kind == TraceKind::nominal);
}

void TestCurveTrace::maximaFollowThePoints()
{
    CurveTrace trace;
    trace.addPoint(10, 8, 800, 1);
    trace.addPoint(500, 7, 810, 2);
    trace.addPoint(600, 1, 790, 3);
    QCOMPARE(trace.maxV, 600.0);
    QCOMPARE(trace.maxI, 8.0);
    QCOMPARE(trace.mppIndex, 1);
    QCOMPARE(trace.minIrradiance, 790.0);
    QCOMPARE(trace.maxIrradiance, 810.0);
    QCOMPARE(trace.firstIrradiance, 800.0);
    QCOMPARE(trace.refs[2].tag, 3);
    QCOMPARE(trace.refs[2].position(), QPointF(600, 1));
}

void TestCurveTrace::negativePointsLeaveTheMaximaAtZero()
{
    CurveTrace trace;
    trace.addPoint(-5, -1, 0, 0);
    QCOMPARE(trace.maxV, 0.0);
    QCOMPARE(trace.maxI, 0.0);
    // The product of two negative readings is a power all the same.
    QCOMPARE(trace.mppIndex, 0);
}

void TestCurveTrace::noIrradianceCountsForNeitherExtreme()
{
    CurveTrace trace;
    trace.addPoint(1, 1, 0, 0);
    trace.addPoint(2, 1, 700, 0);
    trace.addPoint(3, 1, 0, 0);
    QCOMPARE(trace.minIrradiance, 700.0);
    QCOMPARE(trace.maxIrradiance, 700.0);
    QCOMPARE(trace.firstIrradiance, 700.0);
}

void TestCurveTrace::firstIrradianceEndsAtTheFirstOtherThan1000()
{
    CurveTrace trace;
    trace.addPoint(1, 1, 1000, 0);
    trace.addPoint(2, 1, 900, 0);
    trace.addPoint(3, 1, 800, 0);
    QCOMPARE(trace.firstIrradiance, 900.0);
}

void TestCurveTrace::allPointsAt1000LeaveFirstIrradiance1000()
{
    CurveTrace trace;
    trace.addPoint(1, 1, 1000, 0);
    trace.addPoint(2, 1, 1000, 0);
    QCOMPARE(trace.firstIrradiance, 1000.0);
}

void TestCurveTrace::theFirstOfEqualPowersStays()
{
    CurveTrace trace;
    trace.addPoint(2, 3, 0, 0);
    trace.addPoint(3, 2, 0, 0);
    QCOMPARE(trace.mppIndex, 0);
    trace.addPoint(3, 3, 0, 0);
    QCOMPARE(trace.mppIndex, 2);
}

void TestCurveTrace::pointsOfAnotherCurveAreTakenInAsIfOneByOne()
{
    std::mt19937 random(3);
    const auto reading = [&random] { return double(int(random() % 9) - 2) / 4.0; };
    for (int round = 0; round < 2000; ++round) {
        CurveTrace source;
        for (unsigned count = random() % 6; count > 0; --count) {
            const double irradiances[] = {0.0, 1000.0, 800.0, 900.0, -1.0, 1e-310, std::nan("")};
            source.addPoint(reading(), reading(), irradiances[random() % 7], int(random() % 3));
        }
        CurveTrace together;
        CurveTrace oneByOne;
        for (unsigned count = random() % 3; count > 0; --count) {
            together.addPoint(count, 1, 950, 7);
            oneByOne.addPoint(count, 1, 950, 7);
        }
        together.addPointsOf(source, [](const TracePoint &point) { return point.position() * 2; });
        for (const TracePoint &point : source.refs)
            oneByOne.addPoint(point.position().x() * 2, point.position().y() * 2, point.irradiance, 0);

        QCOMPARE(together.points, oneByOne.points);
        QCOMPARE(together.refs.size(), oneByOne.refs.size());
        QCOMPARE(together.maxV, oneByOne.maxV);
        QCOMPARE(together.maxI, oneByOne.maxI);
        QCOMPARE(together.firstIrradiance, oneByOne.firstIrradiance);
        QCOMPARE(together.minIrradiance, oneByOne.minIrradiance);
        QCOMPARE(together.maxIrradiance, oneByOne.maxIrradiance);
        QCOMPARE(together.mppIndex, oneByOne.mppIndex);
        for (size_t i = 0; i < together.refs.size(); ++i) {
            QCOMPARE(together.refs[i].owner, &together.points);
            QCOMPARE(together.refs[i].index, int(i));
            QCOMPARE(together.refs[i].tag, oneByOne.refs[i].tag);
            QCOMPARE(together.refs[i].irradiance, oneByOne.refs[i].irradiance);
        }
    }
}

void TestCurveTrace::aCopyOwnsItsPoints()
{
    auto original = std::make_unique<CurveTrace>(TraceKind::stc);
    original->addPoint(1, 2, 3, 4);
    const CurveTrace copy(*original);
    CurveTrace assigned;
    assigned = *original;
    original.reset();
    QCOMPARE(copy.refs.front().owner, &copy.points);
    QCOMPARE(assigned.refs.front().owner, &assigned.points);
    QCOMPARE(copy.refs.front().position(), QPointF(1, 2));
    QVERIFY(copy.kind == TraceKind::stc);
}

void TestCurveTrace::swappedTracesOwnTheirPoints()
{
    CurveTrace a(TraceKind::stc);
    CurveTrace b(TraceKind::measured);
    a.addPoint(1, 2, 3, 4);
    b.addPoint(5, 6, 7, 8);
    b.addPoint(9, 9, 9, 9);
    a.swap(b);
    QCOMPARE(a.size(), 2);
    QCOMPARE(a.refs.front().owner, &a.points);
    QCOMPARE(b.refs.front().owner, &b.points);
    QCOMPARE(b.refs.front().position(), QPointF(1, 2));
    QCOMPARE(a.maxIrradiance, 9.0);
}

void TestCurveTrace::resetKeepsTheKindAlone()
{
    CurveTrace trace(TraceKind::stcPower);
    trace.addPoint(1, 2, 3, 4);
    trace.reset();
    QVERIFY(trace.isEmpty() && trace.refs.empty());
    QCOMPARE(trace.mppIndex, -1);
    QCOMPARE(trace.firstIrradiance, 1000.0);
    QVERIFY(trace.kind == TraceKind::stcPower);
}

void TestCurveTrace::paletteDarkensEachTimeRound()
{
    CurvePalette palette;
    const QStringList names{"tomato", "lawngreen", "cadetblue",  "mediumspringgreen",
                            "plum",   "royalblue", "sandybrown", "darkorchid"};
    QVector<QColor> first;
    for (int i = 0; i < 15; ++i)
        first.append(palette.nextColour());
    for (int i = 0; i < names.size(); ++i)
        QCOMPARE(first.at(i).name(), QColor(names.at(i)).name());
    QCOMPARE(first.at(8).name(), QColor(Qt::red).name());
    QCOMPARE(first.at(13).name(), QColor(Qt::darkYellow).name());
    QCOMPARE(first.at(14).name(), QColor(Qt::gray).name());
    // From 100 in steps of 20 up to 300, then from 100 again.
    for (int darkness = 120; darkness <= 300; darkness += 20) {
        for (int i = 0; i < 15; ++i)
            QCOMPARE(palette.nextColour().name(), first.at(i).darker(darkness).name());
    }
    QCOMPARE(palette.nextColour().name(), QColor("tomato").name());
}

KELMAR_TEST_MAIN(TestCurveTrace)
#include "tst_curvetrace.moc"
