#include "app/core/Folders.h"
#include "app/core/Language.h"
#include "app/document/AbstractDocument.h"
#include "browser/ProjectTreeView.h"
#include "tests/app/shell/Desk.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QAction>
#include <QDesktopServices>
#include <QDockWidget>
#include <QHeaderView>
#include <QMdiArea>
#include <QMenuBar>
#include <QStatusBar>

namespace {

struct ActionRow
{
    const char *name;
    const char *text;
    const char *shortcut;
    const char *icon;
    bool enabled;
};

const ActionRow actionRows[] = {
    {"actionNewInspectionReport", "New Inspection Report", "", "fileTypes/inspection", true},
    {"actionNewTestReport", "New PV Array Test Report", "", "fileTypes/report", true},
    {"actionNewVerificationCertificate", "New Verification Certificate", "", "fileTypes/certificate", true},
    {"actionNewInstallationDiagram", "New Installation Diagram", "", "fileTypes/installation_diagram", true},
    {"actionNewChecklist", "New Checklist", "", "fileTypes/checklist", true},
    {"actionNewCurveData", "New Curve Data", "", "fileTypes/chart", true},
    {"actionNewClientHandoverPack", "New Client Handover Pack", "", "fileTypes/chp_folder", true},
    {"actionNewFolder", "New Folder", "", "fileTypes/folder", true},
    {"actionOpen", "Open", "Ctrl+O", "", false},
    {"actionSave", "Save", "Ctrl+S", "toolButtons/save", false},
    {"actionDelete", "Delete", "", "toolButtons/delete", false},
    {"actionRename", "Rename", "F2", "toolButtons/rename", false},
    {"actionSettings", "Settings...", "", "toolButtons/settings", true},
    {"actionAbout", "About...", "", "toolButtons/about", true},
    // Hidden, and what is hidden cannot be used.
    {"actionScreencastTutorial", "Screencast Tutorial...", "", "toolButtons/screencast", false},
    {"actionPDFManual", "PDF Instruction Manual", "", "toolButtons/export_pdf", true},
    {"actionImport", "Import...", "", "toolButtons/import", true},
    {"actionDownload", "Download ...", "", "toolButtons/download", true},
    {"actionScreencastTutorial_2", "ScreenCast Tutorial", "", "", true},
    {"actionResetWindows", "Reset Window Layout", "", "", true},
};

QStringList namesIn(const QWidget *menu)
{
    QStringList names;
    for (const QAction *action : menu->actions())
        names.append(action->isSeparator() ? "-" : action->objectName());
    return names;
}

} // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

public slots:
    void openUrl(const QUrl &url) { m_urls.append(url); }

private slots:
    void initTestCase();
    void init();
    void cleanup() { m_desk.reset(); }

    void actionsHaveTheirTextsKeysAndIcons();
    void menusHoldTheActionsInOrder();
    void importAndDownloadStandInNoMenu();
    void onlyTheHandoverPackHasATipOfItsOwn();
    void treeStartsAsAPlainTreeWithoutHeader();
    void docksStandTabbedOnTheLeftAndCannotBeClosed();
    void firstWindowHasTheSizeOfTheForm();
    void workspaceShowsTheBrandedBackground();
    void windowIsTheInstanceForItsLife();

    void welcomeComesUpOverTheWindow();
    void windowThatComesBackShowsNoWelcome();
    void positionAndDocksComeBackAtTheNextStart();
    void resetBringsTheDocksBack();

    void settingsAndAboutOpenTheirDialogs();
    void manualIsOpenedFromTheProgramsFolder();
    void tutorialIsHiddenAndOpensAPage();
    void newRootFromTheSettingsReplacesTheTree();

private:
    static QDockWidget *dock(const MainWindow &window, const char *name)
    {
        return window.findChild<QDockWidget *>(QLatin1String(name));
    }
    static QMenu *menu(const MainWindow &window, const char *name)
    {
        return window.findChild<QMenu *>(QLatin1String(name));
    }

    std::unique_ptr<Desk> m_desk;
    QVector<QUrl> m_urls;
};

void TestMainWindow::initTestCase()
{
    QDesktopServices::setUrlHandler("file", this, "openUrl");
    QDesktopServices::setUrlHandler("https", this, "openUrl");
}

void TestMainWindow::init()
{
    m_urls.clear();
    Desk::clear();
    m_desk = std::make_unique<Desk>();
}

void TestMainWindow::actionsHaveTheirTextsKeysAndIcons()
{
    for (const ActionRow &row : actionRows) {
        const QAction *action = m_desk->action(row.name);
        QVERIFY2(action, row.name);
        QCOMPARE(action->text(), QString(row.text));
        QCOMPARE(action->shortcut(), QKeySequence(row.shortcut));
        QVERIFY2(action->isEnabled() == row.enabled, row.name);
        const QString icon = row.icon[0] ? QString(":res/%1.png").arg(row.icon) : QString();
        QCOMPARE(action->icon().pixmap(16).toImage(), QIcon(icon).pixmap(16).toImage());
        QVERIFY2(action->icon().isNull() == icon.isEmpty(), row.name);
    }
    QCOMPARE(m_desk->action("actionDelete")->shortcutContext(), Qt::WidgetShortcut);
}

