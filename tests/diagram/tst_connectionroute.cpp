#include "diagram/ConnectionRoute.h"

#include "tests/support/TestMain.h"

#include <QSet>

#include <random>

namespace {

constexpr int rounds = 120000;
constexpr int sides[] = {TopSide, BottomSide, RightSide, LeftSide};

using Points = QVector<QPointF>;

Points routeOf(const RouteEnd &a, const RouteEnd &b)
{
    ConnectionRoute route;
    route.lay(a, b);
    return route.points();
}

QPointF middleOf(const QRectF &rect, int side)
{
    switch (side) {
    case TopSide:
        return {rect.center().x(), rect.top()};
    case BottomSide:
        return {rect.center().x(), rect.bottom()};
    case RightSide:
        return {rect.right(), rect.center().y()};
    default:
        return {rect.left(), rect.center().y()};
    }
}

RouteEnd endAt(const QRectF &rect, int side)
{
    return {rect, middleOf(rect, side), side};
}

bool leavesVertically(int side)
{
    return side == TopSide || side == BottomSide;
}

/// Pairs of ends in every position to each other, the same in every run.
class RandomEnds
{
public:
    RouteEnd next()
    {
        const QRectF rect(number(-100, 100), number(-100, 100), number(10, 120), number(10, 120));
        const int side = sides[number(0, 3)];
        QPointF point = middleOf(rect, side);
        if (leavesVertically(side))
            point.setX(number(int(rect.left()), int(rect.right())));
        else
            point.setY(number(int(rect.top()), int(rect.bottom())));
        const double margin = number(0, 3) * 2.5;
        return {rect.adjusted(-margin, -margin, margin, margin), point, side};
    }

private:
    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_generator); }

    std::mt19937 m_generator{20220501};
};

Points withoutRepeats(const Points &points)
{
    Points kept;
    for (const QPointF &point : points) {
        if (kept.isEmpty() || kept.last() != point)
            kept.append(point);
    }
    return kept;
}

int mirroredSide(int side, bool inX)
{
    if (leavesVertically(side) == inX)
        return side;
    switch (side) {
    case TopSide:
        return BottomSide;
    case BottomSide:
        return TopSide;
    case RightSide:
        return LeftSide;
    default:
        return RightSide;
    }
}

QPointF mirrored(const QPointF &point, bool inX)
{
    return inX ? QPointF(-point.x(), point.y()) : QPointF(point.x(), -point.y());
}

RouteEnd mirrored(const RouteEnd &end, bool inX)
{
    return {QRectF(mirrored(end.rect.topLeft(), inX), mirrored(end.rect.bottomRight(), inX)).normalized(),
            mirrored(end.point, inX), mirroredSide(end.side, inX)};
}

/// Which of the two is the left (or upper) one, whichever of their edges is looked at: the only case in
/// which a mirror does not exchange the roles.
bool isOrdered(const QRectF &a, const QRectF &b, bool inX)
{
    const double first = inX ? a.left() - b.left() : a.top() - b.top();
    const double second = inX ? a.right() - b.right() : a.bottom() - b.bottom();
    return (first < 0 && second < 0) || (first > 0 && second > 0);
}

/// What a coordinate of a bend may be: an edge, an end, or the middle between facing edges.
QVector<double> guideLines(double aLow, double aHigh, double bLow, double bHigh, double aEnd, double bEnd)
{
    return {aLow, aHigh, bLow, bHigh, aEnd, bEnd, (aHigh + bLow) / 2, (aLow + bHigh) / 2};
}

QByteArray described(const RouteEnd &a, const RouteEnd &b)
{
    QString text;
    QDebug(&text) << a.rect << a.point << a.side << b.rect << b.point << b.side << routeOf(a, b);
    return text.toUtf8();
}

/// A row of the table of routes in plain numbers: relation of the ends, start, end, guide lines.
struct NumberedRow
{
    int bit;
    int start;
    int end;
    QVector<int> steps;
};

