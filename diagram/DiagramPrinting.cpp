#include "diagram/DiagramPrinting.h"

#include "app/core/PrintedSheet.h"

#include <QGraphicsScene>
#include <QPainter>
#include <QPrinter>

namespace DiagramPrinting {

namespace {

constexpr double borderInMillimetres = 20;

} // namespace

void setUp(QPrinter &printer)
{
    PrintedSheet::setUpA4(printer);
    printer.setPageOrientation(QPageLayout::Landscape);
}

bool paint(QGraphicsScene &scene, QPrinter &printer)
{
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    const QPoint border = PrintedSheet::millimetres(printer, borderInMillimetres, borderInMillimetres);
    const QRectF target(border, QSizeF(printer.width() - 2 * border.x(), printer.height() - 2 * border.y()));
    const QRectF source = scene.itemsBoundingRect();
    // An empty source would stand for all of the scene, and nothing can be fitted from nothing.
    if (!source.isEmpty())
        scene.render(&painter, target, source, Qt::KeepAspectRatio);
    PrintedSheet::drawMark(painter, printer);
    return painter.end();
}

} // namespace DiagramPrinting
