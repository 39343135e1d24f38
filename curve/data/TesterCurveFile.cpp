#include "curve/data/TesterCurveFile.h"

#include "app/core/TesterChecksum.h"
#include "curve/data/PointText.h"
#include "curve/data/TreeItemText.h"

#include <QDateTime>

namespace IVCurve {

namespace {

struct ReadingColumn
{
    const char *name;
    QString StringHeader::*reading;
};

const ReadingColumn readingColumns[] = {
    {"Rpe (Ohm)", &StringHeader::rpe},         {"Voc (VDC)", &StringHeader::voc},
    {"Isc (ADC)", &StringHeader::isc},         {"Riso (MOhm)", &StringHeader::riso},
    {"Viso (V)", &StringHeader::viso},         {"Iclamp (Amp)", &StringHeader::iclamp},
    {"Irr (W/m2)", &StringHeader::irradiance}, {"Ta (C)", &StringHeader::ambientTemp},
    {"Tpv (C)", &StringHeader::cellTemp},      {"FF", &StringHeader::ff},
    {"Vmpp (V)", &StringHeader::vmp},          {"Impp(A)", &StringHeader::imp}};

const char *const datePatterns[] = {"d/M/yyyy", "dd/MM/yyyy", "dd.MM.yyyy", "dd,MM,yyyy"};

/// Fields at the end of each line that are none of the columns before: status and check sum.
constexpr int closingFields = 2;

QStringList dividedIntoLines(const QString &text)
{
    QStringList lines;
    int begin = 0;
    for (int end = text.indexOf(QLatin1Char('\n')); end >= 0; end = text.indexOf(QLatin1Char('\n'), begin)) {
        int last = end;
        while (last > begin && text.at(last - 1) == QLatin1Char('\r'))
            --last;
        lines.append(text.mid(begin, last - begin));
        begin = end + 1;
    }
    lines.append(text.mid(begin));
    return lines;
}

QVector<QStringView> fieldsOf(const QString &line, QChar separator)
{
    QVector<QStringView> fields;
    const QStringView view(line);
    qsizetype begin = 0;
    for (qsizetype end = view.indexOf(separator); end >= 0; end = view.indexOf(separator, begin)) {
        fields.append(view.mid(begin, end - begin).trimmed());
        begin = end + 1;
    }
    fields.append(view.mid(begin).trimmed());
    return fields;
}

QString isoDate(const QString &field)
{
    for (const char *pattern : datePatterns) {
        const QDate date = QDate::fromString(field, QLatin1String(pattern));
        if (date.isValid())
            return date.toString(Qt::ISODate);
    }
    return QString();
}

QString isoTime(const QString &field)
{
    const QTime time = QTime::fromString(field, QStringLiteral("H:m:s"));
    if (time.isValid())
        return QLatin1Char('T') + time.toString(QStringLiteral("HH:mm:ss"));
    if (QTime::fromString(field, QStringLiteral("HH:mm:ss")).isValid())
        return QLatin1Char('T') + field;
    return QString();
}

/// Highest and lowest irradiance of a test may differ by this factor.
constexpr double steadyIrradiance = 0.9;

} // namespace

TesterCurveFile::TesterCurveFile(const QByteArray &bytes, const QLocale &locale) : m_locale(locale)
{
    const bool comma = locale.toString(0.5, 'g', 6).contains(QLatin1Char(','));
    m_separator = QLatin1Char(comma ? ';' : ',');
    m_decimalMark = QLatin1Char(comma ? ',' : '.');
    QByteArray stripped = bytes;
    for (char &byte : stripped)
        byte = static_cast<char>(byte & 0x7f);
    m_lines = dividedIntoLines(QString(stripped));
    for (QString &line : m_lines) {
        int length = line.size();
        while (length > 0 && line.at(length - 1) == m_separator)
            --length;
        if (length < line.size()) {
            line.truncate(length);
            m_spreadsheetTouched = true;
        }
    }
    readHeading();
}

void TesterCurveFile::readHeading()
{
    const QVector<QStringView> heading = fieldsOf(m_lines.constFirst(), m_separator);
    if (heading.size() >= 2)
        m_serialNumber = heading.at(1).toString();
    if (heading.size() >= 4)
        m_fileVersion = heading.at(3).toString().toUInt();
    if (m_lines.size() < 2)
        return;
    const QVector<QStringView> names = fieldsOf(m_lines.at(1), m_separator);
    for (int position = 0; position < names.size(); ++position)
        m_columns.emplace(names.at(position).toString(), position);
}

bool TesterCurveFile::isBlank(int line) const
{
    return QStringView(m_lines.at(line)).trimmed().isEmpty();
}

bool TesterCurveFile::checksumHolds(int line) const
{
    return testerChecksumMatches(m_lines.at(line), m_separator, m_decimalMark);
}

bool TesterCurveFile::takeField(const QVector<QStringView> &fields, const char *column, QString &target) const
{
    const auto found = m_columns.find(QLatin1String(column));
    if (found == m_columns.end() || found->second >= fields.size())
        return false;
    target = fields.at(found->second).toString();
    return true;
}

void TesterCurveFile::readString(int line, StringHeader &header, CurveTrace &measured) const
{
    const QVector<QStringView> fields = fieldsOf(m_lines.at(line), m_separator);
    header.testerSerialNo = m_serialNumber;
    header.fileVersion = m_fileVersion;
    QString field;
    if (takeField(fields, "Index", field))
        header.memLocation = field.toUInt();
    for (const ReadingColumn &facts : readingColumns)
        takeField(fields, facts.name, header.*facts.reading);
    QString moment;
    if (takeField(fields, "DD/MM/YYYY", field))
        moment += isoDate(field);
    if (takeField(fields, "HH:MM:SS", field))
        moment += isoTime(field);
    if (!moment.isEmpty())
        header.testDate = moment;
    readPoints(fields, measured);
    if (fields.size() > closingFields) {
        header.status = fields.at(fields.size() - 2).toString();
        header.checksum = fields.last().toString();
    }
}

void TesterCurveFile::readPoints(const QVector<QStringView> &fields, CurveTrace &measured) const
{
    const auto curve = m_columns.find(QStringLiteral("IVCurve"));
    if (curve == m_columns.end())
        return;
    const int end = fields.size() - closingFields;
    if (end <= curve->second)
        return;
    measured.reserve(end - curve->second);
    const PointCellReader reader(m_locale);
    for (int position = curve->second; position < end; ++position) {
        if (const auto point = reader.read(fields.at(position)))
            measured.addPoint(point->voltage, point->current, point->irradiance, point->tag);
    }
}

quint32 TesterCurveFile::statusWord(const StringHeader &header, const CurveTrace &measured,
                                    bool checksumFailed) const
{
    quint32 word = header.status.toUInt();
    if (checksumFailed)
        word |= ChecksumFailed;
    if (m_spreadsheetTouched)
        word |= ChecksumIgnored;
    if (measured.maxIrradiance * steadyIrradiance > measured.minIrradiance)
        word |= IrradianceVaried;
    if (header.irradiance.isEmpty())
        word |= NoIrradiance;
    if (header.cellTemp.isEmpty())
        word |= NoCellTemperature;
    return word;
}

} // namespace IVCurve
