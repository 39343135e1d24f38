#include "import/ImportStatusMessage.h"
#include "import/ResultsImporter.h"
#include "res/Resources.h"
#include "tests/import/ImportSample.h"
#include "tests/report/ReportSample.h"
#include "tests/report/TestResource.h"
#include "tests/support/TestMain.h"

#include <QtTest>

/// What an import writes beside the table: comments, date and test instruments.
class TestImportComments : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }

    void columnsWithoutAPlaceGoToTheComments();
    void technicalColumnsStayOut();
    void dateReachesItsFieldAndTheComments();
    void commentsHoldOnlyTheLineOfTheLastRow();
    void lastRowWithNothingToSayLeavesTheLineBefore();
    void commentsAreAddedBehindWhatIsThere();
    void percentSignsInValuesArePlainText();
    void formWithoutCommentsIsFilledAllTheSame();
    void emptyDateOfTheLastRowClearsTheField();
    void columnNamedLikeTheCommentsIsReplacedByTheLine();
    void testInstrumentsHoldOneEntryForEachTester();
    void serialNumberInsideALongerOneCountsAsPresent();
    void testerWithoutSerialNumberLeavesTheInstrumentsAlone();
    void columnNamedLikeTheInstrumentsReplacesThem();
};

namespace {

int import(SampleReport &report, SampleResults &results, const QModelIndexList &rows)
{
    return ResultsImporter(report.document(), results.model()).importRows(rows);
}

int import(SampleReport &report, SampleResults &results)
{
    return import(report, results, results.allRows());
}

} // namespace

