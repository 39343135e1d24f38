#include "app/core/Language.h"
#include "app/document/AbstractDocument.h"
#include "browser/ProjectTreeView.h"
#include "tests/app/shell/Desk.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"
#include "tests/support/Trash.h"
#include "tests/support/TrashQuestion.h"

#include <QAction>
#include <QDesktopServices>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>

class TestProjectCommands : public QObject
{
    Q_OBJECT

public slots:
    void openUrl(const QUrl &url) { m_opened.append(url.toLocalFile()); }

private slots:
    void initTestCase() { QDesktopServices::setUrlHandler("file", this, "openUrl"); }
    void init();
    void cleanup() { m_desk.reset(); }

    void eachCommandMakesItsKindOfDocument_data();
    void eachCommandMakesItsKindOfDocument();
    void germanSessionGivesGermanNames();
    void newDocumentLiesBesideTheSelectedFile();
    void newDocumentLiesInTheSelectedFolder();
    void newDocumentLiesInTheRootWithNothingSelected();
    void newDocumentFollowsTheLastOfSeveralSelected();
    void newDocumentIsNamedAtOnceAndNotOpened();

    void newFolderLiesInTheRootWhateverIsSelected();
    void secondNewFolderCountsFromTwo();
    void handoverPackIsAFolderWithAChecklistReadyToBeNamed();
    void handoverPackLiesInTheRootWhateverIsSelected();

    void commandsOnAnEntryNeedACurrentOne();
    void contextMenuBesideTheEntriesOffersTheNewOnly();
    void contextMenuOfAnEntryOffersOpeningFirst();
    void renameStartsEditingAndLeavesTheOpenDocumentItsPath();
    void renamingByKeyGoesThroughTheSameCommand();
    void deletedEntriesGoToTheTrash();

    void openShowsTheCurrentDocument();
    void openingTheSameFileTwiceGivesTheSameDocument();
    void fileThatCannotBeLoadedIsNotKept();
    void folderAndOtherFilesGoToTheDesktop();

private:
    static QString favourite(const QString &suffix)
    {
        return TestHome::instance()->dataFolder() + "/default." + suffix;
    }
    static QStringList entries(const QString &folder)
    {
        return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
    }
    /// The name that a folder gets: some file systems drop the last dot.
    static QString asStored(const QString &name)
    {
        const QTemporaryDir folder;
        QDir(folder.path()).mkdir(name);
        return entries(folder.path()).value(0);
    }
    static QStringList textsOf(const QMenu *menu)
    {
        QStringList texts;
        for (const QAction *action : menu->actions())
            texts.append(action->isSeparator() ? "-" : action->text());
        return texts;
    }
    void trigger(const char *action) { m_desk->action(action)->trigger(); }

    std::unique_ptr<Desk> m_desk;
    QStringList m_opened;
};

void TestProjectCommands::init()
{
    Desk::clear();
    m_opened.clear();
    // New documents are copies of the favourites, whatever these hold.
    for (const char *suffix : {"kelir", "kelatr", "kelvc", "kelid", "kelchk", "kelcrv"})
        writeFile(favourite(suffix), QByteArray("favourite ") + suffix);
    Desk::addReport("Job 1/Roof.kelatr");
    Desk::addReport("Job 1/Wall.kelatr");
    m_desk = std::make_unique<Desk>();
}

void TestProjectCommands::eachCommandMakesItsKindOfDocument_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("name");
    const char *const rows[][2] = {
        {"actionNewInspectionReport", "Inspection Report.kelir"},
        {"actionNewTestReport", "Array Test Report.kelatr"},
        {"actionNewVerificationCertificate", "Verification Certificate.kelvc"},
        {"actionNewInstallationDiagram", "Installation Diagram.kelid"},
        {"actionNewChecklist", "Checklist.kelchk"},
        {"actionNewCurveData", "Curve Data.kelcrv"},
    };
    for (const auto &row : rows)
        QTest::newRow(row[0]) << row[0] << row[1];
}

void TestProjectCommands::eachCommandMakesItsKindOfDocument()
{
    QFETCH(QString, action);
    QFETCH(QString, name);
    trigger(qPrintable(action));
    QCOMPARE(readFile(Desk::path(name)), "favourite " + QFileInfo(name).suffix().toUtf8());
    QCOMPARE(entries(TestHome::instance()->projectsRoot()).size(), 2);
}

