#include "tools/testerfiles/TesterFile.h"

#include "app/core/NumberText.h"
#include "app/core/TesterChecksum.h"

namespace {

const QString curveColumn = QStringLiteral("IVCurve");

} // namespace

TesterFileFormat TesterFileFormat::english()
{
    return {QLatin1Char(','), QLatin1Char('.'), QStringLiteral("d/M/yyyy")};
}

TesterFileFormat TesterFileFormat::german()
{
    return {QLatin1Char(';'), QLatin1Char(','), QStringLiteral("dd.MM.yyyy")};
}

TesterFileFormat TesterFileFormat::ofLocale()
{
    return NumberText::decimalMark() == QLatin1Char(',') ? german() : english();
}

QString TesterFileFormat::number(double value, int decimals) const
{
    return QString::number(value, 'f', decimals).replace(QLatin1Char('.'), decimalMark);
}

TesterFile::TesterFile(const TesterFileFormat &format, const QString &serialNumber, int version,
                       const QStringList &columns)
    : m_format(format), m_columns(columns)
{
    addLine({QStringLiteral("PV Tester"), serialNumber, QStringLiteral("V2.10"), QString::number(version)});
    addLine(m_columns + QStringList{QStringLiteral("StatusCode"), QStringLiteral("Checksum")});
}

void TesterFile::addTest(const QMap<QString, QString> &fields, int status,
                         const QVector<TesterCurvePoint> &curve)
{
    QStringList line;
    for (const QString &column : qAsConst(m_columns)) {
        if (column == curveColumn && !curve.isEmpty())
            line += curveFields(curve);
        else
            line += fields.value(column);
    }
    line += QString::number(status);
    const QString summed = line.join(m_format.separator) + m_format.separator;
    const quint16 sum = testerChecksum(summed, m_format.separator, m_format.decimalMark);
    addLine(line << QStringLiteral("%1").arg(sum, 4, 16, QLatin1Char('0')).toUpper());
}

void TesterFile::addLine(const QStringList &fields)
{
    m_bytes += fields.join(m_format.separator).toUtf8() + "\r\n";
}

QStringList TesterFile::curveFields(const QVector<TesterCurvePoint> &curve) const
{
    QStringList fields;
    for (const TesterCurvePoint &point : curve) {
        const QStringList parts = {m_format.number(point.voltage, 3), m_format.number(point.current, 3),
                                   m_format.number(point.irradiance, 3), QString::number(point.flag)};
        fields += parts.join(QLatin1Char(':'));
    }
    return fields;
}
