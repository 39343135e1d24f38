#include "app/core/Datalogger.h"
#include "app/document/AbstractDocument.h"
#include "curve/ui/CurveDocument.h"
#include "import/CsvResultsModel.h"
#include "import/DialogImportResults.h"
#include "report/GraphicalReportDocument.h"
#include "report/ReportScene.h"
#include "report/items/ReportTable.h"
#include "report/items/ReportTableCell.h"
#include "tests/app/shell/Desk.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/DummyDatalogger.h"
#include "tests/support/TestMain.h"

#include <QAction>
#include <QProcess>
#include <QStandardItemModel>
#include <QUndoStack>

namespace {

const char question[] = "Would you like to import the last file you just downloaded?";

} // namespace

/// How the tester's results come into the program: by a file that the user picks, or by the datalogger; and
/// how chosen rows reach the active document.
class TestResultsEntry : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void fileDialogStartsInTheProjectsRootAtFirst();
    void fileDialogStartsWithTheFileOfTheLastImport();
    void pickedFileIsRememberedAndShownBesideTheWindow();
    void cancelledFileDialogChangesNothing();
    void fileThatCannotBeReadIsNeitherRememberedNorShown();
    void secondImportTakesTheSameDialog();

    void rowsGoIntoTheActiveReport();
    void rowsSentWithoutADocumentGoNowhere();
    void rowsSentToADocumentOfAnotherKindGoNowhere();
    void rowsSentWhileACurveDocumentIsActiveGoNowhere();
    void inspectionReportHasNowhereToInsert();
    void olderTestReportTellsOfItsAge();
    void fullTableTellsThatThereIsNoRoom();
    void rowThatIsNotThereIsAProgrammingError();

    void missingDataloggerIsTold();
    void dataloggerThatCannotBeStartedIsTold();
    void dataloggerThatBreaksDownIsTold();
    void eachDownloadIsAProcessOfItsOwn();
    void fileOfThisDownloadIsImportedAfterYes();
    void fileOfThisDownloadIsLeftAfterNo();
    void fileOfAnEarlierDownloadIsNotOffered();
    void emptyStoreOffersNothing();
    void downloadOfACurveDocumentIsItsOwn();

private:
    static QString addCsv(const QString &name);
    void openReport(const QString &relative, const QByteArray &bytes) const;
    void sendRow(int row) const;
    DialogImportResults *dialog() const { return m_desk->window->findChild<DialogImportResults *>(); }
    GraphicalReportDocument *report() const
    {
        return qobject_cast<GraphicalReportDocument *>(m_desk->window->activeDocument());
    }
    /// What the measured rows of the first string's column hold.
    QString firstString() const;
    static QString lastImport() { return QSettings().value("Directories/LastImportDir").toString(); }
    void download() const { m_desk->action("actionDownload")->trigger(); }
    bool dataloggersEnded() const;

    std::unique_ptr<Desk> m_desk;
};

void TestResultsEntry::init()
{
    Desk::clear();
    QSettings("Varnhold", "Varnhold Solar Datalogger").clear();
    m_desk = std::make_unique<Desk>();
}

void TestResultsEntry::cleanup()
{
    m_desk.reset();
    DummyDatalogger::remove();
    qunsetenv("KELMAR_STANDIN_AUTO");
    qunsetenv("KELMAR_STANDIN_FILE");
}

QString TestResultsEntry::addCsv(const QString &name)
{
    const QString path = TestHome::instance()->path("tester/" + name);
    writeFile(path, readFile(KELMAR_SAMPLES "/Roof south.csv"));
    return path;
}

void TestResultsEntry::openReport(const QString &relative, const QByteArray &bytes) const
{
    writeFile(Desk::path(relative), bytes);
    m_desk->window->openDocument(Desk::path(relative));
    QVERIFY(report());
}

void TestResultsEntry::sendRow(int row) const
{
    emit dialog()->importRow({dialog()->model()->index(row, 0)});
}

QString TestResultsEntry::firstString() const
{
    const auto *table = qobject_cast<ReportTable *>(report()->scene()->itemById("test_table"));
    QString texts;
    for (int row = 12; row < 20; ++row)
        texts += table->cellAt(2, row)->plainText();
    return texts;
}

bool TestResultsEntry::dataloggersEnded() const
{
    const QList<QProcess *> processes = m_desk->window->findChildren<QProcess *>();
    return !processes.isEmpty() && std::all_of(processes.begin(), processes.end(), [](const QProcess *each) {
        return each->state() == QProcess::NotRunning;
    });
}

