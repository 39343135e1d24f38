#include "browser/XmlSearchHandler.h"

#include <QRegExp>

#include <algorithm>

namespace {

/// The longest piece between the wildcards of an expression. None of one with sets of characters or with
/// backslashes, which the toolkit takes for more than themselves.
QString longestLiteral(const QRegExp &regExp)
{
    QString longest;
    QString pattern = regExp.pattern();
    if (regExp.patternSyntax() != QRegExp::Wildcard || pattern.contains(QLatin1Char('[')) ||
        pattern.contains(QLatin1Char('\\')))
        return longest;
    pattern.replace(QLatin1Char('?'), QLatin1Char('*'));
    const QStringList pieces = pattern.split(QLatin1Char('*'));
    for (const QString &piece : pieces) {
        if (piece.size() > longest.size())
            longest = piece;
    }
    return longest;
}

} // namespace

XmlSearchHandler::XmlSearchHandler(QRegExp *regExp) : m_regExp(regExp), m_literal(longestLiteral(*regExp)) {}

bool XmlSearchHandler::characters(const QString &text)
{
    found = canMatch(text) && m_regExp->exactMatch(text);
    return !found;
}

bool XmlSearchHandler::canMatch(const QString &text) const
{
    // Most runs are white space or short, and expressions are slow to find that out.
    if (m_regExp->caseSensitivity() == Qt::CaseSensitive)
        return text.contains(m_literal);
    // Character by character as the expression does it, which is not the folding of QString::contains.
    return std::search(text.cbegin(), text.cend(), m_literal.cbegin(), m_literal.cend(),
                       [](QChar a, QChar b) { return a.toLower() == b.toLower(); }) != text.cend() ||
           m_literal.isEmpty();
}
