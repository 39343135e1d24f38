#pragma once

#include <qwt_plot_picker.h>
#include <qwt_text.h>

namespace IVCurve {

class GraphLines;

/// Tells what the lines of a graph amount to under the mouse.
class CurveTracker : public QwtPlotPicker
{
    Q_OBJECT

public:
    CurveTracker(const GraphLines *graph, QWidget *canvas);

    QRect trackerRect(const QFont &font) const override;
    /// The values of the lines at the voltage of `pos`; its height plays no part.
    QwtText trackerTextF(const QPointF &pos) const override;

    QString listSeparator() const { return m_listSeparator; }
    void setListSeparator(const QString &separator) { m_listSeparator = separator; }

private:
    const GraphLines *m_graph;
    QString m_listSeparator;
};

} // namespace IVCurve
