#include "diagram/ConnectionRoute.h"

#include <QHash>

namespace {

/// The guide lines that a route can turn at. Those up to OuterBY set y, the others x.
enum Step
{
    OuterAY = 1,
    EndAY = 2,
    EdgeAY = 3,
    MiddleY = 4,
    EdgeBY = 5,
    EndBY = 6,
    OuterBY = 7,
    OuterAX = 8,
    EndAX = 9,
    EdgeAX = 10,
    MiddleX = 11,
    EdgeBX = 12,
    EndBX = 13,
    OuterBX = 14,
    StepCount
};

/// How the two rectangles and ends lie to each other.
enum CaseBit
{
    RectsOverlapInX = 1,
    RectsOverlapInY = 2,
    AWithinBInX = 4,
    BWithinAInX = 8,
    AWithinBInY = 16,
    BWithinAInY = 32
};

// In the table A lies at the top left of B, so the names say where the wire leaves and arrives there; the
// arrangement at hand is turned to that one first. Up and left lead away from B, right and down towards it.
enum Start
{
    LeavesUp = 1,
    LeavesRight = 2,
    LeavesLeft = 8,
    LeavesDown = 9
};
enum End
{
    ArrivesLeft = 6,
    ArrivesBelow = 7,
    ArrivesAbove = 13,
    ArrivesRight = 14
};

constexpr ConnectionRoute::Row table[] = {
    {0, LeavesUp, ArrivesLeft, {OuterAY, MiddleX, EndBY, EndBX}},
    {0, LeavesUp, ArrivesBelow, {OuterAY, MiddleX, OuterBY, EndBX}},
    {0, LeavesUp, ArrivesAbove, {OuterAY, EndBX}},
    {0, LeavesUp, ArrivesRight, {OuterAY, OuterBX, EndBY}},
    {0, LeavesRight, ArrivesLeft, {MiddleX, EndBY}},
    {0, LeavesRight, ArrivesBelow, {MiddleX, OuterBY, EndBX}},
    {0, LeavesRight, ArrivesAbove, {EndBX}},
    {0, LeavesRight, ArrivesRight, {OuterBX, EndBY}},
    {0, LeavesLeft, ArrivesLeft, {OuterAX, EndBY}},
    {0, LeavesLeft, ArrivesBelow, {OuterAX, OuterBY, EndBX}},
    {0, LeavesLeft, ArrivesAbove, {OuterAX, MiddleY, EndBX}},
    {0, LeavesLeft, ArrivesRight, {OuterAX, MiddleY, OuterBX, EndBY}},
    {0, LeavesDown, ArrivesLeft, {EndBY}},
    {0, LeavesDown, ArrivesBelow, {OuterBY, EndBX}},
    {0, LeavesDown, ArrivesAbove, {MiddleY, EndBX}},
    {0, LeavesDown, ArrivesRight, {MiddleY, OuterBX, EndBY}},
    {RectsOverlapInX, LeavesUp, ArrivesLeft, {OuterAY, OuterAX, EndBY, EndBX}},
    {RectsOverlapInX, LeavesUp, ArrivesBelow, {OuterAY, OuterAX, OuterBY, EndBX}},
    {RectsOverlapInX, LeavesRight, ArrivesLeft, {EdgeAX, MiddleY, EdgeBX, EndBY}},
    {RectsOverlapInX, LeavesRight, ArrivesBelow, {OuterBX, OuterBY, EndBX}},
    {RectsOverlapInY, LeavesLeft, ArrivesAbove, {OuterAX, OuterAY, EndBX}},
    {RectsOverlapInY, LeavesLeft, ArrivesRight, {OuterAX, OuterAY, OuterBX, EndBY}},
    {RectsOverlapInY, LeavesDown, ArrivesAbove, {EdgeAY, MiddleX, EdgeBY, EndBX}},
    {RectsOverlapInY, LeavesDown, ArrivesRight, {OuterBY, OuterBX, EndBY}},
    {AWithinBInX, LeavesDown, ArrivesLeft, {MiddleY, OuterAX, EndBY}},
    {AWithinBInX, LeavesDown, ArrivesBelow, {MiddleY, OuterAX, OuterBY, EndBX}},
    {AWithinBInX, LeavesDown, ArrivesRight, {MiddleY, OuterBX, EndBY}},
    {BWithinAInX, LeavesUp, ArrivesAbove, {OuterAY, OuterBX, MiddleY, EndBX}},
    {BWithinAInX, LeavesRight, ArrivesAbove, {EdgeAX, MiddleY, EndBX}},
    {BWithinAInX, LeavesLeft, ArrivesAbove, {OuterAX, MiddleY, EndBX}},
    {AWithinBInY, LeavesRight, ArrivesBelow, {MiddleX, OuterBY, EndBX}},
    {AWithinBInY, LeavesRight, ArrivesAbove, {MiddleX, OuterAY, EndBX}},
    {AWithinBInY, LeavesRight, ArrivesRight, {EdgeAX, OuterBY, OuterBX, EndBY}},
    {BWithinAInY, LeavesUp, ArrivesLeft, {OuterAY, MiddleX, EndBY}},
    {BWithinAInY, LeavesLeft, ArrivesLeft, {OuterAX, OuterAY, MiddleX, EndBY}},
    {BWithinAInY, LeavesDown, ArrivesLeft, {EdgeAY, MiddleX, EndBY}},
};
static_assert(std::size(table) == ConnectionRoute::rowCount, "one row for each way to lie and to leave");

/// The order in which the relations are looked up. The last one always holds.
constexpr int masks[] = {
    BWithinAInY, AWithinBInY, BWithinAInX, AWithinBInX, RectsOverlapInY, RectsOverlapInX, 0};

constexpr int key(int bit, int start, int end)
{
    return (bit << 8) | (start << 4) | end;
}

const ConnectionRoute::Row *find(int bit, int start, int end)
{
    static const QHash<int, const ConnectionRoute::Row *> rows = [] {
        QHash<int, const ConnectionRoute::Row *> made;
        for (const ConnectionRoute::Row &row : table)
            made.insert(key(row.bit, row.start, row.end), &row);
        return made;
    }();
    return rows.value(key(bit, start, end));
}

/// Which corner of the table's arrangement A takes in truth.
struct Arrangement
{
    bool aIsTop;
    bool aIsLeft;
};

/// 0 for a side that is none.
int startCode(int side, Arrangement lie)
{
    switch (side) {
    case TopSide:
        return lie.aIsTop ? LeavesUp : LeavesDown;
    case BottomSide:
        return lie.aIsTop ? LeavesDown : LeavesUp;
    case RightSide:
        return lie.aIsLeft ? LeavesRight : LeavesLeft;
    case LeftSide:
        return lie.aIsLeft ? LeavesLeft : LeavesRight;
    default:
        return 0;
    }
}

int endCode(int side, Arrangement lie)
{
    switch (side) {
    case TopSide:
        return lie.aIsTop ? ArrivesAbove : ArrivesBelow;
    case BottomSide:
        return lie.aIsTop ? ArrivesBelow : ArrivesAbove;
    case RightSide:
        return lie.aIsLeft ? ArrivesRight : ArrivesLeft;
    case LeftSide:
        return lie.aIsLeft ? ArrivesLeft : ArrivesRight;
    default:
        return 0;
    }
}

/// Where the guide lines run, by step code.
struct GuideLines
{
    GuideLines(const RouteEnd &a, const RouteEnd &b, const QRectF &all, Arrangement lie)
    {
        at[OuterAY] = lie.aIsTop ? all.top() : all.bottom();
        at[EndAY] = a.point.y();
        at[EdgeAY] = lie.aIsTop ? a.rect.bottom() : a.rect.top();
        at[EdgeBY] = lie.aIsTop ? b.rect.top() : b.rect.bottom();
        at[MiddleY] = (at[EdgeAY] + at[EdgeBY]) / 2;
        at[EndBY] = b.point.y();
        at[OuterBY] = lie.aIsTop ? all.bottom() : all.top();
        at[OuterAX] = lie.aIsLeft ? all.left() : all.right();
        at[EndAX] = a.point.x();
        at[EdgeAX] = lie.aIsLeft ? a.rect.right() : a.rect.left();
        at[EdgeBX] = lie.aIsLeft ? b.rect.left() : b.rect.right();
        at[MiddleX] = (at[EdgeAX] + at[EdgeBX]) / 2;
        at[EndBX] = b.point.x();
        at[OuterBX] = lie.aIsLeft ? all.right() : all.left();
    }

