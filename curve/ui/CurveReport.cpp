#include "curve/ui/CurveReport.h"

#include "app/core/Language.h"
#include "curve/data/StringRecord.h"
#include "curve/ui/NameMarkup.h"
#include "curve/ui/TestDate.h"

#include <QFile>
#include <QLocale>
#include <QTextStream>

#include <cmath>

namespace IVCurve {

namespace {

// The end tag with its blanks is what the reader of HTML takes for the end of a cell all the same.
const char leftCell[] = "<td style=\" font-family: Arial, Helvetica, sans-serif;\"><!--#%1#-->< / td>";
const char centredCell[] =
    "<td style=\" font-family: Arial, Helvetica, sans-serif; text-align: center;\"><!--#%1#-->< / td>";

const char *const conditionCells[] = {"DATE", "IRRADIANCE", "CELLTEMP", "FILLFACTOR"};
const char *const valueCells[] = {"MEAS_PWR", "STC_PWR",   "NOM_PWR",  "DIFF_PWR", "MEAS_VOC", "STC_VOC",
                                  "NOM_VOC",  "MEAS_VMPP", "STC_VMPP", "NOM_VMPP", "MEAS_ISC", "STC_ISC",
                                  "NOM_ISC",  "MEAS_IMPP", "STC_IMPP", "NOM_IMPP"};

/// A row with the string's name and these cells, all of them empty: comments stand where the values go.
template <size_t count> QString emptyRow(const char *const (&cells)[count], const char *indent)
{
    const auto line = [indent](const char *cell, const char *name) {
        return QLatin1String(indent) + QString::fromLatin1(cell).arg(QLatin1String(name)) + QLatin1Char('\n');
    };
    QString row = QStringLiteral("<tr>\n") + line(leftCell, "STRINGNAME");
    for (const char *name : cells)
        row += line(centredCell, name);
    return row + QStringLiteral("</tr>\n");
}

void fill(QString &row, const QString &cell, const QString &text)
{
    row.replace(QStringLiteral("<!--#%1#-->").arg(cell), text, Qt::CaseSensitive);
}

void fill(QString &row, const QString &cell, double value, int decimals)
{
    fill(row, cell, QLocale().toString(value, 'f', decimals));
}

/// A reading of the tester; one that is no number in the default locale counts as 0.
double reading(const QString &text)
{
    bool isNumber = false;
    const double value = QLocale().toDouble(text, &isNumber);
    return isNumber ? value : 0.0;
}

/// The values of a curve under the cells of its source.
void fillFromCurve(QString &row, const QString &source, const CurveTrace &curve, const CurveTrace &power)
{
    if (curve.isEmpty())
        return;
    fill(row, source + QLatin1String("_PWR"), power.maxI, 0);
    fill(row, source + QLatin1String("_VOC"), curve.points.constLast().x(), 1);
    fill(row, source + QLatin1String("_ISC"), curve.points.constFirst().y(), 2);
    // A curve that never gives any power has no point of the highest.
    if (curve.mppIndex < 0 || curve.mppIndex >= curve.size())
        return;
    fill(row, source + QLatin1String("_VMPP"), curve.points.at(curve.mppIndex).x(), 1);
    fill(row, source + QLatin1String("_IMPP"), curve.points.at(curve.mppIndex).y(), 2);
}

/// What the module's data sheet promises: the nominal curve only decides whether there is a module.
void fillFromModule(QString &row, StringRecord &record)
{
    if (record.nominalCurve().isEmpty())
        return;
    const ModuleBinding &module = record.module();
    const double series = static_cast<quint32>(module.series);
    const double parallel = static_cast<quint32>(module.parallel);
    const double power = (series * module.vmp) * (parallel * module.imp);
    fill(row, QStringLiteral("NOM_PWR"), power, 0);
    fill(row, QStringLiteral("NOM_VOC"), series * module.voc, 1);
    fill(row, QStringLiteral("NOM_VMPP"), series * module.vmp, 1);
    fill(row, QStringLiteral("NOM_IMPP"), parallel * module.imp, 2);
    fill(row, QStringLiteral("NOM_ISC"), parallel * module.isc, 2);
    if (!record.stcCurve(true).isEmpty() && record.nominalPowerCurve().maxI > 0.0)
        fill(row, QStringLiteral("DIFF_PWR"), std::abs((power - record.stcPowerCurve().maxI) * 100.0 / power),
             1);
}

QString conditionsRow(const StringHeader &header)
{
    QString row = emptyRow(conditionCells, "  ");
    fill(row, QStringLiteral("STRINGNAME"), nameMarkup(header.name));
    fill(row, QStringLiteral("DATE"), formatTestDate(header.testDate));
    fill(row, QStringLiteral("IRRADIANCE"), reading(header.irradiance), 0);
    fill(row, QStringLiteral("CELLTEMP"), reading(header.cellTemp), 1);
    fill(row, QStringLiteral("FILLFACTOR"), reading(header.ff), 0);
    return row;
}

QString valuesRow(StringRecord &record)
{
    QString row = emptyRow(valueCells, "\t");
    fill(row, QStringLiteral("STRINGNAME"), nameMarkup(record.header().name));
    fillFromCurve(row, QStringLiteral("MEAS"), record.measuredCurve(), record.measuredPowerCurve());
    fillFromCurve(row, QStringLiteral("STC"), record.stcCurve(true), record.stcPowerCurve());
    fillFromModule(row, record);
    return row;
}

} // namespace

bool CurveReport::readTemplate(QString &templateText)
{
    QFile file(reportsResource(QStringLiteral("PV Array Curve Report.html")));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    templateText = stream.readAll();
    return true;
}

void CurveReport::addString(StringRecord &record)
{
    m_conditions += conditionsRow(record.header());
    m_values += valuesRow(record);
}

QString CurveReport::html() const
{
    QString html = m_template;
    html.replace(QLatin1String("<!-- TABLE1_ROWS -->"), m_conditions);
    html.replace(QLatin1String("<!-- TABLE2_ROWS -->"), m_values);
    return html;
}

} // namespace IVCurve
