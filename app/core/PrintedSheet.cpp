#include "app/core/PrintedSheet.h"

#include "app/core/Identity.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPrinter>

namespace PrintedSheet {

namespace {

/// The translation context of the mark.
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(PrintedSheet)
};

} // namespace

void setUpA4(QPrinter &printer)
{
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setFullPage(true);
    printer.setPageMargins(QMarginsF(0, 0, 0, 0));
}

QPoint millimetres(const QPrinter &printer, double x, double y)
{
    const double unitsPerMillimetre = double(printer.width()) / printer.widthMM();
    return QPoint(int(x * unitsPerMillimetre), int(y * unitsPerMillimetre));
}

void drawMark(QPainter &painter, const QPrinter &printer)
{
    painter.setFont(QFont(QStringLiteral("Arial"), 10, QFont::Normal));
    painter.setPen(Qt::black);
    painter.drawText(millimetres(printer, 20, 15),
                     Text::tr("Created by %1.").arg(Identity::applicationName()));
}

} // namespace PrintedSheet
