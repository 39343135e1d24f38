#include "app/core/Folders.h"
#include "curve/data/ModuleDatabase.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

using namespace IVCurve;

namespace {

const QString modules[] = {"7, 'Beta', 8.8, 37.5, 8.3, 30.5, 0.0044, -0.1275, 0.085, 0.3, 0, 1",
                           "8, 'Alpha', 9.1, 45.0, 8.6, 37.1, 0.0048, -0.141, 0.11, 0.4, 1, 0",
                           "9, 'Beta', 5.0, 21.9, 4.6, 17.6, 0.0025, -0.0745, 0.063, 0.2, 0, 0"};

ModuleTable *table()
{
    return ModuleDatabase::instance().table();
}

} // namespace

class TestModuleDatabase : public QObject
{
    Q_OBJECT

private slots:
    void init() { CurveSample::writeCatalogue({modules[0], modules[1], modules[2]}); }
    void cleanup() { CurveSample::forgetCatalogue(); }

    void aMissingFileIsToldAtEachUse();
    void aFileThatCannotBeOpenedIsToldAtEachUse();
    void theCatalogueLiesInTheDataFolder();
    void rowsComeByNameWithAllTheirValues();
    void aDeletedModuleIsNull();
    void equalNamesAppearBoth();
    void noFavouritesAreAnEmptyList();
    void rowsStayWhenAQueryFails();
    void insertedRowsGetTheirId();
    void rowsAreUpdatedAndRemoved();
    void aRowWithoutIdIsNotUpdated();
    void aFileWithoutTheTableOpensAndTellsAtTheFirstRead();
    void aForeignViewInPlaceOfTheTableIsNotOpened();
    void aClosedConnectionDoesNothing();
    void bindingsComeFromTheCatalogue();
    void aModuleWhoseImpEqualsItsIscHasNoShape();
    void aModuleThatIsGoneFallsBackToNone();
    void theInstalledCatalogueIsConsistent();
};

void TestModuleDatabase::aMissingFileIsToldAtEachUse()
{
    CurveSample::forgetCatalogue();
    BoxWatcher watcher;
    for (int use = 0; use < 2; ++use) {
        watcher.expect("File is missing:\n " + ModuleDatabase::defaultPath(), QMessageBox::Ok);
        QVERIFY(!table());
    }
    QVERIFY(watcher.boxes().first().icon == QMessageBox::Critical);
    QCOMPARE(watcher.boxes().first().title, QString("Kelmar"));
}

void TestModuleDatabase::aFileThatCannotBeOpenedIsToldAtEachUse()
{
    CurveSample::forgetCatalogue();
    QDir().mkpath(ModuleDatabase::defaultPath());
    {
        BoxWatcher watcher;
        for (int use = 0; use < 2; ++use) {
            watcher.expect("unable to open", QMessageBox::Ok);
            QVERIFY(!ModuleDatabase::instance().isOpen());
        }
        QVERIFY(watcher.boxes().first().icon == QMessageBox::Warning);
        QCOMPARE(watcher.boxes().first().title, QString());
    }
    QVERIFY(QDir().rmdir(ModuleDatabase::defaultPath()));
}

void TestModuleDatabase::theCatalogueLiesInTheDataFolder()
{
    QCOMPARE(
        ModuleDatabase::defaultPath(),
        QDir::toNativeSeparators(QDir(Folders::instance()->dataFolder()).canonicalPath() + "/modules.db"));
    QVERIFY(ModuleDatabase::instance().isOpen());
    QVERIFY(QSqlDatabase::contains(ModuleDatabase::defaultPath()));
}

void TestModuleDatabase::rowsComeByNameWithAllTheirValues()
{
    QVector<CurveModuleRow> rows;
    QVERIFY(table()->allRows(rows));
    QCOMPARE(rows.size(), 3);
    const CurveModuleRow &alpha = rows.first();
    QCOMPARE(alpha.id, 8u);
    QCOMPARE(alpha.Description.toString(), QString("Alpha"));
    QCOMPARE(QVector<double>({alpha.Voc.toDouble(), alpha.Isc.toDouble(), alpha.Vmp.toDouble(),
                              alpha.Imp.toDouble(), alpha.alpha.toDouble(), alpha.beta.toDouble(),
                              alpha.delta.toDouble(), alpha.Rs.toDouble()}),
             QVector<double>({45.0, 9.1, 37.1, 8.6, 0.0048, -0.141, 0.11, 0.4}));
    QVERIFY(alpha.UserModule.toBool());
    QVERIFY(!alpha.Favourite.toBool());
}

