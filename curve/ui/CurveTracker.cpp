#include "curve/ui/CurveTracker.h"

#include "app/platform/Platform.h"
#include "curve/ui/TrackerText.h"

#include <QPen>

namespace IVCurve {

CurveTracker::CurveTracker(const GraphLines *graph, QWidget *canvas)
    : QwtPlotPicker(canvas), m_graph(graph), m_listSeparator(QStringLiteral(","))
{
    setTrackerFont(QFont(QStringLiteral("Arial"), 10, QFont::Bold, false));
    setTrackerMode(QwtPicker::ActiveOnly);
    setRubberBand(QwtPicker::VLineRubberBand);
    const QString ofTheSystem = Platform::listSeparator();
    if (!ofTheSystem.isEmpty())
        m_listSeparator = ofTheSystem;
}

QRect CurveTracker::trackerRect(const QFont &font) const
{
    return QwtPlotPicker::trackerRect(font);
}

QwtText CurveTracker::trackerTextF(const QPointF &pos) const
{
    QwtText text;
    text.setColor(Qt::black);
    text.setBorderPen(QPen(QBrush(Qt::white), 2.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    text.setBackgroundBrush(QColor(255, 255, 255, 200));
    text.setText(TrackerText::body(*m_graph, pos.x(), m_listSeparator), QwtText::RichText);
    return text;
}

} // namespace IVCurve
