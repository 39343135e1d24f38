#include "app/batch/RowSelection.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

constexpr int maximalRow = 1000000;

} // namespace

std::optional<QVector<int>> parseRowSelection(const QString &text)
{
    static const QRegularExpression range(QStringLiteral("^([0-9]{1,7})(?:-([0-9]{1,7}))?$"));
    QVector<int> rows;
    const QStringList parts = text.split(QLatin1Char(','));
    for (const QString &part : parts) {
        const QRegularExpressionMatch match = range.match(part.trimmed());
        if (!match.hasMatch())
            return std::nullopt;
        const int first = match.captured(1).toInt();
        const int last = match.captured(2).isEmpty() ? first : match.captured(2).toInt();
        if (first < 1 || last < first || last > maximalRow || rows.size() + (last - first) >= maximalRow)
            return std::nullopt;
        for (int row = first; row <= last; ++row)
            rows.append(row);
    }
    return rows;
}
