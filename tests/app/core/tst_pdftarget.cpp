#include "app/core/PdfTarget.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

class TestPdfTarget : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void chosenFolderIsRemembered();
    void dialogStartsInTheFolderOfTheLastExport();
    void cancellingChangesNothing();
    void callersOwnWordsAreShown();

private:
    static QVariant remembered() { return QSettings().value("Directories/LastPdfExportDir"); }
};

void TestPdfTarget::init()
{
    TestHome::instance()->reset();
}

void TestPdfTarget::chosenFolderIsRemembered()
{
    const QString chosen = TestHome::instance()->path("report.pdf");
    BoxWatcher watcher;
    watcher.expectFileDialog(chosen);
    QCOMPARE(askPdfTarget(nullptr), chosen);
    QCOMPARE(remembered().toString(), TestHome::instance()->path());
    QCOMPARE(watcher.fileDialogs().first().at(0), QString("Export PDF"));
    QCOMPARE(watcher.fileDialogs().first().at(2), QString("PDF Files (*.pdf)"));
}

void TestPdfTarget::dialogStartsInTheFolderOfTheLastExport()
{
    const QString folder = TestHome::instance()->projectsRoot();
    QSettings().setValue("Directories/LastPdfExportDir", folder);
    BoxWatcher watcher;
    watcher.expectFileDialog("here.pdf");
    QCOMPARE(askPdfTarget(nullptr), folder + "/here.pdf");
}

void TestPdfTarget::cancellingChangesNothing()
{
    BoxWatcher watcher;
    watcher.expectFileDialog(QString());
    QCOMPARE(askPdfTarget(nullptr), QString());
    QVERIFY(!remembered().isValid());
}

void TestPdfTarget::callersOwnWordsAreShown()
{
    const QString chosen = TestHome::instance()->path("graph.pdf");
    BoxWatcher watcher;
    watcher.expectFileDialog(chosen);
    QCOMPARE(askPdfTarget(nullptr, "Save it", "Sheets (*.pdf)"), chosen);
    QCOMPARE(remembered().toString(), TestHome::instance()->path());
    QCOMPARE(watcher.fileDialogs().first().at(0), QString("Save it"));
    QCOMPARE(watcher.fileDialogs().first().at(2), QString("Sheets (*.pdf)"));
}

KELMAR_TEST_MAIN(TestPdfTarget)
#include "tst_pdftarget.moc"
