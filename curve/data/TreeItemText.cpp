#include "curve/data/TreeItemText.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <QStringList>

namespace IVCurve {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("IVCurve::CurveTreeModel", text);
}

QDate oldDate(const QString &text)
{
    const QDate date = QLocale().toDate(text, QLocale::ShortFormat);
    return date.isValid() ? date : QDate::fromString(text, QStringLiteral("dd/MM/yyyy"));
}

QTime oldTime(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char(':'));
    if (parts.size() != 3)
        return QTime();
    return QTime(parts.at(0).toInt(), parts.at(1).toInt(), parts.at(2).toInt());
}

/// Date and time as files of earlier versions hold them: "17/05/2012 10:32:05".
QDateTime oldDateTime(const QString &text)
{
    const int blank = text.indexOf(QLatin1Char(' '));
    if (blank < 0)
        return QDateTime();
    const QDate date = oldDate(text.left(blank));
    const QTime time = oldTime(text.mid(blank + 1));
    return date.isValid() && time.isValid() ? QDateTime(date, time) : QDateTime();
}

} // namespace

QString statusText(const QVariant &status)
{
    bool isNumber = false;
    const quint32 word = status.toUInt(&isNumber);
    QString text;
    if (!isNumber)
        return text;
    if (word & ChecksumFailed)
        text += translated(QT_TRANSLATE_NOOP(
            "IVCurve::CurveTreeModel",
            "Invalid checksum. Internal error in test instrument or the CSV data has been modified"));
    if (word & ChecksumIgnored)
        text += translated(QT_TRANSLATE_NOOP("IVCurve::CurveTreeModel",
                                             "Checksum ignored. Spreadsheet data modification was detected"));
    if (word & IrradianceVaried) {
        if (!text.isEmpty())
            text += QLatin1Char('\n');
        text += translated(QT_TRANSLATE_NOOP("IVCurve::CurveTreeModel",
                                             "Irradiance warning. Greater than 10% variance during test"));
    }
    return text;
}

QColor statusColour(const QVariant &status)
{
    bool isNumber = false;
    const quint32 word = status.toUInt(&isNumber);
    if (!isNumber)
        return QColor();
    if (word & ChecksumFailed)
        return Qt::red;
    if (word & IrradianceVaried)
        return Qt::blue;
    if (word & ChecksumIgnored)
        return Qt::darkGreen;
    return QColor();
}

QString shownDate(const QString &stored)
{
    QDateTime dateTime = QDateTime::fromString(stored, Qt::ISODate);
    if (!dateTime.isValid())
        dateTime = oldDateTime(stored);
    if (!dateTime.isValid())
        return QString();
    const QLocale locale;
    return locale.toString(dateTime, locale.dateFormat(QLocale::ShortFormat) + QLatin1String(" HH:mm:ss"));
}

} // namespace IVCurve
