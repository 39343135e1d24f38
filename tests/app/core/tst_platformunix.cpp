#include "app/platform/Platform.h"
#include "tests/support/TestMain.h"

class TestPlatform : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void documentsFolderIsTheUsers();
    void programDataIsTheUsersUnlessAPackageMadeAPlace();
    void filesAndFoldersGoToTheTrashRecoverably();
    void sameNameIsKeptTwiceInTheTrash();
    void linkGoesWithoutItsTarget();
    void missingPathIsNoFailure();
    void nameTooLongForTheTrashIsRefused();
    void trashThatTakesNoRecordsRefuses();
    void withoutUndoTheFilesAreGone();
    void withoutUndoALinkedFolderKeepsItsContents();
    void sharedFileIsReadableAndWritableForAll();
    void systemAsksNothingAndHasNoShellIcons();

private:
    static QString path(const QString &name) { return TestHome::instance()->path("work/" + name); }
    static QString trash(const QString &name) { return TestHome::instance()->path("share/Trash/" + name); }
};

void TestPlatform::init()
{
    TestHome::instance()->reset();
    QDir(path("")).removeRecursively();
    QDir(trash("")).removeRecursively();
}

void TestPlatform::documentsFolderIsTheUsers()
{
    QVERIFY(Platform::publicDocumentsFolder().startsWith(TestHome::instance()->path("home")));
    QVERIFY(!Platform::publicDocumentsFolder().endsWith('/'));
}

void TestPlatform::programDataIsTheUsersUnlessAPackageMadeAPlace()
{
    QCOMPARE(Platform::programDataFolder("no such package/of ours"), TestHome::instance()->path("share"));
    // Whatever folder is there for all and can be written stands for a package's.
    QCOMPARE(Platform::programDataFolder("../../" + TestHome::instance()->path()), QString("/var/lib"));
}

void TestPlatform::filesAndFoldersGoToTheTrashRecoverably()
{
    writeFile(path("a.kelir"), "a");
    writeFile(path("Job/b.kelir"), "b");
    QCOMPARE(Platform::moveToRecycleBin({path("a.kelir"), path("Job")}, true), QStringList());
    QVERIFY(!QFileInfo::exists(path("a.kelir")));
    QVERIFY(!QFileInfo::exists(path("Job")));
    QCOMPARE(readFile(trash("files/a.kelir")), QByteArray("a"));
    QCOMPARE(readFile(trash("files/Job/b.kelir")), QByteArray("b"));
    // The record tells the desktop where to put the file back.
    QVERIFY(readFile(trash("info/a.kelir.trashinfo")).contains("Path=" + path("a.kelir").toUtf8()));
}

void TestPlatform::sameNameIsKeptTwiceInTheTrash()
{
    for (const char *contents : {"first", "second"}) {
        writeFile(path("a.kelir"), contents);
        QCOMPARE(Platform::moveToRecycleBin({path("a.kelir")}, true), QStringList());
    }
    const QDir files(trash("files"));
    QByteArrayList kept;
    for (const QString &name : files.entryList(QDir::Files))
        kept.append(readFile(files.filePath(name)));
    std::sort(kept.begin(), kept.end());
    QCOMPARE(kept, QByteArrayList({"first", "second"}));
}

void TestPlatform::linkGoesWithoutItsTarget()
{
    writeFile(path("Job/b.kelir"), "b");
    QVERIFY(QFile::link(path("Job"), path("link")));
    QCOMPARE(Platform::moveToRecycleBin({path("link")}, true), QStringList());
    QVERIFY(!QFileInfo(path("link")).isSymLink());
    QVERIFY(QFileInfo::exists(path("Job/b.kelir")));
}

void TestPlatform::missingPathIsNoFailure()
{
    QCOMPARE(Platform::moveToRecycleBin({path("missing")}, true), QStringList());
    QCOMPARE(Platform::moveToRecycleBin({}, true), QStringList());
}

void TestPlatform::nameTooLongForTheTrashIsRefused()
{
    const QString name = path(QString(250, 'n'));
    writeFile(name, "x");
    QCOMPARE(Platform::moveToRecycleBin({name}, true), QStringList{name});
    QVERIFY(QFileInfo::exists(name));
}

void TestPlatform::trashThatTakesNoRecordsRefuses()
{
    writeFile(path("a.kelir"), "a");
    writeFile(trash("info"), "a file where the folder of the records should be");
    QCOMPARE(Platform::moveToRecycleBin({path("a.kelir")}, true), QStringList{path("a.kelir")});
    QVERIFY(QFileInfo::exists(path("a.kelir")));
    QFile::remove(trash("info"));
}

void TestPlatform::withoutUndoTheFilesAreGone()
{
    writeFile(path("a.kelir"), "a");
    writeFile(path("Job/b.kelir"), "b");
    QCOMPARE(Platform::moveToRecycleBin({path("a.kelir"), path("Job")}, false), QStringList());
    QVERIFY(QDir(path("")).isEmpty());
    QVERIFY(!QFileInfo::exists(trash("files/a.kelir")));
}

void TestPlatform::withoutUndoALinkedFolderKeepsItsContents()
{
    writeFile(path("Job/b.kelir"), "b");
    QVERIFY(QFile::link(path("Job"), path("link")));
    QCOMPARE(Platform::moveToRecycleBin({path("link")}, false), QStringList());
    QVERIFY(!QFileInfo(path("link")).isSymLink());
    QVERIFY(QFileInfo::exists(path("Job/b.kelir")));
}

void TestPlatform::sharedFileIsReadableAndWritableForAll()
{
    writeFile(path("default.kelir"), "x");
    QVERIFY(QFile::setPermissions(path("default.kelir"), QFile::ReadOwner));
    Platform::shareWithAllUsers(path("default.kelir"));
    // ReadUser and WriteUser are those of whoever runs the test.
    QCOMPARE(QFile::permissions(path("default.kelir")), QFile::Permissions(0x6666));
}

void TestPlatform::systemAsksNothingAndHasNoShellIcons()
{
    writeFile(path("a.pdf"), "x");
    QVERIFY(!Platform::recycleBinAsks());
    QVERIFY(Platform::shellIcon(path("a.pdf")).isNull());
    QCOMPARE(Platform::executableSuffix(), QString());
}

KELMAR_TEST_MAIN(TestPlatform)
#include "tst_platformunix.moc"
