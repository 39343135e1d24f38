#include "app/core/Folders.h"
#include "app/document/AbstractDocument.h"
#include "browser/FindInFiles.h"
#include "browser/FoundFilesModel.h"
#include "browser/SearchResultsDocument.h"
#include "tests/app/shell/Desk.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QAction>
#include <QDesktopServices>
#include <QDockWidget>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTableView>

/// The tab with the results of the search panel, in the main window.
class TestSearchTab : public QObject
{
    Q_OBJECT

public slots:
    void openUrl(const QUrl &url) { m_opened.append(url.toLocalFile()); }

private slots:
    void initTestCase() { QDesktopServices::setUrlHandler("file", this, "openUrl"); }
    void init();
    void cleanup() { m_desk.reset(); }

    void searchOpensATabWithItsRows();
    void laterSearchRefillsTheTabAndLeavesItBehind();
    void closedTabComesAgainWithTheNextSearch();
    void activatedRowOpensItsDocumentOnce();
    void activatedRowOfAnotherFileGoesToTheDesktopOnce();
    void rowOfAFileThatIsGoneMeetsTheMessageOfItsKind();
    void changesOnTheDiskLeaveTheTabOpen();
    void tabIsNeverSavedAndClosesUnasked();
    void tabIsThereBeforeTheWalk();
    void activatedFolderGoesToTheDesktop();
    void rowWithoutAFindGoesTheWayOfAnUnknownFile();
    void damagedReportOfARowIsToldAndNotKept();
    void doubleClickActivatesARow();
    void activatingTheTabSelectsNothingInTheTree();
    void tabClosedDuringASearchDoesNotEndIt();
    void rootChangedDuringASearchLeavesItsRows();
    void windowClosedDuringASearchEndsTheProgram();

private:
    /// Calls `act` from the event loop after the first row of the next search.
    void afterTheFirstRow(const std::function<void()> &act) const;
    static void addFiles(int count);
    void search(const QString &name) const;
    SearchResultsDocument *results() const { return m_desk->area->findChild<SearchResultsDocument *>(); }
    QStringList rows() const;
    void activate(const QString &name) const;

    std::unique_ptr<Desk> m_desk;
    QStringList m_opened;
};

void TestSearchTab::init()
{
    m_opened.clear();
    Desk::clear();
    for (const char *name : {"Job 1/roof.kelatr", "Job 2/roof.kelatr", "Job 2/wall.kelatr"})
        Desk::addReport(name);
    writeFile(Desk::path("Job 1/roof.pdf"), "%PDF");
    m_desk = std::make_unique<Desk>();
}

void TestSearchTab::search(const QString &name) const
{
    auto *panel = m_desk->window->findChild<FindInFiles *>();
    m_desk->window->findChild<QDockWidget *>("documentSearch")->raise();
    panel->findChild<QLineEdit *>("nameEdit")->setText(name);
    QSignalSpy finished(panel, &FindInFiles::searchFinished);
    QTest::mouseClick(panel->findChild<QPushButton *>("search"), Qt::LeftButton);
    QTRY_COMPARE(finished.size(), 1);
}

QStringList TestSearchTab::rows() const
{
    const auto *model = results()->findChild<QTableView *>()->model();
    QStringList paths;
    for (int row = 0; row < model->rowCount(); ++row)
        paths.append(QDir(TestHome::instance()->projectsRoot())
                         .relativeFilePath(model->index(row, 0).data(Qt::UserRole).toString()));
    paths.sort();
    return paths;
}

void TestSearchTab::activate(const QString &name) const
{
    auto *view = results()->findChild<QTableView *>();
    const QModelIndexList found =
        view->model()->match(view->model()->index(0, 0), Qt::UserRole, Desk::path(name));
    QCOMPARE(found.size(), 1);
    emit view->activated(found.first());
}

