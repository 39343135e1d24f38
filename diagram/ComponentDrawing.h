#pragma once

class QColor;
class QPainter;
class QRectF;

/// The parts that components are drawn of. All lines are black.
namespace ComponentDrawing {

/// A filled rectangle. Its thick outline stays inside.
void housing(QPainter *painter, const QRectF &rect, const QColor &colour);

/// A white rectangle with a thin outline. The pen stays for what is drawn into it.
void window(QPainter *painter, const QRectF &rect);

/// A disc with a thin outline.
void knob(QPainter *painter, const QRectF &rect, const QColor &colour);

} // namespace ComponentDrawing
