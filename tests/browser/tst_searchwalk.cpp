#include "tests/browser/SearchPanel.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/HiddenFile.h"
#include "tests/support/TestMain.h"
#include "tests/support/WithoutRights.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace {

const QString noResults = QStringLiteral("Search is complete. There are no results to display.");

} // namespace

/// How the walk goes through the tree, and what can come in between.
class TestSearchWalk : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void filesComeBeforeFoldersAndFoldersBeforeTheirContents();
    void linksAndHiddenEntriesAreLeftOut();
    void linkToTheFolderAboveDoesNotLeadAround();
    void unreadableFolderIsListedAndPassedOver();
    void filesThatVanishDuringTheWalkDoNoHarm();
    void folderThatVanishesDuringTheWalkDoesNoHarm();
    void deepTreeIsWalkedToItsEnd();

    void eventsAreHandledAfterEachEntry();
    void eventsAreHandledAfterEntriesThatDoNotMatch();
    void startIsToldBeforeTheOldRowsGoAndTheEndAfterTheLastRow();
    void stopStandsInPlaceOfSearchDuringARun();
    void stopKeepsTheRowsAndBringsSearchBack();
    void stopBeforeTheFirstFindShowsTheEmptyRow();
    void stopBelowAFolderTestsOneMoreEntryOfEachLevelAbove();
    void searchAfterAStopRunsToItsEnd();
    void closingTheLastWindowEndsTheWalk();

    void returnAndEnterSearch_data();
    void returnAndEnterSearch();
    void returnDuringARunDoesNothing();
    void otherKeysAreSwallowed();
    void searchButtonIsUpAndFocusedAfterTheRun();

private:
    /// Calls `act` once, as soon as `count` rows are there.
    void atRow(int count, const std::function<void()> &act);

    std::unique_ptr<SearchPanel> m_panel;
};

void TestSearchWalk::init()
{
    SearchPanel::clear();
    m_panel = std::make_unique<SearchPanel>();
}

void TestSearchWalk::cleanup()
{
    m_panel.reset();
}

void TestSearchWalk::atRow(int count, const std::function<void()> &act)
{
    const FoundFilesModel *model = m_panel->model();
    connect(model, &QAbstractItemModel::rowsInserted, m_panel.get(), [model, count, act] {
        if (model->rowCount() == count)
            act();
    });
}

void TestSearchWalk::filesComeBeforeFoldersAndFoldersBeforeTheirContents()
{
    for (const char *name : {"A/x", "A/B/y", "A/B/C/z", "w"})
        SearchPanel::add(name);
    m_panel->found();
    QCOMPARE(m_panel->rows(), (QStringList{"w", "A", "A/x", "A/B", "A/B/y", "A/B/C", "A/B/C/z"}));
}

void TestSearchWalk::linksAndHiddenEntriesAreLeftOut()
{
    const QString target = SearchPanel::add("Job/a.kelir");
    hide(SearchPanel::add(".hidden.kelir"));
    SearchPanel::add(".hidden folder/b.kelir");
    hide(SearchPanel::path(".hidden folder"));
    // What ends so can be a link on all systems.
    QVERIFY(QFile::link(target, SearchPanel::path("link.lnk")));
    QVERIFY(QFile::link(SearchPanel::path("Job"), SearchPanel::path("Link to Job.lnk")));
    QVERIFY(QFile::link(SearchPanel::path("nowhere"), SearchPanel::path("dangling.lnk")));
    BoxWatcher watcher;
    QCOMPARE(m_panel->found(), (QStringList{"Job", "Job/a.kelir"}));
    QCOMPARE(watcher.boxes().size(), 0);
}

void TestSearchWalk::linkToTheFolderAboveDoesNotLeadAround()
{
    SearchPanel::add("Job/a.kelir");
    QVERIFY(QFile::link(SearchPanel::path(""), SearchPanel::path("Job/up.lnk")));
    QCOMPARE(m_panel->found(), (QStringList{"Job", "Job/a.kelir"}));
}

void TestSearchWalk::unreadableFolderIsListedAndPassedOver()
{
    SearchPanel::add("Locked/inside.kelir");
    SearchPanel::add("open.kelir");
    SearchPanel::addReport("secret.kelir", "earth");
    const QString locked = SearchPanel::path("Locked");
    QVERIFY(QFile::setPermissions(TestHome::instance()->path(), QFile::Permissions(0x7755)));
    QVERIFY(QFile::setPermissions(locked, {}));
    QVERIFY(QFile::setPermissions(SearchPanel::path("secret.kelir"), {}));
    BoxWatcher watcher;
    QStringList all;
    QStringList byPhrase;
    {
        const WithoutRights rights;
        QVERIFY(!QFile(SearchPanel::path("secret.kelir")).open(QIODevice::ReadOnly));
        all = m_panel->found();
        m_panel->setPhrase("earth");
        byPhrase = m_panel->found();
    }
    QVERIFY(QFile::setPermissions(locked, QFile::Permissions(0x7755)));
    QCOMPARE(all, (QStringList{"Locked", "open.kelir", "secret.kelir"}));
    QCOMPARE(byPhrase, QStringList{noResults});
    QCOMPARE(watcher.boxes().size(), 0);
}

