#include "app/core/Datalogger.h"
#include "app/core/Language.h"
#include "curve/data/CurveTree.h"
#include "curve/data/CurveTreeModel.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/curve/ui/CurveDesk.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/DummyDatalogger.h"
#include "tests/support/TestMain.h"
#include "tests/support/UnreadableFile.h"

#include <QAction>
#include <QProcess>
#include <QRegularExpression>

using namespace IVCurve;

namespace {

const char question[] = "Would you like to import the last file you just downloaded?";

void inBothLanguages()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

void useLanguageOfRow()
{
    QFETCH(QString, language);
    useLanguage(language, QLocale(language));
}

} // namespace

/// How curves come into an open document: from a file that the user picks, or by the datalogger.
class TestCurveDownload : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void fileDialogStartsWhereTheLastImportWas_data() { inBothLanguages(); }
    void fileDialogStartsWhereTheLastImportWas();
    void importedCurvesWaitForTheSave_data() { inBothLanguages(); }
    void importedCurvesWaitForTheSave();
    void badChecksumIsToldAndTheStringComesAllTheSame();
    void importThatFailsRemembersItsFolder();
    void cancelledImportChangesNothing();

    void missingDataloggerIsTold();
    void dataloggerThatCannotBeStartedIsTold();
    void dataloggerThatBreaksDownIsTold();
    void endWithoutANewFileAsksNothing_data() { inBothLanguages(); }
    void endWithoutANewFileAsksNothing();
    void endWithAnEarlierFileAsksNothing();
    void downloadedFileIsImportedAfterYes_data() { inBothLanguages(); }
    void downloadedFileIsImportedAfterYes();
    void downloadedFileIsLeftAfterNo();
    void ageOfTheFileIsToldInItsLargestUnit_data();
    void ageOfTheFileIsToldInItsLargestUnit();
    void secondDownloadTakesThePlaceOfTheFirst();
    void documentIsNotBlockedWhileTheDataloggerRuns();
    void closedDocumentEndsItsDatalogger();

private:
    /// The stand-in that saves a file by itself.
    static void beStandIn(const QString &file);
    static QList<QProcess *> dataloggers(const CurveDesk &desk)
    {
        return desk.document.findChildren<QProcess *>();
    }
    static QString path(const QString &name) { return TestHome::instance()->path(name); }
};

void TestCurveDownload::init()
{
    TestHome::instance()->reset();
    useLanguage("en", QLocale("en"));
    QSettings("Varnhold", "Varnhold Solar Datalogger").clear();
    CurveSample::writeCatalogue({});
}

