#include "diagram/ComponentDrawing.h"

#include <QPainter>

namespace ComponentDrawing {

namespace {

constexpr double thick = 2;
constexpr double thin = 1;

void setPen(QPainter *painter, double width)
{
    painter->setPen(QPen(Qt::black, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
}

} // namespace

void housing(QPainter *painter, const QRectF &rect, const QColor &colour)
{
    setPen(painter, thick);
    painter->setBrush(colour);
    // What lies outside of an item's rectangle leaves traces when the item is moved.
    const double inset = thick / 2;
    painter->drawRect(rect.adjusted(inset, inset, -inset, -inset));
}

void window(QPainter *painter, const QRectF &rect)
{
    setPen(painter, thin);
    painter->setBrush(Qt::white);
    painter->drawRect(rect);
}

void knob(QPainter *painter, const QRectF &rect, const QColor &colour)
{
    setPen(painter, thin);
    painter->setBrush(colour);
    // Straight lines are crisp without, a circle is not.
    const bool wasSmooth = painter->testRenderHint(QPainter::Antialiasing);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->drawEllipse(rect);
    painter->setRenderHint(QPainter::Antialiasing, wasSmooth);
}

} // namespace ComponentDrawing