void TestMainWindow::menusHoldTheActionsInOrder()
{
    const MainWindow &window = *m_desk->window;
    QStringList titles;
    for (const QAction *action : window.menuBar()->actions())
        titles.append(action->text());
    QCOMPARE(titles, (QStringList{"File", "Edit", "Language", "Window", "Help"}));
    QCOMPARE(namesIn(menu(window, "menuFile")),
             (QStringList{"actionNewInspectionReport", "actionNewTestReport",
                          "actionNewVerificationCertificate", "actionNewInstallationDiagram",
                          "actionNewChecklist", "actionNewCurveData", "-", "actionNewClientHandoverPack",
                          "actionNewFolder", "-", "actionSave", "actionDelete", "actionRename", "-"}));
    QCOMPARE(namesIn(menu(window, "menuEdit")), QStringList{"actionSettings"});
    QCOMPARE(namesIn(menu(window, "menuHelp")),
             (QStringList{"actionAbout", "actionScreencastTutorial", "actionPDFManual"}));
}

void TestMainWindow::importAndDownloadStandInNoMenu()
{
    for (const char *name : {"actionImport", "actionDownload", "actionOpen", "actionResetWindows",
                             "actionScreencastTutorial_2"}) {
        for (const QMenu *each : m_desk->window->findChildren<QMenu *>())
            QVERIFY2(!each->actions().contains(m_desk->action(name)), name);
    }
}

void TestMainWindow::onlyTheHandoverPackHasATipOfItsOwn()
{
    for (const ActionRow &row : actionRows) {
        const QString tip = m_desk->action(row.name)->toolTip();
        const QString plain = QString(row.text).remove("...").trimmed();
        QVERIFY2(tip == plain || tip == row.text || tip == "Create a new folder with a checklist in it",
                 qPrintable(tip));
    }
    QCOMPARE(m_desk->action("actionNewClientHandoverPack")->toolTip(),
             QString("Create a new folder with a checklist in it"));
}

