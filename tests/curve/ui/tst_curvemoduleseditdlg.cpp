#include "curve/data/ModuleDatabase.h"
#include "curve/ui/CurveModulesEditDlg.h"
#include "res/Resources.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/curve/ui/ModuleSample.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"
#include "tests/support/WithoutRights.h"

using namespace IVCurve;

namespace {

/// Where each value of a module is edited, and what is stored of it.
struct EditedField
{
    const char *box;
    const char *column;
    double least;
    double most;
    int decimals;
    double step;
    const char *toolTip;
};

const char *const alphaTip = "Current-Temperature coefficient e.g. 0.003";
const char *const betaTip = "Voltage-Temperature coefficient e.g. -0.14";
const char *const deltaTip =
    "Anderson's delta coefficient:\nmono-Crystalline 0.085\nmulti-Crystalline 0.110\nThin-Film 0.063";

const EditedField fields[] = {
    {"editVoc", "Voc", 0, 1000, 3, 0.1, "Voltage at open-circuit"},
    {"editIsc", "Isc", 0, 1000, 3, 0.1, "Current at short-circuit"},
    {"editVmpp", "Vmp", 0, 1000, 3, 0.1, "Voltage at maximum power point"},
    {"editImpp", "Imp", 0, 1000, 3, 0.1, "Current at maximum power point"},
    {"editRs", "Rs", 0, 10, 3, 0.001, "series resistance e.g. 0.3"},
    {"editAlpha", "alpha", 0, 10, 5, 0.001, alphaTip},
    {"editBeta", "beta", -10, 0, 5, 0.001, betaTip},
    {"editDelta", "delta", 0, 99.99, 3, 1, deltaTip},
};

/// An editor as a test's user sees it.
class Editor
{
public:
    Editor(unsigned id, int mode) : dialog(id, mode)
    {
        QObject::connect(&dialog, &QDialog::finished, &dialog, [this](int how) { result = how; });
        dialog.show();
    }

    QDoubleSpinBox *box(const char *name) const { return dialog.findChild<QDoubleSpinBox *>(name); }
    QLineEdit *description() const { return dialog.findChild<QLineEdit *>("editDescription"); }
    QPushButton *star() const { return dialog.findChild<QPushButton *>("toggleFavourite"); }
    void press(const char *button) const
    {
        QTest::mouseClick(dialog.findChild<QPushButton *>(button), Qt::LeftButton);
    }
    void press(QDialogButtonBox::StandardButton which) const
    {
        QTest::mouseClick(dialog.findChild<QDialogButtonBox *>("buttonBox")->button(which), Qt::LeftButton);
    }

    CurveModulesEditDlg dialog;
    int result = -1;
};

int moduleCount()
{
    return CurveSample::value(ModuleDatabase::defaultPath(), "SELECT count(*) FROM Modules").toInt();
}

QVector<QVariantList> wholeTable()
{
    return CurveSample::rows(ModuleDatabase::defaultPath(), "SELECT *, typeof(Rs) FROM Modules ORDER BY _id");
}

void enterPercent(BoxWatcher &watcher, double value, double *offered = nullptr)
{
    watcher.expectDialog("QInputDialog", [value, offered](QWidget *widget) {
        auto *entry = qobject_cast<QInputDialog *>(widget);
        if (offered)
            *offered = entry->doubleValue();
        entry->setDoubleValue(value);
        entry->accept();
    });
}

} // namespace

/// The editor of one module, under an English and under a German locale.
class TestCurveModulesEditDlg : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void initTestCase() { initResources(); }
    void init();
    void cleanup();

    void formHasItsTitleAndRanges();
    void newModuleStartsWithTheBoxesAtZeroAndIsAFavourite();
    void newModuleIsStoredAsTheUsersOwn();
    void emptyDescriptionIsStored();
    void ownModuleIsShownAndStored();
    void preloadedModuleLetsOnlyTheStarChange();
    void valueThatIsNoNumberLeavesTheBoxAtItsStart();
    void cancelStoresNothing();
    void starIsLitWhileItIsChecked();

    void percentOfIscBecomesAlpha();
    void percentOfVocBecomesBeta();
    void percentOfZeroBecomesZeroWithoutAMessage();

    void missingModuleKeepsTheEditorOpen();
    void missingCatalogueKeepsTheEditorOpen();
    void failedStoringRejectsAndKeepsTheRowAsStored();
    void readOnlyCatalogueIsToldAndTheEditorRejects();
};

void TestCurveModulesEditDlg::initTestCase_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

