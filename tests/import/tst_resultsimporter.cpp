#include "import/ImportStatusMessage.h"
#include "import/ResultsImporter.h"
#include "report/ReportScene.h"
#include "report/file/ReportFile.h"
#include "report/items/ReportTable.h"
#include "report/items/ReportTableCell.h"
#include "res/Resources.h"
#include "tests/import/ImportSample.h"
#include "tests/report/ReportSample.h"
#include "tests/report/TestResource.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <QUndoStack>
#include <QtTest>

/// Where the values of results go in a report: its table, its fields, and what is refused.
class TestResultsImporter : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }

    void resultsOfAStringFillOneColumn_data();
    void resultsOfAStringFillOneColumn();
    void importsFillTheColumnsOneAfterTheOtherUntilThereIsNoRoom();
    void revisionOneOfTheFormTakesNothing();
    void revisionTwoOfTheFormHasNoPlaceForTheNegativeSign();
    void changedIdOfTheFormLosesItsValueInSilence();
    void headingsOfTheStringsTakeNoColumn();
    void reportOfAnotherKindTakesNothing();
    void rowThatIsNotInTheFileIsRefused();
    void nowhereToInsertIsFoundBeforeAnInvalidRow();
    void noRowsAtAllMakeAnEmptyStep();
    void emptyValueLeavesTheCellEmptyAndTheColumnTaken();
    void columnWithEmptyValuesOnlyStaysFree();
    void textBesideTheMeasuredRowsDoesNotMoveTheNextImport();
    void rowOfTheNegativeSignDoesNotCountForTheFreeColumn();
    void laterRowReplacesTheValuesOfAnEarlierOne();
    void bothSignsOfInsulationGoIntoOneColumn();
    void firstInsulationTestOfASignSettlesItsValue_data();
    void firstInsulationTestOfASignSettlesItsValue();
    void fileWithoutTestTypesWritesThePositiveSign();
    void columnOfTheNegativeSignIsTakenAsItStands();
    void valuesAreWrittenAsTheyStandInTheFile();
    void columnsWithoutANameGoNowhere();
    void namesBehindACurveDoNoHarm();
    void checkBoxIsATextToo();
    void itemThatHoldsNoTextTakesNothing();
    void everyTableGetsItsColumn();
    void tableWithoutRoomKeepsTheOthersUnchanged();
};

namespace {

const QByteArray names("TestType,DD/MM/YYYY,Rpe (Ohm),Voc (VDC),Isc (ADC),Riso (MOhm),Viso (V),Irr (W/m2)");

int import(SampleReport &report, SampleResults &results, const QModelIndexList &rows)
{
    return ResultsImporter(report.document(), results.model()).importRows(rows);
}

int import(SampleReport &report, SampleResults &results)
{
    return import(report, results, results.allRows());
}

/// The measured column with these insulation values and nothing else.
QStringList insulation(const QString &positive, const QString &negative)
{
    return {"", "", "", "", "", positive, negative, ""};
}

/// A form with two tables of two and three columns.
QByteArray twoTables()
{
    return ReportSample::pack(QByteArray(
        "<document><page id=\"page1\" pageType=\"A4\" pageNumber=\"1\">"
        "<table id=\"narrow\" width=\"100\" height=\"100\" numCols=\"2\" numRows=\"3\">"
        "<cell col=\"0\" row=\"1\" id=\"Voc (VDC)\">Voc</cell></table>"
        "<table id=\"wide\" y=\"200\" width=\"100\" height=\"100\" numCols=\"3\" numRows=\"3\">"
        "<cell col=\"0\" row=\"0\" id=\"Isc (ADC)\">Isc</cell><cell col=\"1\" row=\"0\">A</cell></table>"
        "</page></document>"));
}

} // namespace

void TestResultsImporter::resultsOfAStringFillOneColumn_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("form");

    QTest::newRow("English") << "en_GB"
                             << "reports_en/kelatr_rev3.pak";
    QTest::newRow("German") << "de_DE"
                            << "reports_de/kelatr_rev3.pak";
}

