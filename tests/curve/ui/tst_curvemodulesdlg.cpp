#include "curve/data/ModuleDatabase.h"
#include "curve/ui/CurveModulesDlg.h"
#include "curve/ui/CurveModulesEditDlg.h"
#include "res/Resources.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/curve/ui/ModuleSample.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"
#include "tests/support/WithoutRights.h"

#include <QSqlQuery>

using namespace IVCurve;

namespace {

constexpr const char *editorClass = "IVCurve::CurveModulesEditDlg";

QTableWidget *tableOf(const CurveModulesDlg &manager)
{
    return manager.findChild<QTableWidget *>("tableModules");
}

QStringList names(const CurveModulesDlg &manager)
{
    QStringList all;
    for (int row = 0; row < tableOf(manager)->rowCount(); ++row)
        all.append(tableOf(manager)->item(row, 0)->text());
    return all;
}

unsigned idAt(const CurveModulesDlg &manager, int row)
{
    return tableOf(manager)->item(row, 0)->data(Qt::UserRole).toUInt();
}

void press(const CurveModulesDlg &manager, const char *button)
{
    QTest::mouseClick(manager.findChild<QPushButton *>(button), Qt::LeftButton);
}

QStringList storedNames()
{
    QStringList all;
    const auto rows = CurveSample::rows(ModuleDatabase::defaultPath(),
                                        "SELECT Description FROM Modules ORDER BY Description");
    for (const QVariantList &row : rows)
        all.append(row.value(0).toString());
    return all;
}

/// Gives the module in the next editor a name and presses Save or Cancel.
void nameNext(BoxWatcher &watcher, const QString &name, QDialogButtonBox::StandardButton button)
{
    watcher.expectDialog(editorClass, [name, button](QWidget *editor) {
        editor->findChild<QLineEdit *>("editDescription")->setText(name);
        QTest::mouseClick(editor->findChild<QDialogButtonBox *>("buttonBox")->button(button), Qt::LeftButton);
    });
}

/// Makes the catalogue of the open connection read-only.
void forbidWriting()
{
    ModuleDatabase::instance();
    QVERIFY(QSqlDatabase::database(ModuleDatabase::defaultPath()).exec("PRAGMA query_only=ON").isActive());
}

} // namespace

/// The list of all modules, under an English and under a German locale.
class TestCurveModulesDlg : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void initTestCase() { initResources(); }
    void init();
    void cleanup();

    void formHasItsTitleAndProperties();
    void modulesAreListedByName();
    void closeIsRejected();
    void enterInTheListCloses();

    void addedModuleComesLastUntilTheListIsOpenedAgain();
    void cancelledAddAddsNothing();
    void editedModuleShowsItsNewName();
    void cancelledEditKeepsTheName();
    void doubleClickEditsTheCurrentModule();
    void nothingCurrentIsNeitherEditedNorCopied();
    void copyOfAPreloadedModuleIsTheUsersOwn();
    void copyStandsBelowItsOriginal();
    void deletingSeveralAsksOnceForThePreloadedOne();
    void agreedPreloadedModuleIsDeleted();
    void percentSignsInANameStayInTheQuestion();
    void deletedModuleOfACurveIsNotLookedAt();

    void missingCatalogueLeavesTheListEmpty();
    void catalogueWithoutItsTableIsTold();
    void catalogueRemovedMeanwhileIsToldAtEachUse();
    void modulesThatAreGoneAreLeftAlone();
    void readOnlyCatalogueIsToldAndLosesNothing();
    void readOnlyFileIsToldAndLosesNothing();
};

void TestCurveModulesDlg::initTestCase_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

void TestCurveModulesDlg::init()
{
    QFETCH_GLOBAL(QString, locale);
    TestHome::instance()->reset();
    QLocale::setDefault(QLocale(locale));
    ModuleSample::write();
}

void TestCurveModulesDlg::cleanup()
{
    CurveSample::forgetCatalogue();
}