void TestCurveModulesEditDlg::init()
{
    QFETCH_GLOBAL(QString, locale);
    TestHome::instance()->reset();
    QLocale::setDefault(QLocale(locale));
    ModuleSample::write();
}

void TestCurveModulesEditDlg::cleanup()
{
    CurveSample::forgetCatalogue();
}

void TestCurveModulesEditDlg::formHasItsTitleAndRanges()
{
    const Editor editor(ModuleSample::userModule, CurveModulesEditDlg::StoredModule);
    QCOMPARE(editor.dialog.windowTitle(), QString("Edit Module"));
    QVERIFY(!editor.dialog.windowIcon().isNull());
    for (const EditedField &field : fields) {
        const auto *box = editor.box(field.box);
        QVERIFY2(box, field.box);
        QCOMPARE(box->minimum(), field.least);
        QCOMPARE(box->maximum(), field.most);
        QCOMPARE(box->decimals(), field.decimals);
        QCOMPARE(box->singleStep(), field.step);
        QCOMPARE(box->toolTip(), QString(field.toolTip));
    }
    QCOMPARE(editor.star()->font().pointSize(), 6);
    const auto *buttons = editor.dialog.findChild<QDialogButtonBox *>("buttonBox");
    QCOMPARE(buttons->standardButtons(), QDialogButtonBox::Save | QDialogButtonBox::Cancel);
}

void TestCurveModulesEditDlg::newModuleStartsWithTheBoxesAtZeroAndIsAFavourite()
{
    const Editor editor(0, CurveModulesEditDlg::NewModule);
    for (const EditedField &field : fields) {
        QCOMPARE(editor.box(field.box)->value(), 0.0);
        QVERIFY(!editor.box(field.box)->isReadOnly());
    }
    QCOMPARE(editor.description()->text(), QString());
    QVERIFY(editor.star()->isChecked());
    QVERIFY(editor.dialog.row());
    QCOMPARE(editor.dialog.row()->id, 0u);
}

void TestCurveModulesEditDlg::newModuleIsStoredAsTheUsersOwn()
{
    const Editor editor(0, CurveModulesEditDlg::NewModule);
    editor.description()->setText("O'Hara \"Ü\" 410");
    editor.box("editVoc")->setValue(41.234);
    editor.box("editBeta")->setValue(-0.12345);
    editor.press(QDialogButtonBox::Save);
    QCOMPARE(editor.result, int(QDialog::Accepted));
    const CurveModuleRow *row = editor.dialog.row();
    QCOMPARE(row->id, 8u);
    // Values are stored in the C locale, whatever the boxes show.
    QCOMPARE(row->Voc, QVariant("41.234"));
    QCOMPARE(row->beta, QVariant("-0.12345"));
    QCOMPARE(row->Isc, QVariant("0"));
    QCOMPARE(row->UserModule.toInt(), 1);
    QCOMPARE(ModuleSample::stored(8, "Description"), QVariant("O'Hara \"Ü\" 410"));
    QCOMPARE(ModuleSample::stored(8, "Voc"), QVariant(41.234));
    QCOMPARE(ModuleSample::stored(8, "beta"), QVariant(-0.12345));
    QCOMPARE(ModuleSample::stored(8, "UserModule").toInt(), 1);
    QCOMPARE(ModuleSample::stored(8, "Favourite").toInt(), 1);
    QCOMPARE(moduleCount(), 5);
}

void TestCurveModulesEditDlg::emptyDescriptionIsStored()
{
    const Editor editor(ModuleSample::userModule, CurveModulesEditDlg::StoredModule);
    editor.description()->clear();
    editor.press(QDialogButtonBox::Save);
    QCOMPARE(editor.result, int(QDialog::Accepted));
    QCOMPARE(ModuleSample::stored(ModuleSample::userModule, "Description"), QVariant(""));
}

void TestCurveModulesEditDlg::ownModuleIsShownAndStored()
{
    const Editor editor(ModuleSample::userModule, CurveModulesEditDlg::StoredModule);
    QCOMPARE(editor.description()->text(), QString("Roof of the neighbour"));
    QVERIFY(editor.star()->isChecked());
    double value = 0.5;
    for (const EditedField &field : fields) {
        QCOMPARE(editor.box(field.box)->value(),
                 ModuleSample::stored(ModuleSample::userModule, field.column).toDouble());
        editor.box(field.box)->setValue(field.most > 0 ? value : -value);
        value += 0.125;
    }
    QTest::mouseClick(editor.star(), Qt::LeftButton);
    editor.press(QDialogButtonBox::Save);
    QCOMPARE(editor.result, int(QDialog::Accepted));
    value = 0.5;
    for (const EditedField &field : fields) {
        QCOMPARE(ModuleSample::stored(ModuleSample::userModule, field.column).toDouble(),
                 field.most > 0 ? value : -value);
        value += 0.125;
    }
    QCOMPARE(ModuleSample::stored(ModuleSample::userModule, "Favourite").toInt(), 0);
    QCOMPARE(ModuleSample::stored(ModuleSample::userModule, "UserModule").toInt(), 1);
}