void TestSearchTab::searchOpensATabWithItsRows()
{
    search("roof");
    QCOMPARE(m_desk->openNames(), QStringList{"Search Results"});
    QVERIFY(results());
    QCOMPARE(results()->filePath(), Folders::instance()->searchFolder() + "/Search Results");
    QCOMPARE(m_desk->window->activeDocument(), results());
    QCOMPARE(m_desk->tabs()->tabText(0), QString("Search Results"));
    QCOMPARE(results()->windowIcon().pixmap(16).toImage(),
             QIcon(":/res/fileTypes/search.png").pixmap(16).toImage());
    QCOMPARE(rows(), (QStringList{"Job 1/roof.kelatr", "Job 1/roof.pdf", "Job 2/roof.kelatr"}));
}

void TestSearchTab::laterSearchRefillsTheTabAndLeavesItBehind()
{
    search("roof");
    const SearchResultsDocument *first = results();
    AbstractDocument *report = m_desk->window->openDocument(Desk::path("Job 2/wall.kelatr"));
    search("wall");
    QCOMPARE(m_desk->window->activeDocument(), report);
    QCOMPARE(m_desk->openNames(), (QStringList{"Search Results", "wall.kelatr"}));
    QCOMPARE(results(), first);
    QCOMPARE(rows(), QStringList{"Job 2/wall.kelatr"});
}

void TestSearchTab::closedTabComesAgainWithTheNextSearch()
{
    search("roof");
    m_desk->window->closeActiveDocument();
    QTRY_VERIFY(m_desk->openNames().isEmpty());
    search("wall");
    QCOMPARE(m_desk->openNames(), QStringList{"Search Results"});
    QCOMPARE(rows(), QStringList{"Job 2/wall.kelatr"});
}

void TestSearchTab::activatedRowOpensItsDocumentOnce()
{
    search("roof");
    search("roof");
    activate("Job 2/roof.kelatr");
    QCOMPARE(m_desk->openNames(), (QStringList{"Search Results", "roof.kelatr"}));
    QCOMPARE(m_desk->window->activeDocument()->filePath(), Desk::path("Job 2/roof.kelatr"));
}

void TestSearchTab::activatedRowOfAnotherFileGoesToTheDesktopOnce()
{
    search("roof");
    search("roof");
    activate("Job 1/roof.pdf");
    QCOMPARE(m_opened, QStringList{Desk::path("Job 1/roof.pdf")});
}

void TestSearchTab::rowOfAFileThatIsGoneMeetsTheMessageOfItsKind()
{
    search("wall");
    QVERIFY(QFile::remove(Desk::path("Job 2/wall.kelatr")));
    BoxWatcher watcher;
    watcher.expect(Desk::path("Job 2/wall.kelatr"), QMessageBox::Ok);
    activate("Job 2/wall.kelatr");
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(m_desk->openNames(), QStringList{"Search Results"});
}

void TestSearchTab::changesOnTheDiskLeaveTheTabOpen()
{
    search("roof");
    m_desk->window->openDocument(Desk::path("Job 2/wall.kelatr"));
    QVERIFY(QFile::remove(Desk::path("Job 2/wall.kelatr")));
    // There never was a file of that name: it cannot have been removed.
    QTRY_COMPARE(m_desk->openNames(), QStringList{"Search Results"});
    QTest::qWait(100);
    QVERIFY(results());
}

void TestSearchTab::tabIsNeverSavedAndClosesUnasked()
{
    const BoxWatcher watcher;
    search("roof");
    results()->save();
    QVERIFY(!QFileInfo::exists(results()->filePath()));
    QVERIFY(m_desk->window->close());
}

void TestSearchTab::afterTheFirstRow(const std::function<void()> &act) const
{
    const FoundFilesModel *model = m_desk->window->findChild<FindInFiles *>()->model();
    connect(model, &QAbstractItemModel::rowsInserted, m_desk->window.get(), [model, act] {
        if (model->rowCount() == 1)
            QTimer::singleShot(0, model, act);
    });
}

