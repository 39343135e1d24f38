#include "import/ResultsCsv.h"
#include "tests/support/TestMain.h"

#include <QRegExp>
#include <QtTest>

#include <random>

class TestResultsCsv : public QObject
{
    Q_OBJECT

private slots:
    void emptyFileHasNothing();
    void headingNamesTheTester_data();
    void headingNamesTheTester();
    void namesAndFieldsLoseTheBlanksAroundThem();
    void emptyFieldsAreKept();
    void curveColumnIsCountedButNotNamed();
    void lastOfTwoTestTypeColumnsCounts();
    void lineWithFewerFieldsThanNamesIsDropped();
    void rowKeepsAllFieldsOfItsCurve();
    void blankLineIsARowWhereOneFieldIsEnough();
    void carriageReturnInsideALineDividesNothing();
    void anyRunOfCarriageReturnsBelongsToTheLineEnd();
    void bytesAreReadAsUtf8();
    void textEndsAtTheFirstZeroByte();
    void dividesAnyTextLikeTheRegularExpression();
};

namespace {

ResultsCsv parse(const QByteArray &bytes)
{
    return ResultsCsv::parse(bytes, QLatin1Char(','));
}

QStringList row(const ResultsCsv &csv, int row)
{
    QStringList fields;
    for (int column = 0; column < csv.fieldCount(row); ++column)
        fields << csv.field(row, column);
    return fields;
}

QStringList trimmed(QStringList fields)
{
    for (QString &field : fields)
        field = field.trimmed();
    return fields;
}

} // namespace

void TestResultsCsv::emptyFileHasNothing()
{
    const ResultsCsv csv = parse(QByteArray());
    QCOMPARE(csv.serialNumber(), QString());
    QVERIFY(csv.headers().isEmpty());
    QCOMPARE(csv.rowCount(), 0);
    QCOMPARE(csv.testTypeColumn(), -1);
}

void TestResultsCsv::headingNamesTheTester_data()
{
    QTest::addColumn<QByteArray>("heading");
    QTest::addColumn<QString>("serialNumber");

    QTest::newRow("whole") << QByteArray("PV Tester, 4711-0815 ,V2.10,2") << "4711-0815";
    QTest::newRow("two fields") << QByteArray("PV Tester,4711") << "4711";
    QTest::newRow("one field") << QByteArray("PV Tester") << "";
    QTest::newRow("empty") << QByteArray() << "";
    QTest::newRow("empty number") << QByteArray("PV Tester,,V2.10") << "";
    QTest::newRow("other separator") << QByteArray("PV Tester;4711") << "";
}

void TestResultsCsv::headingNamesTheTester()
{
    QFETCH(QByteArray, heading);
    QFETCH(QString, serialNumber);
    QCOMPARE(parse(heading + "\nA,B\n").serialNumber(), serialNumber);
}

void TestResultsCsv::namesAndFieldsLoseTheBlanksAroundThem()
{
    const ResultsCsv csv = parse("h\n A ,\tB\t,C D\n 1 ,2, 3  4 ");
    QCOMPARE(csv.headers(), (QVector<QString>{"A", "B", "C D"}));
    QCOMPARE(csv.rowCount(), 1);
    QCOMPARE(row(csv, 0), (QStringList{"1", "2", "3  4"}));
}

void TestResultsCsv::emptyFieldsAreKept()
{
    const ResultsCsv csv = parse("h\nA,B,C,D\n,,,\n1,,,");
    QCOMPARE(csv.rowCount(), 2);
    QCOMPARE(row(csv, 0), (QStringList{"", "", "", ""}));
    QCOMPARE(row(csv, 1), (QStringList{"1", "", "", ""}));
}

void TestResultsCsv::curveColumnIsCountedButNotNamed()
{
    const ResultsCsv csv = parse("h\nA, IVCurve ,TestType,B\n");
    QCOMPARE(csv.headers(), (QVector<QString>{"A", "TestType", "B"}));
    QCOMPARE(csv.testTypeColumn(), 2);
}

void TestResultsCsv::lastOfTwoTestTypeColumnsCounts()
{
    const ResultsCsv csv = parse("h\nTestType,A,TestType\n");
    QCOMPARE(csv.headers().size(), 3);
    QCOMPARE(csv.testTypeColumn(), 2);
}

