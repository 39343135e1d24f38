#include "app/core/Language.h"
#include "curve/data/ModuleDatabase.h"
#include "curve/ui/CurveDetailsDialog.h"
#include "curve/ui/CurveModulesChooser.h"
#include "curve/ui/CurveModulesDlg.h"
#include "curve/ui/CurveModulesEditDlg.h"
#include "res/Resources.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/curve/ui/Details.h"
#include "tests/curve/ui/ModuleSample.h"
#include "tests/support/AccessibleNames.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"
#include "tests/support/TextRoom.h"

using namespace IVCurve;

namespace {

StringRecord fullRecord()
{
    StringRecord record = sampleString();
    record.header().name = "Roof south-east, inverter 2, string 4";
    record.module().series = 16;
    return record;
}

QPalette darkPalette()
{
    QPalette dark(QColor(53, 53, 53), QColor(53, 53, 53));
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    dark.setColor(QPalette::AlternateBase, QColor(45, 45, 45));
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                           QPalette::HighlightedText, QPalette::ToolTipText})
        dark.setColor(role, Qt::white);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, QColor(127, 127, 127));
    return dark;
}

/// Shows a window, keeps a picture of it where the environment variable KELMAR_SCREENSHOTS names a folder,
/// and fails where a text has no room or a widget has no name.
void lookAt(QWidget *window, const QString &name)
{
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window, patience));
    const QString folder = qEnvironmentVariable("KELMAR_SCREENSHOTS");
    if (!folder.isEmpty()) {
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(window->grab().save(folder + '/' + name + ".png"));
    }
    const QStringList findings = TextRoom::clippedTexts(window) + AccessibleNames::missingIn(window);
    QVERIFY2(findings.isEmpty(), qPrintable(name + ": " + findings.join('\n')));
}

/// Looks at the next message box and closes it.
void lookAtBox(const QString &name, bool &seen)
{
    auto *timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, name, &seen] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || !box->isVisible() || seen)
            return;
        seen = true;
        lookAt(box, name);
        box->done(int(QMessageBox::Cancel));
        timer->deleteLater();
    });
    timer->start(5);
}

/// Where the Tab key leads from widget to widget, without the buttons of the button box.
QStringList tabOrder(QWidget *window)
{
    window->show();
    if (!QTest::qWaitForWindowActive(window, patience))
        return {"the window is not active"};
    QStringList names;
    const QWidget *first = nullptr;
    for (int i = 0; i < 40 && (!first || window->focusWidget() != first); ++i) {
        if (!first)
            first = window->focusWidget();
        const QWidget *at = window->focusWidget();
        if (at && !qobject_cast<const QDialogButtonBox *>(at->parentWidget()) &&
            !at->objectName().startsWith("qt_"))
            names.append(at->objectName());
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    }
    return names;
}

} // namespace

/// What the dialogs about modules look like in both languages, on light and on dark ground.
class TestModuleDialogLooks : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void initTestCase();
    void init();
    void cleanup();

    void everyTabOfTheDetailsHasRoomForItsTexts();
    void everyMethodsPageHasRoomForItsTexts();
    void chooserHasRoomForItsTexts();
    void managerHasRoomForItsTexts();
    void editorHasRoomForItsTexts();
    void percentEntryHasRoomForItsTexts();
    void warningHasRoomForItsTexts();
    void questionAboutAPreloadedModuleHasRoomForItsText();
    void keyTabGoesThroughAWindowFromTopToBottom();

private:
    static QString named(const QString &window);
};

void TestModuleDialogLooks::initTestCase_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<bool>("dark");
    QTest::newRow("English") << "en" << false;
    QTest::newRow("English on dark ground") << "en" << true;
    QTest::newRow("German") << "de" << false;
    QTest::newRow("German on dark ground") << "de" << true;
}

void TestModuleDialogLooks::initTestCase()
{
    initResources();
}

void TestModuleDialogLooks::init()
{
    QFETCH_GLOBAL(QString, language);
    QFETCH_GLOBAL(bool, dark);
    TestHome::instance()->reset();
    useLanguage(language, QLocale(language));
    QApplication::setStyle("Fusion");
    QApplication::setPalette(dark ? darkPalette() : QApplication::style()->standardPalette());
    ModuleSample::write();
}

void TestModuleDialogLooks::cleanup()
{
    CurveSample::forgetCatalogue();
}

/// The name of a picture, with language and ground.
QString TestModuleDialogLooks::named(const QString &window)
{
    QFETCH_GLOBAL(QString, language);
    QFETCH_GLOBAL(bool, dark);
    return window + ' ' + language + (dark ? " dark" : "");
}