void TestResultsEntry::fileDialogStartsInTheProjectsRootAtFirst()
{
    BoxWatcher watcher;
    watcher.expectFileDialog(QString());
    m_desk->action("actionImport")->trigger();
    QCOMPARE(watcher.fileDialogs().first(),
             (QStringList{"Import CSV File", TestHome::instance()->projectsRoot(), "CSV Files (*.csv)"}));
}

void TestResultsEntry::fileDialogStartsWithTheFileOfTheLastImport()
{
    const QString path = addCsv("last.csv");
    QSettings().setValue("Directories/LastImportDir", path);
    BoxWatcher watcher;
    watcher.expectFileDialog(QString());
    m_desk->action("actionImport")->trigger();
    QCOMPARE(watcher.fileDialogs().first().at(1), path);
}

void TestResultsEntry::pickedFileIsRememberedAndShownBesideTheWindow()
{
    const QString path = addCsv("picked.csv");
    BoxWatcher watcher;
    watcher.expectFileDialog(path);
    m_desk->action("actionImport")->trigger();
    QCOMPARE(lastImport(), path);
    QVERIFY(dialog()->isVisible());
    QVERIFY(!dialog()->isModal());
    QCOMPARE(dialog()->windowTitle(), QString("Import Results - picked.csv"));
    QVERIFY(dialog()->model()->rowCount() > 0);
}

void TestResultsEntry::cancelledFileDialogChangesNothing()
{
    BoxWatcher watcher;
    watcher.expectFileDialog(QString());
    m_desk->action("actionImport")->trigger();
    QVERIFY(!QSettings().contains("Directories/LastImportDir"));
    QVERIFY(!dialog()->isVisible());
}

void TestResultsEntry::fileThatCannotBeReadIsNeitherRememberedNorShown()
{
    BoxWatcher watcher;
    watcher.expect(QString(), QMessageBox::Ok);
    m_desk->window->importFile(TestHome::instance()->path("tester/absent.csv"));
    QCOMPARE(watcher.boxes().size(), 1);
    QVERIFY(!QSettings().contains("Directories/LastImportDir"));
    QVERIFY(!dialog()->isVisible());
}

void TestResultsEntry::secondImportTakesTheSameDialog()
{
    m_desk->window->importFile(addCsv("first.csv"));
    const DialogImportResults *first = dialog();
    m_desk->window->importFile(addCsv("second.csv"));
    QCOMPARE(m_desk->window->findChildren<DialogImportResults *>().size(), 1);
    QCOMPARE(dialog(), first);
    QCOMPARE(dialog()->windowTitle(), QString("Import Results - second.csv"));
}

void TestResultsEntry::rowsGoIntoTheActiveReport()
{
    openReport("one.kelatr", readFile(":/res/reports_en/default.kelatr"));
    openReport("two.kelatr", readFile(":/res/reports_en/default.kelatr"));
    m_desk->window->importFile(addCsv("results.csv"));
    const BoxWatcher watcher;
    sendRow(0);
    QVERIFY(!firstString().isEmpty());
    QVERIFY(report()->isModified());
    QCOMPARE(report()->undoStack()->count(), 1);
    // The user changes the report while the dialog stays open.
    m_desk->window->setActiveDocument(m_desk->window->documents().first());
    QVERIFY(dialog()->isVisible());
    QVERIFY(firstString().isEmpty());
    sendRow(0);
    QVERIFY(!firstString().isEmpty());
    for (AbstractDocument *document : m_desk->window->documents())
        document->setModified(false);
}

void TestResultsEntry::rowsSentWithoutADocumentGoNowhere()
{
    const BoxWatcher watcher;
    m_desk->window->importFile(addCsv("results.csv"));
    sendRow(0);
    QVERIFY(m_desk->window->documents().isEmpty());
}

void TestResultsEntry::rowsSentWhileACurveDocumentIsActiveGoNowhere()
{
    openReport("behind.kelatr", readFile(":/res/reports_en/default.kelatr"));
    const GraphicalReportDocument *behind = report();
    writeFile(Desk::path("curves.kelcrv"), readFile(":/res/reports_en/default.kelcrv"));
    const AbstractDocument *curves = m_desk->window->openDocument(Desk::path("curves.kelcrv"));
    QVERIFY(qobject_cast<const IVCurve::CurveDocument *>(curves));
    QCOMPARE(m_desk->window->activeDocument(), curves);
    m_desk->window->importFile(addCsv("results.csv"));
    const BoxWatcher watcher;
    sendRow(0);
    QCOMPARE(behind->undoStack()->count(), 0);
    QVERIFY(!curves->isModified());
}

