#include "curve/ui/TestDate.h"

#include <QDateTime>
#include <QLocale>
#include <QStringList>

#include <cstdlib>

namespace IVCurve {

namespace {

QString systemDateFormat()
{
    return QLocale::system().dateFormat(QLocale::ShortFormat);
}

QDate oldDate(const QString &text)
{
    const QDate date = QDate::fromString(text, systemDateFormat());
    return date.isValid() ? date : QDate::fromString(text, QStringLiteral("dd/MM/yyyy"));
}

/// The number that a text begins with, as C reads it; one that no clock shows when there are too many digits.
int leadingNumber(const QString &text)
{
    constexpr long outOfRange = 100;
    const long number = std::strtol(text.toLatin1().constData(), nullptr, 10);
    return static_cast<int>(qBound(-outOfRange, number, outOfRange));
}

QTime oldTime(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char(':'));
    if (parts.size() != 3)
        return QTime();
    return QTime(leadingNumber(parts.at(0)), leadingNumber(parts.at(1)), leadingNumber(parts.at(2)));
}

QDateTime oldDateTime(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char(' '));
    if (parts.size() != 2)
        return QDateTime();
    const QDate date = oldDate(parts.at(0));
    const QTime time = oldTime(parts.at(1));
    // A date without a time would stand for midnight.
    return date.isValid() && time.isValid() ? QDateTime(date, time) : QDateTime();
}

} // namespace

QString formatTestDate(const QString &text)
{
    QDateTime dateTime = QDateTime::fromString(text, Qt::ISODate);
    if (!dateTime.isValid())
        dateTime = oldDateTime(text);
    return dateTime.isValid() ? dateTime.toString(systemDateFormat() + QLatin1String(" HH:mm:ss"))
                              : QString();
}

} // namespace IVCurve
