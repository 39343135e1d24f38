#include "curve/ui/GraphExport.h"

#include "app/core/Messages.h"
#include "app/core/PdfTarget.h"
#include "app/core/Shell.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QImageWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QSizeF>
#include <qwt_plot.h>
#include <qwt_plot_renderer.h>

namespace IVCurve {

namespace GraphExport {

namespace {

/// A4 landscape.
const QSizeF pageInMillimetres(297.0, 210.0);
constexpr int dotsPerInch = 300;
constexpr int marginInMillimetres = 5;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(IVCurve::GraphExport)
};

/// The renderer knows its image formats by small letters only.
QString formatOf(const QString &path)
{
    return QFileInfo(path).suffix().toLower();
}

/// The renderer itself doesn't tell.
bool canBeOpened(const QString &path)
{
    const bool isNew = !QFileInfo::exists(path);
    QFile file(path);
    const bool opened = file.open(QIODevice::Append);
    if (opened && isNew)
        file.remove();
    return opened;
}

} // namespace

void adapt(QwtPlotRenderer &renderer, const QPrinter &printer)
{
    if (printer.colorMode() != QPrinter::GrayScale)
        return;
    renderer.setDiscardFlag(QwtPlotRenderer::DiscardBackground);
    renderer.setDiscardFlag(QwtPlotRenderer::DiscardCanvasBackground);
    renderer.setDiscardFlag(QwtPlotRenderer::DiscardCanvasFrame);
    renderer.setLayoutFlag(QwtPlotRenderer::FrameWithScales);
}

void print(QwtPlot &plot, QPrinter &printer)
{
    QwtPlotRenderer renderer;
    adapt(renderer, printer);
    renderer.renderTo(&plot, printer);
}

void print(QwtPlot &plot)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPaperSize(QPrinter::A4);
    printer.setPageMargins(marginInMillimetres, marginInMillimetres, marginInMillimetres, marginInMillimetres,
                           QPrinter::Millimeter);
    printer.setOrientation(QPrinter::Landscape);
    QPrintDialog dialog(&printer, Shell::parentWindow());
    if (dialog.exec() == QDialog::Accepted)
        print(plot, printer);
}

bool canWrite(const QString &path)
{
    const QString format = formatOf(path);
    return format == QLatin1String("pdf") ||
           QImageWriter::supportedImageFormats().contains(format.toLatin1());
}

bool writeFile(QwtPlot &plot, const QString &path)
{
    if (!canBeOpened(path)) {
        Message message;
        message.parent = Shell::parentWindow();
        message.icon = QMessageBox::Warning;
        message.text = Text::tr("Error opening %1 for writing").arg(path);
        showMessage(message);
        return false;
    }
    QwtPlotRenderer().renderDocument(&plot, path, formatOf(path), pageInMillimetres, dotsPerInch);
    return true;
}

void exportPdf(QwtPlot &plot)
{
    const QString path = askPdfTarget(Shell::parentWindow(), Text::tr("Export PDF", "File Save Dialog"),
                                      Text::tr("PDF Files (*.pdf)", "File Save Dialog"));
    if (!path.isEmpty())
        writeFile(plot, path);
}

void exportImage(QwtPlot &plot)
{
    const QString path =
        QFileDialog::getSaveFileName(Shell::parentWindow(), Text::tr("Save Image", "File Save Dialog"),
                                     QString(), Text::tr("Images (*.bmp *.jpeg *.png)", "File Save Dialog"));
    if (!path.isEmpty())
        writeFile(plot, path);
}

} // namespace GraphExport

} // namespace IVCurve
