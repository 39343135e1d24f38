#include "import/ImportStatusMessage.h"
#include "tests/import/ImportSample.h"
#include "tests/support/TestMain.h"

#include <QtTest>

class TestImportStatusMessage : public QObject
{
    Q_OBJECT

private slots:
    void invalidRowsAreNamedByTheirTexts();
    void olderVersionOfTheTestReportIsExplained_data();
    void olderVersionOfTheTestReportIsExplained();
    void otherReportsAreToldApart_data();
    void otherReportsAreToldApart();
    void fullTableIsTold();
};

void TestImportStatusMessage::invalidRowsAreNamedByTheirTexts()
{
    SampleResults results("Index,Voc (VDC)", {"7,304.6", "8,304.7"});
    const QModelIndexList indexes = {results.model()->index(0, 0), results.model()->index(1, 1),
                                     QModelIndex()};
    const Message message = importStatusMessage(InvalidRow, QStringLiteral("a.kelatr"), indexes);
    QCOMPARE(message.icon, QMessageBox::Critical);
    QCOMPARE(message.text, QStringLiteral("Programming error: Invalid row: 7, 304.7, "));
    QCOMPARE(message.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
}

void TestImportStatusMessage::olderVersionOfTheTestReportIsExplained_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("small letters") << "/projects/A/Array Test Report.kelatr";
    QTest::newRow("capitals") << "/projects/A/REPORT.KELATR";
}

void TestImportStatusMessage::olderVersionOfTheTestReportIsExplained()
{
    QFETCH(QString, path);
    const Message message = importStatusMessage(NowhereToInsert, path, {});
    QCOMPARE(message.icon, QMessageBox::Warning);
    const QString gap = QString(8, QLatin1Char('\t')) + QString(3, QLatin1Char(' '));
    const QStringList parts = message.text.split(gap);
    QCOMPARE(parts.size(), 4);
    QCOMPARE(parts.at(0),
             QStringLiteral("You are attempting to insert data into an older version of the Array Test "
                            "Report document. "));
    QCOMPARE(
        parts.at(1),
        QStringLiteral("Please create a new Array Test Report if you would like to import data into it. "));
    QCOMPARE(parts.at(2),
             QStringLiteral("You may need to restore the Array Test Document in the favourites settings "
                            "if the favourite "));
    QCOMPARE(parts.at(3), QStringLiteral("was created using an earlier version of Kelmar."));
}

void TestImportStatusMessage::otherReportsAreToldApart_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("inspection report") << "/projects/A/Inspection Report.kelir";
    QTest::newRow("no suffix") << "/projects/A/kelatr";
    QTest::newRow("longer suffix") << "/projects/A/a.kelatr.bak";
}

void TestImportStatusMessage::otherReportsAreToldApart()
{
    QFETCH(QString, path);
    const Message message = importStatusMessage(NowhereToInsert, path, {});
    QCOMPARE(message.icon, QMessageBox::Warning);
    QCOMPARE(message.text,
             QStringLiteral("Unable to find where to insert data. Please ensure an Array Test Report has "
                            "focus before inserting the data."));
}

void TestImportStatusMessage::fullTableIsTold()
{
    const Message message = importStatusMessage(NoRoom, QStringLiteral("a.kelatr"), {});
    QCOMPARE(message.icon, QMessageBox::Warning);
    QCOMPARE(message.text,
             QStringLiteral("No more room left in the report table. Please use another Array Test Report."));
}

KELMAR_TEST_MAIN(TestImportStatusMessage)
#include "tst_importstatusmessage.moc"
