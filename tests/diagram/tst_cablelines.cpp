#include "diagram/CableLines.h"

#include "tests/support/TestMain.h"

namespace {

using Points = QVector<QPointF>;
using Lines = QVector<QLineF>;

QSet<QString> asSet(const Lines &lines)
{
    QSet<QString> texts;
    for (const QLineF &line : lines)
        texts.insert(
            QStringLiteral("%1,%2-%3,%4").arg(line.x1()).arg(line.y1()).arg(line.x2()).arg(line.y2()));
    return texts;
}

} // namespace

class TestCableLines : public QObject
{
    Q_OBJECT

private slots:
    void segmentsOfNoLengthAreLeftOut();
    void eachDirectionOfTravelHasItsOffset_data();
    void eachDirectionOfTravelHasItsOffset();
    void linesMeetInMitredCorners();
    void twoSegmentsOnOneLineKeepTheSingleOffset();
    void aSegmentOfNoLengthAtACornerDoesNotSpoilIt();
    void aRouteThatTurnsBackStaysAtItsDistance();
    void aSlantedSegmentIsDrawn();
    void aRouteOfOnePointIsDrawnAsNothing();
    void bothKindsOfSegmentsAreHitWithinTheHalfWidth_data();
    void bothKindsOfSegmentsAreHitWithinTheHalfWidth();
    void aSlantedSegmentTakesNoHit();
    void theHitIsNotExtendedAtTheFarEnd();
};

void TestCableLines::segmentsOfNoLengthAreLeftOut()
{
    QCOMPARE(CableLines::withoutEmptySegments({{0, 0}, {0, 0}, {5, 0}, {5, 0}, {5, 9}, {5, 9}}),
             (Points{{0, 0}, {5, 0}, {5, 9}}));
    QCOMPARE(CableLines::middle({{0, 0}, {5, 0}, {5, 0}, {5, 9}}), (Lines{{0, 0, 5, 0}, {5, 0, 5, 9}}));
}

void TestCableLines::eachDirectionOfTravelHasItsOffset_data()
{
    QTest::addColumn<QPointF>("to");
    QTest::addColumn<QPointF>("offset");
    QTest::newRow("up") << QPointF(0, -50) << QPointF(-5, 0);
    QTest::newRow("down") << QPointF(0, 50) << QPointF(5, 0);
    QTest::newRow("right") << QPointF(50, 0) << QPointF(0, -5);
    QTest::newRow("left") << QPointF(-50, 0) << QPointF(0, 5);
}

void TestCableLines::eachDirectionOfTravelHasItsOffset()
{
    QFETCH(QPointF, to);
    QFETCH(QPointF, offset);
    QCOMPARE(CableLines::outer({{0, 0}, to}, 5),
             (Lines{QLineF(offset, to + offset), QLineF(-offset, to - offset)}));
}

void TestCableLines::linesMeetInMitredCorners()
{
    // To the right, then down: the outer line turns beyond the corner, the inner one before it.
    QCOMPARE(asSet(CableLines::outer({{0, 0}, {100, 0}, {100, 80}}, 10)),
             asSet({{0, -10, 110, -10}, {110, -10, 110, 80}, {0, 10, 90, 10}, {90, 10, 90, 80}}));
    // To the right, then up.
    QCOMPARE(asSet(CableLines::outer({{0, 0}, {100, 0}, {100, -80}}, 5)),
             asSet({{0, -5, 95, -5}, {95, -5, 95, -80}, {0, 5, 105, 5}, {105, 5, 105, -80}}));
}

void TestCableLines::twoSegmentsOnOneLineKeepTheSingleOffset()
{
    QCOMPARE(asSet(CableLines::outer({{0, 0}, {50, 0}, {100, 0}}, 5)),
             asSet({{0, -5, 50, -5}, {50, -5, 100, -5}, {0, 5, 50, 5}, {50, 5, 100, 5}}));
}