void TestResultsEntry::downloadOfACurveDocumentIsItsOwn()
{
    writeFile(Desk::path("curves.kelcrv"), readFile(":/res/reports_en/default.kelcrv"));
    AbstractDocument *curves = m_desk->window->openDocument(Desk::path("curves.kelcrv"));
    const QString path = TestHome::instance()->path("tester/curves.csv");
    QFile::remove(path);
    qputenv("KELMAR_STANDIN_AUTO", "1");
    qputenv("KELMAR_STANDIN_FILE", path.toLocal8Bit());
    QVERIFY(QFile::copy(KELMAR_DATALOGGER, Datalogger::programPath()));
    BoxWatcher watcher;
    watcher.expect(question, QMessageBox::Yes);
    curves->findChild<QAction *>("actionDownload")->trigger();
    QTRY_VERIFY(curves->isModified());
    // Its rows have come into the tree; the dialog for rows of a report stays away.
    QVERIFY(!dialog()->isVisible());
    QCOMPARE(watcher.boxes().size(), 1);
    QTRY_VERIFY(curves->findChildren<QProcess *>().isEmpty());
    curves->setModified(false);
}

void TestResultsEntry::rowsSentToADocumentOfAnotherKindGoNowhere()
{
    openReport("behind.kelatr", readFile(":/res/reports_en/default.kelatr"));
    const GraphicalReportDocument *behind = report();
    auto *other = new AbstractDocument(Desk::path("notes.other"));
    static_cast<MdiWindow &>(*m_desk->window).openDocument(other);
    QCOMPARE(m_desk->window->activeDocument(), other);
    m_desk->window->importFile(addCsv("results.csv"));
    const BoxWatcher watcher;
    sendRow(0);
    QCOMPARE(behind->undoStack()->count(), 0);
}

void TestResultsEntry::inspectionReportHasNowhereToInsert()
{
    openReport("inspection.kelir", readFile(":/res/reports_en/default.kelir"));
    m_desk->window->importFile(addCsv("results.csv"));
    BoxWatcher watcher;
    watcher.expect("Unable to find", QMessageBox::Ok);
    sendRow(0);
    QCOMPARE(watcher.texts(), QStringList{"Unable to find where to insert data. Please ensure an Array Test "
                                          "Report has focus before inserting the data."});
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Warning);
    QCOMPARE(watcher.boxes().first().parent, static_cast<QWidget *>(m_desk->window.get()));
    QCOMPARE(report()->undoStack()->count(), 0);
}

void TestResultsEntry::olderTestReportTellsOfItsAge()
{
    const QByteArray bytes = readFile(":/res/reports_en/default.kelir");
    // What counts is the name of the file: a form without places for results in a test report's file.
    openReport("older.KELATR", bytes);
    m_desk->window->importFile(addCsv("results.csv"));
    BoxWatcher watcher;
    watcher.expect("older version of the Array Test Report document.", QMessageBox::Ok);
    sendRow(0);
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Warning);
    QVERIFY(watcher.texts().first().endsWith("was created using an earlier version of Kelmar."));
}

void TestResultsEntry::fullTableTellsThatThereIsNoRoom()
{
    openReport("full.kelatr", readFile(":/res/reports_en/default.kelatr"));
    m_desk->window->importFile(addCsv("results.csv"));
    BoxWatcher watcher;
    watcher.expect("No more room left in the report table. Please use another Array Test Report.",
                   QMessageBox::Ok);
    int sent = 0;
    for (; sent < 100 && watcher.boxes().isEmpty(); ++sent)
        sendRow(0);
    QVERIFY(sent > 1);
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Warning);
    // All but the last have gone in.
    QCOMPARE(report()->undoStack()->count(), sent - 1);
    report()->setModified(false);
}

void TestResultsEntry::rowThatIsNotThereIsAProgrammingError()
{
    openReport("one.kelatr", readFile(":/res/reports_en/default.kelatr"));
    m_desk->window->importFile(addCsv("results.csv"));
    QStandardItemModel foreign(100, 1);
    foreign.setData(foreign.index(0, 0), "first");
    foreign.setData(foreign.index(99, 0), "last");
    BoxWatcher watcher;
    watcher.expect("Programming error: Invalid row: first, last", QMessageBox::Ok);
    emit dialog()->importRow({foreign.index(0, 0), foreign.index(99, 0)});
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Critical);
    QCOMPARE(report()->undoStack()->count(), 0);
}

void TestResultsEntry::missingDataloggerIsTold()
{
    BoxWatcher watcher;
    watcher.expect("Could not find:\n" + QCoreApplication::applicationDirPath() + '/' +
                       DummyDatalogger::name() + ".\nPlease try re-installing Kelmar again",
                   QMessageBox::Ok);
    download();
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Warning);
    QCOMPARE(watcher.boxes().first().parent, static_cast<QWidget *>(m_desk->window.get()));
}