void TestCurveModulesEditDlg::preloadedModuleLetsOnlyTheStarChange()
{
    const QVector<QVariantList> before = wholeTable();
    const Editor editor(ModuleSample::sunrise, CurveModulesEditDlg::StoredModule);
    QVERIFY(editor.description()->isReadOnly());
    for (const EditedField &field : fields) {
        QVERIFY(editor.box(field.box)->isReadOnly());
        const double shown = editor.box(field.box)->value();
        QTest::keyClicks(editor.box(field.box), "7");
        QTest::keyClick(editor.box(field.box), Qt::Key_Up);
        QCOMPARE(editor.box(field.box)->value(), shown);
    }
    QTest::keyClicks(editor.description(), "x");
    QVERIFY(!editor.dialog.findChild<QPushButton *>("btnAlphaPercent")->isEnabled());
    QVERIFY(!editor.dialog.findChild<QPushButton *>("btnBetaPercent")->isEnabled());
    QVERIFY(editor.star()->isEnabled());
    QTest::mouseClick(editor.star(), Qt::LeftButton);
    editor.press(QDialogButtonBox::Save);
    QCOMPARE(editor.result, int(QDialog::Accepted));

    QVector<QVariantList> expected = before;
    constexpr int favourite = 11;
    QCOMPARE(expected[1][0].toUInt(), ModuleSample::sunrise);
    QCOMPARE(expected[1][favourite].toInt(), 1);
    expected[1][favourite] = 0;
    QCOMPARE(wholeTable(), expected);
}

void TestCurveModulesEditDlg::valueThatIsNoNumberLeavesTheBoxAtItsStart()
{
    CurveSample::execute(ModuleDatabase::defaultPath(),
                         {"UPDATE Modules SET Voc = 'forty', Rs = NULL, Isc = 4000 WHERE _id = 5"});
    const Editor editor(ModuleSample::userModule, CurveModulesEditDlg::StoredModule);
    QCOMPARE(editor.box("editVoc")->value(), 0.0);
    QCOMPARE(editor.box("editRs")->value(), 0.0);
    QCOMPARE(editor.box("editIsc")->value(), 1000.0);
    QCOMPARE(editor.box("editVmpp")->value(), 30.0);
}

void TestCurveModulesEditDlg::cancelStoresNothing()
{
    const QVector<QVariantList> before = wholeTable();
    const Editor editor(ModuleSample::userModule, CurveModulesEditDlg::StoredModule);
    editor.description()->setText("other");
    editor.box("editVoc")->setValue(1);
    QTest::mouseClick(editor.star(), Qt::LeftButton);
    editor.press(QDialogButtonBox::Cancel);
    QCOMPARE(editor.result, int(QDialog::Rejected));
    QCOMPARE(editor.dialog.row()->Description, QVariant("Roof of the neighbour"));
    QCOMPARE(wholeTable(), before);
}

void TestCurveModulesEditDlg::starIsLitWhileItIsChecked()
{
    const Editor editor(ModuleSample::polaris, CurveModulesEditDlg::StoredModule);
    QVERIFY(!editor.star()->isChecked());
    const auto picture = [&] { return editor.star()->icon().pixmap(32).toImage(); };
    QCOMPARE(picture(), QIcon(":res/images/FavouritesStar32x32toggled.png").pixmap(32).toImage());
    QTest::mouseClick(editor.star(), Qt::LeftButton);
    QCOMPARE(picture(), QIcon(":res/images/FavouritesStar32x32.png").pixmap(32).toImage());
    QCOMPARE(ModuleSample::stored(ModuleSample::polaris, "Favourite").toInt(), 0);
    QVERIFY(!QSettings().contains("Curves/ShowModuleFavouritesOnly"));
}

void TestCurveModulesEditDlg::percentOfIscBecomesAlpha()
{
    BoxWatcher watcher;
    const Editor editor(ModuleSample::userModule, CurveModulesEditDlg::StoredModule);
    double offered = -1;
    enterPercent(watcher, 0.06, &offered);
    editor.press("btnAlphaPercent");
    QCOMPARE(offered, 0.05);
    QCOMPARE(editor.box("editAlpha")->value(), 0.0051);
}

