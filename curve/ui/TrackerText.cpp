#include "curve/ui/TrackerText.h"

#include "curve/data/CurveGraphModel.h"
#include "curve/ui/GraphLines.h"

#include <QLocale>

#include <algorithm>

namespace IVCurve {

namespace TrackerText {

namespace {

/// No further string is told once more than so many have been.
constexpr int manyStrings = 40;

QString number(double value)
{
    return QLocale().toString(value, 'f', 1);
}

} // namespace

std::optional<QLineF> segmentAt(const QVector<QPointF> &points, const QRectF &bounds, double x)
{
    if (points.size() < 2 || !(bounds.width() > 0.0) || !(bounds.height() > 0.0))
        return std::nullopt;
    if (!(x >= bounds.left() && x <= bounds.right()))
        return std::nullopt;
    auto next = std::upper_bound(points.cbegin(), points.cend(), x,
                                 [](double value, const QPointF &point) { return value < point.x(); });
    const double lastX = points.constLast().x();
    if (next == points.cend() && !(lastX < x || lastX > x))
        --next;
    if (next == points.cend() || next == points.cbegin())
        return std::nullopt;
    const QLineF segment(*(next - 1), *next);
    if (segment.isNull())
        return std::nullopt;
    return segment;
}

QPointF pointAt(const QLineF &segment, double x)
{
    // A curve that is led on to the axis ends in a drop: there the last sample is told.
    if (!(segment.dx() < 0.0 || segment.dx() > 0.0))
        return segment.p2();
    return segment.pointAt((x - segment.x1()) / segment.dx());
}

QString entry(const CurveLine &line, double x, const QString &suffix, const QString &listSeparator)
{
    const std::optional<QLineF> segment = segmentAt(line.trace().points, line.boundingRect(), x);
    if (!segment)
        return QString();
    const QPointF point = pointAt(*segment, x);
    const QString colour = line.pen().color().name();
    const QString name = line.title().text().toHtmlEscaped();
    if (line.isPower())
        return QStringLiteral("<font color=%1>%2: %3V%4%7 %5W%6</font>")
            .arg(colour, name, number(point.x()), suffix, number(point.y()), suffix, listSeparator);
    return QStringLiteral("<font color=%1>%2: %3V%4%9 %5A%6%9 %7W%8</font>")
        .arg(colour, name, number(point.x()), suffix, number(point.y()), suffix,
             number(point.x() * point.y()), suffix, listSeparator);
}

QString body(const GraphLines &graph, double x, const QString &listSeparator)
{
    QString text;
    int told = 0;
    for (const auto &[id, record] : graph.model()->records()) {
        if (!record)
            continue;
        for (const LineSource &source : lineSources) {
            if (!(graph.*source.isShown)())
                continue;
            const CurveLine *line = graph.line(graph.showIV() ? source.iv : source.power, id);
            const QString row =
                line ? entry(*line, x, QLatin1String(source.suffix), listSeparator) : QString();
            if (!row.isEmpty() && !text.isEmpty())
                text += QLatin1String("<br>");
            text += row;
        }
        if (++told > manyStrings)
            break;
    }
    return text;
}

} // namespace TrackerText

} // namespace IVCurve