const QVector<NumberedRow> numberedRows{
    {0, 1, 6, {1, 11, 6, 13}},
    {0, 1, 7, {1, 11, 7, 13}},
    {0, 1, 13, {1, 13}},
    {0, 1, 14, {1, 14, 6}},
    {0, 2, 6, {11, 6}},
    {0, 2, 7, {11, 7, 13}},
    {0, 2, 13, {13}},
    {0, 2, 14, {14, 6}},
    {0, 8, 6, {8, 6}},
    {0, 8, 7, {8, 7, 13}},
    {0, 8, 13, {8, 4, 13}},
    {0, 8, 14, {8, 4, 14, 6}},
    {0, 9, 6, {6}},
    {0, 9, 7, {7, 13}},
    {0, 9, 13, {4, 13}},
    {0, 9, 14, {4, 14, 6}},
    {1, 1, 6, {1, 8, 6, 13}},
    {1, 1, 7, {1, 8, 7, 13}},
    {1, 2, 6, {10, 4, 12, 6}},
    {1, 2, 7, {14, 7, 13}},
    {2, 8, 13, {8, 1, 13}},
    {2, 8, 14, {8, 1, 14, 6}},
    {2, 9, 13, {3, 11, 5, 13}},
    {2, 9, 14, {7, 14, 6}},
    {4, 9, 6, {4, 8, 6}},
    {4, 9, 7, {4, 8, 7, 13}},
    {4, 9, 14, {4, 14, 6}},
    {8, 1, 13, {1, 14, 4, 13}},
    {8, 2, 13, {10, 4, 13}},
    {8, 8, 13, {8, 4, 13}},
    {16, 2, 7, {11, 7, 13}},
    {16, 2, 13, {11, 1, 13}},
    {16, 2, 14, {10, 7, 14, 6}},
    {32, 1, 6, {1, 11, 6}},
    {32, 8, 6, {8, 1, 11, 6}},
    {32, 9, 6, {3, 11, 6}},
};

bool isBetween(double value, double low, double high)
{
    return low <= value && value <= high;
}

/// Whether a relation holds, for an end A that lies at the top left.
bool holds(int bit, const RouteEnd &a, const RouteEnd &b)
{
    const QRectF &r = a.rect;
    const QRectF &s = b.rect;
    switch (bit) {
    case 0:
        return true;
    case 1:
        return !(r.right() < s.left()) && !(s.right() < r.left());
    case 2:
        return !(r.bottom() < s.top()) && !(s.bottom() < r.top());
    case 4:
        return isBetween(a.point.x(), s.left(), s.right());
    case 8:
        return isBetween(b.point.x(), r.left(), r.right());
    case 16:
        return isBetween(a.point.y(), s.top(), s.bottom());
    default:
        return isBetween(b.point.y(), r.top(), r.bottom());
    }
}

/// Lays a route by the numbered rows after turning A to the top left by mirrors, and turns it back: another
/// way than that of the router, which turns its guide lines.
Points routeByNumbers(RouteEnd a, RouteEnd b)
{
    const bool turnX = a.rect.left() > b.rect.left();
    const bool turnY = a.rect.top() > b.rect.top();
    for (const bool inX : {true, false}) {
        if (!(inX ? turnX : turnY))
            continue;
        a = mirrored(a, inX);
        b = mirrored(b, inX);
    }
    const QRectF &r = a.rect;
    const QRectF &s = b.rect;
    const QRectF all = r.united(s);
    const QVector<double> guides{0,
                                 all.top(),
                                 a.point.y(),
                                 r.bottom(),
                                 (r.bottom() + s.top()) / 2,
                                 s.top(),
                                 b.point.y(),
                                 all.bottom(),
                                 all.left(),
                                 a.point.x(),
                                 r.right(),
                                 (r.right() + s.left()) / 2,
                                 s.left(),
                                 b.point.x(),
                                 all.right()};
    const int start = QMap<int, int>{{1, 1}, {2, 9}, {4, 2}, {8, 8}}.value(a.side);
    const int end = QMap<int, int>{{1, 13}, {2, 7}, {4, 14}, {8, 6}}.value(b.side);
    for (const int bit : {32, 16, 8, 4, 2, 1, 0}) {
        const auto row = std::find_if(numberedRows.begin(), numberedRows.end(), [&](const NumberedRow &one) {
            return one.bit == bit && one.start == start && one.end == end;
        });
        if (row == numberedRows.end() || !holds(bit, a, b))
            continue;
        Points points{a.point};
        for (const int step : row->steps)
            points.append(step < 8 ? QPointF(points.last().x(), guides.at(step))
                                   : QPointF(guides.at(step), points.last().y()));
        points.append(b.point);
        for (QPointF &point : points)
            point = QPointF(turnX ? -point.x() : point.x(), turnY ? -point.y() : point.y());
        return points;
    }
    return {};
}