void TestProjectCommands::germanSessionGivesGermanNames()
{
    useLanguage("de", QLocale("de"));
    for (const char *action :
         {"actionNewInspectionReport", "actionNewTestReport", "actionNewVerificationCertificate",
          "actionNewInstallationDiagram", "actionNewChecklist", "actionNewCurveData"}) {
        m_desk->tree->clearSelection();
        trigger(action);
    }
    for (const char *name :
         {"Prüfbericht Besichtigung.kelir", "Prüfbericht PV-Generator.kelatr", "Prüfbescheinigung.kelvc",
          "Anlagenschema.kelid", "Übergabe-Checkliste.kelchk", "Kennliniendaten.kelcrv"})
        QVERIFY2(QFileInfo::exists(Desk::path(QString::fromUtf8(name))), name);
}

void TestProjectCommands::newDocumentLiesBesideTheSelectedFile()
{
    m_desk->click("Job 1/Roof.kelatr");
    trigger("actionNewChecklist");
    QCOMPARE(entries(Desk::path("Job 1")), (QStringList{"Checklist.kelchk", "Roof.kelatr", "Wall.kelatr"}));
    QCOMPARE(entries(TestHome::instance()->projectsRoot()), QStringList{"Job 1"});
}

void TestProjectCommands::newDocumentLiesInTheSelectedFolder()
{
    m_desk->click("Job 1");
    trigger("actionNewChecklist");
    QVERIFY(QFileInfo::exists(Desk::path("Job 1/Checklist.kelchk")));
    QCOMPARE(m_desk->selected(), QStringList{"Job 1/Checklist.kelchk"});
}

void TestProjectCommands::newDocumentLiesInTheRootWithNothingSelected()
{
    m_desk->click("Job 1/Roof.kelatr");
    m_desk->tree->clearSelection();
    trigger("actionNewChecklist");
    QCOMPARE(entries(TestHome::instance()->projectsRoot()), (QStringList{"Checklist.kelchk", "Job 1"}));
}

void TestProjectCommands::newDocumentFollowsTheLastOfSeveralSelected()
{
    QVERIFY(QDir().mkpath(Desk::path("Job 2")));
    Trash::startEmpty();
    m_desk->click("Job 1/Roof.kelatr");
    const auto *model = qobject_cast<QFileSystemModel *>(m_desk->tree->model());
    QTRY_VERIFY(m_desk->tree->visualRect(model->index(Desk::path("Job 2"))).isValid());
    m_desk->tree->selectionModel()->select(model->index(Desk::path("Job 2")), QItemSelectionModel::Select);
    QCOMPARE(m_desk->selected().last(), QString("Job 2"));
    trigger("actionNewChecklist");
    QCOMPARE(entries(Desk::path("Job 2")), QStringList{"Checklist.kelchk"});
}

void TestProjectCommands::newDocumentIsNamedAtOnceAndNotOpened()
{
    m_desk->click("Job 1");
    trigger("actionNewTestReport");
    QCOMPARE(m_desk->selected(), QStringList{"Job 1/Array Test Report.kelatr"});
    QVERIFY(m_desk->nameEditor());
    QCOMPARE(m_desk->nameEditor()->text(), QString("Array Test Report.kelatr"));
    QVERIFY(m_desk->nameEditor()->hasFocus());
    QTest::keySequence(m_desk->nameEditor(), QKeySequence::SelectAll);
    QTest::keyClicks(m_desk->nameEditor(), "Roof West.kelatr");
    QTest::keyClick(m_desk->nameEditor(), Qt::Key_Return);
    QTRY_VERIFY(QFileInfo::exists(Desk::path("Job 1/Roof West.kelatr")));
    QVERIFY(!QFileInfo::exists(Desk::path("Job 1/Array Test Report.kelatr")));
    QVERIFY(m_desk->window->documents().isEmpty());
}

void TestProjectCommands::newFolderLiesInTheRootWhateverIsSelected()
{
    m_desk->click("Job 1");
    trigger("actionNewFolder");
    QCOMPARE(entries(TestHome::instance()->projectsRoot()), (QStringList{"Job 1", "New Folder"}));
    QCOMPARE(m_desk->selected(), QStringList{"Job 1"});
    QVERIFY(!m_desk->nameEditor());
}

