#pragma once

#include <QPointF>
#include <QRectF>
#include <QVector>

/// Sides of a component, as they stand in files.
enum ComponentSide
{
    NoSide = 0,
    TopSide = 1,
    BottomSide = 2,
    RightSide = 4,
    LeftSide = 8
};

/// One end of a wire as the router sees it: the rectangle that the wire is to keep out of, the point on or
/// near its edge, and the side that it leaves by.
struct RouteEnd
{
    QRectF rect;
    QPointF point;
    int side = NoSide;
};

/// Lays a wire between two ends with horizontal and vertical segments. What lies between is not looked at:
/// a route keeps out of the two rectangles at its own ends only.
class ConnectionRoute
{
public:
    /// A row of the table of routes: which relation of the ends it is for, and by which guide lines it leads.
    struct Row
    {
        /// The case bit that must be set, or 0 for a row that always fits.
        int bit;
        int start;
        int end;
        /// Step codes, filled up with 0.
        int steps[4];
    };
    static constexpr int rowCount = 36;

    /// The rows, in the order of their keys.
    static const Row *rows();

    void lay(const RouteEnd &a, const RouteEnd &b);

    const QVector<QPointF> &points() const { return m_points; }
    /// The row that the last route was laid by, or null for one that goes straight.
    const Row *row() const { return m_row; }

private:
    QVector<QPointF> m_points;
    const Row *m_row = nullptr;
};
