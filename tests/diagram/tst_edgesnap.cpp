#include "diagram/EdgeSnap.h"

#include "diagram/ConnectionRoute.h"
#include "tests/support/TestMain.h"

namespace {

/// Wider than high; its middle is (100, 50).
const QRectF rect(0, 0, 200, 100);

} // namespace

class TestEdgeSnap : public QObject
{
    Q_OBJECT

private slots:
    void aPointBelongsToTheSideOfItsQuarter_data();
    void aPointBelongsToTheSideOfItsQuarter();
    void anywhereTheSideIsThatOfTheNearestEdgeInProportion();
    void aPointMovesStraightOntoItsSide();
    void theMiddleOfASideLiesOnIt();
    void aPointOutsideIsBroughtInside();
};

void TestEdgeSnap::aPointBelongsToTheSideOfItsQuarter_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<int>("side");
    QTest::newRow("middle") << QPointF(100, 50) << int(TopSide);
    QTest::newRow("just below the middle") << QPointF(100, 50.01) << int(BottomSide);
    QTest::newRow("just above the middle") << QPointF(100.09, 49) << int(TopSide);
    QTest::newRow("top") << QPointF(120, 5) << int(TopSide);
    QTest::newRow("top, left of the middle") << QPointF(80, 5) << int(TopSide);
    QTest::newRow("bottom") << QPointF(120, 95) << int(BottomSide);
    QTest::newRow("bottom, left of the middle") << QPointF(80, 95) << int(BottomSide);
    QTest::newRow("right") << QPointF(190, 60) << int(RightSide);
    QTest::newRow("left") << QPointF(10, 40) << int(LeftSide);
    QTest::newRow("on a diagonal at the right") << QPointF(150, 75) << int(RightSide);
    QTest::newRow("on a diagonal at the left") << QPointF(50, 75) << int(LeftSide);
}

void TestEdgeSnap::aPointBelongsToTheSideOfItsQuarter()
{
    QFETCH(QPointF, point);
    QFETCH(int, side);
    QCOMPARE(EdgeSnap::nearestSide(rect, point), side);
    QCOMPARE(EdgeSnap::nearestSide(rect.translated(-1000, 30), point + QPointF(-1000, 30)), side);
}

void TestEdgeSnap::anywhereTheSideIsThatOfTheNearestEdgeInProportion()
{
    for (int x = 1; x < 200; x += 2) {
        for (int y = 1; y < 100; y += 2) {
            // How near each edge is, as a part of the rectangle's size.
            const QVector<QPair<double, int>> edges{{y / 100.0, TopSide},
                                                    {(100 - y) / 100.0, BottomSide},
                                                    {(200 - x) / 200.0, RightSide},
                                                    {x / 200.0, LeftSide}};
            const auto nearest = std::min_element(edges.begin(), edges.end());
            const bool isTie = std::count_if(edges.begin(), edges.end(), [&](const QPair<double, int> &edge) {
                                   return qFuzzyCompare(edge.first, nearest->first);
                               }) > 1;
            if (!isTie)
                QCOMPARE(EdgeSnap::nearestSide(rect, QPointF(x, y)), nearest->second);
        }
    }
}

void TestEdgeSnap::aPointMovesStraightOntoItsSide()
{
    const QPointF point(120, 30);
    QCOMPARE(EdgeSnap::ontoSide(rect, point, TopSide), QPointF(120, 0));
    QCOMPARE(EdgeSnap::ontoSide(rect, point, BottomSide), QPointF(120, 100));
    QCOMPARE(EdgeSnap::ontoSide(rect, point, RightSide), QPointF(200, 30));
    QCOMPARE(EdgeSnap::ontoSide(rect, point, LeftSide), QPointF(0, 30));
    QCOMPARE(EdgeSnap::ontoSide(rect, point, NoSide), point);
}

void TestEdgeSnap::theMiddleOfASideLiesOnIt()
{
    QCOMPARE(EdgeSnap::middleOfSide(rect, TopSide), QPointF(100, 0));
    QCOMPARE(EdgeSnap::middleOfSide(rect, BottomSide), QPointF(100, 100));
    QCOMPARE(EdgeSnap::middleOfSide(rect, RightSide), QPointF(200, 50));
    QCOMPARE(EdgeSnap::middleOfSide(rect, LeftSide), QPointF(0, 50));
}

void TestEdgeSnap::aPointOutsideIsBroughtInside()
{
    QCOMPARE(EdgeSnap::inside(rect, QPointF(-5, 400)), QPointF(0, 100));
    QCOMPARE(EdgeSnap::inside(rect, QPointF(205, 40)), QPointF(200, 40));
    QCOMPARE(EdgeSnap::inside(rect, QPointF(30, 40)), QPointF(30, 40));
}

KELMAR_TEST_MAIN(TestEdgeSnap)
#include "tst_edgesnap.moc"