    double at[StepCount] = {};
};

bool within(double value, double low, double high)
{
    return low <= value && value <= high;
}

int caseBits(const RouteEnd &a, const RouteEnd &b)
{
    int bits = 0;
    if (a.rect.left() <= b.rect.right() && b.rect.left() <= a.rect.right())
        bits |= RectsOverlapInX;
    if (a.rect.top() <= b.rect.bottom() && b.rect.top() <= a.rect.bottom())
        bits |= RectsOverlapInY;
    if (within(a.point.x(), b.rect.left(), b.rect.right()))
        bits |= AWithinBInX;
    if (within(b.point.x(), a.rect.left(), a.rect.right()))
        bits |= BWithinAInX;
    if (within(a.point.y(), b.rect.top(), b.rect.bottom()))
        bits |= AWithinBInY;
    if (within(b.point.y(), a.rect.top(), a.rect.bottom()))
        bits |= BWithinAInY;
    return bits;
}

const ConnectionRoute::Row *chooseRow(int bits, int start, int end)
{
    for (const int mask : masks) {
        if (mask != 0 && !(bits & mask))
            continue;
        if (const ConnectionRoute::Row *row = find(mask, start, end))
            return row;
    }
    return nullptr;
}

} // namespace

const ConnectionRoute::Row *ConnectionRoute::rows()
{
    return table;
}

void ConnectionRoute::lay(const RouteEnd &a, const RouteEnd &b)
{
    m_points.clear();
    m_row = nullptr;
    m_points.append(a.point);
    // Not QRectF::united, which leaves out a rectangle without area.
    const QRectF all(QPointF(qMin(a.rect.left(), b.rect.left()), qMin(a.rect.top(), b.rect.top())),
                     QPointF(qMax(a.rect.right(), b.rect.right()), qMax(a.rect.bottom(), b.rect.bottom())));
    const Arrangement lie{a.rect.top() <= b.rect.top(), a.rect.left() <= b.rect.left()};
    const int start = startCode(a.side, lie);
    const int end = endCode(b.side, lie);
    if (start != 0 && end != 0)
        m_row = chooseRow(caseBits(a, b), start, end);
    if (m_row) {
        const GuideLines lines(a, b, all, lie);
        for (const int step : m_row->steps) {
            if (step == 0)
                break;
            QPointF next = m_points.last();
            (step <= OuterBY ? next.ry() : next.rx()) = lines.at[step];
            m_points.append(next);
        }
    }
    m_points.append(b.point);
}