void TestCurveModulesEditDlg::percentOfVocBecomesBeta()
{
    BoxWatcher watcher;
    const Editor editor(ModuleSample::userModule, CurveModulesEditDlg::StoredModule);
    double offered = -1;
    enterPercent(watcher, -0.4, &offered);
    editor.press("btnBetaPercent");
    QCOMPARE(offered, -0.32);
    QCOMPARE(editor.box("editBeta")->value(), -0.15);
}

void TestCurveModulesEditDlg::percentOfZeroBecomesZeroWithoutAMessage()
{
    BoxWatcher watcher;
    const Editor editor(0, CurveModulesEditDlg::NewModule);
    enterPercent(watcher, 0.05);
    editor.press("btnAlphaPercent");
    QCOMPARE(editor.box("editAlpha")->value(), 0.0);
    // What there was before goes, too.
    editor.box("editBeta")->setValue(-0.2);
    double offered = 0;
    enterPercent(watcher, -0.4, &offered);
    editor.press("btnBetaPercent");
    QVERIFY2(offered >= -100 && offered <= 0, qPrintable(QString::number(offered)));
    QCOMPARE(editor.box("editBeta")->value(), 0.0);
    QVERIFY(watcher.boxes().isEmpty());
}

void TestCurveModulesEditDlg::missingModuleKeepsTheEditorOpen()
{
    for (const unsigned id : {0u, 99u}) {
        const Editor editor(id, CurveModulesEditDlg::StoredModule);
        QVERIFY(!editor.dialog.row());
        editor.press(QDialogButtonBox::Save);
        QVERIFY(editor.dialog.isVisible());
        editor.press(QDialogButtonBox::Cancel);
        QCOMPARE(editor.result, int(QDialog::Rejected));
    }
    QCOMPARE(moduleCount(), 4);
}

void TestCurveModulesEditDlg::missingCatalogueKeepsTheEditorOpen()
{
    const Editor editor(0, CurveModulesEditDlg::NewModule);
    CurveSample::forgetCatalogue();
    BoxWatcher watcher;
    watcher.expect("File is missing", QMessageBox::Ok);
    editor.press(QDialogButtonBox::Save);
    QVERIFY(editor.dialog.isVisible());
    QCOMPARE(editor.result, -1);
    QCOMPARE(watcher.boxes().size(), 1);
}

void TestCurveModulesEditDlg::failedStoringRejectsAndKeepsTheRowAsStored()
{
    const Editor editor(ModuleSample::userModule, CurveModulesEditDlg::StoredModule);
    const Editor added(0, CurveModulesEditDlg::NewModule);
    CurveSample::execute(ModuleDatabase::defaultPath(), {"ALTER TABLE Modules RENAME TO Elsewhere"});
    BoxWatcher watcher;
    editor.description()->setText("other");
    watcher.expect("no such table", QMessageBox::Ok);
    editor.press(QDialogButtonBox::Save);
    QCOMPARE(editor.result, int(QDialog::Rejected));
    QCOMPARE(editor.dialog.row()->Description, QVariant("Roof of the neighbour"));
    // An insert that cannot be prepared fails without a message.
    added.press(QDialogButtonBox::Save);
    QCOMPARE(added.result, int(QDialog::Rejected));
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Critical);
}

void TestCurveModulesEditDlg::readOnlyCatalogueIsToldAndTheEditorRejects()
{
    const QString path = ModuleDatabase::defaultPath();
    ModuleDatabase::instance().close();
    QFile::setPermissions(path, QFile::Permissions(0x4444));
    QFile::setPermissions(TestHome::instance()->path(), QFile::Permissions(0x7755));
    const QVector<QVariantList> before = wholeTable();
    {
        const WithoutRights rights;
        BoxWatcher watcher;
        for (const int mode : {CurveModulesEditDlg::NewModule, CurveModulesEditDlg::StoredModule}) {
            const Editor editor(ModuleSample::userModule, mode);
            editor.description()->setText("other");
            watcher.expect("readonly", QMessageBox::Ok);
            editor.press(QDialogButtonBox::Save);
            QCOMPARE(editor.result, int(QDialog::Rejected));
        }
        QCOMPARE(watcher.boxes().size(), 2);
    }
    QCOMPARE(wholeTable(), before);
    QFile::setPermissions(path, QFile::Permissions(0x6666));
}

KELMAR_TEST_MAIN(TestCurveModulesEditDlg)
#include "tst_curvemoduleseditdlg.moc"
