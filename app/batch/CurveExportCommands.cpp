#include "app/batch/CurveExportCommands.h"

#include "app/batch/BatchFiles.h"
#include "app/batch/CurveSheet.h"
#include "curve/data/StringRecord.h"
#include "curve/ui/CurveReport.h"
#include "curve/ui/CurveReportPdf.h"
#include "curve/ui/TreeStrings.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <functional>

using namespace IVCurve;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Batch)
};

struct KindName
{
    const char *name;
    PointExport::Kind kind;
};

constexpr KindName kindNames[] = {{"meas", PointExport::Measured},
                                  {"pwr", PointExport::MeasuredPower},
                                  {"stc", PointExport::Stc},
                                  {"stcpwr", PointExport::StcPower}};

struct PointFile
{
    StringRecord *record;
    QString path;
};

/// What a string is called, as far as a file can be called so.
QString fileNameOf(const StringRecord &record, PointExport::Kind kind)
{
    static const QRegularExpression forbidden(QStringLiteral("[\\x00-\\x1f/\\\\:*?\"<>|]"));
    constexpr int longestName = 100;
    QString name = record.header().name.left(longestName);
    name.replace(forbidden, QStringLiteral("_"));
    // A name that begins with a point is hidden, and two of them are the folder above.
    if (name.trimmed().isEmpty() || name.startsWith(QLatin1Char('.')))
        name.prepend(QLatin1Char('_'));
    return name + PointExport::suffix(kind);
}

/// A file for each string. Strings of one name are told apart by a count.
QVector<PointFile> filesOf(const CurveSheet &sheet, PointExport::Kind kind, const QString &folder)
{
    QVector<PointFile> files;
    QSet<QString> taken;
    const QModelIndexList rows = sheet.rows();
    for (const QModelIndex &row : rows) {
        StringRecord *record = stringAt(row, sheet.file());
        if (!record)
            continue;
        const QString name = fileNameOf(*record, kind);
        QString path = QStringLiteral("%1/%2.csv").arg(folder, name);
        for (int n = 2; taken.contains(path.toLower()); ++n)
            path = QStringLiteral("%1/%2 (%3).csv").arg(folder, name, QString::number(n));
        taken.insert(path.toLower());
        files.append({record, path});
    }
    return files;
}

bool writeReport(const QString &curveFile, const QString &pdf, const StringSelection &strings)
{
    CurveSheet sheet(curveFile);
    QString templateText;
    if (!sheet.select(strings) || !CurveReport::readTemplate(templateText))
        return false;
    CurveReport report(templateText);
    const QModelIndexList rows = sheet.rows();
    for (const QModelIndex &row : rows) {
        if (StringRecord *record = stringAt(row, sheet.file()))
            report.addString(*record);
    }
    return writeReportPdf(report.html(), sheet.graph(), pdf) ||
           refuse(Text::tr("%1 cannot be written.").arg(pdf));
}

bool writePoints(const QString &curveFile, PointExport::Kind kind, const StringSelection &strings,
                 const QString &folder, bool force)
{
    CurveSheet sheet(curveFile);
    if (!sheet.select(strings))
        return false;
    const QVector<PointFile> files = filesOf(sheet, kind, folder);
    for (const PointFile &file : files) {
        if (!isApart(file.path, curveFile) || !isFree(file.path, force))
            return false;
    }
    for (const PointFile &file : files) {
        if (!PointExport::writeFile(*file.record, kind, file.path))
            return false;
    }
    return true;
}

BatchExit outcomeOf(const std::function<bool()> &job)
{
    try {
        return batchOutcome(job());
    } catch (const std::exception &error) {
        return batchOutcome(refuse(QString::fromUtf8(error.what())));
    }
}

} // namespace

std::optional<PointExport::Kind> parsePointKind(const QString &text)
{
    for (const KindName &known : kindNames) {
        if (text == QLatin1String(known.name))
            return known.kind;
    }
    return std::nullopt;
}

BatchExit writeCurveReport(const QString &curveFile, const QString &pdf, const StringSelection &strings,
                           bool force)
{
    return outcomeOf([&] {
        return isReadableFile(curveFile) && isApart(pdf, curveFile) && isFree(pdf, force) &&
               writeReport(curveFile, pdf, strings);
    });
}

BatchExit exportPoints(const QString &curveFile, PointExport::Kind kind, const StringSelection &strings,
                       const QString &folder, bool force)
{
    return outcomeOf([&] {
        if (!QFileInfo(folder).isDir())
            return refuse(Text::tr("%1 is no folder.").arg(folder));
        return isReadableFile(curveFile) && writePoints(curveFile, kind, strings, folder, force);
    });
}