void TestResultsCsv::lineWithFewerFieldsThanNamesIsDropped()
{
    const ResultsCsv csv = parse("h\nA,B,C\n1,2\n1,2,3\n\n1,2,3,4\n1\n");
    QCOMPARE(csv.rowCount(), 2);
    QCOMPARE(row(csv, 0), (QStringList{"1", "2", "3"}));
    QCOMPARE(row(csv, 1), (QStringList{"1", "2", "3", "4"}));
}

void TestResultsCsv::rowKeepsAllFieldsOfItsCurve()
{
    const ResultsCsv csv = parse("h\nA,IVCurve,S,C\n16,1:2,3:4,5:6,7:8,0,AB\n2,,0,CD\n");
    QCOMPARE(csv.rowCount(), 2);
    QCOMPARE(row(csv, 0), (QStringList{"16", "1:2", "3:4", "5:6", "7:8", "0", "AB"}));
    QCOMPARE(row(csv, 1), (QStringList{"2", "", "0", "CD"}));
}

void TestResultsCsv::blankLineIsARowWhereOneFieldIsEnough()
{
    // What follows the last line feed is a line with one empty field.
    const ResultsCsv csv = parse("h\nA\n1\n\n");
    QCOMPARE(csv.rowCount(), 3);
    QCOMPARE(row(csv, 0), QStringList{"1"});
    QCOMPARE(row(csv, 1), QStringList{""});
    QCOMPARE(row(csv, 2), QStringList{""});
}

void TestResultsCsv::carriageReturnInsideALineDividesNothing()
{
    const ResultsCsv csv = parse("h\nA,B\n1\r2,3\r\n");
    QCOMPARE(csv.rowCount(), 1);
    QCOMPARE(row(csv, 0), (QStringList{"1\r2", "3"}));
}

void TestResultsCsv::anyRunOfCarriageReturnsBelongsToTheLineEnd()
{
    const ResultsCsv csv = parse("h,7\r\r\r\nA,B\r\n1,2\n3,4\r\r\n");
    QCOMPARE(csv.serialNumber(), QStringLiteral("7"));
    QCOMPARE(csv.headers(), (QVector<QString>{"A", "B"}));
    QCOMPARE(csv.rowCount(), 2);
    QCOMPARE(row(csv, 1), (QStringList{"3", "4"}));
}

void TestResultsCsv::bytesAreReadAsUtf8()
{
    const ResultsCsv csv = parse("h,S\xc3\xbc"
                                 "d\nA\nK\xc3\xb6ln");
    QCOMPARE(csv.serialNumber(), QString::fromUtf8("S\xc3\xbc"
                                                   "d"));
    QCOMPARE(row(csv, 0), QStringList{QString::fromUtf8("K\xc3\xb6ln")});
}

void TestResultsCsv::textEndsAtTheFirstZeroByte()
{
    const char bytes[] = "h\nA,B\n1,2\n3,\0004\n5,6\n";
    const ResultsCsv csv = parse(QByteArray(bytes, sizeof(bytes) - 1));
    QCOMPARE(csv.rowCount(), 2);
    QCOMPARE(row(csv, 1), (QStringList{"3", ""}));
}

void TestResultsCsv::dividesAnyTextLikeTheRegularExpression()
{
    std::mt19937 random(20160508);
    const QByteArray alphabet("\r\r\n\n,,, \tab1\xc2\xa0\xe2\x82");
    for (int round = 0; round < 5000; ++round) {
        QByteArray bytes;
        const unsigned length = random() % 40;
        for (unsigned i = 0; i < length; ++i)
            bytes.append(alphabet.at(static_cast<int>(random() % static_cast<unsigned>(alphabet.size()))));

        const QStringList lines = QString(bytes).split(QRegExp(QStringLiteral("\r*\n")));
        const ResultsCsv csv = parse(bytes);
        QVector<QStringList> expected;
        if (lines.size() >= 2) {
            const int columns = trimmed(lines.at(1).split(QLatin1Char(','))).size();
            QCOMPARE(csv.headers().size(), columns);
            for (const QString &line : lines.mid(2)) {
                const QStringList fields = trimmed(line.split(QLatin1Char(',')));
                if (fields.size() >= columns)
                    expected << fields;
            }
        }
        QCOMPARE(csv.rowCount(), expected.size());
        for (int i = 0; i < expected.size(); ++i)
            QCOMPARE(row(csv, i), expected.at(i));
    }
}

KELMAR_TEST_MAIN(TestResultsCsv)
#include "tst_resultscsv.moc"
