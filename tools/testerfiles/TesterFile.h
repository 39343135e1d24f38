#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

/// How a country writes tables.
struct TesterFileFormat
{
    QChar separator;
    QChar decimalMark;
    /// Date as QDate::toString() takes it.
    QString datePattern;

    static TesterFileFormat english();
    static TesterFileFormat german();
    /// That of the default locale.
    static TesterFileFormat ofLocale();

    /// A number with a fixed count of decimals.
    QString number(double value, int decimals) const;
};

/// One measured point of a curve.
struct TesterCurvePoint
{
    double voltage;
    double current;
    double irradiance;
    int flag;
};

/// A results file as testers write it.
class TesterFile
{
public:
    /// A file without tests. `columns` are the names of all but the last two columns, which every file has.
    TesterFile(const TesterFileFormat &format, const QString &serialNumber, int version,
               const QStringList &columns);

    /// Appends a test: its fields by column name, and its curve, which takes the place of one field.
    void addTest(const QMap<QString, QString> &fields, int status,
                 const QVector<TesterCurvePoint> &curve = QVector<TesterCurvePoint>());

    /// The whole file with the sums of its lines.
    QByteArray bytes() const { return m_bytes; }

private:
    void addLine(const QStringList &fields);
    QStringList curveFields(const QVector<TesterCurvePoint> &curve) const;

    TesterFileFormat m_format;
    QStringList m_columns;
    QByteArray m_bytes;
};
