#include "app/dialogs/DialogAbout.h"
#include "app/dialogs/DialogLanguageChooser.h"
#include "app/dialogs/DialogSettings.h"
#include "app/dialogs/DialogWelcome.h"
#include "import/DialogImportResults.h"
#include "res/Resources.h"
#include "tests/app/shell/Desk.h"
#include "tests/support/AccessibleNames.h"
#include "tests/support/TestMain.h"

#include <QtWidgets>

namespace {

void expectNone(const QStringList &findings)
{
    QVERIFY2(findings.isEmpty(), qPrintable(findings.join(QLatin1Char('\n'))));
}

} // namespace

/// The program for somebody without a mouse, or without a view of the screen.
class TestAccessibility : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }
    void everythingInTheWindowHasAName();
    void everythingInTheDialogsHasAName();
    void everyCommandOfAReportsToolBarHasAKey();
};

void TestAccessibility::everythingInTheWindowHasAName()
{
    Desk::clear();
    Desk desk;
    QVERIFY(desk.window->openDocument(Desk::addReport(QStringLiteral("Roof.kelatr"))));
    expectNone(AccessibleNames::missingIn(desk.window.get()));
    writeFile(Desk::path(QStringLiteral("Roof.kelcrv")),
              readFile(QStringLiteral(":/res/reports_en/default.kelcrv")));
    QVERIFY(desk.window->openDocument(Desk::path(QStringLiteral("Roof.kelcrv"))));
    expectNone(AccessibleNames::missingIn(desk.window.get()));
}

void TestAccessibility::everythingInTheDialogsHasAName()
{
    const std::unique_ptr<QDialog> dialogs[] = {
        std::make_unique<DialogSettings>(), std::make_unique<DialogWelcome>(),
        std::make_unique<DialogAbout>(), std::make_unique<DialogLanguageChooser>(),
        std::make_unique<DialogImportResults>()};
    for (const std::unique_ptr<QDialog> &dialog : dialogs) {
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
        expectNone(AccessibleNames::missingIn(dialog.get()));
    }
}

void TestAccessibility::everyCommandOfAReportsToolBarHasAKey()
{
    Desk::clear();
    Desk desk;
    QVERIFY(desk.window->openDocument(Desk::addReport(QStringLiteral("Roof.kelatr"))));
    const auto *bar = desk.window->findChild<QMdiArea *>()->findChild<QToolBar *>();
    QVERIFY(bar);
    int commands = 0;
    const QList<QAction *> actions = bar->actions();
    for (const QAction *action : actions) {
        if (action->isSeparator())
            continue;
        ++commands;
        QVERIFY2(!action->shortcut().isEmpty(), qPrintable(action->text()));
    }
    QCOMPARE(commands, 10);
}

KELMAR_TEST_MAIN(TestAccessibility)
#include "tst_accessibility.moc"