void TestSearchTab::addFiles(int count)
{
    for (int i = 0; i < count; ++i)
        writeFile(Desk::path(QString("note %1.txt").arg(i)), "x");
}

void TestSearchTab::tabIsThereBeforeTheWalk()
{
    QStringList open;
    afterTheFirstRow([&] { open = m_desk->openNames(); });
    search("wall");
    QCOMPARE(open, QStringList{"Search Results"});
}

void TestSearchTab::activatedFolderGoesToTheDesktop()
{
    search("job");
    activate("Job 2");
    QCOMPARE(m_opened, QStringList{Desk::path("Job 2")});
    QCOMPARE(m_desk->openNames(), QStringList{"Search Results"});
}

void TestSearchTab::rowWithoutAFindGoesTheWayOfAnUnknownFile()
{
    search("no such name");
    BoxWatcher watcher;
    watcher.expect("There was an problem trying to open ", QMessageBox::Ok);
    auto *view = results()->findChild<QTableView *>();
    emit view->activated(view->model()->index(0, 0));
    QCOMPARE(watcher.texts(), QStringList{"There was an problem trying to open "});
    QCOMPARE(m_desk->openNames(), QStringList{"Search Results"});
}

void TestSearchTab::damagedReportOfARowIsToldAndNotKept()
{
    writeFile(Desk::path("damaged.kelir"), "no report");
    search("damaged");
    BoxWatcher watcher;
    watcher.expect("Error opening ", QMessageBox::Ok);
    activate("damaged.kelir");
    QCOMPARE(m_desk->openNames(), QStringList{"Search Results"});
    // It has no window and no parent: nobody else would ever take it away.
    for (const QWidget *widget : QApplication::allWidgets()) {
        if (const auto *document = qobject_cast<const AbstractDocument *>(widget))
            QCOMPARE(document, results());
    }
}

void TestSearchTab::doubleClickActivatesARow()
{
    search("wall");
    auto *view = results()->findChild<QTableView *>();
    const QPoint place = view->visualRect(view->model()->index(0, 2)).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTRY_COMPARE(m_desk->openNames(), (QStringList{"Search Results", "wall.kelatr"}));
}

void TestSearchTab::activatingTheTabSelectsNothingInTheTree()
{
    search("wall");
    activate("Job 2/wall.kelatr");
    QTRY_COMPARE(m_desk->current(), QString("Job 2/wall.kelatr"));
    m_desk->window->setActiveDocument(results());
    QTRY_COMPARE(m_desk->current(), QString());
    QVERIFY(!m_desk->action("actionSave")->isEnabled());
}

void TestSearchTab::tabClosedDuringASearchDoesNotEndIt()
{
    addFiles(50);
    afterTheFirstRow([this] { m_desk->window->closeActiveDocument(); });
    search("note");
    QTRY_VERIFY(!results());
    QCOMPARE(m_desk->window->findChild<FindInFiles *>()->model()->rowCount(), 50);
}

void TestSearchTab::rootChangedDuringASearchLeavesItsRows()
{
    addFiles(50);
    const QString other = TestHome::instance()->path("other root");
    QVERIFY(QDir().mkpath(other));
    afterTheFirstRow([other] { Folders::instance()->setProjectsRoot(other); });
    search("note");
    const FoundFilesModel *model = m_desk->window->findChild<FindInFiles *>()->model();
    QCOMPARE(model->rowCount(), 50);
    // They do not lie below the root any more.
    QVERIFY(model->index(0, 0).data().toString().startsWith(Desk::path("note")));
}

void TestSearchTab::windowClosedDuringASearchEndsTheProgram()
{
    addFiles(50);
    afterTheFirstRow([this] { m_desk->window->close(); });
    QTimer::singleShot(0, m_desk->window.get(), [this] { search("note"); });
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(m_desk->window->findChild<FindInFiles *>()->model()->rowCount() < 50);
}

KELMAR_TEST_MAIN(TestSearchTab)
#include "tst_searchtab.moc"
