#pragma once

class QPrinter;
class QString;
class QwtPlot;
class QwtPlotRenderer;

namespace IVCurve {

/// The plot on paper and in files.
namespace GraphExport {

/// Leaves out what a printer without colours would only blacken.
void adapt(QwtPlotRenderer &renderer, const QPrinter &printer);

/// Prints the plot on one page.
void print(QwtPlot &plot, QPrinter &printer);
/// The same on the printer that the user chooses.
void print(QwtPlot &plot);

/// Does the suffix name a format that the plot can be written in?
bool canWrite(const QString &path);

/// Writes the plot as an A4 landscape page; the suffix tells the format, PDF or that of an image. Tells of a
/// file that cannot be written.
bool writeFile(QwtPlot &plot, const QString &path);

/// Writes the plot to a PDF file of the user's choice.
void exportPdf(QwtPlot &plot);
/// Writes the plot to an image of the user's choice.
void exportImage(QwtPlot &plot);

} // namespace GraphExport

} // namespace IVCurve
