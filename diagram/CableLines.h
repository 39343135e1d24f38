#pragma once

#include <QLineF>
#include <QPointF>
#include <QVector>

/// What is drawn of a cable along its route, and where it can be hit.
namespace CableLines {

/// A route without its segments of no length.
QVector<QPointF> withoutEmptySegments(const QVector<QPointF> &route);

/// The line along the route, one for each segment.
QVector<QLineF> middle(const QVector<QPointF> &route);

/// The lines at both sides of the route at a distance, two for each segment, meeting in mitred corners.
QVector<QLineF> outer(const QVector<QPointF> &route, double distance);

/// Does a point lie on the cable? What can be hit of a segment is as long as the segment and begins half a
/// width before its left or upper end; its far end is not made up for. A slanted segment cannot be hit.
bool hit(const QVector<QPointF> &route, double halfWidth, const QPointF &point);

} // namespace CableLines
