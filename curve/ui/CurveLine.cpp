#include "curve/ui/CurveLine.h"

#include "curve/data/CurveTrace.h"

#include <QPen>
#include <qwt_legend_data.h>
#include <qwt_plot.h>
#include <qwt_symbol.h>

#include <map>

namespace IVCurve {

namespace {

constexpr double lineWidth = 2.0;
constexpr int markerSize = 8;

/// Names are what the user typed, never marked-up text.
QwtText plainText(const QString &text)
{
    return QwtText(text, QwtText::PlainText);
}

} // namespace

Qt::PenStyle penStyleOf(TraceKind kind)
{
    static const std::map<TraceKind, Qt::PenStyle> styles{
        {TraceKind::measured, Qt::DashLine},      {TraceKind::measuredPower, Qt::DashLine},
        {TraceKind::stc, Qt::SolidLine},          {TraceKind::stcPower, Qt::SolidLine},
        {TraceKind::nominal, Qt::DashDotDotLine}, {TraceKind::nominalPower, Qt::DashDotDotLine}};
    const auto found = styles.find(kind);
    return found == styles.end() ? Qt::DashLine : found->second;
}

CurveLine::CurveLine(const QColor &colour, const CurveTrace &trace, int yAxis, const QString &name,
                     const QString &legendTitle, bool inLegend, QwtPlot *plot)
    : QwtPlotCurve(plainText(name)), m_data(&trace), m_title(plainText(legendTitle)), m_colour(colour)
{
    setPen(colour, lineWidth, penStyleOf(trace.kind));
    setYAxis(yAxis);
    setRenderHint(QwtPlotItem::RenderAntialiased, true);
    setSamples(trace.points);
    setStyle(QwtPlotCurve::Lines);
    setCurveAttribute(QwtPlotCurve::Fitted, false);
    setItemAttribute(QwtPlotItem::Legend, inLegend);
    attach(plot);
}

bool CurveLine::isPower() const
{
    return yAxis() == QwtPlot::yRight;
}

void CurveLine::setInLegend(bool on)
{
    if (on == testItemAttribute(QwtPlotItem::Legend))
        return;
    setItemAttribute(QwtPlotItem::Legend, on);
    // Only an entry that comes is taken up by the plot unasked.
    if (!on)
        plot()->updateLegend(this);
}

void CurveLine::addMarker(int index)
{
    const QPen pen(m_colour, lineWidth, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    auto marker = std::make_unique<QwtPlotMarker>();
    marker->setSymbol(
        new QwtSymbol(QwtSymbol::Ellipse, QBrush(Qt::white), pen, QSize(markerSize, markerSize)));
    marker->setValue(m_data->points.at(index));
    marker->attach(plot());
    m_markers.push_back(std::move(marker));
}

QList<QwtLegendData> CurveLine::legendData() const
{
    QList<QwtLegendData> entries = QwtPlotCurve::legendData();
    if (!entries.isEmpty()) {
        entries.first().setValue(QwtLegendData::TitleRole, QVariant::fromValue(m_title));
        entries.first().setValue(QwtLegendData::UserRole, static_cast<int>(pen().style()));
    }
    return entries;
}

} // namespace IVCurve