/// Does a segment lead through the inside of a rectangle?
bool crosses(const QPointF &from, const QPointF &to, const QRectF &rect)
{
    return qMin(from.x(), to.x()) < rect.right() && qMax(from.x(), to.x()) > rect.left() &&
           qMin(from.y(), to.y()) < rect.bottom() && qMax(from.y(), to.y()) > rect.top();
}

} // namespace

class TestConnectionRoute : public QObject
{
    Q_OBJECT

private slots:
    void facingSidesOfTwoNeighboursGiveAnSThroughTheMiddleLine();
    void facingSidesOfOverlappingNeighboursGiveTheSameS();
    void exchangedComponentsMirrorTheRoute();
    void endsThatShareSideAndCoordinateGiveASegmentOfNoLength();
    void sidesThatAreNoneGiveAStraightLine_data();
    void sidesThatAreNoneGiveAStraightLine();
    void theMoreParticularRelationIsLookedUpFirst();
    void aRouteCanBeLaidAnew();
    void theTableHoldsARowForEachPairOfSidesInTheGeneralCase();

    void everyRouteStartsAndEndsAtTheEnds();
    void everySegmentMovesInOneCoordinate();
    void everyRouteLeavesAndArrivesStraightOutOfItsSides();
    void everyBendLiesOnAGuideLine();
    void everyRouteIsMirroredWithItsEnds_data();
    void everyRouteIsMirroredWithItsEnds();
    void wiresOutOfFacingSidesKeepOutOfBothRectangles();
    void everyRouteIsThatOfTheNumberedRows();
    void everyRowIsReached();
};

void TestConnectionRoute::facingSidesOfTwoNeighboursGiveAnSThroughTheMiddleLine()
{
    ConnectionRoute route;
    route.lay(endAt({0, 0, 100, 60}, RightSide), endAt({200, 100, 100, 60}, LeftSide));
    QCOMPARE(route.row()->start, 2);
    QCOMPARE(route.row()->end, 6);
    QCOMPARE(route.row()->bit, 0);
    QCOMPARE(route.points(), (Points{{100, 30}, {150, 30}, {150, 130}, {200, 130}}));
}

void TestConnectionRoute::facingSidesOfOverlappingNeighboursGiveTheSameS()
{
    ConnectionRoute route;
    // The height of end A lies within B, and the heights of the two overlap.
    route.lay(endAt({0, 0, 100, 60}, RightSide), endAt({200, 20, 100, 60}, LeftSide));
    QCOMPARE(route.row()->bit, 0);
    QCOMPARE(route.points(), (Points{{100, 30}, {150, 30}, {150, 50}, {200, 50}}));
}

void TestConnectionRoute::exchangedComponentsMirrorTheRoute()
{
    const QRectF left(0, 0, 100, 60);
    const QRectF right(200, 100, 100, 60);
    Points there = routeOf(endAt(left, RightSide), endAt(right, LeftSide));
    const Points back = routeOf(endAt(right, LeftSide), endAt(left, RightSide));
    std::reverse(there.begin(), there.end());
    QCOMPARE(back, there);
    QCOMPARE(routeOf(endAt(left, TopSide), endAt(right, RightSide)),
             (Points{{50, 0}, {50, 0}, {300, 0}, {300, 130}, {300, 130}}));
    QCOMPARE(routeOf(endAt(right, BottomSide), endAt(left, LeftSide)),
             (Points{{250, 160}, {250, 160}, {0, 160}, {0, 30}, {0, 30}}));
}

