#include "curve/ui/PointExport.h"

#include "app/core/Identity.h"
#include "app/core/Messages.h"
#include "app/core/NumberText.h"
#include "app/core/Shell.h"
#include "curve/data/StringRecord.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

namespace IVCurve {

namespace PointExport {

namespace {

/// The translation context of the table.
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(IVCurve::PointExport)
};

struct KindFacts
{
    const char *firstWord;
    /// Null for a suffix of one word.
    const char *secondWord;
    /// What stands over the second column, in every language.
    const char *symbol;
    const CurveTrace &(*curve)(StringRecord &record);
};

/// In the order of the kinds.
const KindFacts kindFacts[] = {
    {QT_TRANSLATE_NOOP("IVCurve::PointExport", "MEAS"), nullptr, "I",
     [](StringRecord &record) -> const CurveTrace & { return record.measuredCurve(); }},
    {QT_TRANSLATE_NOOP("IVCurve::PointExport", "PWR"), nullptr, "P",
     [](StringRecord &record) -> const CurveTrace & { return record.measuredPowerCurve(); }},
    {QT_TRANSLATE_NOOP("IVCurve::PointExport", "STC"), nullptr, "I",
     [](StringRecord &record) -> const CurveTrace & { return record.stcCurve(true); }},
    {QT_TRANSLATE_NOOP("IVCurve::PointExport", "STC"), QT_TRANSLATE_NOOP("IVCurve::PointExport", "PWR"), "P",
     [](StringRecord &record) -> const CurveTrace & { return record.stcPowerCurve(); }},
};

bool fail(const QString &text)
{
    Message message;
    message.parent = Shell::parentWindow();
    message.icon = QMessageBox::Critical;
    message.title = Identity::applicationName();
    message.text = text;
    showMessage(message);
    return false;
}

void write(StringRecord &record, Kind kind, QTextStream &stream)
{
    const KindFacts &facts = kindFacts[kind];
    const StringHeader &header = record.header();
    const QString separator = NumberText::listSeparator();
    stream << header.name << suffix(kind) << endl << endl;
    stream << Text::tr("Irradiance") << separator << Text::tr("Ambient Temp") << separator
           << Text::tr("Cell Temp") << separator << Text::tr("Fill Factor") << endl;
    stream << header.irradiance << separator << header.ambientTemp << separator << header.cellTemp
           << separator << header.ff << endl
           << endl;
    stream << 'V' << separator << facts.symbol << endl;
    for (const QPointF &point : facts.curve(record).points)
        stream << NumberText::shown(point.x()) << separator << NumberText::shown(point.y()) << endl;
}

} // namespace

QString suffix(Kind kind)
{
    const KindFacts &facts = kindFacts[kind];
    QString text = QLatin1Char(' ') + Text::tr(facts.firstWord);
    if (facts.secondWord)
        text += QLatin1Char(' ') + Text::tr(facts.secondWord);
    return text;
}

bool writeFile(StringRecord &record, Kind kind, const QString &path)
{
    if (QFile::exists(path))
        QFile::remove(path);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return fail(Text::tr(" Could not open file:\n %1").arg(path));
    QTextStream stream(&file);
    write(record, kind, stream);
    return stream.status() == QTextStream::Ok || fail(file.errorString());
}

} // namespace PointExport

} // namespace IVCurve
