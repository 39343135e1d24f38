#include "app/core/Datalogger.h"
#include "app/platform/Platform.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/DummyDatalogger.h"
#include "tests/support/TestMain.h"

class TestDatalogger : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void ageIsToldInTheLargestWholeUnit_data();
    void ageIsToldInTheLargestWholeUnit();
    void daysAreCountedByDate();
    void missingProgramIsToldAndNotStarted();
    void programIsStartedWithoutArguments();
    void failedStartNamesTheProgram();
    void emptyStoreNamesNoFile();
    void fileOfThisRunIsOffered();
    void fileOfAnEarlierRunIsNotOffered();
    void removedFileIsNotOffered();
    void questionTellsPathAndAge();
    void refusedQuestionIsFalse();

private:
    static void store(const QString &path)
    {
        QSettings("Varnhold", "Varnhold Solar Datalogger").setValue("Device/LastSavedFilePath", path);
    }
    static QString saved(int secondsAgo)
    {
        const QString path = TestHome::instance()->path("results %1.csv");
        writeFile(path, "x");
        QFile file(path);
        if (!file.open(QIODevice::ReadWrite) ||
            !file.setFileTime(QDateTime::currentDateTime().addSecs(-secondsAgo), QFile::FileModificationTime))
            QTest::qFail("the file takes no time", __FILE__, __LINE__);
        return path;
    }
    QWidget m_parent;
};

void TestDatalogger::init()
{
    TestHome::instance()->reset();
    QSettings("Varnhold", "Varnhold Solar Datalogger").clear();
}

void TestDatalogger::cleanup()
{
    DummyDatalogger::remove();
}

void TestDatalogger::ageIsToldInTheLargestWholeUnit_data()
{
    QTest::addColumn<qint64>("milliseconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("now") << qint64(0) << "0 seconds ago";
    QTest::newRow("part of a second") << qint64(999) << "0 seconds ago";
    QTest::newRow("119 s") << qint64(119999) << "119 seconds ago";
    QTest::newRow("120 s") << qint64(120000) << "2 minutes ago";
    QTest::newRow("7199 s") << qint64(7199000) << "119 minutes ago";
    QTest::newRow("7200 s") << qint64(7200000) << "2 hours ago";
    QTest::newRow("86399 s") << qint64(86399000) << "23 hours ago";
    QTest::newRow("86400 s") << qint64(86400000) << "1 days ago";
    QTest::newRow("ten days") << qint64(864000000) << "10 days ago";
}

void TestDatalogger::ageIsToldInTheLargestWholeUnit()
{
    QFETCH(qint64, milliseconds);
    const QDateTime now(QDate(2024, 6, 15), QTime(12, 0));
    QTEST(Datalogger::ageText(now.addMSecs(-milliseconds), now), "text");
}

void TestDatalogger::daysAreCountedByDate()
{
    // 25 hours that touch three dates count two days.
    const QDateTime saved(QDate(2024, 6, 13), QTime(23, 30));
    QCOMPARE(Datalogger::ageText(saved, saved.addSecs(25 * 3600)), QString("2 days ago"));
}

void TestDatalogger::missingProgramIsToldAndNotStarted()
{
    QProcess process;
    BoxWatcher watcher;
    watcher.expect("Could not find", QMessageBox::Ok);
    QVERIFY(!Datalogger::start(&process, &m_parent));
    const BoxWatcher::Box box = watcher.boxes().first();
    QCOMPARE(box.text,
             "Could not find:\n" + Datalogger::programPath() + ".\nPlease try re-installing Kelmar again");
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.parent, &m_parent);
    QCOMPARE(process.state(), QProcess::NotRunning);
}

void TestDatalogger::programIsStartedWithoutArguments()
{
    const QString path = Datalogger::programPath();
    QCOMPARE(path,
             QCoreApplication::applicationDirPath() + "/VarnholdDatalogger" + Platform::executableSuffix());
    const QString record = TestHome::instance()->path("arguments");
    DummyDatalogger::place("KELMAR_DUMMY_RECORD", record);
    QProcess process;
    BoxWatcher watcher;
    QVERIFY(Datalogger::start(&process, &m_parent));
    QVERIFY(process.waitForFinished(patience));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(readFile(record), QByteArray("0 arguments\n"));
}

void TestDatalogger::failedStartNamesTheProgram()
{
    BoxWatcher watcher;
    watcher.expect("failed to start", QMessageBox::Ok);
    Datalogger::showStartFailure(&m_parent);
    const BoxWatcher::Box box = watcher.boxes().first();
    QCOMPARE(box.text,
             "VarnholdDatalogger" + Platform::executableSuffix() +
                 " failed to start. A file may be missing or corrupted. Please install Kelmar again.");
    QCOMPARE(box.icon, QMessageBox::Critical);
    QCOMPARE(box.parent, &m_parent);
}

void TestDatalogger::emptyStoreNamesNoFile()
{
    QCOMPARE(Datalogger::fileSavedSince(QDateTime::currentDateTime().addDays(-1)), QString());
}

void TestDatalogger::fileOfThisRunIsOffered()
{
    const QString path = saved(10);
    store(path);
    QCOMPARE(Datalogger::fileSavedSince(QDateTime::currentDateTime().addSecs(-60)), path);
}

void TestDatalogger::fileOfAnEarlierRunIsNotOffered()
{
    const QString path = saved(60);
    store(path);
    QCOMPARE(Datalogger::fileSavedSince(QDateTime::currentDateTime().addSecs(-10)), QString());
    QCOMPARE(Datalogger::fileSavedSince(QFileInfo(path).lastModified()), QString());
}

void TestDatalogger::removedFileIsNotOffered()
{
    const QString path = saved(10);
    store(path);
    QVERIFY(QFile::remove(path));
    QCOMPARE(Datalogger::fileSavedSince(QDateTime::currentDateTime().addSecs(-60)), QString());
}

void TestDatalogger::questionTellsPathAndAge()
{
    const QString path = saved(3 * 3600 + 5);
    BoxWatcher watcher;
    watcher.expect("Would you like", QMessageBox::Yes);
    QVERIFY(Datalogger::askToImport(path, &m_parent));
    const BoxWatcher::Box box = watcher.boxes().first();
    QCOMPARE(box.text, QString("Would you like to import the last file you just downloaded?"));
    QCOMPARE(box.informativeText, "File: " + path + " was saved 3 hours ago.");
    QCOMPARE(box.icon, QMessageBox::Question);
    QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(box.parent, &m_parent);
}

void TestDatalogger::refusedQuestionIsFalse()
{
    const QString path = saved(10);
    BoxWatcher watcher;
    watcher.expect("Would you like", QMessageBox::No);
    QVERIFY(!Datalogger::askToImport(path, nullptr));
    QCOMPARE(watcher.boxes().first().parent, nullptr);
}

KELMAR_TEST_MAIN(TestDatalogger)
#include "tst_datalogger.moc"