void TestConnectionRoute::endsThatShareSideAndCoordinateGiveASegmentOfNoLength()
{
    const Points points = routeOf(endAt({0, 0, 100, 60}, RightSide), endAt({200, 0, 100, 60}, LeftSide));
    QCOMPARE(points, (Points{{100, 30}, {150, 30}, {150, 30}, {200, 30}}));
    QCOMPARE(withoutRepeats(points).size(), 3);
}

void TestConnectionRoute::sidesThatAreNoneGiveAStraightLine_data()
{
    QTest::addColumn<int>("sideOfA");
    QTest::addColumn<int>("sideOfB");
    for (const int side : {0, 3, 5, 16, -1, 2147483647}) {
        QTest::addRow("%d at A", side) << side << int(LeftSide);
        QTest::addRow("%d at B", side) << int(RightSide) << side;
        QTest::addRow("%d at both", side) << side << side;
    }
}

void TestConnectionRoute::sidesThatAreNoneGiveAStraightLine()
{
    QFETCH(int, sideOfA);
    QFETCH(int, sideOfB);
    const RouteEnd a{{0, 0, 100, 60}, {100, 30}, sideOfA};
    const RouteEnd b{{200, 100, 100, 60}, {200, 130}, sideOfB};
    QCOMPARE(routeOf(a, b), (Points{{100, 30}, {200, 130}}));
}

void TestConnectionRoute::theMoreParticularRelationIsLookedUpFirst()
{
    // Below one another: the ends lie over each other and the rectangles overlap, and each has a row.
    const RouteEnd a{{0, 0, 100, 60}, {100, 30}, RightSide};
    const RouteEnd b{{20, 200, 100, 60}, {50, 200}, TopSide};
    ConnectionRoute route;
    route.lay(a, b);
    QCOMPARE(route.row()->bit, 8);
    QCOMPARE(route.points(), (Points{{100, 30}, {100, 30}, {100, 130}, {50, 130}, {50, 200}}));
}

void TestConnectionRoute::aRouteCanBeLaidAnew()
{
    ConnectionRoute route;
    const RouteEnd a = endAt({0, 0, 100, 60}, RightSide);
    const RouteEnd b = endAt({200, 100, 100, 60}, LeftSide);
    route.lay(b, a);
    route.lay({a.rect, a.point, NoSide}, b);
    QVERIFY(!route.row());
    route.lay(a, b);
    QCOMPARE(route.points(), routeOf(a, b));
}

void TestConnectionRoute::theTableHoldsARowForEachPairOfSidesInTheGeneralCase()
{
    QSet<QPair<int, int>> general;
    QSet<QVector<int>> keys;
    for (int i = 0; i < ConnectionRoute::rowCount; ++i) {
        const ConnectionRoute::Row &row = ConnectionRoute::rows()[i];
        if (row.bit == 0)
            general.insert({row.start, row.end});
        keys.insert({row.bit, row.start, row.end});
    }
    QCOMPARE(general.size(), 16);
    QCOMPARE(keys.size(), 36);
}

void TestConnectionRoute::everyRouteStartsAndEndsAtTheEnds()
{
    RandomEnds ends;
    for (int i = 0; i < rounds; ++i) {
        const RouteEnd a = ends.next();
        const RouteEnd b = ends.next();
        const Points points = routeOf(a, b);
        if (!(points.first() == a.point && points.last() == b.point))
            QFAIL(described(a, b));
    }
}

void TestConnectionRoute::everySegmentMovesInOneCoordinate()
{
    RandomEnds ends;
    for (int i = 0; i < rounds; ++i) {
        const RouteEnd a = ends.next();
        const RouteEnd b = ends.next();
        const Points points = routeOf(a, b);
        for (int j = 1; j < points.size(); ++j)
            if (!(points.at(j).x() == points.at(j - 1).x() || points.at(j).y() == points.at(j - 1).y()))
                QFAIL(described(a, b));
    }
}