void TestSearchWalk::filesThatVanishDuringTheWalkDoNoHarm()
{
    for (int i = 0; i < 20; ++i)
        SearchPanel::addReport(QString("%1.kelir").arg(i), "earth");
    QStringList kept;
    atRow(5, [this, &kept] {
        kept = m_panel->rows();
        for (const QFileInfo &info : QDir(SearchPanel::path("")).entryInfoList(QDir::Files))
            QFile::remove(info.filePath());
    });
    BoxWatcher watcher;
    m_panel->setPhrase("earth");
    m_panel->found();
    QCOMPARE(m_panel->rows(), kept);
    QCOMPARE(kept.size(), 5);
    QCOMPARE(watcher.boxes().size(), 0);
}

void TestSearchWalk::folderThatVanishesDuringTheWalkDoesNoHarm()
{
    for (int i = 0; i < 10; ++i)
        SearchPanel::add(QString("Job %1/a.kelir").arg(i));
    atRow(1, [] {
        for (const QFileInfo &info :
             QDir(SearchPanel::path("")).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
            QDir(info.filePath()).removeRecursively();
    });
    BoxWatcher watcher;
    const QStringList found = m_panel->found();
    // The list of the folders was made before.
    QCOMPARE(found.size(), 10);
    QVERIFY(found.filter("kelir").isEmpty());
    QCOMPARE(watcher.boxes().size(), 0);
}

void TestSearchWalk::deepTreeIsWalkedToItsEnd()
{
    constexpr int depth = 300;
    SearchPanel::add(QString("d/").repeated(depth) + "end.kelir");
    m_panel->setName("end");
    QCOMPARE(m_panel->found(), QStringList{QString("d/").repeated(depth) + "end.kelir"});
    QDir(SearchPanel::path("d")).removeRecursively();
}

void TestSearchWalk::eventsAreHandledAfterEachEntry()
{
    for (int i = 0; i < 200; ++i)
        SearchPanel::add(QString("Job %1/a.kelir").arg(i));
    // A timer of no time fires at every turn of the event loop.
    int sinceLastTurn = 0;
    int longest = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, &timer, [&sinceLastTurn] { sinceLastTurn = 0; });
    connect(m_panel->model(), &QAbstractItemModel::rowsInserted, &timer,
            [&] { longest = qMax(longest, ++sinceLastTurn); });
    timer.start(0);
    QCOMPARE(m_panel->found().size(), 400);
    QCOMPARE(longest, 1);
}

void TestSearchWalk::eventsAreHandledAfterEntriesThatDoNotMatch()
{
    constexpr int entries = 200;
    for (int i = 0; i < entries; ++i)
        SearchPanel::add(QString("%1.kelir").arg(i));
    int turns = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, &timer, [&turns] { ++turns; });
    timer.start(0);
    m_panel->setName("no such name");
    QCOMPARE(m_panel->found(), QStringList{noResults});
    QVERIFY2(turns >= entries, qPrintable(QString::number(turns)));
}

void TestSearchWalk::startIsToldBeforeTheOldRowsGoAndTheEndAfterTheLastRow()
{
    SearchPanel::add("a.kelir");
    m_panel->found();
    QStringList told;
    connect(m_panel.get(), &FindInFiles::searchStarted, m_panel.get(),
            [&] { told.append("started " + m_panel->rows().join(',')); });
    connect(m_panel.get(), &FindInFiles::searchFinished, m_panel.get(),
            [&] { told.append("finished " + m_panel->rows().join(',')); });
    m_panel->setName("b");
    m_panel->found();
    QCOMPARE(told, (QStringList{"started a.kelir", "finished " + noResults}));
}

void TestSearchWalk::stopStandsInPlaceOfSearchDuringARun()
{
    SearchPanel::add("a.kelir");
    QPoint place;
    atRow(1, [this, &place] {
        QVERIFY(m_panel->stopButton()->isVisible());
        QVERIFY(!m_panel->searchButton()->isVisible());
        QCoreApplication::processEvents();
        place = m_panel->stopButton()->geometry().bottomRight();
    });
    m_panel->found();
    QVERIFY(!m_panel->stopButton()->isVisible());
    QVERIFY(m_panel->searchButton()->isVisible());
    QCoreApplication::processEvents();
    QCOMPARE(place, m_panel->searchButton()->geometry().bottomRight());
}

void TestSearchWalk::stopKeepsTheRowsAndBringsSearchBack()
{
    for (int i = 0; i < 300; ++i)
        SearchPanel::add(QString("%1.kelir").arg(i));
    atRow(7, [this] { QTest::mousePress(m_panel->stopButton(), Qt::LeftButton); });
    // The entry in hand is the last one: whatever the number of files, no time passes after the press.
    QCOMPARE(m_panel->found().size(), 7);
    QVERIFY(m_panel->searchButton()->isVisible());
    QVERIFY(!m_panel->stopButton()->isVisible());
}