void TestResultsEntry::dataloggerThatCannotBeStartedIsTold()
{
    writeFile(Datalogger::programPath(), "no program");
    BoxWatcher watcher;
    watcher.expect(DummyDatalogger::name() +
                       " failed to start. A file may be missing or corrupted. Please install Kelmar again.",
                   QMessageBox::Ok);
    download();
    QTRY_COMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Critical);
}

void TestResultsEntry::dataloggerThatBreaksDownIsTold()
{
    DummyDatalogger::place("KELMAR_DUMMY_WAITS");
    BoxWatcher watcher;
    watcher.expect(DummyDatalogger::name() + " failed to start.", QMessageBox::Ok);
    download();
    auto *process = m_desk->window->findChild<QProcess *>();
    QVERIFY(process->waitForStarted(patience));
    process->kill();
    QTRY_COMPARE(watcher.boxes().size(), 1);
    QTRY_VERIFY(dataloggersEnded());
}

void TestResultsEntry::eachDownloadIsAProcessOfItsOwn()
{
    DummyDatalogger::place("KELMAR_DUMMY_WAITS");
    download();
    download();
    const QList<QProcess *> processes = m_desk->window->findChildren<QProcess *>();
    QCOMPARE(processes.size(), 2);
    for (QProcess *process : processes) {
        QVERIFY(process->waitForStarted(patience));
        QVERIFY(process->arguments().isEmpty());
        QCOMPARE(process->state(), QProcess::Running);
        QVERIFY(process->isReadable() && process->isWritable());
        process->write("done\n");
    }
    const BoxWatcher watcher;
    QTRY_VERIFY(dataloggersEnded());
}

void TestResultsEntry::fileOfThisDownloadIsImportedAfterYes()
{
    const QString path = TestHome::instance()->path("tester/fetched.csv");
    QFile::remove(path);
    qputenv("KELMAR_STANDIN_AUTO", "1");
    qputenv("KELMAR_STANDIN_FILE", path.toLocal8Bit());
    QVERIFY(QFile::copy(KELMAR_DATALOGGER, Datalogger::programPath()));
    BoxWatcher watcher;
    watcher.expect(question, QMessageBox::Yes);
    download();
    QTRY_VERIFY(dialog()->isVisible());
    QCOMPARE(watcher.boxes().size(), 1);
    const BoxWatcher::Box box = watcher.boxes().first();
    QCOMPARE(box.icon, QMessageBox::Question);
    QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::No);
    const QRegularExpression told("^File: " + QRegularExpression::escape(path) +
                                  " was saved [0-9]+ seconds ago\\.$");
    QVERIFY2(told.match(box.informativeText).hasMatch(), qPrintable(box.informativeText));
    QCOMPARE(lastImport(), path);
    QCOMPARE(dialog()->windowTitle(), QString("Import Results - fetched.csv"));
    QVERIFY(dialog()->model()->rowCount() > 0);
}

void TestResultsEntry::fileOfThisDownloadIsLeftAfterNo()
{
    const QString path = TestHome::instance()->path("tester/left.csv");
    qputenv("KELMAR_STANDIN_AUTO", "1");
    qputenv("KELMAR_STANDIN_FILE", path.toLocal8Bit());
    QVERIFY(QFile::copy(KELMAR_DATALOGGER, Datalogger::programPath()));
    BoxWatcher watcher;
    watcher.expect(question, QMessageBox::No);
    download();
    QTRY_COMPARE(watcher.boxes().size(), 1);
    QTRY_VERIFY(!QApplication::activeModalWidget());
    QVERIFY(QFileInfo::exists(path));
    QVERIFY(!dialog()->isVisible());
    QVERIFY(!QSettings().contains("Directories/LastImportDir"));
}

void TestResultsEntry::fileOfAnEarlierDownloadIsNotOffered()
{
    QSettings("Varnhold", "Varnhold Solar Datalogger")
        .setValue("Device/LastSavedFilePath", addCsv("earlier.csv"));
    QTest::qWait(20);
    DummyDatalogger::place();
    const BoxWatcher watcher;
    download();
    QTRY_VERIFY(dataloggersEnded());
    QTest::qWait(50);
    QVERIFY(!dialog()->isVisible());
}

void TestResultsEntry::emptyStoreOffersNothing()
{
    DummyDatalogger::place("KELMAR_DUMMY_CODE");
    const BoxWatcher watcher;
    download();
    QTRY_VERIFY(dataloggersEnded());
    QTest::qWait(50);
    QVERIFY(!dialog()->isVisible());
}

KELMAR_TEST_MAIN(TestResultsEntry)
#include "tst_resultsentry.moc"