void TestConnectionRoute::everyRouteLeavesAndArrivesStraightOutOfItsSides()
{
    RandomEnds ends;
    for (int i = 0; i < rounds; ++i) {
        const RouteEnd a = ends.next();
        const RouteEnd b = ends.next();
        const Points points = routeOf(a, b);
        const QPointF first = points.at(1) - points.at(0);
        const QPointF last = points.last() - points.at(points.size() - 2);
        if (!((leavesVertically(a.side) ? first.x() : first.y()) == 0))
            QFAIL(described(a, b));
        if (!((leavesVertically(b.side) ? last.x() : last.y()) == 0))
            QFAIL(described(a, b));
    }
}

void TestConnectionRoute::everyBendLiesOnAGuideLine()
{
    RandomEnds ends;
    for (int i = 0; i < rounds; ++i) {
        const RouteEnd a = ends.next();
        const RouteEnd b = ends.next();
        const QVector<double> xs = guideLines(a.rect.left(), a.rect.right(), b.rect.left(), b.rect.right(),
                                              a.point.x(), b.point.x());
        const QVector<double> ys = guideLines(a.rect.top(), a.rect.bottom(), b.rect.top(), b.rect.bottom(),
                                              a.point.y(), b.point.y());
        for (const QPointF &point : routeOf(a, b))
            if (!(xs.contains(point.x()) && ys.contains(point.y())))
                QFAIL(described(a, b));
    }
}

void TestConnectionRoute::everyRouteIsMirroredWithItsEnds_data()
{
    QTest::addColumn<bool>("inX");
    QTest::newRow("left and right") << true;
    QTest::newRow("top and bottom") << false;
}

void TestConnectionRoute::everyRouteIsMirroredWithItsEnds()
{
    QFETCH(bool, inX);
    RandomEnds ends;
    int compared = 0;
    for (int i = 0; i < rounds; ++i) {
        const RouteEnd a = ends.next();
        const RouteEnd b = ends.next();
        if (!isOrdered(a.rect, b.rect, inX))
            continue;
        ++compared;
        Points expected = routeOf(a, b);
        for (QPointF &point : expected)
            point = mirrored(point, inX);
        if (!(routeOf(mirrored(a, inX), mirrored(b, inX)) == expected))
            QFAIL(described(a, b));
    }
    QVERIFY(compared > rounds / 2);
}

void TestConnectionRoute::wiresOutOfFacingSidesKeepOutOfBothRectangles()
{
    RandomEnds ends;
    int compared = 0;
    for (int i = 0; i < rounds; ++i) {
        const RouteEnd a = ends.next();
        const RouteEnd b = ends.next();
        const bool besides = a.rect.right() < b.rect.left() && a.side == RightSide && b.side == LeftSide;
        const bool below = a.rect.bottom() < b.rect.top() && a.side == BottomSide && b.side == TopSide;
        if (!besides && !below)
            continue;
        ++compared;
        const Points points = withoutRepeats(routeOf(a, b));
        for (int j = 2; j + 1 < points.size(); ++j)
            if (!(!crosses(points.at(j - 1), points.at(j), a.rect) &&
                  !crosses(points.at(j - 1), points.at(j), b.rect)))
                QFAIL(described(a, b));
    }
    QVERIFY(compared > 1000);
}

void TestConnectionRoute::everyRouteIsThatOfTheNumberedRows()
{
    QCOMPARE(numberedRows.size(), ConnectionRoute::rowCount);
    RandomEnds ends;
    for (int i = 0; i < rounds; ++i) {
        const RouteEnd a = ends.next();
        const RouteEnd b = ends.next();
        if (!(routeOf(a, b) == routeByNumbers(a, b)))
            QFAIL(described(a, b));
    }
}

void TestConnectionRoute::everyRowIsReached()
{
    RandomEnds ends;
    QSet<const ConnectionRoute::Row *> reached;
    ConnectionRoute route;
    for (int i = 0; i < rounds; ++i) {
        const RouteEnd a = ends.next();
        route.lay(a, ends.next());
        reached.insert(route.row());
    }
    QVERIFY(!reached.contains(nullptr));
    QCOMPARE(reached.size(), ConnectionRoute::rowCount);
}

KELMAR_TEST_MAIN(TestConnectionRoute)
#include "tst_connectionroute.moc"
