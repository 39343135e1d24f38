#pragma once

#include "curve/data/NumberReader.h"

#include <QString>

#include <optional>

namespace IVCurve {

class CurveTrace;

/// The text that holds the points of a curve in a curve file: values joined by ":", points joined by "#".
/// Its numbers are those of the C locale.

/// A curve has a few hundred points at most. More than this are a damaged or a hostile file, and are not
/// worth the memory.
constexpr int maximalPointCount = 1000000;

/// Appends the points of a text to a trace. What a point lacks or what cannot be read takes its default,
/// and the tags are dropped. False, with nothing appended, if there are more points than a curve can have.
bool appendPoints(const QString &text, CurveTrace &trace);

/// The text for the points of a trace; empty, not null, when it has none.
QString pointText(const CurveTrace &trace);

/// One point as a tester's file has it.
struct PointCell
{
    double voltage = 0.0;
    double current = 0.0;
    double irradiance = 0.0;
    int tag = 0;
};

/// Reads point cells of a tester's file, with the numbers of one locale.
class PointCellReader
{
public:
    explicit PointCellReader(const QLocale &locale);

    /// The point of a cell; nothing if it has too few values or one that is no number.
    std::optional<PointCell> read(QStringView cell) const;

private:
    std::optional<int> tag(QStringView text) const;

    NumberReader m_numbers;
};

} // namespace IVCurve