void TestMainWindow::treeStartsAsAPlainTreeWithoutHeader()
{
    const ProjectTreeView *tree = m_desk->tree;
    QVERIFY(tree->isHeaderHidden());
    QCOMPARE(tree->contextMenuPolicy(), Qt::CustomContextMenu);
    QCOMPARE(tree->editTriggers(), QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed);
    QVERIFY(tree->dragEnabled());
    QVERIFY(!tree->dragDropOverwriteMode());
    QCOMPARE(tree->dragDropMode(), QAbstractItemView::DragDrop);
    QCOMPARE(tree->defaultDropAction(), Qt::MoveAction);
    QCOMPARE(tree->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(tree->rootIndex().data(QFileSystemModel::FilePathRole).toString(),
             TestHome::instance()->projectsRoot());
}

void TestMainWindow::docksStandTabbedOnTheLeftAndCannotBeClosed()
{
    MainWindow &window = *m_desk->window;
    QDockWidget *browser = dock(window, "documentBrowser");
    QDockWidget *search = dock(window, "documentSearch");
    QCOMPARE(browser->windowTitle(), QString("Document Browser"));
    QCOMPARE(search->windowTitle(), QString("Document Search"));
    for (QDockWidget *each : {browser, search}) {
        QCOMPARE(window.dockWidgetArea(each), Qt::LeftDockWidgetArea);
        QCOMPARE(int(each->features()), 6);
    }
    QCOMPARE(window.tabifiedDockWidgets(search), QList<QDockWidget *>{browser});
    QVERIFY(browser->widget() == m_desk->tree);
    QCOMPARE(search->widget()->objectName(), QString("findInFiles"));
}

void TestMainWindow::firstWindowHasTheSizeOfTheForm()
{
    QCOMPARE(m_desk->window->size(), QSize(751, 617));
    QVERIFY(m_desk->window->documentMode());
    QVERIFY(m_desk->area->documentMode());
    QCOMPARE(m_desk->area->viewMode(), QMdiArea::TabbedView);
    QVERIFY(!m_desk->window->windowIcon().isNull());
}

void TestMainWindow::workspaceShowsTheBrandedBackground()
{
    const QImage picture = QPixmap(":/res/images/Varnhold_bg.jpg").toImage();
    QVERIFY(!picture.isNull());
    QCOMPARE(m_desk->area->background().texture().toImage(), picture);
}

void TestMainWindow::windowIsTheInstanceForItsLife()
{
    QCOMPARE(MainWindow::instance(), m_desk->window.get());
    m_desk.reset();
    QCOMPARE(MainWindow::instance(), nullptr);
}

void TestMainWindow::welcomeComesUpOverTheWindow()
{
    QVERIFY(m_desk->window->close());
    QSettings().setValue("Welcome/show", true);
    QWidget *parent = nullptr;
    bool windowVisible = false;
    BoxWatcher watcher;
    watcher.expectDialog("DialogWelcome", [&](QWidget *dialog) {
        parent = dialog->parentWidget();
        windowVisible = parent && parent->isVisible();
        dialog->close();
    });
    m_desk = std::make_unique<Desk>();
    QTRY_VERIFY(parent);
    QCOMPARE(parent, static_cast<QWidget *>(m_desk->window.get()));
    QVERIFY(windowVisible);
}

void TestMainWindow::windowThatComesBackShowsNoWelcome()
{
    QVERIFY(m_desk->window->close());
    m_desk.reset();
    QSettings().setValue("Welcome/show", true);
    setRestartRequested(true);
    const BoxWatcher watcher;
    m_desk = std::make_unique<Desk>();
    QTest::qWait(100);
    QVERIFY(!restartRequested());
    // The service of the folders is a new one, and the tree has got its root from it.
    QCOMPARE(m_desk->tree->rootIndex().data(QFileSystemModel::FilePathRole).toString(),
             TestHome::instance()->projectsRoot());
}

void TestMainWindow::positionAndDocksComeBackAtTheNextStart()
{
    MainWindow &window = *m_desk->window;
    window.addDockWidget(Qt::RightDockWidgetArea, dock(window, "documentSearch"));
    window.setGeometry(120, 90, 900, 640);
    QTRY_COMPARE(window.size(), QSize(900, 640));
    const QRect geometry = window.geometry();
    QVERIFY(!QSettings().contains("Windows/MainWindowGeometry"));
    m_desk->restart();
    QVERIFY(!QSettings().value("Windows/MainWindowGeometry").toByteArray().isEmpty());
    QVERIFY(!QSettings().value("Windows/MainWindowState").toByteArray().isEmpty());
    MainWindow &next = *m_desk->window;
    QTRY_COMPARE(next.geometry(), geometry);
    QCOMPARE(next.dockWidgetArea(dock(next, "documentSearch")), Qt::RightDockWidgetArea);
    QCOMPARE(next.dockWidgetArea(dock(next, "documentBrowser")), Qt::LeftDockWidgetArea);
}

void TestMainWindow::resetBringsTheDocksBack()
{
    MainWindow &window = *m_desk->window;
    QDockWidget *browser = dock(window, "documentBrowser");
    QDockWidget *search = dock(window, "documentSearch");
    browser->setFloating(true);
    window.addDockWidget(Qt::RightDockWidgetArea, search);
    QMenu *windowMenu = menu(window, "menuWindow");
    emit windowMenu->aboutToShow();
    for (QAction *action : windowMenu->actions()) {
        if (action->text() == "&Reset Window Layout")
            action->trigger();
    }
    QVERIFY(!browser->isFloating());
    QVERIFY(!search->isFloating());
    QCOMPARE(window.dockWidgetArea(browser), Qt::LeftDockWidgetArea);
    QCOMPARE(window.dockWidgetArea(search), Qt::LeftDockWidgetArea);
    QCOMPARE(window.tabifiedDockWidgets(search), QList<QDockWidget *>{browser});
}

void TestMainWindow::settingsAndAboutOpenTheirDialogs()
{
    QStringList titles;
    BoxWatcher watcher;
    const auto note = [&titles](QWidget *dialog) {
        titles.append(dialog->windowTitle());
        dialog->close();
    };
    watcher.expectDialog("DialogSettings", note);
    watcher.expectDialog("DialogAbout", note);
    m_desk->action("actionSettings")->trigger();
    m_desk->action("actionAbout")->trigger();
    QCOMPARE(titles, (QStringList{"Settings", "About Kelmar"}));
}

void TestMainWindow::manualIsOpenedFromTheProgramsFolder()
{
    QVERIFY(m_desk->action("actionPDFManual")->isVisible());
    m_desk->action("actionPDFManual")->trigger();
    QCOMPARE(m_urls, QVector<QUrl>{QUrl::fromLocalFile(QCoreApplication::applicationDirPath() +
                                                       "/Bedienungsanleitung.pdf")});
}

void TestMainWindow::tutorialIsHiddenAndOpensAPage()
{
    QVERIFY(!m_desk->action("actionScreencastTutorial")->isVisible());
    QMetaObject::invokeMethod(m_desk->window.get(), "showScreencastTutorial");
    QCOMPARE(m_urls.size(), 1);
    QCOMPARE(m_urls.first().scheme(), QString("https"));
}

void TestMainWindow::newRootFromTheSettingsReplacesTheTree()
{
    const QString other = TestHome::instance()->path("elsewhere");
    QVERIFY(QDir().mkpath(other));
    QVERIFY(Folders::instance()->setProjectsRoot(other));
    QCOMPARE(m_desk->tree->rootIndex().data(QFileSystemModel::FilePathRole).toString(), other);
}

KELMAR_TEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