void TestProjectCommands::secondNewFolderCountsFromTwo()
{
    trigger("actionNewFolder");
    trigger("actionNewFolder");
    // A name without suffix keeps the dot of the pattern.
    QCOMPARE(entries(TestHome::instance()->projectsRoot()),
             (QStringList{"Job 1", "New Folder", asStored("New Folder (2).")}));
}

void TestProjectCommands::handoverPackIsAFolderWithAChecklistReadyToBeNamed()
{
    trigger("actionNewClientHandoverPack");
    const QString pack = Desk::path("New Client Handover Pack");
    QCOMPARE(entries(pack), QStringList{"Checklist.kelchk"});
    QCOMPARE(m_desk->selected(), QStringList{"New Client Handover Pack/Checklist.kelchk"});
    QVERIFY(m_desk->nameEditor());
    QCOMPARE(m_desk->nameEditor()->text(), QString("Checklist.kelchk"));
    const auto *model = qobject_cast<QFileSystemModel *>(m_desk->tree->model());
    const auto icon = model->index(pack).data(Qt::DecorationRole).value<QIcon>();
    QCOMPARE(icon.pixmap(16).toImage(), QIcon(":/res/fileTypes/chp_folder.png").pixmap(16).toImage());
}

void TestProjectCommands::handoverPackLiesInTheRootWhateverIsSelected()
{
    m_desk->click("Job 1");
    trigger("actionNewClientHandoverPack");
    QCOMPARE(entries(Desk::path("Job 1")), (QStringList{"Roof.kelatr", "Wall.kelatr"}));
    trigger("actionNewClientHandoverPack");
    QCOMPARE(entries(TestHome::instance()->projectsRoot()),
             (QStringList{"Job 1", "New Client Handover Pack", asStored("New Client Handover Pack (2).")}));
    QCOMPARE(entries(Desk::path("New Client Handover Pack (2).")), QStringList{"Checklist.kelchk"});
}

void TestProjectCommands::commandsOnAnEntryNeedACurrentOne()
{
    const auto enabled = [this] {
        QVector<bool> states;
        for (const char *name : {"actionOpen", "actionRename", "actionDelete"})
            states.append(m_desk->action(name)->isEnabled());
        return states;
    };
    m_desk->tree->selectionModel()->clear();
    m_desk->click("Job 1/Roof.kelatr");
    QCOMPARE(enabled(), QVector<bool>(3, true));
    m_desk->tree->setCurrentIndex(QModelIndex());
    QCOMPARE(enabled(), QVector<bool>(3, false));
    m_desk->click("Job 1");
    QCOMPARE(enabled(), QVector<bool>(3, true));
}

void TestProjectCommands::contextMenuBesideTheEntriesOffersTheNewOnly()
{
    m_desk->contextMenu(QString(), [](const QMenu *menu) {
        QCOMPARE(textsOf(menu),
                 (QStringList{"New Inspection Report", "New PV Array Test Report",
                              "New Verification Certificate", "New Installation Diagram", "New Checklist",
                              "New Curve Data", "-", "New Folder", "New Client Handover Pack"}));
        QVERIFY(!menu->defaultAction());
    });
}

void TestProjectCommands::contextMenuOfAnEntryOffersOpeningFirst()
{
    m_desk->click("Job 1/Roof.kelatr");
    m_desk->contextMenu("Job 1/Roof.kelatr", [this](const QMenu *menu) {
        QCOMPARE(textsOf(menu),
                 (QStringList{"Open", "-", "Save", "Delete", "Rename", "-", "New Inspection Report",
                              "New PV Array Test Report", "New Verification Certificate",
                              "New Installation Diagram", "New Checklist", "New Curve Data", "-",
                              "New Folder", "New Client Handover Pack"}));
        QCOMPARE(menu->defaultAction(), m_desk->action("actionOpen"));
        // The menu stands where it was asked for.
        QVERIFY(m_desk->tree->viewport()->rect().contains(
            m_desk->tree->viewport()->mapFromGlobal(menu->geometry().topLeft())));
    });
}

