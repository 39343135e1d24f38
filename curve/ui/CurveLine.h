#pragma once

#include <QColor>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>
#include <qwt_text.h>

#include <memory>
#include <vector>

class QwtPlot;

namespace IVCurve {

class CurveTrace;
enum class TraceKind : quint8;

/// How the lines of a kind of trace are drawn.
Qt::PenStyle penStyleOf(TraceKind kind);

/// One curve of a string on the plot. The trace belongs to the string's record, which must outlive the line.
class CurveLine : public QwtPlotCurve
{
public:
    /// The line takes its place on the plot and has an entry in the legend if `inLegend`.
    CurveLine(const QColor &colour, const CurveTrace &trace, int yAxis, const QString &name,
              const QString &legendTitle, bool inLegend, QwtPlot *plot);

    const CurveTrace &trace() const { return *m_data; }
    /// What stands in the legend; the item's own title is the bare name of the string.
    const QwtText &legendTitle() const { return m_title; }
    const QColor &colour() const { return m_colour; }
    bool isPower() const;

    /// Gives the line an entry in the legend, or takes it away.
    void setInLegend(bool on);
    /// Marks a point of the curve, that of its maximum power.
    void addMarker(int index);
    const std::vector<std::unique_ptr<QwtPlotMarker>> &markers() const { return m_markers; }

    QList<QwtLegendData> legendData() const override;

private:
    const CurveTrace *m_data;
    QwtText m_title;
    std::vector<std::unique_ptr<QwtPlotMarker>> m_markers;
    QColor m_colour;
};

} // namespace IVCurve
