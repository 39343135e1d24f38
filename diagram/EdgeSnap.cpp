#include "diagram/EdgeSnap.h"

#include "diagram/ConnectionRoute.h"

namespace EdgeSnap {

namespace {

/// Nearer than this to the middle a slope says nothing any more.
constexpr double middleWidth = 0.1;

} // namespace

int nearestSide(const QRectF &rect, const QPointF &point)
{
    const QPointF d = point - rect.center();
    if (qAbs(d.x()) < middleWidth)
        return d.y() > 0 ? BottomSide : TopSide;
    const double diagonal = rect.height() / rect.width();
    const double slope = d.y() / d.x();
    const bool isRight = d.x() > 0;
    if (slope > diagonal)
        return isRight ? BottomSide : TopSide;
    if (-slope > diagonal)
        return isRight ? TopSide : BottomSide;
    return isRight ? RightSide : LeftSide;
}

QPointF ontoSide(const QRectF &rect, const QPointF &point, int side)
{
    switch (side) {
    case TopSide:
        return QPointF(point.x(), rect.top());
    case BottomSide:
        return QPointF(point.x(), rect.bottom());
    case RightSide:
        return QPointF(rect.right(), point.y());
    case LeftSide:
        return QPointF(rect.left(), point.y());
    default:
        return point;
    }
}

QPointF inside(const QRectF &rect, const QPointF &point)
{
    return QPointF(qBound(rect.left(), point.x(), rect.right()),
                   qBound(rect.top(), point.y(), rect.bottom()));
}

QPointF middleOfSide(const QRectF &rect, int side)
{
    return ontoSide(rect, rect.center(), side);
}

} // namespace EdgeSnap
