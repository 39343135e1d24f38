#include "import/CsvResultsModel.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <QAbstractItemModelTester>
#include <QBuffer>
#include <QColor>
#include <QSignalSpy>
#include <QtTest>

class TestCsvResultsModel : public QObject
{
    Q_OBJECT

private slots:
    void modelObeysTheRulesOfItemModels();
    void fileOfASingleLineLoadsWithoutColumnsAndRows();
    void lineWithoutCurveFieldIsKeptAndColouredByItsSecondLastField();
    void rowWhoseStatusIsNoNumberHasTheNormalColour_data();
    void rowWhoseStatusIsNoNumberHasTheNormalColour();
    void statusOfACurveIsFoundFromTheEndOfTheRow();
    void carriageReturnsBeforeTheLineEndDoNotCount();
    void commaSeparatedFileHasOneFieldALineWhereTheCommaIsTheDecimalMark();
    void separatorIsThatOfTheTimeOfConstruction();
    void namesBehindTheCurveStandOneFieldOff();
    void onlyTheTestTypeCanBeChanged();
    void changedTestTypeIsReadEverywhere();
    void loadingForgetsTheFileBefore();
    void testTypeOfNothingIsZero();
    void otherRolesAndSidesAreEmpty();
};

namespace {

const QByteArray names("TestType,Index,Voc (VDC),IVCurve,StatusCode,Checksum\r\n");
const QByteArray heading("PV Tester,4711-0815,V2.10,2\r\n");
const QByteArray fewRows = heading + names +
                           "2,1,304.6,,0,0C42\r\n"
                           "16,2,774.0,1:2:3:0,4:5:6:0,7:8:9:1,4,0001\r\n"
                           "4,3,,,0,0849\r\n";

void load(CsvResultsModel &model, QByteArray bytes)
{
    QBuffer buffer(&bytes);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QVERIFY(model.load(&buffer));
}

QString text(const CsvResultsModel &model, int row, int column)
{
    return model.data(model.index(row, column)).toString();
}

QVariant colour(const CsvResultsModel &model, int row)
{
    return model.data(model.index(row, 0), Qt::ForegroundRole);
}

} // namespace

void TestCsvResultsModel::modelObeysTheRulesOfItemModels()
{
    CsvResultsModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    load(model, fewRows);
    QCOMPARE(model.rowCount(), 3);
    QCOMPARE(model.columnCount(), 5);
    QVERIFY(model.setData(model.index(2, 0), QStringLiteral("8")));
    load(model, QByteArray());
    load(model, fewRows);
    QVERIFY(!model.parent(model.index(1, 1)).isValid());
    QCOMPARE(model.rowCount(model.index(1, 0)), 0);
    QCOMPARE(model.columnCount(model.index(1, 0)), 0);
}

void TestCsvResultsModel::fileOfASingleLineLoadsWithoutColumnsAndRows()
{
    CsvResultsModel model;
    load(model, heading.trimmed());
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.columnCount(), 0);
    QCOMPARE(model.serialNumber(), QString());
}

void TestCsvResultsModel::lineWithoutCurveFieldIsKeptAndColouredByItsSecondLastField()
{
    CsvResultsModel model;
    load(model, heading + names + "2,1,304.6,3,0C42\r\n2,2,304.6,0,0C42\r\n");
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(colour(model, 0).value<QColor>(), QColor(Qt::red));
    QVERIFY(!colour(model, 1).isValid());
    QCOMPARE(text(model, 0, 4), QStringLiteral("0C42"));
}

void TestCsvResultsModel::rowWhoseStatusIsNoNumberHasTheNormalColour_data()
{
    QTest::addColumn<QByteArray>("status");

    QTest::newRow("word") << QByteArray("bad");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("negative") << QByteArray("-1");
    QTest::newRow("fraction") << QByteArray("1.5");
    QTest::newRow("hexadecimal") << QByteArray("0x4");
    QTest::newRow("beyond an integer") << QByteArray("99999999999");
}

void TestCsvResultsModel::rowWhoseStatusIsNoNumberHasTheNormalColour()
{
    QFETCH(QByteArray, status);
    CsvResultsModel model;
    load(model, heading + names + "2,1,304.6,," + status + ",0C42\r\n2,1,304.6,,1,0C42\r\n");
    QCOMPARE(model.rowCount(), 2);
    QVERIFY(!colour(model, 0).isValid());
    QVERIFY(colour(model, 1).isValid());
}

void TestCsvResultsModel::statusOfACurveIsFoundFromTheEndOfTheRow()
{
    CsvResultsModel model;
    load(model, fewRows);
    QVERIFY(!colour(model, 0).isValid());
    QCOMPARE(colour(model, 1).value<QColor>(), QColor(Qt::red));
    QVERIFY(!colour(model, 2).isValid());
}

void TestCsvResultsModel::carriageReturnsBeforeTheLineEndDoNotCount()
{
    CsvResultsModel one;
    CsvResultsModel two;
    load(one, fewRows);
    load(two, QByteArray(fewRows).replace("\r\n", "\r\r\n"));
    QCOMPARE(two.serialNumber(), one.serialNumber());
    QCOMPARE(two.rowCount(), one.rowCount());
    QCOMPARE(two.columnCount(), one.columnCount());
    for (int row = 0; row < one.rowCount(); ++row) {
        for (int column = 0; column < one.columnCount(); ++column)
            QCOMPARE(text(two, row, column), text(one, row, column));
    }
}

