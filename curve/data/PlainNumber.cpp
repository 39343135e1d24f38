#include "curve/data/PlainNumber.h"

namespace IVCurve {

namespace {

/// With this many digits both the number without its mark and the power of ten are exact, so that their
/// quotient is the double that lies nearest.
constexpr int maximalDigits = 15;

constexpr double powersOfTen[maximalDigits + 1] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                   1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

bool isDigit(QChar character)
{
    return character.unicode() >= '0' && character.unicode() <= '9';
}

} // namespace

std::optional<double> plainNumber(const QChar *begin, const QChar *end, QChar decimalMark)
{
    const bool negative = begin != end && *begin == QLatin1Char('-');
    if (negative)
        ++begin;
    if (begin == end || end - begin > maximalDigits + 1 || !isDigit(*begin) || !isDigit(*(end - 1)))
        return std::nullopt;
    quint64 number = 0;
    const QChar *mark = end;
    for (const QChar *at = begin; at != end; ++at) {
        if (isDigit(*at))
            number = 10 * number + (at->unicode() - '0');
        else if (*at == decimalMark && mark == end)
            mark = at;
        else
            return std::nullopt;
    }
    if (mark == end && end - begin > maximalDigits)
        return std::nullopt;
    const auto decimals = mark == end ? 0 : end - mark - 1;
    const double value = static_cast<double>(number) / powersOfTen[decimals];
    return negative ? -value : value;
}

} // namespace IVCurve