void TestCableLines::aSegmentOfNoLengthAtACornerDoesNotSpoilIt()
{
    QCOMPARE(CableLines::outer({{0, 0}, {100, 0}, {100, 0}, {100, 80}}, 10),
             CableLines::outer({{0, 0}, {100, 0}, {100, 80}}, 10));
}

void TestCableLines::aRouteThatTurnsBackStaysAtItsDistance()
{
    const Lines lines = CableLines::outer({{0, 0}, {100, 0}, {40, 0}}, 5);
    QCOMPARE(lines.size(), 4);
    for (const QLineF &line : lines) {
        QCOMPARE(qAbs(line.y1()), 5.0);
        QCOMPARE(line.y1(), line.y2());
    }
}

void TestCableLines::aSlantedSegmentIsDrawn()
{
    const Lines lines = CableLines::outer({{0, 0}, {30, 40}}, 5);
    QCOMPARE(asSet(lines), asSet({{4, -3, 34, 37}, {-4, 3, 26, 43}}));
    QCOMPARE(CableLines::middle({{0, 0}, {30, 40}}), (Lines{{0, 0, 30, 40}}));
}

void TestCableLines::aRouteOfOnePointIsDrawnAsNothing()
{
    QVERIFY(CableLines::outer({{7, 7}, {7, 7}, {7, 7}}, 5).isEmpty());
    QVERIFY(CableLines::middle({{7, 7}, {7, 7}}).isEmpty());
}

void TestCableLines::bothKindsOfSegmentsAreHitWithinTheHalfWidth_data()
{
    QTest::addColumn<double>("halfWidth");
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<bool>("isHit");
    QTest::newRow("on the first segment") << 5.5 << QPointF(50, 0) << true;
    QTest::newRow("above it") << 5.5 << QPointF(50, -5.4) << true;
    QTest::newRow("too far above it") << 5.5 << QPointF(50, -5.6) << false;
    QTest::newRow("as far above a cable of three") << 10.0 << QPointF(50, -9.9) << true;
    QTest::newRow("on the second segment") << 5.5 << QPointF(100, 40) << true;
    QTest::newRow("beside it") << 5.5 << QPointF(105.4, 40) << true;
    QTest::newRow("too far beside it") << 5.5 << QPointF(105.6, 40) << false;
    QTest::newRow("inside of the corner") << 5.5 << QPointF(97, -3) << true;
}

void TestCableLines::bothKindsOfSegmentsAreHitWithinTheHalfWidth()
{
    QFETCH(double, halfWidth);
    QFETCH(QPointF, point);
    QFETCH(bool, isHit);
    QCOMPARE(CableLines::hit({{0, 0}, {100, 0}, {100, 80}}, halfWidth, point), isHit);
    QCOMPARE(CableLines::hit({{100, 80}, {100, 0}, {0, 0}}, halfWidth, point), isHit);
}

void TestCableLines::aSlantedSegmentTakesNoHit()
{
    QVERIFY(!CableLines::hit({{0, 0}, {30, 40}}, 10, {15, 20}));
}

void TestCableLines::theHitIsNotExtendedAtTheFarEnd()
{
    // As long as the segment, from half a width before its left or upper end.
    for (const Points &route : {Points{{0, 0}, {100, 0}}, Points{{100, 0}, {0, 0}}}) {
        QVERIFY(CableLines::hit(route, 5.5, {-5, 0}));
        QVERIFY(CableLines::hit(route, 5.5, {94, 0}));
        QVERIFY(!CableLines::hit(route, 5.5, {95, 0}));
    }
    for (const Points &route : {Points{{0, 0}, {0, 100}}, Points{{0, 100}, {0, 0}}}) {
        QVERIFY(CableLines::hit(route, 10, {0, -9}));
        QVERIFY(CableLines::hit(route, 10, {0, 89}));
        QVERIFY(!CableLines::hit(route, 10, {0, 91}));
    }
}

KELMAR_TEST_MAIN(TestCableLines)
#include "tst_cablelines.moc"
