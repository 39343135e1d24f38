#include "curve/data/ModuleCsv.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTextCodec>

#include <cmath>

namespace IVCurve {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(IVCurve::ModuleCsv)
};

enum Column
{
    Name,
    Technology,
    VocRef,
    IscRef,
    VmpRef,
    ImpRef,
    AlphaSc,
    BetaOc,
    Rs,
    ColumnCount
};

const char *const columnNames[ColumnCount] = {"Name",     "Technology", "V_oc_ref", "I_sc_ref", "V_mp_ref",
                                              "I_mp_ref", "alpha_sc",   "beta_oc",  "R_s"};

/// Lines after the names that may hold units and variable names.
constexpr int headingLinesBelowNames = 2;

/// Anderson's coefficient by technology, which the table does not have.
constexpr double deltaMono = 0.085;
constexpr double deltaMulti = 0.110;
constexpr double deltaThinFilm = 0.063;

double deltaOf(const QString &technology)
{
    for (const char *thin : {"thin", "cdte", "cigs", "cis", "a-si", "amorphous"}) {
        if (technology.contains(QLatin1String(thin), Qt::CaseInsensitive))
            return deltaThinFilm;
    }
    const bool multi = technology.contains(QLatin1String("multi"), Qt::CaseInsensitive) ||
                       technology.contains(QLatin1String("poly"), Qt::CaseInsensitive);
    return multi ? deltaMulti : deltaMono;
}

/// The text of the bytes: some rows of the table stand in the encoding of Western Europe.
QString textOf(const QByteArray &bytes)
{
    QTextCodec::ConverterState state;
    const QString text =
        QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0 ? text : QString::fromLatin1(bytes);
}

/// Divides a line at commas; a field in double quotes may hold commas, and doubled quotes for quotes.
QStringList fieldsOf(const QString &line)
{
    QStringList fields;
    QString field;
    bool quoted = false;
    for (int i = 0; i < line.size(); ++i) {
        const QChar character = line.at(i);
        if (character == QLatin1Char('"')) {
            if (quoted && i + 1 < line.size() && line.at(i + 1) == QLatin1Char('"'))
                field += line.at(++i);
            else
                quoted = !quoted;
        } else if (character == QLatin1Char(',') && !quoted) {
            fields.append(field.trimmed());
            field.clear();
        } else {
            field += character;
        }
    }
    fields.append(field.trimmed());
    return fields;
}

class Reader
{
public:
    explicit Reader(const QStringList &names)
    {
        for (int column = 0; column < ColumnCount; ++column)
            m_positions[column] = names.indexOf(QLatin1String(columnNames[column]));
    }

    QStringList missing() const
    {
        QStringList names;
        for (int column = 0; column < ColumnCount; ++column) {
            if (m_positions[column] < 0)
                names.append(QLatin1String(columnNames[column]));
        }
        return names;
    }

    void take(const QStringList &fields)
    {
        name = fields.value(m_positions[Name]);
        technology = fields.value(m_positions[Technology]);
        firstWrong = -1;
        numbers = 0;
        for (int column = VocRef; column < ColumnCount; ++column) {
            bool isNumber = false;
            values[column] = QLocale::c().toDouble(fields.value(m_positions[column]), &isNumber);
            isNumber = isNumber && std::isfinite(values[column]);
            numbers += isNumber ? 1 : 0;
            if (!isNumber && firstWrong < 0)
                firstWrong = column;
        }
    }

    /// Why the line gives no module; empty if it does.
    QString reason() const
    {
        if (name.isEmpty())
            return Text::tr("it has no name");
        if (firstWrong >= 0)
            return Text::tr("%1 is no number").arg(QLatin1String(columnNames[firstWrong]));
        if (!(values[VmpRef] > 0 && values[VocRef] > values[VmpRef]))
            return Text::tr("V_mp_ref is not between 0 and V_oc_ref");
        if (!(values[ImpRef] > 0 && values[IscRef] > values[ImpRef]))
            return Text::tr("I_mp_ref is not between 0 and I_sc_ref");
        if (values[Rs] < 0)
            return Text::tr("R_s is below 0");
        return QString();
    }

    CurveModuleRow module() const
    {
        CurveModuleRow row;
        row.Description = name;
        row.Voc = values[VocRef];
        row.Isc = values[IscRef];
        row.Vmp = values[VmpRef];
        row.Imp = values[ImpRef];
        row.alpha = values[AlphaSc];
        row.beta = values[BetaOc];
        row.delta = deltaOf(technology);
        row.Rs = values[Rs];
        row.UserModule = 0;
        row.Favourite = 0;
        return row;
    }

    QString name;
    QString technology;
    double values[ColumnCount] = {};
    int firstWrong = -1;
    int numbers = 0;

private:
    int m_positions[ColumnCount] = {};
};

} // namespace

ModuleCsv ModuleCsv::parse(const QByteArray &bytes)
{
    ModuleCsv csv;
    const QList<QByteArray> lines = bytes.split('\n');
    QByteArray heading = lines.constFirst();
    if (heading.startsWith("\xef\xbb\xbf"))
        heading.remove(0, 3);
    Reader reader(fieldsOf(textOf(heading).trimmed()));
    csv.missingColumns = reader.missing();
    if (!csv.missingColumns.isEmpty())
        return csv;
    for (int line = 1; line < lines.size(); ++line) {
        const QString text = textOf(lines.at(line)).trimmed();
        if (text.isEmpty())
            continue;
        reader.take(fieldsOf(text));
        // Units and variable names hold no number at all.
        if (line <= headingLinesBelowNames && reader.numbers == 0)
            continue;
        const QString reason = reader.reason();
        if (reason.isEmpty())
            csv.modules.append(reader.module());
        else
            csv.skipped.append({line + 1, reader.name, reason});
    }
    return csv;
}

} // namespace IVCurve