void TestSearchWalk::stopBeforeTheFirstFindShowsTheEmptyRow()
{
    for (int i = 0; i < 300; ++i)
        SearchPanel::add(QString("%1.txt").arg(i));
    SearchPanel::add("Job/a.kelir");
    m_panel->setName("kelir");
    QTimer::singleShot(0, m_panel.get(),
                       [this] { QTest::mousePress(m_panel->stopButton(), Qt::LeftButton); });
    QCOMPARE(m_panel->found(), QStringList{noResults});
    QVERIFY(m_panel->searchButton()->isVisible());
}

void TestSearchWalk::stopBelowAFolderTestsOneMoreEntryOfEachLevelAbove()
{
    for (const char *name : {"1/a", "2/a"}) {
        for (int i = 0; i < 3; ++i)
            SearchPanel::add(QString("%1/%2").arg(name).arg(i));
    }
    // In whatever order the folders come: in the first of them, at its first file.
    atRow(3, [this] { QTest::mousePress(m_panel->stopButton(), Qt::LeftButton); });
    m_panel->found();
    const QStringList rows = m_panel->rows();
    QCOMPARE(rows.size(), 4);
    QCOMPARE(rows.at(1), rows.at(0) + "/a");
    QCOMPARE(rows.at(2).left(4), rows.at(1) + "/");
    QCOMPARE(rows.at(3), QString(rows.at(0) == "1" ? "2" : "1"));
}

void TestSearchWalk::searchAfterAStopRunsToItsEnd()
{
    for (int i = 0; i < 20; ++i)
        SearchPanel::add(QString("%1.kelir").arg(i));
    bool stopped = false;
    atRow(3, [this, &stopped] {
        if (!stopped)
            QTest::mousePress(m_panel->stopButton(), Qt::LeftButton);
        stopped = true;
    });
    QCOMPARE(m_panel->found().size(), 3);
    QCOMPARE(m_panel->found().size(), 20);
}

void TestSearchWalk::closingTheLastWindowEndsTheWalk()
{
    for (int i = 0; i < 50; ++i)
        SearchPanel::add(QString("%1.kelir").arg(i));
    atRow(3, [this] { m_panel->close(); });
    QStringList found;
    QTimer::singleShot(0, m_panel.get(), [this, &found] { found = m_panel->found(); });
    // The loop ends with its last window, and only then.
    QCOMPARE(QApplication::exec(), 0);
    QCOMPARE(found.size(), 3);
}

void TestSearchWalk::returnAndEnterSearch_data()
{
    QTest::addColumn<QString>("widget");
    QTest::addColumn<int>("key");
    QTest::newRow("in the name") << "nameEdit" << int(Qt::Key_Return);
    QTest::newRow("in the phrase") << "phraseEdit" << int(Qt::Key_Enter);
    QTest::newRow("in the size") << "sizeLimit" << int(Qt::Key_Return);
    QTest::newRow("on a check box") << "nameCaseSensitive" << int(Qt::Key_Enter);
    QTest::newRow("on the button") << "search" << int(Qt::Key_Return);
}

void TestSearchWalk::returnAndEnterSearch()
{
    SearchPanel::add("a.kelir");
    QFETCH(QString, widget);
    QFETCH(int, key);
    m_panel->check("phraseGroup");
    m_panel->check("sizeGroup");
    QSignalSpy finished(m_panel.get(), &FindInFiles::searchFinished);
    QTest::keyClick(m_panel->findChild<QWidget *>(widget), Qt::Key(key));
    QCOMPARE(finished.count(), 1);
}

void TestSearchWalk::returnDuringARunDoesNothing()
{
    for (int i = 0; i < 10; ++i)
        SearchPanel::add(QString("%1.kelir").arg(i));
    QSignalSpy started(m_panel.get(), &FindInFiles::searchStarted);
    atRow(3, [this] { QTest::keyClick(m_panel->find<QLineEdit>("nameEdit"), Qt::Key_Return); });
    QCOMPARE(m_panel->found().size(), 10);
    QCOMPARE(started.count(), 1);
}

void TestSearchWalk::otherKeysAreSwallowed()
{
    QWidget around;
    m_panel->setParent(&around);
    for (const int key : {Qt::Key_Escape, Qt::Key_A, Qt::Key_F5, Qt::Key_Delete}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(m_panel.get(), &event);
        QVERIFY(event.isAccepted());
    }
    QSignalSpy started(m_panel.get(), &FindInFiles::searchStarted);
    QTest::keyClick(m_panel.get(), Qt::Key_Space);
    QCOMPARE(started.count(), 0);
    m_panel->setParent(nullptr);
}

void TestSearchWalk::searchButtonIsUpAndFocusedAfterTheRun()
{
    SearchPanel::add("a.kelir");
    m_panel->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
    m_panel->searchButton()->setFocus();
    bool stopHadFocus = false;
    atRow(1, [this, &stopHadFocus] { stopHadFocus = m_panel->stopButton()->hasFocus(); });
    m_panel->found();
    QVERIFY(stopHadFocus);
    QVERIFY(m_panel->searchButton()->hasFocus());
    QVERIFY(!m_panel->searchButton()->isDown());
}

KELMAR_TEST_MAIN(TestSearchWalk)
#include "tst_searchwalk.moc"
