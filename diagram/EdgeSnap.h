#pragma once

#include <QPointF>
#include <QRectF>

/// Where on a rectangle's edge a point belongs.
namespace EdgeSnap {

/// The side whose quarter of the rectangle, cut by its diagonals, the point lies in.
int nearestSide(const QRectF &rect, const QPointF &point);

/// The point moved straight onto a side.
QPointF ontoSide(const QRectF &rect, const QPointF &point, int side);

/// The point of the rectangle that is nearest to a point.
QPointF inside(const QRectF &rect, const QPointF &point);

/// The middle of a side.
QPointF middleOfSide(const QRectF &rect, int side);

} // namespace EdgeSnap