void TestResultsImporter::resultsOfAStringFillOneColumn()
{
    QFETCH(QString, locale);
    QFETCH(QString, form);
    const LocaleSwitch use(locale);
    SampleReport report(form);
    SampleResults results(names, {"1,8/5/2016,0.36,,,,,", "2,8/5/2016,,304.6,9.24,,,974",
                                  "4,8/5/2016,,,,63.0,500,", "8,8/5/2016,,,,>200,500,"});
    QCOMPARE(import(report, results), int(Imported));
    QStringList expected = {"304.6", "9.24", "974", "", "500", "63.0", ">200", "0.36"};
    for (QString &text : expected)
        text = SampleResults::number(text);
    QCOMPARE(report.measuredColumn(2), expected);
    QCOMPARE(report.measuredColumn(3), insulation("", ""));
    QCOMPARE(report.text("DD/MM/YYYY"), QStringLiteral("8/5/2016"));
    QCOMPARE(report.text("test_instruments"), QStringLiteral("4711-0815"));
}

void TestResultsImporter::importsFillTheColumnsOneAfterTheOtherUntilThereIsNoRoom()
{
    SampleReport report;
    SampleResults results(names, {"2,8/5/2016,,304.6,9.24,,,974"});
    for (int col = 2; col <= 7; ++col) {
        QCOMPARE(report.cell(col, VocRow), QString());
        QCOMPARE(import(report, results), int(Imported));
        QCOMPARE(report.cell(col, VocRow), QStringLiteral("304.6"));
    }
    const QStringList before = report.everything();
    const int steps = report.document()->undoStack()->count();
    QCOMPARE(import(report, results), int(NoRoom));
    QCOMPARE(report.everything(), before);
    QCOMPARE(report.document()->undoStack()->count(), steps);
}

void TestResultsImporter::revisionOneOfTheFormTakesNothing()
{
    SampleReport report(QStringLiteral("reports_en/kelatr.pak"));
    SampleResults results(names, {"2,8/5/2016,0.36,304.6,9.24,63.0,500,974"});
    const QStringList before = report.everything();
    const int status = import(report, results);
    QCOMPARE(status, int(NowhereToInsert));
    QCOMPARE(report.everything(), before);
    QCOMPARE(report.document()->undoStack()->count(), 0);
    const Message message = importStatusMessage(status, report.document()->filePath(), results.allRows());
    QVERIFY(
        message.text.startsWith(QStringLiteral("You are attempting to insert data into an older version")));
}

void TestResultsImporter::revisionTwoOfTheFormHasNoPlaceForTheNegativeSign()
{
    SampleReport report(QStringLiteral("reports_en/kelatr_rev2.pak"));
    SampleResults results(names,
                          {"8,8/5/2016,,,,77.0,500,", "4,8/5/2016,,,,63.0,250,", "8,8/5/2016,,,,88.0,,"});
    QCOMPARE(import(report, results, results.rows({0})), int(Imported));
    QCOMPARE(report.measuredColumn(2), (QStringList{"", "", "", "", "500", "", "", ""}));
    QCOMPARE(import(report, results, results.rows({0, 1, 2})), int(Imported));
    QCOMPARE(report.measuredColumn(3), (QStringList{"", "", "", "", "250", "63.0", "", ""}));
}

