#include "app/batch/CurveCommands.h"

#include "app/batch/BatchFiles.h"
#include "app/core/DocumentType.h"
#include "app/core/Folders.h"
#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/data/ModuleCsv.h"
#include "curve/data/ModuleDatabase.h"
#include "curve/data/TesterCurveImporter.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QTextStream>

#include <cstdio>

using namespace IVCurve;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Batch)
};

/// One line of what was done, or of what was left out and is no failure.
void report(const QString &text)
{
    QTextStream(stdout) << text << '\n';
}

void reportSkipped(int line, const QString &name, const QString &reason)
{
    report(Text::tr("line %1, \"%2\": skipped, %3").arg(QString::number(line), name, reason));
}

QSet<QString> preloadedNames(const ModuleTable &table)
{
    QVector<CurveModuleRow> rows;
    table.query(QStringLiteral("UserModule=0"), rows);
    QSet<QString> names;
    for (const CurveModuleRow &row : qAsConst(rows))
        names.insert(row.Description.toString());
    return names;
}

/// Adds the modules that are not there yet; -1 if one of them could not be added.
int addModules(const QVector<CurveModuleRow> &modules, ModuleTable &table)
{
    QSet<QString> known = preloadedNames(table);
    int added = 0;
    for (const CurveModuleRow &module : modules) {
        const QString name = module.Description.toString();
        if (known.contains(name)) {
            report(Text::tr("\"%1\": skipped, it is in the catalogue already").arg(name));
            continue;
        }
        if (table.insert(module) == 0)
            return -1;
        known.insert(name);
        ++added;
    }
    return added;
}

bool fillCatalogue(const ModuleCsv &csv)
{
    ModuleTable *table = ModuleDatabase::instance().table();
    if (!table)
        return false;
    // Thousands of rows in one go: each by itself would take the disk minutes.
    QSqlDatabase database = QSqlDatabase::database(ModuleDatabase::defaultPath(), false);
    if (!database.transaction())
        return refuse(Text::tr("The catalogue cannot be written."));
    const int added = addModules(csv.modules, *table);
    if (added < 0 || !database.commit()) {
        database.rollback();
        return refuse(Text::tr("The catalogue is left as it was."));
    }
    report(Text::tr("%1 modules added, %2 lines skipped")
               .arg(added)
               .arg(csv.modules.size() - added + csv.skipped.size()));
    return true;
}

bool makeCurveFile(const QString &curveFile, bool force)
{
    if (!isFree(curveFile, force))
        return false;
    QFile::remove(curveFile);
    if (!QFile::copy(pristinePath(QStringLiteral("kelcrv")), curveFile))
        return refuse(Text::tr("%1 cannot be written.").arg(curveFile));
    return QFile::setPermissions(curveFile, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
}

bool takeIn(const QString &resultsFile, const QString &curveFile)
{
    CurveDatabase database(curveFile);
    if (!database.isOpen())
        return false;
    TesterCurveImporter(resultsFile, &database).run();
    CurveTreeModel *tree = database.treeModel();
    report(Text::tr("%1 strings imported").arg(tree->rowCount(tree->index(0, 0))));
    tree->slotSave();
    return true;
}

} // namespace

BatchExit importModules(const QString &table)
{
    QFile file(table);
    if (!file.open(QIODevice::ReadOnly)) {
        tell(Text::tr("%1 cannot be read.").arg(table));
        return BatchBadInput;
    }
    const ModuleCsv csv = ModuleCsv::parse(file.readAll());
    if (!csv.missingColumns.isEmpty()) {
        tell(Text::tr("%1 has no column %2.").arg(table, csv.missingColumns.join(QStringLiteral(", "))));
        return BatchBadInput;
    }
    for (const SkippedModule &skipped : csv.skipped)
        reportSkipped(skipped.line, skipped.name, skipped.reason);
    return batchOutcome(fillCatalogue(csv));
}

BatchExit importCurves(const QString &resultsFile, const QString &curveFile, bool makeNew, bool force)
{
    const QString canonical = QFileInfo(curveFile).canonicalFilePath();
    if (!canonical.isEmpty() && canonical == QFileInfo(resultsFile).canonicalFilePath())
        return batchOutcome(refuse(Text::tr("%1 is both read and written.").arg(resultsFile)));
    if (!isReadableFile(resultsFile))
        return BatchBadInput;
    if (makeNew ? !makeCurveFile(curveFile, force) : canonical.isEmpty()) {
        if (!makeNew)
            tell(Text::tr("%1 does not exist; --new makes it.").arg(curveFile));
        return BatchBadInput;
    }
    try {
        return batchOutcome(takeIn(resultsFile, curveFile));
    } catch (const std::exception &error) {
        return batchOutcome(refuse(QString::fromUtf8(error.what())));
    }
}

BatchExit printDataFolder()
{
    report(Folders::instance()->dataFolder());
    return BatchDone;
}
