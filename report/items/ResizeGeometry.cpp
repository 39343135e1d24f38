#include "report/items/ResizeGeometry.h"

namespace ResizeGeometry {

namespace {

struct HandleCursor
{
    int handle;
    Qt::CursorShape shape;
};

constexpr HandleCursor cursors[] = {
    {Left | Top, Qt::SizeFDiagCursor},    {Right | Bottom, Qt::SizeFDiagCursor},
    {Right | Top, Qt::SizeBDiagCursor},   {Left | Bottom, Qt::SizeBDiagCursor},
    {Centre | Top, Qt::SizeVerCursor},    {Centre | Bottom, Qt::SizeVerCursor},
    {Left | Middle, Qt::SizeHorCursor},   {Right | Middle, Qt::SizeHorCursor},
    {Centre | Middle, Qt::SizeAllCursor},
};

} // namespace

int handleAt(const QPointF &point, const QRectF &itemRect)
{
    const int column = point.x() <= 0.0 ? Left : point.x() >= itemRect.right() ? Right : Centre;
    const int row = point.y() <= 0.0 ? Top : point.y() >= itemRect.bottom() ? Bottom : Middle;
    return column | row;
}

Qt::CursorShape cursorOf(int handle)
{
    for (const HandleCursor &cursor : cursors) {
        if (cursor.handle == handle)
            return cursor.shape;
    }
    return Qt::ArrowCursor;
}

QRectF dragged(const QRectF &start, int handle, const QPointF &offset)
{
    if (handle == inside)
        return start.translated(offset);
    QRectF rect = start;
    if (handle & Left)
        rect.setLeft(start.left() + offset.x());
    if (handle & Right)
        rect.setRight(start.right() + offset.x());
    if (handle & Top)
        rect.setTop(start.top() + offset.y());
    if (handle & Bottom)
        rect.setBottom(start.bottom() + offset.y());
    return rect;
}

QPointF anchoredPosition(const QRectF &wanted, const QRectF &actual, int handle)
{
    const QPointF centre = wanted.center();
    switch (handle) {
    case Left | Top:
        return wanted.bottomRight() - actual.bottomRight();
    case Right | Top:
        return {wanted.x() - actual.x(), wanted.bottom() - actual.bottom()};
    case Left | Bottom:
        return {wanted.right() - actual.right(), wanted.y() - actual.y()};
    case Centre | Top:
        return {centre.x() - actual.width() / 2.0, wanted.bottom() - actual.height()};
    case Centre | Bottom:
        return {centre.x() - actual.width() / 2.0, wanted.y()};
    case Left | Middle:
        return {wanted.right() - actual.width(), centre.y() - actual.height() / 2.0};
    case Right | Middle:
        return {wanted.x(), centre.y() - actual.height() / 2.0};
    default:
        return wanted.topLeft();
    }
}

bool sameSize(const QSizeF &a, const QSizeF &b)
{
    return qFuzzyCompare(a.width(), b.width()) && qFuzzyCompare(a.height(), b.height());
}

bool samePosition(const QPointF &a, const QPointF &b)
{
    return qFuzzyIsNull(a.x() - b.x()) && qFuzzyIsNull(a.y() - b.y());
}

} // namespace ResizeGeometry
