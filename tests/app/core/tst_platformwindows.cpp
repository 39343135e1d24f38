#include "app/platform/Platform.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"
#include "tests/support/Trash.h"
#include "tests/support/TrashQuestion.h"

class TestPlatform : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void filesAndFoldersGoToTheTrashRecoverablyWithOneQuestion();
    
private:
    static QString path(const QString &name) { return TestHome::instance()->path("work/" + name); }
};

void TestPlatform::init()
{
    TestHome::instance()->reset();
    QDir(path("")).removeRecursively();
    Trash::startEmpty();
}

void TestPlatform::filesAndFoldersGoToTheTrashRecoverablyWithOneQuestion()
{
    writeFile(path("a.kelir"), "a");
    writeFile(path("Job/b.kelir"), "b");
    BoxWatcher watcher;
    const TrashQuestion question(watcher, QString());
    QCOMPARE(Platform::moveToRecycleBin({path("a.kelir"), path("Job")}, true), QStringList());
    QCOMPARE(question.timesAsked(), 1);
    QVERIFY(!QFileInfo::exists(path("a.kelir")));
    QVERIFY(!QFileInfo::exists(path("Job")));
    qDebug() << Trash::names();
    QCOMPARE(Trash::names(), QStringList({"Job", "a.kelir"}));
}

KELMAR_TEST_MAIN(TestPlatform)
#include "tst_platformwindows.moc"
