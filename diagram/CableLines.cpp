#include "diagram/CableLines.h"

#include <QRectF>

#include <cmath>

namespace CableLines {

namespace {

/// The corner of two segments that go back almost the way they came would lie far outside: they get none.
constexpr double turnsBack = -0.9;

/// Of length one, to the left of the direction of travel.
QPointF normal(const QPointF &from, const QPointF &to)
{
    const QPointF along = to - from;
    const double length = std::hypot(along.x(), along.y());
    return QPointF(along.y(), -along.x()) / length;
}

/// From the corner of two segments to that of the lines at distance one: the sum of their normals where
/// they meet at a right angle, one of them where they lie on one line.
QPointF mitre(const QPointF &before, const QPointF &after, const QPointF &own)
{
    const double cosine = QPointF::dotProduct(before, after);
    return cosine < turnsBack ? own : (before + after) / (1 + cosine);
}

} // namespace

QVector<QPointF> withoutEmptySegments(const QVector<QPointF> &route)
{
    QVector<QPointF> points;
    for (const QPointF &point : route) {
        if (points.isEmpty() || points.last() != point)
            points.append(point);
    }
    return points;
}

QVector<QLineF> middle(const QVector<QPointF> &route)
{
    const QVector<QPointF> points = withoutEmptySegments(route);
    QVector<QLineF> lines;
    for (int i = 1; i < points.size(); ++i)
        lines.append(QLineF(points.at(i - 1), points.at(i)));
    return lines;
}

QVector<QLineF> outer(const QVector<QPointF> &route, double distance)
{
    const QVector<QLineF> segments = middle(route);
    QVector<QPointF> normals;
    for (const QLineF &segment : segments)
        normals.append(normal(segment.p1(), segment.p2()));
    QVector<QLineF> lines;
    for (int i = 0; i < segments.size(); ++i) {
        const QPointF own = normals.at(i);
        const QPointF first = distance * (i == 0 ? own : mitre(normals.at(i - 1), own, own));
        const bool isLast = i + 1 == segments.size();
        const QPointF second = distance * (isLast ? own : mitre(own, normals.at(i + 1), own));
        for (const double side : {1.0, -1.0})
            lines.append(QLineF(segments.at(i).p1() + side * first, segments.at(i).p2() + side * second));
    }
    return lines;
}

bool hit(const QVector<QPointF> &route, double halfWidth, const QPointF &point)
{
    for (int i = 1; i < route.size(); ++i) {
        const QPointF from = route.at(i - 1);
        const QPointF to = route.at(i);
        QRectF area = QRectF(from, to).normalized();
        if (from.x() == to.x())
            area.adjust(-halfWidth, -halfWidth, halfWidth, -halfWidth);
        else if (from.y() == to.y())
            area.adjust(-halfWidth, -halfWidth, -halfWidth, halfWidth);
        else
            continue;
        if (area.contains(point))
            return true;
    }
    return false;
}

} // namespace CableLines
