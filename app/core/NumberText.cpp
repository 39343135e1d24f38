#include "app/core/NumberText.h"

#include <QLocale>

namespace NumberText {

namespace {

constexpr int significantDigits = 6;

bool commaIsDecimalMark()
{
    return QLocale().toString(0.5, 'g', 6).contains(QLatin1Char(','));
}

} // namespace

QChar decimalMark()
{
    return QLatin1Char(commaIsDecimalMark() ? ',' : '.');
}

QChar listSeparator()
{
    return QLatin1Char(commaIsDecimalMark() ? ';' : ',');
}

QString shown(double value)
{
    return QLocale().toString(value, 'g', significantDigits);
}

QString toStored(const QString &text)
{
    bool isNumber = false;
    const double value = QLocale().toDouble(text, &isNumber);
    return isNumber ? QLocale::c().toString(value, 'g', significantDigits) : text;
}

QString toShown(const QString &text)
{
    bool isNumber = false;
    const double value = QLocale::c().toDouble(text, &isNumber);
    return isNumber ? shown(value) : text;
}

} // namespace NumberText