void TestProjectCommands::renameStartsEditingAndLeavesTheOpenDocumentItsPath()
{
    const AbstractDocument *document = m_desk->window->openDocument(Desk::path("Job 1/Roof.kelatr"));
    QTRY_COMPARE(m_desk->current(), QString("Job 1/Roof.kelatr"));
    trigger("actionRename");
    QVERIFY(m_desk->nameEditor());
    m_desk->nameEditor()->setText("Roof East.kelatr");
    QTest::keyClick(m_desk->nameEditor(), Qt::Key_Return);
    QTRY_VERIFY(QFileInfo::exists(Desk::path("Job 1/Roof East.kelatr")));
    QCOMPARE(document->filePath(), Desk::path("Job 1/Roof.kelatr"));
}

void TestProjectCommands::renamingByKeyGoesThroughTheSameCommand()
{
    m_desk->click("Job 1/Roof.kelatr");
    m_desk->tree->setFocus();
    QTest::keyClick(m_desk->tree, Qt::Key_F2);
    QVERIFY(m_desk->nameEditor());
    QCOMPARE(m_desk->nameEditor()->text(), QString("Roof.kelatr"));
    QTest::keyClick(m_desk->nameEditor(), Qt::Key_Escape);
    QVERIFY(QFileInfo::exists(Desk::path("Job 1/Roof.kelatr")));
}

void TestProjectCommands::deletedEntriesGoToTheTrash()
{
    BoxWatcher watcher;
    const TrashQuestion question(watcher, "these 2 items to the trash?");
    Trash::startEmpty();
    m_desk->click("Job 1/Roof.kelatr");
    const auto *model = qobject_cast<QFileSystemModel *>(m_desk->tree->model());
    m_desk->tree->selectionModel()->select(model->index(Desk::path("Job 1/Wall.kelatr")),
                                           QItemSelectionModel::Select);
    trigger("actionDelete");
    QTRY_VERIFY(entries(Desk::path("Job 1")).isEmpty());
    QCOMPARE(Trash::names(), QStringList({"Roof.kelatr", "Wall.kelatr"}));
}

void TestProjectCommands::openShowsTheCurrentDocument()
{
    m_desk->click("Job 1/Wall.kelatr");
    m_desk->tree->setFocus();
    QTest::keyClick(m_desk->tree, Qt::Key_O, Qt::ControlModifier);
    QTRY_COMPARE(m_desk->openNames(), QStringList{"Wall.kelatr"});
    QCOMPARE(m_desk->tabs()->tabText(0), QString("Wall.kelatr"));
}

void TestProjectCommands::openingTheSameFileTwiceGivesTheSameDocument()
{
    AbstractDocument *first = m_desk->window->openDocument(Desk::path("Job 1/Roof.kelatr"));
    QVERIFY(first);
    QCOMPARE(m_desk->window->openDocument(Desk::path("Job 1/Roof.kelatr")), first);
    m_desk->doubleClick("Job 1/Roof.kelatr");
    QCOMPARE(m_desk->openNames(), QStringList{"Roof.kelatr"});
    // Equal paths count, not equal files.
    QVERIFY(m_desk->window->openDocument(Desk::path("Job 1//Roof.kelatr")) != first);
}

void TestProjectCommands::fileThatCannotBeLoadedIsNotKept()
{
    writeFile(Desk::path("Damaged.kelir"), "no report");
    BoxWatcher watcher;
    watcher.expect(QString(), QMessageBox::Ok);
    const int widgets = QApplication::allWidgets().size();
    m_desk->doubleClick("Damaged.kelir");
    QTRY_COMPARE(watcher.boxes().size(), 1);
    QVERIFY(m_desk->window->documents().isEmpty());
    QCOMPARE(m_desk->tabs()->count(), 0);
    for (const QWidget *widget : QApplication::allWidgets())
        QVERIFY(!widget->inherits("AbstractDocument"));
    QVERIFY(QApplication::allWidgets().size() <= widgets + 1);
}

void TestProjectCommands::folderAndOtherFilesGoToTheDesktop()
{
    writeFile(Desk::path("Job 1/plan.pdf"), "%PDF");
    m_desk->click("Job 1/plan.pdf");
    trigger("actionOpen");
    QCOMPARE(m_opened, QStringList{Desk::path("Job 1/plan.pdf")});
    m_desk->doubleClick("Job 1");
    QTRY_COMPARE(m_opened, (QStringList{Desk::path("Job 1/plan.pdf"), Desk::path("Job 1")}));
    QVERIFY(m_desk->window->documents().isEmpty());
}

KELMAR_TEST_MAIN(TestProjectCommands)
#include "tst_projectcommands.moc"
