#pragma once

#include <QChar>

#include <optional>

namespace IVCurve {

/// Reads what almost every number of a curve looks like: digits with at most one decimal mark between them
/// and perhaps a minus in front, few enough for the result to be exact. Nothing for any other text, which is
/// then the toolkit's to read.
std::optional<double> plainNumber(const QChar *begin, const QChar *end, QChar decimalMark);

} // namespace IVCurve