void TestCurveModulesDlg::formHasItsTitleAndProperties()
{
    const CurveModulesDlg manager;
    QCOMPARE(manager.windowTitle(), QString("PV Modules"));
    QCOMPARE(manager.findChild<QLabel *>("labelTitle")->text(), QString("PV Module Database"));
    const QTableWidget *table = tableOf(manager);
    QCOMPARE(table->columnCount(), 1);
    QVERIFY(table->horizontalHeader()->isHidden());
    QVERIFY(table->verticalHeader()->isHidden());
    QVERIFY(table->horizontalHeader()->stretchLastSection());
    QCOMPARE(table->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(table->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(table->editTriggers(), QAbstractItemView::NoEditTriggers);
    const std::pair<const char *, const char *> buttons[] = {{"btnAdd", "Add"},
                                                             {"btnEdit", "Edit"},
                                                             {"btnCopy", "Copy"},
                                                             {"btnDelete", "Delete"},
                                                             {"btnClose", "Close"}};
    for (const auto &[name, text] : buttons)
        QCOMPARE(manager.findChild<QPushButton *>(name)->text(), QString(text));
}

void TestCurveModulesDlg::modulesAreListedByName()
{
    const CurveModulesDlg manager;
    QCOMPARE(names(manager), ModuleSample::names());
    QCOMPARE(idAt(manager, 0), ModuleSample::polaris);
    QCOMPARE(idAt(manager, 3), ModuleSample::zenith);
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestCurveModulesDlg::closeIsRejected()
{
    CurveModulesDlg manager;
    manager.show();
    manager.setResult(QDialog::Accepted);
    press(manager, "btnClose");
    QVERIFY(!manager.isVisible());
    QCOMPARE(manager.result(), int(QDialog::Rejected));
}

void TestCurveModulesDlg::enterInTheListCloses()
{
    CurveModulesDlg manager;
    manager.show();
    tableOf(manager)->setCurrentCell(1, 0);
    QTest::keyClick(tableOf(manager), Qt::Key_Return);
    QVERIFY(!manager.isVisible());
    QCOMPARE(storedNames(), ModuleSample::names());
}

void TestCurveModulesDlg::addedModuleComesLastUntilTheListIsOpenedAgain()
{
    BoxWatcher watcher;
    {
        CurveModulesDlg manager;
        manager.show();
        nameNext(watcher, "Aurora 100", QDialogButtonBox::Save);
        press(manager, "btnAdd");
        QCOMPARE(names(manager), ModuleSample::names() << "Aurora 100");
        QCOMPARE(idAt(manager, 4), 8u);
        // Close undoes nothing.
        press(manager, "btnClose");
    }
    const CurveModulesDlg again;
    QCOMPARE(names(again), QStringList("Aurora 100") + ModuleSample::names());
}

void TestCurveModulesDlg::cancelledAddAddsNothing()
{
    BoxWatcher watcher;
    CurveModulesDlg manager;
    manager.show();
    nameNext(watcher, "Aurora 100", QDialogButtonBox::Cancel);
    press(manager, "btnAdd");
    QCOMPARE(names(manager), ModuleSample::names());
    QCOMPARE(storedNames(), ModuleSample::names());
}

void TestCurveModulesDlg::editedModuleShowsItsNewName()
{
    BoxWatcher watcher;
    CurveModulesDlg manager;
    manager.show();
    tableOf(manager)->setCurrentCell(1, 0);
    nameNext(watcher, "Zoo", QDialogButtonBox::Save);
    press(manager, "btnEdit");
    QCOMPARE(tableOf(manager)->item(1, 0)->text(), QString("Zoo"));
    QCOMPARE(ModuleSample::stored(ModuleSample::userModule, "Description"), QVariant("Zoo"));
}

void TestCurveModulesDlg::cancelledEditKeepsTheName()
{
    BoxWatcher watcher;
    CurveModulesDlg manager;
    manager.show();
    tableOf(manager)->setCurrentCell(1, 0);
    nameNext(watcher, "Zoo", QDialogButtonBox::Cancel);
    press(manager, "btnEdit");
    QCOMPARE(names(manager), ModuleSample::names());
    QCOMPARE(storedNames(), ModuleSample::names());
}

void TestCurveModulesDlg::doubleClickEditsTheCurrentModule()
{
    BoxWatcher watcher;
    CurveModulesDlg manager;
    manager.show();
    QTableWidget *table = tableOf(manager);
    nameNext(watcher, "Zoo", QDialogButtonBox::Save);
    const QPoint place = table->visualItemRect(table->item(1, 0)).center();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(table->item(1, 0)->text(), QString("Zoo"));
    // Whatever cell is told, the current one counts.
    nameNext(watcher, "Zoom", QDialogButtonBox::Save);
    manager.dblclickModules(3, 0);
    QCOMPARE(table->item(1, 0)->text(), QString("Zoom"));
}

void TestCurveModulesDlg::nothingCurrentIsNeitherEditedNorCopied()
{
    const BoxWatcher watcher;
    CurveModulesDlg manager;
    manager.show();
    tableOf(manager)->setCurrentItem(nullptr);
    for (const char *button : {"btnEdit", "btnCopy", "btnDelete"})
        press(manager, button);
    tableOf(manager)->item(0, 0)->setData(Qt::UserRole, "no number");
    tableOf(manager)->setCurrentCell(0, 0);
    for (const char *button : {"btnEdit", "btnCopy", "btnDelete"})
        press(manager, button);
    QCOMPARE(names(manager), ModuleSample::names());
    QCOMPARE(storedNames(), ModuleSample::names());
}

void TestCurveModulesDlg::copyOfAPreloadedModuleIsTheUsersOwn()
{
    BoxWatcher watcher;
    CurveModulesDlg manager;
    manager.show();
    tableOf(manager)->setCurrentCell(2, 0);
    press(manager, "btnCopy");
    const unsigned copy = idAt(manager, 3);
    QCOMPARE(copy, 8u);
    QCOMPARE(ModuleSample::stored(copy, "Description"), QVariant("Sunrise 300 half-cut, 120 cells (Copy)"));
    QCOMPARE(ModuleSample::stored(copy, "UserModule").toInt(), 1);
    for (const char *column : {"Isc", "Voc", "Imp", "Vmp", "alpha", "beta", "delta", "Rs", "Favourite"})
        QCOMPARE(ModuleSample::stored(copy, column), ModuleSample::stored(ModuleSample::sunrise, column));

    tableOf(manager)->setCurrentCell(3, 0);
    watcher.expectDialog(editorClass, [](QWidget *editor) {
        QVERIFY(!editor->findChild<QLineEdit *>("editDescription")->isReadOnly());
        editor->findChild<QDoubleSpinBox *>("editVoc")->setValue(40);
        qobject_cast<QDialog *>(editor)->accept();
    });
    press(manager, "btnEdit");
    QCOMPARE(ModuleSample::stored(copy, "Voc").toDouble(), 40.0);
    QCOMPARE(ModuleSample::stored(ModuleSample::sunrise, "Voc").toDouble(), 40.1234);
}

void TestCurveModulesDlg::copyStandsBelowItsOriginal()
{
    CurveModulesDlg manager;
    manager.show();
    tableOf(manager)->setCurrentCell(0, 0);
    press(manager, "btnCopy");
    QCOMPARE(names(manager), QStringList({"Polaris 230", "Polaris 230 (Copy)", "Roof of the neighbour",
                                          "Sunrise 300 half-cut, 120 cells", "Zenith 400"}));
    QCOMPARE(tableOf(manager)->currentRow(), 0);
}

void TestCurveModulesDlg::deletingSeveralAsksOnceForThePreloadedOne()
{
    CurveSample::execute(ModuleDatabase::defaultPath(),
                         {"UPDATE Modules SET UserModule = 1 WHERE _id IN (2, 3)"});
    BoxWatcher watcher;
    CurveModulesDlg manager;
    manager.show();
    // The first three by name, with one preloaded among them.
    tableOf(manager)->setRangeSelected(QTableWidgetSelectionRange(0, 0, 2, 0), true);
    watcher.expect("Polaris 230", QMessageBox::Cancel);
    press(manager, "btnDelete");
    QCOMPARE(watcher.boxes().size(), 1);
    const BoxWatcher::Box &box = watcher.boxes().first();
    QCOMPARE(box.title, QString("Kelmar"));
    QCOMPARE(box.text, QString("Deleting a preloaded module.\nPolaris 230\nDo you wish to continue?"));
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(box.buttons, QMessageBox::Ok | QMessageBox::Cancel);
    QCOMPARE(names(manager), QStringList({"Polaris 230", "Zenith 400"}));
    QCOMPARE(storedNames(), QStringList({"Polaris 230", "Zenith 400"}));
}

void TestCurveModulesDlg::agreedPreloadedModuleIsDeleted()
{
    BoxWatcher watcher;
    CurveModulesDlg manager;
    manager.show();
    tableOf(manager)->selectAll();
    watcher.expect("Polaris 230", QMessageBox::Ok);
    watcher.expect("Sunrise 300", QMessageBox::Cancel);
    watcher.expect("Zenith 400", QMessageBox::Ok);
    press(manager, "btnDelete");
    QCOMPARE(watcher.boxes().size(), 3);
    QCOMPARE(names(manager), QStringList("Sunrise 300 half-cut, 120 cells"));
    QCOMPARE(storedNames(), names(manager));
}

void TestCurveModulesDlg::percentSignsInANameStayInTheQuestion()
{
    CurveSample::execute(ModuleDatabase::defaultPath(),
                         {"UPDATE Modules SET Description = '<b>%1 %2</b>' WHERE _id = 7"});
    BoxWatcher watcher;
    CurveModulesDlg manager;
    manager.show();
    tableOf(manager)->setCurrentCell(0, 0);
    watcher.expect("Deleting a preloaded module.\n<b>%1 %2</b>\nDo", QMessageBox::Cancel);
    press(manager, "btnDelete");
    QCOMPARE(watcher.boxes().size(), 1);
}

void TestCurveModulesDlg::deletedModuleOfACurveIsNotLookedAt()
{
    CurveModulesDlg manager;
    manager.show();
    QCOMPARE(ModuleDatabase::binding(ModuleSample::userModule, 12, 2).series, 12);
    tableOf(manager)->setCurrentCell(1, 0);
    press(manager, "btnDelete");
    const ModuleBinding gone = ModuleDatabase::binding(ModuleSample::userModule, 12, 2);
    QCOMPARE(gone.moduleId, 0u);
    QCOMPARE(gone.series, 1);
}

void TestCurveModulesDlg::missingCatalogueLeavesTheListEmpty()
{
    CurveSample::forgetCatalogue();
    BoxWatcher watcher;
    watcher.expect("File is missing", QMessageBox::Ok);
    CurveModulesDlg manager;
    manager.show();
    QCOMPARE(tableOf(manager)->rowCount(), 0);
    for (const char *button : {"btnEdit", "btnCopy", "btnDelete"})
        press(manager, button);
    QCOMPARE(watcher.boxes().size(), 1);
    // Add offers its editor, which has nowhere to store anything.
    watcher.expect("File is missing", QMessageBox::Ok);
    watcher.expectDialog(editorClass, [](QWidget *editor) {
        qobject_cast<QDialog *>(editor)->accept();
        QVERIFY(editor->isVisible());
        qobject_cast<QDialog *>(editor)->reject();
    });
    press(manager, "btnAdd");
    QCOMPARE(tableOf(manager)->rowCount(), 0);
}

void TestCurveModulesDlg::catalogueWithoutItsTableIsTold()
{
    CurveSample::execute(ModuleDatabase::defaultPath(), {"DROP TABLE Modules"});
    BoxWatcher watcher;
    watcher.expect("no such table", QMessageBox::Ok);
    const CurveModulesDlg manager;
    QCOMPARE(tableOf(manager)->rowCount(), 0);
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestCurveModulesDlg::catalogueRemovedMeanwhileIsToldAtEachUse()
{
    CurveModulesDlg manager;
    manager.show();
    tableOf(manager)->setCurrentCell(1, 0);
    CurveSample::forgetCatalogue();
    BoxWatcher watcher;
    for (const char *button : {"btnCopy", "btnDelete"}) {
        watcher.expect("File is missing", QMessageBox::Ok);
        press(manager, button);
    }
    watcher.expect("File is missing", QMessageBox::Ok);
    watcher.expectDialog(editorClass, [](QWidget *editor) { qobject_cast<QDialog *>(editor)->reject(); });
    press(manager, "btnEdit");
    QCOMPARE(names(manager), ModuleSample::names());
    QCOMPARE(watcher.boxes().size(), 3);
}

void TestCurveModulesDlg::modulesThatAreGoneAreLeftAlone()
{
    BoxWatcher watcher;
    CurveModulesDlg manager;
    manager.show();
    CurveSample::execute(ModuleDatabase::defaultPath(), {"DELETE FROM Modules WHERE _id = 5"});
    tableOf(manager)->setCurrentCell(1, 0);
    press(manager, "btnCopy");
    press(manager, "btnDelete");
    watcher.expectDialog(editorClass, [](QWidget *editor) { qobject_cast<QDialog *>(editor)->reject(); });
    press(manager, "btnEdit");
    QCOMPARE(names(manager), ModuleSample::names());
}

void TestCurveModulesDlg::readOnlyCatalogueIsToldAndLosesNothing()
{
    forbidWriting();
    BoxWatcher watcher;
    CurveModulesDlg manager;
    manager.show();
    tableOf(manager)->setCurrentCell(1, 0);
    watcher.expect("readonly", QMessageBox::Ok);
    press(manager, "btnDelete");
    QCOMPARE(names(manager), ModuleSample::names());
    nameNext(watcher, "Zoo", QDialogButtonBox::Save);
    watcher.expect("readonly", QMessageBox::Ok);
    press(manager, "btnEdit");
    QCOMPARE(names(manager), ModuleSample::names());
    nameNext(watcher, "Zoo", QDialogButtonBox::Save);
    watcher.expect("readonly", QMessageBox::Ok);
    press(manager, "btnAdd");
    QCOMPARE(names(manager), ModuleSample::names());
    // A copy stands in the list even so, for no module.
    watcher.expect("readonly", QMessageBox::Ok);
    press(manager, "btnCopy");
    QCOMPARE(tableOf(manager)->item(2, 0)->text(), QString("Roof of the neighbour (Copy)"));
    QCOMPARE(idAt(manager, 2), 0u);
    QCOMPARE(storedNames(), ModuleSample::names());
    for (const BoxWatcher::Box &box : watcher.boxes())
        QCOMPARE(box.icon, QMessageBox::Critical);
}

void TestCurveModulesDlg::readOnlyFileIsToldAndLosesNothing()
{
    const QString path = ModuleDatabase::defaultPath();
    ModuleDatabase::instance().close();
    QFile::setPermissions(path, QFile::Permissions(0x4444));
    QFile::setPermissions(TestHome::instance()->path(), QFile::Permissions(0x7755));
    const QByteArray before = readFile(path);
    {
        const WithoutRights rights;
        BoxWatcher watcher;
        CurveModulesDlg manager;
        manager.show();
        QCOMPARE(names(manager), ModuleSample::names());
        tableOf(manager)->setCurrentCell(1, 0);
        watcher.expect("readonly", QMessageBox::Ok);
        press(manager, "btnDelete");
        QCOMPARE(names(manager), ModuleSample::names());
        ModuleDatabase::instance().close();
    }
    QCOMPARE(readFile(path), before);
    QFile::setPermissions(path, QFile::Permissions(0x6666));
}

KELMAR_TEST_MAIN(TestCurveModulesDlg)
#include "tst_curvemodulesdlg.moc"