void TestImportComments::columnsWithoutAPlaceGoToTheComments()
{
    SampleReport report;
    SampleResults results("TestType,Index,Location,Voc (VDC),Tpv (C)", {"2,7,Roof A,304.6,27.6"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.text("comments"), QStringLiteral("Index=7; Location=Roof A; Tpv (C)=27.6; \n"));
}

void TestImportComments::technicalColumnsStayOut()
{
    SampleReport report;
    SampleResults results("TestType,Voc (VDC),IVCurve", {"2,304.6,1:2:3:0"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.text("comments"), QString());
}

void TestImportComments::dateReachesItsFieldAndTheComments()
{
    SampleReport report;
    SampleResults results("Index,DD/MM/YYYY,Voc (VDC),FF", {"7,8/5/2016,304.6,75.0"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.text("DD/MM/YYYY"), QStringLiteral("8/5/2016"));
    QCOMPARE(report.text("comments"), QStringLiteral("Index=7; DD/MM/YYYY=8/5/2016; FF=75.0; \n"));
}

void TestImportComments::commentsHoldOnlyTheLineOfTheLastRow()
{
    SampleReport report;
    SampleResults results("Index,Voc (VDC)", {"7,304.6", "8,304.7", "9,304.8"});
    QCOMPARE(import(report, results, results.rows({0, 2, 1})), int(Imported));
    QCOMPARE(report.text("comments"), QStringLiteral("Index=8; \n"));
}

void TestImportComments::lastRowWithNothingToSayLeavesTheLineBefore()
{
    SampleReport report;
    SampleResults results("Index,Voc (VDC)", {"7,304.6", ",304.7"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.text("comments"), QStringLiteral("Index=7; \n"));
}

void TestImportComments::commentsAreAddedBehindWhatIsThere()
{
    SampleReport report;
    report.setText("comments", QStringLiteral("Cloudy. "));
    SampleResults results("Index,Voc (VDC)", {"7,304.6", "8,304.7"});
    QCOMPARE(import(report, results, results.rows({0})), int(Imported));
    QCOMPARE(import(report, results, results.rows({1})), int(Imported));
    QCOMPARE(report.text("comments"), QStringLiteral("Cloudy. Index=7; \nIndex=8; \n"));
}

void TestImportComments::percentSignsInValuesArePlainText()
{
    SampleReport report;
    SampleResults results("100 %2,Voc (VDC)", {"%1 %2,304.6"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.text("comments"), QStringLiteral("100 %2=%1 %2; \n"));
}

void TestImportComments::formWithoutCommentsIsFilledAllTheSame()
{
    const TestResource form(
        QStringLiteral(":res/test/bare.pak"),
        ReportSample::pack(
            QByteArray("<document><page id=\"page1\"><table id=\"test_table\" width=\"90\" height=\"90\""
                       " numCols=\"2\" numRows=\"13\"><cell col=\"0\" row=\"12\" id=\"Voc (VDC)\">V"
                       "</cell></table></page></document>")));
    const QString path =
        SampleReport::fileOf(QStringLiteral(":res/test/bare.pak"), QByteArray(), "bare.kelatr");
    GraphicalReportDocument document(path);
    SampleResults results("Index,DD/MM/YYYY,Voc (VDC)", {"7,8/5/2016,304.6"});
    QCOMPARE(ResultsImporter(&document, results.model()).importRows(results.allRows()), int(Imported));
}

void TestImportComments::emptyDateOfTheLastRowClearsTheField()
{
    SampleReport report;
    report.setText("DD/MM/YYYY", QStringLiteral("1/1/2016"));
    SampleResults results("DD/MM/YYYY,Voc (VDC)", {"8/5/2016,304.6", ",304.7"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.text("DD/MM/YYYY"), QString());
    report.document()->undo();
    QCOMPARE(report.text("DD/MM/YYYY"), QStringLiteral("1/1/2016"));
}

void TestImportComments::columnNamedLikeTheCommentsIsReplacedByTheLine()
{
    SampleReport report;
    SampleResults results("comments,Index,Voc (VDC)", {"own words,7,304.6", "more words,,304.6"});
    QCOMPARE(import(report, results, results.rows({0})), int(Imported));
    QCOMPARE(report.text("comments"), QStringLiteral("Index=7; \n"));
    QCOMPARE(import(report, results, results.rows({1})), int(Imported));
    QCOMPARE(report.text("comments"), QStringLiteral("more words"));
}

void TestImportComments::testInstrumentsHoldOneEntryForEachTester()
{
    SampleReport report;
    SampleResults first("Voc (VDC)", {"304.6", "304.7"}, "4711-0815");
    SampleResults second("Voc (VDC)", {"304.6"}, "5120-0347");
    QCOMPARE(import(report, first), int(Imported));
    QCOMPARE(report.text("test_instruments"), QStringLiteral("4711-0815"));
    QCOMPARE(import(report, second), int(Imported));
    QCOMPARE(import(report, first), int(Imported));
    QCOMPARE(import(report, second), int(Imported));
    QCOMPARE(report.text("test_instruments"), QStringLiteral("4711-0815, 5120-0347"));
}

void TestImportComments::serialNumberInsideALongerOneCountsAsPresent()
{
    SampleReport report;
    report.setText("test_instruments", QStringLiteral("My tester (4711-08153)"));
    SampleResults results("Voc (VDC)", {"304.6"}, "4711-0815");
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.text("test_instruments"), QStringLiteral("My tester (4711-08153)"));
}

void TestImportComments::testerWithoutSerialNumberLeavesTheInstrumentsAlone()
{
    SampleReport report;
    SampleResults results("Voc (VDC)", {"304.6"}, QByteArray());
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.text("test_instruments"), QString());
}

void TestImportComments::columnNamedLikeTheInstrumentsReplacesThem()
{
    SampleReport report;
    report.setText("test_instruments", QStringLiteral("Before"));
    SampleResults results("test_instruments,Voc (VDC)", {"Clamp 9,304.6"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.text("test_instruments"), QStringLiteral("Clamp 9"));
    report.document()->undo();
    QCOMPARE(report.text("test_instruments"), QStringLiteral("Before"));
}

KELMAR_TEST_MAIN(TestImportComments)
#include "tst_importcomments.moc"