void TestCsvResultsModel::commaSeparatedFileHasOneFieldALineWhereTheCommaIsTheDecimalMark()
{
    const LocaleSwitch german(QStringLiteral("de_DE"));
    CsvResultsModel model;
    load(model, fewRows);
    QCOMPARE(model.columnCount(), 1);
    QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), QString::fromLatin1(names.trimmed()));
    QCOMPARE(model.serialNumber(), QString());
    QCOMPARE(model.testTypeColumn(), -1);
    QCOMPARE(text(model, 2, 0), QStringLiteral("4,3,,,0,0849"));
    // The end of the last line begins one more, with one empty field.
    QCOMPARE(model.rowCount(), 4);
    QVERIFY(!colour(model, 0).isValid());

    load(model, QByteArray(fewRows).replace(',', ';').replace('.', ','));
    QCOMPARE(model.columnCount(), 5);
    QCOMPARE(text(model, 0, 2), QStringLiteral("304,6"));
}

void TestCsvResultsModel::separatorIsThatOfTheTimeOfConstruction()
{
    CsvResultsModel model;
    const LocaleSwitch german(QStringLiteral("de_DE"));
    load(model, fewRows);
    QCOMPARE(model.columnCount(), 5);
}

void TestCsvResultsModel::namesBehindTheCurveStandOneFieldOff()
{
    CsvResultsModel model;
    load(model, fewRows);
    QCOMPARE(model.headerData(3, Qt::Horizontal).toString(), QStringLiteral("StatusCode"));
    QCOMPARE(text(model, 0, 3), QString());
    QCOMPARE(text(model, 1, 3), QStringLiteral("1:2:3:0"));
    QCOMPARE(text(model, 1, 4), QStringLiteral("4:5:6:0"));
}

void TestCsvResultsModel::onlyTheTestTypeCanBeChanged()
{
    CsvResultsModel model;
    load(model, fewRows);
    const QSignalSpy changed(&model, &CsvResultsModel::dataChanged);

    const Qt::ItemFlags readOnly = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    QCOMPARE(model.flags(model.index(0, 0)), readOnly | Qt::ItemIsEditable);
    QCOMPARE(model.flags(model.index(0, 1)), readOnly);
    QVERIFY(!model.setData(model.index(0, 1), QStringLiteral("8"), Qt::EditRole));
    QVERIFY(!model.setData(model.index(0, 0), QStringLiteral("8"), Qt::DisplayRole));
    QVERIFY(!model.setData(QModelIndex(), QStringLiteral("8"), Qt::EditRole));
    QCOMPARE(changed.count(), 0);

    QVERIFY(model.setData(model.index(0, 0), 8, Qt::EditRole));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toModelIndex(), model.index(0, 0));
    QCOMPARE(changed.at(0).at(1).toModelIndex(), model.index(0, 0));
}

void TestCsvResultsModel::changedTestTypeIsReadEverywhere()
{
    CsvResultsModel model;
    load(model, fewRows);
    QCOMPARE(model.testType(model.index(2, 1)), 4u);
    QVERIFY(model.setData(model.index(2, 0), QStringLiteral("8"), Qt::EditRole));
    QCOMPARE(text(model, 2, 0), QStringLiteral("8"));
    QCOMPARE(model.testType(model.index(2, 1)), 8u);
    QCOMPARE(model.testType(model.index(1, 1)), 16u);
}

void TestCsvResultsModel::loadingForgetsTheFileBefore()
{
    CsvResultsModel model;
    load(model, fewRows);
    QVERIFY(model.setData(model.index(0, 0), QStringLiteral("8"), Qt::EditRole));
    const QSignalSpy reset(&model, &CsvResultsModel::modelReset);
    load(model, fewRows);
    QCOMPARE(reset.count(), 1);
    QCOMPARE(text(model, 0, 0), QStringLiteral("2"));

    load(model, "PV Tester\nA,B\n1,2\n");
    QCOMPARE(model.serialNumber(), QString());
    QCOMPARE(model.testTypeColumn(), -1);
    QCOMPARE(model.columnCount(), 2);
    QCOMPARE(model.rowCount(), 1);

    load(model, "x");
    QCOMPARE(model.columnCount(), 0);
    QCOMPARE(model.rowCount(), 0);
}

void TestCsvResultsModel::testTypeOfNothingIsZero()
{
    CsvResultsModel model;
    load(model, fewRows);
    QCOMPARE(model.testType(QModelIndex()), 0u);
    load(model, heading + "TestType,A\n+x,1\n-4,2\n 16 ,3\n");
    QCOMPARE(model.testType(model.index(0, 0)), 0u);
    QCOMPARE(model.testType(model.index(1, 0)), 0u);
    QCOMPARE(model.testType(model.index(2, 0)), 16u);
    load(model, heading + "A,B\n1,2\n");
    QCOMPARE(model.testType(model.index(0, 0)), 0u);
}

void TestCsvResultsModel::otherRolesAndSidesAreEmpty()
{
    CsvResultsModel model;
    load(model, fewRows);
    QCOMPARE(model.data(model.index(0, 2), Qt::EditRole).toString(), QStringLiteral("304.6"));
    QVERIFY(!model.data(model.index(0, 2), Qt::ToolTipRole).isValid());
    QVERIFY(!model.data(QModelIndex()).isValid());
    QVERIFY(!model.headerData(0, Qt::Vertical).isValid());
    QVERIFY(!model.headerData(0, Qt::Horizontal, Qt::ToolTipRole).isValid());
    QVERIFY(!model.headerData(5, Qt::Horizontal).isValid());
    QVERIFY(!model.headerData(-1, Qt::Horizontal).isValid());
}

KELMAR_TEST_MAIN(TestCsvResultsModel)
#include "tst_csvresultsmodel.moc"