void TestCurveDownload::cleanup()
{
    DummyDatalogger::remove();
    qunsetenv("KELMAR_STANDIN_AUTO");
    qunsetenv("KELMAR_STANDIN_FILE");
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

void TestCurveDownload::beStandIn(const QString &file)
{
    QFile::remove(file);
    QDir().mkpath(QFileInfo(file).path());
    qputenv("KELMAR_STANDIN_AUTO", "1");
    qputenv("KELMAR_STANDIN_FILE", file.toLocal8Bit());
    QVERIFY(QFile::copy(KELMAR_DATALOGGER, Datalogger::programPath()));
}

void TestCurveDownload::fileDialogStartsWhereTheLastImportWas()
{
    useLanguageOfRow();
    CurveDesk desk(CurveDesk::makeFile(1));
    BoxWatcher watcher;
    watcher.expectFileDialog(QString());
    desk.action("actionImportCSV")->trigger();
    QCOMPARE(watcher.fileDialogs()[0][1], TestHome::instance()->projectsRoot());
    QCOMPARE(watcher.fileDialogs()[0][2], QString("CSV Files (*.csv)"));
    QFETCH(QString, language);
    QCOMPARE(watcher.fileDialogs()[0][0] == "Import CSV File", language == "en");
    QSettings().setValue("Directories/LastImportDir", TestHome::instance()->path());
    watcher.expectFileDialog(QString());
    desk.action("actionImportCSV")->trigger();
    QCOMPARE(watcher.fileDialogs()[1][1], TestHome::instance()->path());
}

void TestCurveDownload::importedCurvesWaitForTheSave()
{
    useLanguageOfRow();
    QFETCH(QString, language);
    const QString name = language == "de" ? "Roof south (German).csv" : "Roof south.csv";
    CurveDesk desk(CurveDesk::makeFile(1));
    BoxWatcher watcher;
    watcher.expectFileDialog(QString(KELMAR_SAMPLES) + '/' + name);
    desk.action("actionImportCSV")->trigger();
    QCOMPARE(desk.namesBelow(), (QStringList{name, "Roof", "Wall"}));
    QCOMPARE(desk.namesBelow(desk.at({name})).size(), 15);
    QVERIFY(desk.document.isModified());
    QVERIFY(desk.isEnabled("actionSave"));
    QCOMPARE(QSettings().value("Directories/LastImportDir").toString(), QString(KELMAR_SAMPLES));
    const QString file = desk.document.filePath();
    QCOMPARE(CurveSample::value(file, "SELECT count(*) FROM Curves").toInt(), 16);
    QCOMPARE(CurveSample::value(file, "SELECT count(*) FROM TreeNodes").toInt(), 3);
    desk.document.save();
    QCOMPARE(CurveSample::value(file, "SELECT count(*) FROM TreeNodes").toInt(), 19);
    // A string with a curve can be drawn at once.
    desk.select({desk.at({name})});
    QVERIFY(desk.lines("VisibleLineCount") >= 3);
}

void TestCurveDownload::badChecksumIsToldAndTheStringComesAllTheSame()
{
    QByteArray bytes = readFile(QString(KELMAR_SAMPLES) + "/Passing clouds.csv");
    bytes.replace("616.5", "616.6");
    writeFile(path("tester/touched.csv"), bytes);
    CurveDesk desk(CurveDesk::makeFile(1));
    BoxWatcher watcher;
    watcher.expectFileDialog(path("tester/touched.csv"));
    watcher.expectUnticking("Checksum failed on line number", QMessageBox::Ok);
    desk.action("actionImportCSV")->trigger();
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes()[0].checkBoxText, QString("Continue showing errors during this import"));
    QCOMPARE(desk.namesBelow(desk.at({"touched.csv"})).size(), 4);
    QVERIFY(desk.at({"touched.csv", "String 1"})
                .data(Qt::ToolTipRole)
                .toString()
                .startsWith("Invalid checksum."));
}

void TestCurveDownload::importThatFailsRemembersItsFolder()
{
    QDir().mkpath(path("tester"));
    const QString name = path("tester/unreadable.csv");
    QFile::remove(name);
    const UnreadableFile file(name);
    CurveDesk desk(CurveDesk::makeFile(1));
    BoxWatcher watcher;
    watcher.expectFileDialog(name);
    watcher.expect("Error opening " + name + " for reading.", QMessageBox::Ok);
    desk.action("actionImportCSV")->trigger();
    QVERIFY(!desk.document.isModified());
    QCOMPARE(QSettings().value("Directories/LastImportDir").toString(), path("tester"));
}

void TestCurveDownload::cancelledImportChangesNothing()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    BoxWatcher watcher;
    watcher.expectFileDialog(QString());
    desk.action("actionImportCSV")->trigger();
    QVERIFY(!QSettings().contains("Directories/LastImportDir"));
    QVERIFY(!desk.document.isModified());
}

void TestCurveDownload::missingDataloggerIsTold()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    BoxWatcher watcher;
    watcher.expect("Could not find:\n" + QCoreApplication::applicationDirPath() + '/' +
                       DummyDatalogger::name() + ".\nPlease try re-installing Kelmar again",
                   QMessageBox::Ok);
    desk.action("actionDownload")->trigger();
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes()[0].icon, QMessageBox::Warning);
    QCOMPARE(watcher.boxes()[0].parent, static_cast<QWidget *>(&desk.document));
}

