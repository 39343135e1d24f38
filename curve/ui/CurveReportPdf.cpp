#include "curve/ui/CurveReportPdf.h"

#include "curve/ui/GraphExport.h"
#include "curve/ui/IsolatedTextDocument.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QPrinter>
#include <qwt_plot.h>
#include <qwt_plot_renderer.h>

#include <cmath>

namespace IVCurve {

namespace {

constexpr int dotsPerInch = 1200;
constexpr double centimetreInInches = 0.3937007874015748;
constexpr double marginInMillimetres = 10;
constexpr int fontSize = 9;
/// Of a layout that knows no device.
constexpr double usualDpi = 96;
/// More than any job has; a picture without end in a string's name asks for millions.
constexpr int mostPages = 2000;

void setUp(QPrinter &printer, const QString &file)
{
    printer.setResolution(dotsPerInch);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setFullPage(true);
    printer.setOutputFileName(file);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setPageMargins(
        QMarginsF(marginInMillimetres, marginInMillimetres, marginInMillimetres, marginInMillimetres),
        QPageLayout::Millimeter);
    printer.setOutputFormat(QPrinter::PdfFormat);
}

/// Gives the document the printer's page in the measures of the screen.
void layOut(QTextDocument &document, const QPrinter &printer, double margin)
{
    const double ratio =
        double(printer.resolution()) / double(QPrinter(QPrinter::ScreenResolution).resolution());
    const QRect page = printer.pageLayout().paintRectPixels(printer.resolution());
    document.setPageSize(QSizeF(std::round(page.width() / ratio), std::round(page.height() / ratio)));
    document.setDocumentMargin(margin / ratio);
}

void drawPage(QPainter &painter, QAbstractTextDocumentLayout &layout, const QSizeF &size, int number)
{
    painter.save();
    painter.translate(0, -(number - 1) * size.height());
    const QRectF view(0, (number - 1) * size.height(), size.width(), size.height());
    painter.setClipRect(view);
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = view;
    // Not in the colours of the desktop, which may be light on dark.
    context.palette.setColor(QPalette::Text, Qt::black);
    layout.draw(&painter, context);
    painter.restore();
}

/// Draws all pages, each with a break behind it: what follows has a page of its own.
void drawText(QPainter &painter, QPrinter &printer, const QTextDocument &document)
{
    QAbstractTextDocumentLayout *layout = document.documentLayout();
    if (!layout)
        return;
    const QPaintDevice *device = layout->paintDevice();
    const double scaleX = printer.logicalDpiX() / (device ? device->logicalDpiX() : usualDpi);
    const double scaleY = printer.logicalDpiY() / (device ? device->logicalDpiY() : usualDpi);
    painter.scale(scaleX, scaleY);
    const QSizeF size = document.pageSize();
    painter.scale(printer.width() / (size.width() * scaleX), printer.height() / (size.height() * scaleY));
    const int pages = qMin(document.pageCount(), mostPages);
    for (int number = 1; number <= pages; ++number) {
        drawPage(painter, *layout, size, number);
        if (!printer.newPage())
            return;
    }
}

void drawGraph(QPainter &painter, const QPrinter &printer, QwtPlot &graph, double margin)
{
    const QRectF paper = printer.pageLayout().fullRectPixels(printer.resolution());
    const QRectF area(margin, margin, paper.width() - 2 * margin, paper.height() - 2 * margin);
    QwtPlotRenderer renderer;
    GraphExport::adapt(renderer, printer);
    renderer.render(&graph, &painter, area);
}

} // namespace

bool writeReportPdf(const QString &html, QwtPlot &graph, const QString &file)
{
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer, file);
    const double margin = printer.resolution() * centimetreInInches;
    IsolatedTextDocument document;
    // The same on every desktop, and in a size that leaves room for five digits in the narrow columns.
    document.setDefaultFont(QFont(QStringLiteral("Arial"), fontSize));
    document.setHtml(html);
    layOut(document, printer, margin);
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    painter.save();
    drawText(painter, printer, document);
    painter.restore();
    drawGraph(painter, printer, graph, margin);
    return painter.end();
}

} // namespace IVCurve
