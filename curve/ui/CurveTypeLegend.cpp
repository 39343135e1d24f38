#include "curve/ui/CurveTypeLegend.h"

#include "curve/ui/GraphLines.h"

#include <QFontMetricsF>
#include <QPainter>
#include <qwt_graphic.h>
#include <qwt_painter.h>
#include <qwt_plot.h>

#include <algorithm>

namespace IVCurve {

namespace {

constexpr double boxWidth = 80.0;
constexpr double rowPitch = 15.0;
constexpr double rowHeight = 10.0;
constexpr double margin = 5.0;
constexpr double distanceFromBelow = 10.0;
constexpr double cornerRadius = 3.0;
constexpr double sampleWidth = 30.0;
constexpr double textIndent = 40.0;
/// Above the curves.
constexpr double height = 1243.0;

/// The default font, smaller if the text would leave the box otherwise: white letters can only be read on it.
QFont fontFor(const QString &text, double width, double lineHeight)
{
    QFont font;
    const QFontMetricsF metrics(font);
    const double scale = std::min(width / metrics.horizontalAdvance(text), lineHeight / metrics.height());
    if (scale < 1.0 && font.pixelSize() > 0)
        font.setPixelSize(std::max(1, static_cast<int>(font.pixelSize() * scale)));
    else if (scale < 1.0)
        font.setPointSizeF(font.pointSizeF() * scale);
    return font;
}

} // namespace

CurveTypeLegend::CurveTypeLegend()
{
    setRenderHint(QwtPlotItem::RenderAntialiased, true);
    setZ(height);
}

QVector<CurveTypeLegend::Row> CurveTypeLegend::rowsFor(const GraphLines &graph)
{
    QVector<Row> rows;
    if (graph.showSTC())
        rows.append({tr("STC"), penStyleOf(TraceKind::stc)});
    if (graph.showMEAS())
        rows.append({tr("MEAS"), penStyleOf(TraceKind::measured)});
    if (graph.showNOM())
        rows.append({tr("NOM"), penStyleOf(TraceKind::nominal)});
    return rows;
}

void CurveTypeLegend::draw(QPainter *painter, const QwtScaleMap &, const QwtScaleMap &,
                           const QRectF &canvasRect) const
{
    const auto *graph = dynamic_cast<const GraphLines *>(plot());
    if (!graph)
        return;
    const QVector<Row> rows = rowsFor(*graph);
    const double boxHeight = rowPitch * rows.size() + margin;
    // On paper the canvas lies somewhere on the page.
    const QRectF box(canvasRect.left() + (canvasRect.width() - boxWidth) / 2.0,
                     canvasRect.bottom() - distanceFromBelow - boxHeight, boxWidth, boxHeight);
    painter->setPen(Qt::white);
    painter->setBrush(QBrush(Qt::gray, Qt::SolidPattern));
    painter->drawRoundedRect(box, cornerRadius, cornerRadius);

    const QRectF inside = box.adjusted(margin, margin, -margin, -margin);
    QRectF place(inside.left(), inside.top(), inside.width(), rowHeight);
    for (const Row &row : rows) {
        drawRow(painter, place, row);
        place.translate(0.0, rowPitch);
    }
}

void CurveTypeLegend::drawRow(QPainter *painter, const QRectF &place, const Row &row)
{
    QwtGraphic sample;
    sample.setDefaultSize(QSizeF(sampleWidth, place.height()));
    sample.setRenderHint(QwtGraphic::RenderPensUnscaled, true);
    QPainter onSample(&sample);
    onSample.setPen(QPen(Qt::black, 2, row.style, Qt::FlatCap));
    onSample.drawLine(QPointF(0.0, place.height() / 2.0), QPointF(sampleWidth, place.height() / 2.0));
    onSample.end();
    sample.render(painter, place.topLeft());

    painter->setPen(Qt::white);
    const QRectF textPlace = place.adjusted(textIndent, 0.0, margin - 1.0, 0.0);
    painter->setFont(fontFor(row.text, textPlace.width(), rowPitch));
    // Not the painter's own way: on paper it takes the font for that of the screen, as the plot's scales do.
    QwtPainter::drawText(painter, textPlace, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, row.text);
}

} // namespace IVCurve
