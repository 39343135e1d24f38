#pragma once

#include "curve/data/CurveTrace.h"
#include "curve/data/StringHeader.h"

#include <QByteArray>
#include <QLocale>
#include <QString>
#include <QStringList>

#include <map>

namespace IVCurve {

/// A tester's results file as curves are taken from it: bytes divided into lines, and a line into what the
/// tester told of a string and its points. Separators and numbers are those of a locale, not of the file.
class TesterCurveFile
{
public:
    TesterCurveFile(const QByteArray &bytes, const QLocale &locale);

    /// Lines without the separators that a spreadsheet has put at their ends. The first two are no tests.
    const QStringList &lines() const { return m_lines; }
    /// True if any line had separators at its end: then no line's sum says anything.
    bool isSpreadsheetTouched() const { return m_spreadsheetTouched; }
    QString serialNumber() const { return m_serialNumber; }
    quint32 fileVersion() const { return m_fileVersion; }

    bool isBlank(int line) const;
    bool checksumHolds(int line) const;
    /// Reads a line. What it lacks stays empty.
    void readString(int line, StringHeader &header, CurveTrace &measured) const;

    /// The status word of a string: the tester's bits and those that the import adds.
    quint32 statusWord(const StringHeader &header, const CurveTrace &measured, bool checksumFailed) const;

private:
    void readHeading();
    void readPoints(const QVector<QStringView> &fields, CurveTrace &measured) const;
    /// The field of a column; nothing, not even an empty text, if the line is too short for it.
    bool takeField(const QVector<QStringView> &fields, const char *column, QString &target) const;

    QLocale m_locale;
    QChar m_separator;
    QChar m_decimalMark;
    QStringList m_lines;
    bool m_spreadsheetTouched = false;
    QString m_serialNumber;
    quint32 m_fileVersion = 0;
    std::map<QString, int> m_columns;
};

} // namespace IVCurve