void TestModuleDatabase::aDeletedModuleIsNull()
{
    QVERIFY(table()->row(7) != nullptr);
    QVERIFY(table()->remove(7));
    QVERIFY(table()->row(7) == nullptr);
}

void TestModuleDatabase::equalNamesAppearBoth()
{
    QVector<CurveModuleRow> rows;
    QVERIFY(table()->query("Description='Beta'", rows));
    QCOMPARE(rows.size(), 2);
}

void TestModuleDatabase::noFavouritesAreAnEmptyList()
{
    QVector<CurveModuleRow> rows;
    QVERIFY(table()->favouriteRows(rows));
    QCOMPARE(rows.size(), 1);
    QVERIFY(table()->remove(7));
    QVERIFY(table()->favouriteRows(rows));
    QVERIFY(rows.isEmpty());
}

void TestModuleDatabase::rowsStayWhenAQueryFails()
{
    QVector<CurveModuleRow> rows;
    QVERIFY(table()->allRows(rows));
    BoxWatcher watcher;
    watcher.expect("no such column", QMessageBox::Ok);
    QVERIFY(!table()->query("Colour=1", rows));
    QCOMPARE(rows.size(), 3);
    QVERIFY(watcher.boxes().first().icon == QMessageBox::Critical);
}

void TestModuleDatabase::insertedRowsGetTheirId()
{
    CurveModuleRow row = *table()->row(7);
    row.Description = row.Description.toString() + " (Copy)";
    row.UserModule = 1;
    const quint32 id = table()->insert(row);
    QCOMPARE(id, 10u);
    const auto copy = table()->row(id);
    QCOMPARE(copy->Description.toString(), QString("Beta (Copy)"));
    QCOMPARE(copy->Voc, row.Voc);
    QCOMPARE(copy->Isc, row.Isc);
    QCOMPARE(copy->Vmp, row.Vmp);
    QCOMPARE(copy->Imp, row.Imp);
    QCOMPARE(copy->Favourite, row.Favourite);
}

void TestModuleDatabase::rowsAreUpdatedAndRemoved()
{
    CurveModuleRow row = *table()->row(9);
    row.Description = "Gamma";
    row.Voc = QString::number(22.123456789, 'g', 6);
    row.Favourite = 1;
    QVERIFY(table()->update(row));
    const auto stored = table()->row(9);
    QCOMPARE(stored->Description.toString(), QString("Gamma"));
    QCOMPARE(stored->Voc.toDouble(), 22.1235);
    QCOMPARE(stored->Isc.toDouble(), 5.0);
    QVERIFY(stored->Favourite.toBool());
    QCOMPARE(table()->row(7)->Description.toString(), QString("Beta"));
    QVERIFY(table()->remove(9));
    QVERIFY(!table()->row(9));
}

void TestModuleDatabase::aRowWithoutIdIsNotUpdated()
{
    BoxWatcher watcher;
    watcher.expect("", QMessageBox::Ok);
    QVERIFY(!table()->update(CurveModuleRow()));
    QVERIFY(watcher.boxes().first().icon == QMessageBox::Critical);
}

void TestModuleDatabase::aFileWithoutTheTableOpensAndTellsAtTheFirstRead()
{
    CurveSample::forgetCatalogue();
    CurveSample::execute(ModuleDatabase::defaultPath(), {"CREATE TABLE Other (a)"});
    QVERIFY(table());
    BoxWatcher watcher;
    watcher.expect("no such table", QMessageBox::Ok);
    QVector<CurveModuleRow> rows;
    QVERIFY(!table()->allRows(rows));
    // Statements that cannot even be prepared fail without a word.
    QCOMPARE(table()->insert(CurveModuleRow()), 0u);
    QVERIFY(!table()->remove(1));
}

void TestModuleDatabase::aForeignViewInPlaceOfTheTableIsNotOpened()
{
    CurveSample::forgetCatalogue();
    CurveSample::execute(ModuleDatabase::defaultPath(), {"CREATE VIEW Modules AS SELECT 1 AS _id"});
    BoxWatcher watcher;
    watcher.expect("view", QMessageBox::Ok);
    QVERIFY(!table());
    watcher.expect("view", QMessageBox::Ok);
    CurveSample::forgetCatalogue();
}

