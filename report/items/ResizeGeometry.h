#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <Qt>

/// The geometry of dragging an item by a handle. A handle is the sum of a horizontal zone (left 1, middle
/// 2, right 4) and a vertical zone (top 16, middle 32, bottom 64).
namespace ResizeGeometry {

enum Zone
{
    Left = 1,
    Centre = 2,
    Right = 4,
    Top = 16,
    Middle = 32,
    Bottom = 64
};

constexpr int inside = Centre | Middle;
constexpr int bottomRight = Right | Bottom;

/// The handle at a point of an item whose content fills `itemRect`.
int handleAt(const QPointF &point, const QRectF &itemRect);

Qt::CursorShape cursorOf(int handle);

/// The geometry `start` after its handle has been dragged by `offset`.
QRectF dragged(const QRectF &start, int handle, const QPointF &offset);

/// Where an item belongs that was to become `wanted` but took the size of `actual`: the side opposite the
/// handle stays where it was.
QPointF anchoredPosition(const QRectF &wanted, const QRectF &actual, int handle);

/// Equality but for rounding.
bool sameSize(const QSizeF &a, const QSizeF &b);
bool samePosition(const QPointF &a, const QPointF &b);

} // namespace ResizeGeometry