void TestModuleDialogLooks::everyTabOfTheDetailsHasRoomForItsTexts()
{
    StringRecord record = fullRecord();
    CurveDetailsDialog dialog(&record);
    lookAt(&dialog, named("details test"));
    dialog.findChild<QTabWidget *>("tabWidget")->setCurrentIndex(1);
    lookAt(&dialog, named("details module"));
}

void TestModuleDialogLooks::everyMethodsPageHasRoomForItsTexts()
{
    for (const quint8 method : {STCparameters::BlaesserAlgorithm, STCparameters::IEC60891Algorithm}) {
        StringRecord record = fullRecord();
        record.settings().algorithm = method;
        CurveDetailsDialog dialog(&record);
        dialog.findChild<QTabWidget *>("tabWidget")->setCurrentIndex(1);
        lookAt(&dialog, named(QString("details method %1").arg(method)));
    }
}

void TestModuleDialogLooks::chooserHasRoomForItsTexts()
{
    CurveModulesChooser chooser;
    chooser.findChild<QComboBox *>("comboModule")->setCurrentIndex(3);
    lookAt(&chooser, named("chooser"));
}

void TestModuleDialogLooks::managerHasRoomForItsTexts()
{
    CurveModulesDlg manager;
    manager.findChild<QTableWidget *>("tableModules")->setCurrentCell(1, 0);
    lookAt(&manager, named("manager"));
}

void TestModuleDialogLooks::editorHasRoomForItsTexts()
{
    CurveModulesEditDlg own(ModuleSample::userModule, CurveModulesEditDlg::StoredModule);
    lookAt(&own, named("editor"));
    CurveModulesEditDlg preloaded(ModuleSample::polaris, CurveModulesEditDlg::StoredModule);
    lookAt(&preloaded, named("editor preloaded"));
}

void TestModuleDialogLooks::percentEntryHasRoomForItsTexts()
{
    BoxWatcher watcher;
    CurveModulesEditDlg editor(ModuleSample::userModule, CurveModulesEditDlg::StoredModule);
    watcher.expectDialog("QInputDialog", [](QWidget *entry) {
        lookAt(entry, named("percent"));
        entry->close();
    });
    editor.slotBetaPercentClicked();
}

void TestModuleDialogLooks::warningHasRoomForItsTexts()
{
    StringRecord record = fullRecord();
    CurveDetailsDialog dialog(&record);
    bool seen = false;
    lookAtBox(named("warning"), seen);
    dialog.accept();
    QVERIFY(seen);
}

void TestModuleDialogLooks::questionAboutAPreloadedModuleHasRoomForItsText()
{
    CurveModulesDlg manager;
    manager.findChild<QTableWidget *>("tableModules")->setCurrentCell(2, 0);
    bool seen = false;
    lookAtBox(named("question"), seen);
    manager.clickDelete();
    QVERIFY(seen);
}

void TestModuleDialogLooks::keyTabGoesThroughAWindowFromTopToBottom()
{
    StringRecord record = fullRecord();
    CurveDetailsDialog details(&record);
    QCOMPARE(tabOrder(&details), QStringList({"G", "Tpv", "Ta"}));
    details.findChild<QTabWidget *>("tabWidget")->setCurrentIndex(1);
    QCOMPARE(tabOrder(&details),
             QStringList({"toggleFavourites", "comboModule", "spinTotalInSeries", "spinTotalInParallel",
                          "input_alpha", "btnAlphaPercent", "input_beta", "btnBetaPercent", "input_Rs",
                          "radioAnderson", "input_delta"}));
    CurveModulesChooser chooser;
    QCOMPARE(tabOrder(&chooser), QStringList({"toggleFavourites", "comboModule", "spinTotalInSeries"}));
    CurveModulesDlg manager;
    QCOMPARE(tabOrder(&manager),
             QStringList({"tableModules", "btnAdd", "btnEdit", "btnCopy", "btnDelete", "btnClose"}));
    CurveModulesEditDlg editor(ModuleSample::userModule, CurveModulesEditDlg::StoredModule);
    QCOMPARE(tabOrder(&editor), QStringList({"editDescription", "toggleFavourite", "editVoc", "editIsc",
                                             "editVmpp", "editImpp", "editRs", "editAlpha", "btnAlphaPercent",
                                             "editBeta", "btnBetaPercent", "editDelta"}));
}

KELMAR_TEST_MAIN(TestModuleDialogLooks)
#include "tst_moduledialoglooks.moc"
