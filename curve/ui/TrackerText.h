#pragma once

#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QVector>

#include <optional>

namespace IVCurve {

class CurveLine;
class GraphLines;

/// What the tracker tells, as plain functions.
namespace TrackerText {

/// The part of a line of points, sorted by x, that goes over `x`. Nothing beside the points, and with fewer
/// than two of them or all of one width or height.
std::optional<QLineF> segmentAt(const QVector<QPointF> &points, const QRectF &bounds, double x);

/// The point of a segment at `x`; of one that goes straight down the lower end.
QPointF pointAt(const QLineF &segment, double x);

/// The row for one line: volts, amperes and watts, or volts and watts of a power line. Empty if the line does
/// not go over `x`.
QString entry(const CurveLine &line, double x, const QString &suffix, const QString &listSeparator);

/// The rows for all strings at `x`, as HTML.
QString body(const GraphLines &graph, double x, const QString &listSeparator);

} // namespace TrackerText

} // namespace IVCurve