void TestResultsImporter::changedIdOfTheFormLosesItsValueInSilence()
{
    ReportFileEntries entries;
    QVERIFY(readReportFileEntries(QStringLiteral(":res/reports_en/kelatr_rev3.pak"), entries));
    QVERIFY(entries.first().data.contains("\"Isc (ADC)\""));
    const TestResource form(QStringLiteral(":res/test/changed.pak"),
                            ReportSample::pack(entries.first().data.replace("\"Isc (ADC)\"", "\"Isc\"")));
    SampleReport report(QStringLiteral("test/changed.pak"));
    SampleResults results(names, {"2,8/5/2016,,304.6,9.24,,,974"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.cell(2, VocRow), QStringLiteral("304.6"));
    QCOMPARE(report.cell(2, IscRow), QString());
    QCOMPARE(report.cell(2, IrradianceRow), QStringLiteral("974"));
    QVERIFY(!report.everything().contains(QStringLiteral("9.24")));
}

void TestResultsImporter::headingsOfTheStringsTakeNoColumn()
{
    // As the pristine report has them.
    QByteArray headings = "<page id=\"page1\"><table id=\"test_table\">";
    for (int string = 1; string <= 6; ++string)
        headings += "<cell col=\"" + QByteArray::number(string + 1) + "\" row=\"0\">" +
                    QByteArray::number(string) + "</cell>";
    SampleReport report(QStringLiteral("reports_en/kelatr_rev3.pak"), headings + "</table></page>");
    QCOMPARE(report.cell(2, 0), QStringLiteral("1"));
    QCOMPARE(report.cell(7, 0), QStringLiteral("6"));
    SampleResults results(names, {"2,8/5/2016,,304.6,9.24,,,974"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.cell(2, VocRow), QStringLiteral("304.6"));
    QCOMPARE(report.cell(2, 0), QStringLiteral("1"));
}

void TestResultsImporter::reportOfAnotherKindTakesNothing()
{
    const TestResource form(
        QStringLiteral(":res/test/other.pak"),
        ReportSample::pack(QByteArray("<document><page id=\"page1\"><text id=\"comments\" width="
                                      "\"99\" height=\"9\" editable=\"1\"/></page></document>")));
    GraphicalReportDocument document(
        SampleReport::fileOf(QStringLiteral(":res/test/other.pak"), QByteArray(), QStringLiteral("a.kelir")));
    QVERIFY(document.isValid());
    SampleResults results(names, {"2,8/5/2016,0.36,304.6,9.24,63.0,500,974"});
    QCOMPARE(ResultsImporter(&document, results.model()).importRows(results.allRows()), int(NowhereToInsert));
    QCOMPARE(document.undoStack()->count(), 0);
    QVERIFY(!document.isModified());
}

void TestResultsImporter::rowThatIsNotInTheFileIsRefused()
{
    SampleReport report;
    SampleResults results(names, {"2,8/5/2016,,304.6,9.24,,,974", "2,8/5/2016,,305.6,9.24,,,974"});
    SampleResults longer(names, {"2,,,1,,,,", "2,,,2,,,,", "2,,,3,,,,"});
    const QStringList before = report.everything();
    QCOMPARE(import(report, results, {results.model()->index(0, 0), QModelIndex()}), int(InvalidRow));
    QCOMPARE(import(report, results, {longer.model()->index(2, 0)}), int(InvalidRow));
    QCOMPARE(report.everything(), before);
    QCOMPARE(report.document()->undoStack()->count(), 0);
    QCOMPARE(import(report, results, {results.model()->index(1, 0)}), int(Imported));
}

void TestResultsImporter::nowhereToInsertIsFoundBeforeAnInvalidRow()
{
    SampleReport report(QStringLiteral("reports_en/kelatr.pak"));
    SampleResults results(names, {"2,8/5/2016,,304.6,9.24,,,974"});
    QCOMPARE(import(report, results, {QModelIndex()}), int(NowhereToInsert));
}

void TestResultsImporter::noRowsAtAllMakeAnEmptyStep()
{
    SampleReport report;
    SampleResults results(names, {"2,8/5/2016,,304.6,9.24,,,974"});
    const QStringList before = report.everything();
    QCOMPARE(import(report, results, {}), int(Imported));
    QCOMPARE(report.everything(), before);
    QCOMPARE(report.document()->undoStack()->count(), 1);
}

void TestResultsImporter::emptyValueLeavesTheCellEmptyAndTheColumnTaken()
{
    SampleReport report;
    SampleResults results(names, {"2,8/5/2016,,304.6,,,,974", "2,8/5/2016,0.11,1.0,2.0,3.0,500,900"});
    QCOMPARE(import(report, results, results.rows({0})), int(Imported));
    QCOMPARE(report.measuredColumn(2), (QStringList{"304.6", "", "974", "", "", "", "", ""}));
    QCOMPARE(import(report, results, results.rows({1})), int(Imported));
    QCOMPARE(report.measuredColumn(2), (QStringList{"304.6", "", "974", "", "", "", "", ""}));
    QCOMPARE(report.measuredColumn(3), (QStringList{"1.0", "2.0", "900", "", "500", "3.0", "", "0.11"}));
}

void TestResultsImporter::columnWithEmptyValuesOnlyStaysFree()
{
    SampleReport report;
    SampleResults results(names, {"1,8/5/2016,,,,,,", "2,8/5/2016,,304.6,,,,"});
    QCOMPARE(import(report, results, results.rows({0})), int(Imported));
    QCOMPARE(import(report, results, results.rows({1})), int(Imported));
    QCOMPARE(report.cell(2, VocRow), QStringLiteral("304.6"));
}

void TestResultsImporter::textBesideTheMeasuredRowsDoesNotMoveTheNextImport()
{
    SampleReport report;
    report.setCell(4, PolarityRow, QStringLiteral("ok"));
    report.setCell(6, 0, QStringLiteral("6"));
    report.setCell(7, 22, QStringLiteral("0815"));
    SampleResults results(names, {"2,8/5/2016,,304.6,9.24,,,974"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.cell(2, VocRow), QStringLiteral("304.6"));
    QCOMPARE(report.cell(4, PolarityRow), QStringLiteral("ok"));
}

void TestResultsImporter::rowOfTheNegativeSignDoesNotCountForTheFreeColumn()
{
    SampleReport report;
    SampleResults results(names, {"8,8/5/2016,,,,88.0,,", "8,8/5/2016,,,,99.0,,", "2,8/5/2016,,,,,250,"});
    QCOMPARE(import(report, results, results.rows({0})), int(Imported));
    QCOMPARE(report.measuredColumn(2), insulation("", "88.0"));
    // No other row of the column holds anything, so it is filled once more.
    QCOMPARE(import(report, results, results.rows({1})), int(Imported));
    QCOMPARE(report.measuredColumn(2), insulation("", "99.0"));
    QCOMPARE(import(report, results, results.rows({2})), int(Imported));
    QCOMPARE(report.cell(2, VoltageRow), QStringLiteral("250"));
}

void TestResultsImporter::laterRowReplacesTheValuesOfAnEarlierOne()
{
    SampleReport report;
    SampleResults results(names, {"2,8/5/2016,0.1,304.6,9.24,,,974", "2,9/5/2016,0.2,310.1,,,,980"});
    QCOMPARE(import(report, results, results.rows({0, 1})), int(Imported));
    QCOMPARE(report.measuredColumn(2), (QStringList{"310.1", "9.24", "980", "", "", "", "", "0.2"}));
    QCOMPARE(report.text("DD/MM/YYYY"), QStringLiteral("9/5/2016"));

    QCOMPARE(import(report, results, results.rows({1, 0})), int(Imported));
    QCOMPARE(report.measuredColumn(3), (QStringList{"304.6", "9.24", "974", "", "", "", "", "0.1"}));
    QCOMPARE(report.text("DD/MM/YYYY"), QStringLiteral("8/5/2016"));
}

void TestResultsImporter::bothSignsOfInsulationGoIntoOneColumn()
{
    SampleReport report;
    SampleResults results(names, {"8,8/5/2016,,,,88.0,,", "4,8/5/2016,,,,44.0,,"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.measuredColumn(2), insulation("44.0", "88.0"));
}

void TestResultsImporter::firstInsulationTestOfASignSettlesItsValue_data()
{
    QTest::addColumn<QList<QByteArray>>("rows");
    QTest::addColumn<QString>("positive");
    QTest::addColumn<QString>("negative");

    const auto row = [](const char *type, const char *value) {
        return QByteArray(type) + ",8/5/2016,,,," + value + ",,";
    };
    QTest::newRow("two positive tests") << QList<QByteArray>{row("4", "1"), row("4", "2")} << "1"
                                        << "";
    QTest::newRow("two negative tests") << QList<QByteArray>{row("8", "1"), row("8", "2")} << ""
                                        << "1";
    QTest::newRow("another test after a positive one")
        << QList<QByteArray>{row("4", "1"), row("2", "2"), row("16", "3")} << "1"
        << "";
    QTest::newRow("a positive test after others")
        << QList<QByteArray>{row("2", "1"), row("16", "2"), row("4", "3"), row("4", "4")} << "3"
        << "";
    QTest::newRow("other tests only") << QList<QByteArray>{row("2", "1"), row("16", "2")} << "2"
                                      << "";
    QTest::newRow("a positive test without value counts not")
        << QList<QByteArray>{row("4", ""), row("4", "2"), row("4", "3")} << "2"
        << "";
    QTest::newRow("signs do not disturb each other")
        << QList<QByteArray>{row("8", "1"), row("4", "2"), row("8", "3"), row("4", "4"), row("2", "5")} << "2"
        << "1";
}

void TestResultsImporter::firstInsulationTestOfASignSettlesItsValue()
{
    QFETCH(QList<QByteArray>, rows);
    QFETCH(QString, positive);
    QFETCH(QString, negative);
    SampleReport report;
    SampleResults results(names, rows);
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.measuredColumn(2), insulation(positive, negative));
}

void TestResultsImporter::fileWithoutTestTypesWritesThePositiveSign()
{
    SampleReport report;
    SampleResults results("Voc (VDC),Riso (MOhm)", {"304.6,63.0", ",64.0"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.measuredColumn(2), (QStringList{"304.6", "", "", "", "", "64.0", "", ""}));
}

void TestResultsImporter::columnOfTheNegativeSignIsTakenAsItStands()
{
    SampleReport report;
    SampleResults results("TestType,Riso (MOhm),-Riso (MOhm)", {"2,1,2", "4,3,4", "2,5,6"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.measuredColumn(2), insulation("3", "6"));
    // Now the row of the negative sign is one that the file fills.
    QCOMPARE(import(report, results, results.rows({0})), int(Imported));
    QCOMPARE(report.measuredColumn(3), insulation("1", "2"));
}

void TestResultsImporter::valuesAreWrittenAsTheyStandInTheFile()
{
    SampleReport report;
    SampleResults results(names, {"2,the 8th,0.360,304.60 V,-,>200,5e2,&lt;b>"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.measuredColumn(2),
             (QStringList{"304.60 V", "-", "&lt;b>", "", "5e2", ">200", "", "0.360"}));
    QCOMPARE(report.text("DD/MM/YYYY"), QStringLiteral("the 8th"));
}

void TestResultsImporter::columnsWithoutANameGoNowhere()
{
    SampleReport report;
    SampleResults results("TestType,Voc (VDC),, ", {"16,304.6,1:2:3:0,4:5:6:0"});
    const QStringList before = report.everything();
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.cell(2, VocRow), QStringLiteral("304.6"));
    QCOMPARE(report.text("comments"), QString());
    report.document()->undo();
    QCOMPARE(report.everything(), before);
}

void TestResultsImporter::namesBehindACurveDoNoHarm()
{
    SampleReport report;
    SampleResults results("TestType,Voc (VDC),IVCurve", {"16,304.6,1:2:3:0,4:5:6:0,7:8:9:0", "2,305.6,"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.measuredColumn(2), (QStringList{"305.6", "", "", "", "", "", "", ""}));
    QCOMPARE(report.text("comments"), QString());
}

void TestResultsImporter::checkBoxIsATextToo()
{
    SampleReport report;
    SampleResults results("Voc (VDC),periodic", {"304.6,Every year"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.text("periodic"), QStringLiteral("Every year"));
    report.document()->undo();
    QCOMPARE(report.text("periodic"), QStringLiteral("Periodic Verification"));
}

void TestResultsImporter::itemThatHoldsNoTextTakesNothing()
{
    SampleReport report;
    const QStringList before = report.everything();
    SampleResults results("Voc (VDC),test_table,page1", {"304.6,x,y"});
    QCOMPARE(import(report, results), int(Imported));
    report.setCell(2, VocRow, QString());
    report.setText("test_instruments", QString());
    QCOMPARE(report.everything(), before);
}

void TestResultsImporter::everyTableGetsItsColumn()
{
    const TestResource form(QStringLiteral(":res/test/tables.pak"), twoTables());
    GraphicalReportDocument document(SampleReport::fileOf(QStringLiteral(":res/test/tables.pak"),
                                                          QByteArray(), QStringLiteral("t.kelatr")));
    SampleResults results("Voc (VDC),Isc (ADC)", {"304.6,9.24"});
    QCOMPARE(ResultsImporter(&document, results.model()).importRows(results.allRows()), int(Imported));
    const auto *narrow = qobject_cast<ReportTable *>(document.scene()->itemById(QStringLiteral("narrow")));
    const auto *wide = qobject_cast<ReportTable *>(document.scene()->itemById(QStringLiteral("wide")));
    QCOMPARE(narrow->cellAt(1, 1)->plainText(), QStringLiteral("304.6"));
    QCOMPARE(wide->cellAt(2, 0)->plainText(), QStringLiteral("9.24"));
    QCOMPARE(document.undoStack()->count(), 1);
}

void TestResultsImporter::tableWithoutRoomKeepsTheOthersUnchanged()
{
    const TestResource form(QStringLiteral(":res/test/tables.pak"), twoTables());
    GraphicalReportDocument document(SampleReport::fileOf(QStringLiteral(":res/test/tables.pak"),
                                                          QByteArray(), QStringLiteral("t.kelatr")));
    const auto *narrow = qobject_cast<ReportTable *>(document.scene()->itemById(QStringLiteral("narrow")));
    const auto *wide = qobject_cast<ReportTable *>(document.scene()->itemById(QStringLiteral("wide")));
    narrow->cellAt(1, 1)->setPlainText(QStringLiteral("full"));
    SampleResults results("Voc (VDC),Isc (ADC)", {"304.6,9.24"});
    QCOMPARE(ResultsImporter(&document, results.model()).importRows(results.allRows()), int(NoRoom));
    QCOMPARE(wide->cellAt(2, 0)->plainText(), QString());
    QCOMPARE(document.undoStack()->count(), 0);
}

KELMAR_TEST_MAIN(TestResultsImporter)
#include "tst_resultsimporter.moc"
