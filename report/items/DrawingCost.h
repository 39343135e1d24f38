#pragma once

#include <QSize>

class QSvgRenderer;

/// True if a drawing is drawn within a moment on an area of this many dots. A few kilobytes can ask for
/// thousands of sheets of paint, or for a line of a billion dashes. It is found out by a rehearsal on a device
/// that reckons instead of painting.
bool isDrawnQuickly(QSvgRenderer &renderer, const QSize &area);
