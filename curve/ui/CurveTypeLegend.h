#pragma once

#include <QCoreApplication>
#include <qwt_plot_item.h>

namespace IVCurve {

class GraphLines;

/// The key of line styles on the canvas of a graph: which style is measured, corrected and nominal.
class CurveTypeLegend : public QwtPlotItem
{
    Q_DECLARE_TR_FUNCTIONS(IVCurve::CurveTypeLegend)

public:
    CurveTypeLegend();

    int rtti() const override { return QwtPlotItem::Rtti_PlotUserItem; }
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    struct Row
    {
        QString text;
        Qt::PenStyle style;
    };

    static QVector<Row> rowsFor(const GraphLines &graph);
    static void drawRow(QPainter *painter, const QRectF &place, const Row &row);
};

} // namespace IVCurve