void TestCurveDownload::dataloggerThatCannotBeStartedIsTold()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    writeFile(Datalogger::programPath(), "no program");
    BoxWatcher watcher;
    watcher.expect(DummyDatalogger::name() +
                       " failed to start. A file may be missing or corrupted. Please install Kelmar again.",
                   QMessageBox::Ok);
    desk.action("actionDownload")->trigger();
    QTRY_COMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes()[0].icon, QMessageBox::Critical);
    QCOMPARE(watcher.boxes()[0].parent, static_cast<QWidget *>(&desk.document));
}

void TestCurveDownload::dataloggerThatBreaksDownIsTold()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    DummyDatalogger::place("KELMAR_DUMMY_WAITS");
    BoxWatcher watcher;
    watcher.expect(DummyDatalogger::name() + " failed to start.", QMessageBox::Ok);
    desk.action("actionDownload")->trigger();
    QVERIFY(dataloggers(desk)[0]->waitForStarted(patience));
    dataloggers(desk)[0]->kill();
    QTRY_COMPARE(watcher.boxes().size(), 1);
    QTRY_VERIFY(dataloggers(desk).isEmpty());
}

void TestCurveDownload::endWithoutANewFileAsksNothing()
{
    useLanguageOfRow();
    CurveDesk desk(CurveDesk::makeFile(1));
    DummyDatalogger::place("KELMAR_DUMMY_CODE");
    const BoxWatcher watcher;
    desk.action("actionDownload")->trigger();
    QCOMPARE(dataloggers(desk).size(), 1);
    QTRY_VERIFY(dataloggers(desk).isEmpty());
    QVERIFY(!desk.document.isModified());
    // Whoever asks then asks about no run: the time of the start is no more.
    QSettings("Varnhold", "Varnhold Solar Datalogger")
        .setValue("Device/LastSavedFilePath", QString(KELMAR_SAMPLES) + "/Roof south.csv");
    desk.action("actionDownload")->trigger();
    QTRY_VERIFY(dataloggers(desk).isEmpty());
}

void TestCurveDownload::endWithAnEarlierFileAsksNothing()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    writeFile(path("tester/earlier.csv"), readFile(QString(KELMAR_SAMPLES) + "/Roof south.csv"));
    QSettings("Varnhold", "Varnhold Solar Datalogger")
        .setValue("Device/LastSavedFilePath", path("tester/earlier.csv"));
    QTest::qWait(20);
    DummyDatalogger::place();
    const BoxWatcher watcher;
    desk.action("actionDownload")->trigger();
    QTRY_VERIFY(dataloggers(desk).isEmpty());
    QCOMPARE(desk.namesBelow(), (QStringList{"Roof", "Wall"}));
}

void TestCurveDownload::downloadedFileIsImportedAfterYes()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    useLanguageOfRow();
    const QString file = path("tester/fetched.csv");
    beStandIn(file);
    BoxWatcher watcher;
    // The stand-in writes as an English tester does: with a comma as decimal mark every line fails.
    QFETCH(QString, language);
    if (language == "de") {
        watcher.expect(QString(), QMessageBox::Yes);
        watcher.expectUnticking("Prüfsumme", QMessageBox::Ok);
    } else {
        watcher.expect(question, QMessageBox::Yes);
    }
    desk.action("actionDownload")->trigger();
    QTRY_VERIFY(desk.at({"fetched.csv"}).isValid());
    QTRY_VERIFY(dataloggers(desk).isEmpty());
    const BoxWatcher::Box box = watcher.boxes().first();
    QCOMPARE(box.icon, QMessageBox::Question);
    QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(box.parent, static_cast<QWidget *>(&desk.document));
    QVERIFY(box.informativeText.contains(file));
    const QString told = language == "de" ? "^Datei: %1 wurde vor [0-9]+ Sekunden gespeichert\\.$"
                                          : "^File: %1 was saved [0-9]+ seconds ago\\.$";
    QVERIFY(
        QRegularExpression(told.arg(QRegularExpression::escape(file))).match(box.informativeText).hasMatch());
    QVERIFY(desk.namesBelow(desk.at({"fetched.csv"})).size() > 1);
    QVERIFY(desk.document.isModified());
    QVERIFY(!QSettings().contains("Directories/LastImportDir"));
}

