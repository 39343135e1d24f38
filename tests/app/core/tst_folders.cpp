#include "app/core/Folders.h"
#include "app/platform/Platform.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

class TestFolders : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void dataFolderIsMadeOnFirstCall();
    void dataFolderStandsUnderTheMachineWideFolder();
    void defaultRootIsNotMade();
    void storedRootIsTakenAndAnnouncedAtEveryStart();
    void existingDefaultRootIsTakenWithoutAQuestionOnAFreshMachine();
    void freshMachineWithoutTheDefaultRootTellsItsPath();
    void removedRootBringsTheMessageAndThenTheFolderDialog();
    void cancelledFolderDialogMakesAndStoresTheDefault();
    void rootThatIsAFileCountsAsMissing();
    void rootInForceIsNotAskedForAgain();
    void settingTheSameRootAnnouncesItAgain();
    void missingRootIsMadeAfterYes();
    void missingRootIsRefusedAfterNo();
    void rootThatCannotBeMadeLeavesTheOldOneInForce();
    void recreatedServiceReadsTheSettingAgain();

private:
    static QString storedRoot() { return QSettings().value("Directories/RootDir").toString(); }
    QString m_root;
};

void TestFolders::init()
{
    TestHome::instance()->reset();
    m_root = TestHome::instance()->projectsRoot();
    Folders::instance(true);
    QDir(Folders::instance()->defaultProjectsRoot()).removeRecursively();
}

void TestFolders::dataFolderIsMadeOnFirstCall()
{
    QDir(TestHome::instance()->dataFolder()).removeRecursively();
    QCOMPARE(Folders::instance()->dataFolder(), TestHome::instance()->dataFolder());
    QVERIFY(QFileInfo(TestHome::instance()->dataFolder()).isDir());
    QDir(TestHome::instance()->dataFolder()).removeRecursively();
    QCOMPARE(Folders::instance()->searchFolder(), TestHome::instance()->dataFolder());
    QVERIFY(QFileInfo(TestHome::instance()->dataFolder()).isDir());
}

void TestFolders::dataFolderStandsUnderTheMachineWideFolder()
{
    const QByteArray other = qgetenv("KELMAR_DATA_FOLDER");
    qunsetenv("KELMAR_DATA_FOLDER");
    const QString folder = Folders::instance()->dataFolder();
    qputenv("KELMAR_DATA_FOLDER", other);
    QCOMPARE(folder, Platform::programDataFolder("Varnhold/Kelmar") + "/Varnhold/Kelmar");
    QVERIFY(QFileInfo(folder).isDir());
}

void TestFolders::defaultRootIsNotMade()
{
    const QString root = Folders::instance()->defaultProjectsRoot();
    QCOMPARE(root, Platform::publicDocumentsFolder() + "/Kelmar Projects");
    QVERIFY(!QFileInfo::exists(root));
}

void TestFolders::storedRootIsTakenAndAnnouncedAtEveryStart()
{
    QSignalSpy spy(Folders::instance(), &Folders::projectsFolderChanged);
    QCOMPARE(Folders::instance()->projectsRoot(), m_root);
    QCOMPARE(spy, QList<QList<QVariant>>{{m_root}});
}

void TestFolders::existingDefaultRootIsTakenWithoutAQuestionOnAFreshMachine()
{
    QSettings().remove("Directories/RootDir");
    QDir().mkpath(Folders::instance()->defaultProjectsRoot());
    BoxWatcher watcher;
    QCOMPARE(Folders::instance()->projectsRoot(), Folders::instance()->defaultProjectsRoot());
    QCOMPARE(storedRoot(), Folders::instance()->defaultProjectsRoot());
    QCOMPARE(watcher.boxes().size(), 0);
}

void TestFolders::freshMachineWithoutTheDefaultRootTellsItsPath()
{
    QSettings().remove("Directories/RootDir");
    BoxWatcher watcher;
    watcher.expect(Folders::instance()->defaultProjectsRoot(), QMessageBox::Ok);
    watcher.expectFileDialog(m_root);
    QCOMPARE(Folders::instance()->projectsRoot(), m_root);
}

void TestFolders::removedRootBringsTheMessageAndThenTheFolderDialog()
{
    const QString removed = TestHome::instance()->path("removed 100 %1");
    QSettings().setValue("Directories/RootDir", removed);
    QDir().mkpath(Folders::instance()->defaultProjectsRoot());
    BoxWatcher watcher;
    watcher.expect("Could not find", QMessageBox::Ok);
    watcher.expectFileDialog(m_root);
    QSignalSpy spy(Folders::instance(), &Folders::projectsFolderChanged);
    QCOMPARE(Folders::instance()->projectsRoot(), m_root);

    const BoxWatcher::Box box = watcher.boxes().first();
    QCOMPARE(box.text, "Could not find the projects root directory: " + removed);
    QCOMPARE(box.informativeText, QString("Please select a new projects root directory."));
    QCOMPARE(box.icon, QMessageBox::Critical);
    QCOMPARE(watcher.fileDialogs().size(), 1);
    QCOMPARE(watcher.fileDialogs().first().at(0), QString("Select Projects Root Directory"));
    QCOMPARE(watcher.fileDialogs().first().at(1), Folders::instance()->defaultProjectsRoot());
    QCOMPARE(storedRoot(), m_root);
    QCOMPARE(spy, QList<QList<QVariant>>{{m_root}});
}

