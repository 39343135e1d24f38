#pragma once

class QString;
class QwtPlot;

namespace IVCurve {

/// Writes a report as a PDF: its HTML on pages of A4 in landscape, then the graph as it stands on the screen
/// on a page of its own. False if the file cannot be written.
bool writeReportPdf(const QString &html, QwtPlot &graph, const QString &file);

} // namespace IVCurve