void TestCurveDownload::downloadedFileIsLeftAfterNo()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    const QString file = path("tester/left.csv");
    beStandIn(file);
    BoxWatcher watcher;
    watcher.expect(question, QMessageBox::No);
    desk.action("actionDownload")->trigger();
    QTRY_COMPARE(watcher.boxes().size(), 1);
    QTRY_VERIFY(dataloggers(desk).isEmpty());
    QVERIFY(QFile::exists(file));
    QVERIFY(!desk.document.isModified());
}

void TestCurveDownload::ageOfTheFileIsToldInItsLargestUnit_data()
{
    QTest::addColumn<int>("seconds");
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("german");
    QTest::newRow("119 s") << 119 << "119 seconds ago"
                           << "vor 119 Sekunden";
    QTest::newRow("120 s") << 120 << "2 minutes ago"
                           << "vor 2 Minuten";
    QTest::newRow("7199 s") << 7199 << "119 minutes ago"
                            << "vor 119 Minuten";
    QTest::newRow("7200 s") << 7200 << "2 hours ago"
                            << "vor 2 Stunden";
}

void TestCurveDownload::ageOfTheFileIsToldInItsLargestUnit()
{
    QFETCH(int, seconds);
    const QDateTime now = QDateTime::currentDateTime();
    QTEST(Datalogger::ageText(now.addSecs(-seconds), now), "english");
    useLanguage("de", QLocale("de"));
    QTEST(Datalogger::ageText(now.addSecs(-seconds), now), "german");
}

void TestCurveDownload::secondDownloadTakesThePlaceOfTheFirst()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    DummyDatalogger::place("KELMAR_DUMMY_WAITS");
    const BoxWatcher watcher;
    desk.action("actionDownload")->trigger();
    QCOMPARE(dataloggers(desk).size(), 1);
    QVERIFY(dataloggers(desk)[0]->waitForStarted(patience));
    const qint64 first = dataloggers(desk)[0]->processId();
    desk.action("actionDownload")->trigger();
    QCOMPARE(dataloggers(desk).size(), 1);
    QVERIFY(dataloggers(desk)[0]->waitForStarted(patience));
    QVERIFY(dataloggers(desk)[0]->processId() != first);
    QVERIFY(!QFile::exists(QString("/proc/%1").arg(first)));
    dataloggers(desk)[0]->write("done\n");
    QTRY_VERIFY(dataloggers(desk).isEmpty());
}

void TestCurveDownload::documentIsNotBlockedWhileTheDataloggerRuns()
{
    CurveDesk desk(CurveDesk::makeFile(2));
    desk.show();
    DummyDatalogger::place("KELMAR_DUMMY_WAITS");
    const BoxWatcher watcher;
    desk.action("actionDownload")->trigger();
    QVERIFY(dataloggers(desk)[0]->waitForStarted(patience));
    desk.selectStrings({1});
    QTest::keyClick(desk.tree, Qt::Key_Delete);
    QVERIFY(!desk.string(1).isValid());
    desk.document.save();
    QVERIFY(!desk.document.isModified());
    QCOMPARE(dataloggers(desk).size(), 1);
    dataloggers(desk)[0]->write("done\n");
    QTRY_VERIFY(dataloggers(desk).isEmpty());
}

void TestCurveDownload::closedDocumentEndsItsDatalogger()
{
    const QString mark = path("terminated");
    QFile::remove(mark);
    const BoxWatcher watcher;
    {
        CurveDesk desk(CurveDesk::makeFile(1));
        // Told to end it says so; it is not killed before it can.
        qputenv("KELMAR_DUMMY_MARK", mark.toLocal8Bit());
        DummyDatalogger::place("KELMAR_DUMMY_WAITS");
        desk.action("actionDownload")->trigger();
        QVERIFY(dataloggers(desk)[0]->waitForReadyRead(patience));
    }
    QCOMPARE(readFile(mark), QByteArray("told\n"));
}

KELMAR_TEST_MAIN(TestCurveDownload)
#include "tst_curvedownload.moc"
