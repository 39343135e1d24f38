#include "import/ImportStatusMessage.h"
#include "import/ResultsImporter.h"
#include "import/ResultsImporterCommand.h"
#include "report/ReportScene.h"
#include "report/items/ReportTable.h"
#include "report/items/ReportTableCell.h"
#include "res/Resources.h"
#include "tests/import/ImportSample.h"
#include "tests/support/TestMain.h"

#include <QAction>
#include <QUndoStack>
#include <QtTest>

/// An import as a step on the report's undo stack, and on the way to the file and back.
class TestImportCommand : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }

    void undoOfAnImportEmptiesExactlyTheRecordedCells();
    void redoSetsEverythingAgain();
    void importIsOneStepAndModifiesTheReport();
    void repeatedRedoChangesNothing();
    void laterValueForACellReplacesTheEarlierOne();
    void stepsDoNotMerge();
    void importedValuesComeBackFromTheFile();
};

namespace {

const QByteArray names("TestType,DD/MM/YYYY,Rpe (Ohm),Voc (VDC),Riso (MOhm),FF");

int import(SampleReport &report, SampleResults &results)
{
    return ResultsImporter(report.document(), results.model()).importRows(results.allRows());
}

} // namespace

void TestImportCommand::undoOfAnImportEmptiesExactlyTheRecordedCells()
{
    SampleReport report;
    report.setText("test_instruments", QStringLiteral("Clamp 9"));
    report.setText("DD/MM/YYYY", QStringLiteral("1/1/2016"));
    report.setText("comments", QStringLiteral("Fine weather."));
    report.setCell(2, PolarityRow, QStringLiteral("ok"));
    const QStringList before = report.everything();

    SampleResults results(names, {"2,8/5/2016,0.36,304.6,63.0,75", "8,8/5/2016,,,88.0,"});
    QCOMPARE(import(report, results), int(Imported));
    const QStringList after = report.everything();
    QVERIFY(after != before);
    // Typed after the import into a cell that it left alone.
    report.setCell(2, IscRow, QStringLiteral("9.1"));

    report.document()->undo();
    QCOMPARE(report.cell(2, IscRow), QStringLiteral("9.1"));
    report.setCell(2, IscRow, QString());
    QCOMPARE(report.everything(), before);
}

void TestImportCommand::redoSetsEverythingAgain()
{
    SampleReport report;
    SampleResults results(names, {"2,8/5/2016,0.36,304.6,63.0,75", "8,8/5/2016,,,88.0,"});
    QCOMPARE(import(report, results), int(Imported));
    const QStringList after = report.everything();
    QCOMPARE(report.cell(2, NegativeRow), QStringLiteral("88.0"));
    for (int round = 0; round < 3; ++round) {
        report.document()->undo();
        QCOMPARE(report.cell(2, NegativeRow), QString());
        QCOMPARE(report.text("test_instruments"), QString());
        report.document()->redo();
        QCOMPARE(report.everything(), after);
    }
}

void TestImportCommand::importIsOneStepAndModifiesTheReport()
{
    SampleReport report;
    QVERIFY(!report.document()->isModified());
    SampleResults results(names, {"2,8/5/2016,0.36,304.6,63.0,75"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.document()->undoStack()->count(), 1);
    QVERIFY(report.document()->isModified());
    QVERIFY(report.document()->findChild<QAction *>(QStringLiteral("actionUndo"))->isEnabled());
    QVERIFY(report.document()->findChild<QAction *>(QStringLiteral("actionSave"))->isEnabled());
}

void TestImportCommand::repeatedRedoChangesNothing()
{
    SampleReport report;
    ReportTableCell *cell = report.table()->cellAt(2, VocRow);
    auto *date =
        qobject_cast<ReportText *>(report.document()->scene()->itemById(QStringLiteral("DD/MM/YYYY")));
    ResultsImporterCommand command;
    command.setCellValue(cell, QStringLiteral("304.6"));
    command.setTextChange(date, QStringLiteral("old"), QStringLiteral("new"));
    command.redo();
    const QStringList once = report.everything();
    command.redo();
    QCOMPARE(report.everything(), once);
    QCOMPARE(date->plainText(), QStringLiteral("new"));
    command.undo();
    QCOMPARE(cell->plainText(), QString());
    QCOMPARE(date->plainText(), QStringLiteral("old"));
}

void TestImportCommand::laterValueForACellReplacesTheEarlierOne()
{
    SampleReport report;
    ReportTableCell *cell = report.table()->cellAt(2, VocRow);
    ResultsImporterCommand command;
    command.setCellValue(cell, QStringLiteral("1"));
    command.setCellValue(cell, QStringLiteral("2"));
    command.redo();
    QCOMPARE(cell->plainText(), QStringLiteral("2"));
}

void TestImportCommand::stepsDoNotMerge()
{
    SampleReport report;
    SampleResults results(names, {"2,8/5/2016,0.36,304.6,63.0,75"});
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(import(report, results), int(Imported));
    QCOMPARE(report.document()->undoStack()->count(), 2);
    report.document()->undo();
    QCOMPARE(report.cell(2, VocRow), QStringLiteral("304.6"));
    QCOMPARE(report.cell(3, VocRow), QString());
}

void TestImportCommand::importedValuesComeBackFromTheFile()
{
    SampleReport report;
    SampleResults results(names, {"2,8/5/2016,0.36,304.6,63.0,75", "8,8/5/2016,,,>200,"});
    QCOMPARE(import(report, results), int(Imported));
    report.document()->save();
    QVERIFY(!report.document()->isModified());

    GraphicalReportDocument reopened(report.document()->filePath());
    QVERIFY(reopened.isValid());
    const auto *table = qobject_cast<ReportTable *>(reopened.scene()->itemById(QStringLiteral("test_table")));
    QCOMPARE(table->cellAt(2, VocRow)->plainText(), QStringLiteral("304.6"));
    QCOMPARE(table->cellAt(2, NegativeRow)->plainText(), QStringLiteral(">200"));
    // The next import goes on behind it.
    QCOMPARE(ResultsImporter(&reopened, results.model()).importRows(results.allRows()), int(Imported));
    QCOMPARE(table->cellAt(3, VocRow)->plainText(), QStringLiteral("304.6"));
}

KELMAR_TEST_MAIN(TestImportCommand)
#include "tst_importcommand.moc"