void TestModuleDatabase::aClosedConnectionDoesNothing()
{
    ModuleTable *closed = table();
    QSqlDatabase::database(ModuleDatabase::defaultPath(), false).close();
    QVector<CurveModuleRow> rows;
    QVERIFY(!closed->allRows(rows));
    QCOMPARE(closed->insert(CurveModuleRow()), 0u);
    QVERIFY(!closed->update(CurveModuleRow()));
    QVERIFY(!closed->remove(7));
}

void TestModuleDatabase::bindingsComeFromTheCatalogue()
{
    const ModuleBinding binding = ModuleDatabase::binding(7, 18, 2);
    QCOMPARE(binding.moduleId, 7u);
    QCOMPARE(binding.series, 18);
    QCOMPARE(binding.parallel, 2);
    QCOMPARE(binding.voc, 37.5);
    QCOMPARE(binding.isc, 8.8);
    QCOMPARE(binding.iscRef, 8.8);
    QCOMPARE(binding.vmp, 30.5);
    QCOMPARE(binding.imp, 8.3);
    QVERIFY(binding.shape > 0);
}

void TestModuleDatabase::aModuleWhoseImpEqualsItsIscHasNoShape()
{
    CurveSample::forgetCatalogue();
    CurveSample::writeCatalogue({"3, 'Flat', 8.8, 37.5, 8.8, 30.5, 0.0044, -0.1275, 0.085, 0.3, 0, 0"});
    const ModuleBinding binding = ModuleDatabase::binding(3, 18, 2);
    QCOMPARE(binding.moduleId, 3u);
    QCOMPARE(binding.imp, binding.isc);
    QCOMPARE(binding.shape, 0.0);
}

void TestModuleDatabase::aModuleThatIsGoneFallsBackToNone()
{
    const ModuleBinding binding = ModuleDatabase::binding(77, 18, 2);
    QCOMPARE(binding.moduleId, 0u);
    QCOMPARE(binding.series, 1);
    QCOMPARE(binding.parallel, 1);
    QCOMPARE(binding.voc, 0.0);
    QCOMPARE(binding.shape, 0.0);
}

void TestModuleDatabase::theInstalledCatalogueIsConsistent()
{
    ModuleDatabase database;
    QVERIFY(database.open(KELMAR_MODULE_CATALOGUE));
    QVector<CurveModuleRow> rows;
    QVERIFY(database.table()->allRows(rows));
    QVERIFY(rows.size() >= 60);
    double lowest = 1000;
    double highest = 0;
    QSet<QString> kinds;
    for (const CurveModuleRow &row : rows) {
        const double voc = row.Voc.toDouble(), isc = row.Isc.toDouble();
        const double vmp = row.Vmp.toDouble(), imp = row.Imp.toDouble();
        const QByteArray name = row.Description.toString().toUtf8();
        const double fillFactor = vmp * imp / (voc * isc);
        QVERIFY2(vmp / voc > 0.755 && vmp / voc < 0.846, name);
        QVERIFY2(imp < isc && fillFactor > 0.634 && fillFactor < 0.798, name);
        QVERIFY2(row.alpha.toDouble() / isc >= 0 && row.alpha.toDouble() / isc < 0.00127, name);
        QVERIFY2(row.beta.toDouble() / voc > -0.0044 && row.beta.toDouble() / voc <= -0.00239, name);
        QVERIFY2(row.Rs.toDouble() * isc / voc > 0.024 && row.Rs.toDouble() * isc / voc < 0.158, name);
        QVERIFY2(QVector<double>({0.085, 0.110, 0.063}).contains(row.delta.toDouble()), name);
        QVERIFY2(!row.UserModule.toBool() && !row.Favourite.toBool(), name);
        QVERIFY2(ModuleBinding(1, 1, 1, voc, isc, vmp, imp).shape > 0, name);
        lowest = std::min(lowest, vmp * imp);
        highest = std::max(highest, vmp * imp);
        kinds.insert(row.Description.toString().section(',', 0, 0));
    }
    QVERIFY(lowest < 52 && highest > 690);
    QVERIFY(kinds.size() >= 8);
}

KELMAR_TEST_MAIN(TestModuleDatabase)
#include "tst_moduledatabase.moc"