void TestFolders::cancelledFolderDialogMakesAndStoresTheDefault()
{
    QSettings().setValue("Directories/RootDir", TestHome::instance()->path("removed"));
    BoxWatcher watcher;
    watcher.expect("Could not find", QMessageBox::Ok);
    watcher.expectFileDialog(QString());
    watcher.expect("No projects directory was set. Defaulting to the public documents directory",
                   QMessageBox::Ok);
    const QString root = Folders::instance()->defaultProjectsRoot();
    QCOMPARE(Folders::instance()->projectsRoot(), root);
    QCOMPARE(watcher.boxes().size(), 2);
    QCOMPARE(watcher.boxes().last().icon, QMessageBox::Information);
    QVERIFY(QFileInfo(root).isDir());
    QCOMPARE(storedRoot(), root);
}

void TestFolders::rootThatIsAFileCountsAsMissing()
{
    const QString file = TestHome::instance()->path("file");
    writeFile(file, "x");
    QSettings().setValue("Directories/RootDir", file);
    BoxWatcher watcher;
    watcher.expect(file, QMessageBox::Ok);
    watcher.expectFileDialog(m_root);
    QCOMPARE(Folders::instance()->projectsRoot(), m_root);
}

void TestFolders::rootInForceIsNotAskedForAgain()
{
    Folders::instance()->projectsRoot();
    QDir(m_root).removeRecursively();
    QSignalSpy spy(Folders::instance(), &Folders::projectsFolderChanged);
    QCOMPARE(Folders::instance()->projectsRoot(), m_root);
    QCOMPARE(spy.size(), 0);
}

void TestFolders::settingTheSameRootAnnouncesItAgain()
{
    QVERIFY(Folders::instance()->setProjectsRoot(m_root));
    QSignalSpy spy(Folders::instance(), &Folders::projectsFolderChanged);
    QVERIFY(Folders::instance()->setProjectsRoot(m_root));
    QCOMPARE(spy.size(), 1);
}

void TestFolders::missingRootIsMadeAfterYes()
{
    const QString fresh = TestHome::instance()->path("projects/fresh/deeper");
    BoxWatcher watcher;
    watcher.expect("The path \"" + fresh + "\" does not exist. Would you like to create it?",
                   QMessageBox::Yes);
    QVERIFY(Folders::instance()->setProjectsRoot(fresh));
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Question);
    QCOMPARE(watcher.boxes().first().buttons, QMessageBox::Yes | QMessageBox::No);
    QVERIFY(QFileInfo(fresh).isDir());
    QCOMPARE(storedRoot(), fresh);
    QCOMPARE(Folders::instance()->projectsRoot(), fresh);
}

void TestFolders::missingRootIsRefusedAfterNo()
{
    const QString fresh = TestHome::instance()->path("projects/fresh");
    QVERIFY(Folders::instance()->setProjectsRoot(m_root));
    QSignalSpy spy(Folders::instance(), &Folders::projectsFolderChanged);
    BoxWatcher watcher;
    watcher.expect("does not exist", QMessageBox::No);
    QVERIFY(!Folders::instance()->setProjectsRoot(fresh));
    QVERIFY(!QFileInfo::exists(fresh));
    QCOMPARE(storedRoot(), m_root);
    QCOMPARE(Folders::instance()->projectsRoot(), m_root);
    QCOMPARE(spy.size(), 0);
}

void TestFolders::rootThatCannotBeMadeLeavesTheOldOneInForce()
{
    writeFile(TestHome::instance()->path("projects/file"), "x");
    const QString impossible = TestHome::instance()->path("projects/file/below");
    QVERIFY(Folders::instance()->setProjectsRoot(m_root));
    QSignalSpy spy(Folders::instance(), &Folders::projectsFolderChanged);
    BoxWatcher watcher;
    watcher.expect("does not exist", QMessageBox::Yes);
    watcher.expect("Error creating \"" + impossible + '"', QMessageBox::Ok);
    QVERIFY(!Folders::instance()->setProjectsRoot(impossible));
    QCOMPARE(watcher.boxes().last().icon, QMessageBox::Critical);
    QCOMPARE(storedRoot(), m_root);
    QCOMPARE(Folders::instance()->projectsRoot(), m_root);
    QCOMPARE(spy.size(), 0);
}

void TestFolders::recreatedServiceReadsTheSettingAgain()
{
    QCOMPARE(Folders::instance()->projectsRoot(), m_root);
    const QPointer<Folders> before = Folders::instance();
    QCOMPARE(Folders::instance(), before.data());
    const QString other = TestHome::instance()->path("projects/other");
    QDir().mkpath(other);
    QSettings().setValue("Directories/RootDir", other);
    Folders *after = Folders::instance(true);
    QVERIFY(before.isNull());
    QSignalSpy spy(after, &Folders::projectsFolderChanged);
    QCOMPARE(after->projectsRoot(), other);
    QCOMPARE(spy, QList<QList<QVariant>>{{other}});
}

KELMAR_TEST_MAIN(TestFolders)
#include "tst_folders.moc"
