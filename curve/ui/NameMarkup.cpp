#include "curve/ui/NameMarkup.h"

#include <QRegularExpression>

namespace IVCurve {

namespace {

/// Far more than a cell has room for.
constexpr int longestMarkup = 2000;

/// A comment, or a tag of an element that costs no more than its text does, closed and with its quotes in
/// pairs.
const QRegularExpression &harmlessTag()
{
    static const QRegularExpression pattern(
        QStringLiteral(
            R"re(<!--[^<>]*-->|<\s*/?\s*)re"
            R"re((?:a|b|big|br|center|code|div|em|font|h[1-6]|hr|i|img|p|s|small|span|strike|strong)re"
            R"re(|sub|sup|tt|u))re"
            R"re((?:\s+(?!style\b)[a-z-]+(?:\s*=\s*(?:"[^"<>]*"|'[^'<>]*'|[^\s"'<>]+))?)*\s*/?>)re"),
        QRegularExpression::CaseInsensitiveOption);
    return pattern;
}

} // namespace

QString nameMarkup(const QString &name)
{
    if (!name.contains(QLatin1Char('<')))
        return name;
    const bool isHarmless =
        name.size() <= longestMarkup && !QString(name).remove(harmlessTag()).contains(QLatin1Char('<'));
    return isHarmless ? name : name.toHtmlEscaped();
}

} // namespace IVCurve
