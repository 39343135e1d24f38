#include "app/core/TesterChecksum.h"
#include "tests/support/TestMain.h"

#include <QtTest>

class TestTesterChecksum : public QObject
{
    Q_OBJECT

private slots:
    void sumOfNothingIsOne();
    void sumCountsTheLowBitsOfTheCodes();
    void sumWrapsAtSixteenBits();
    void lineOfATesterPasses_data();
    void lineOfATesterPasses();
    void lineRewrittenForADecimalCommaPassesWithTheNewMarks();
    void lineWithoutSeparatorFails();
    void lineWithoutANumberAtItsEndFails_data();
    void lineWithoutANumberAtItsEndFails();
    void anyChangedDigitFails();
};

namespace {
const QChar comma = QLatin1Char(',');
const QChar semicolon = QLatin1Char(';');
const QChar point = QLatin1Char('.');
} // namespace

void TestTesterChecksum::sumOfNothingIsOne()
{
    QCOMPARE(testerChecksum(QStringView(), comma, point), quint16(1));
}

void TestTesterChecksum::sumCountsTheLowBitsOfTheCodes()
{
    // Ohm sign, code 0x2126.
    QCOMPARE(testerChecksum(QString(QChar(0x2126)), comma, point), quint16(1 + 0x26));
    QCOMPARE(testerChecksum(QStringLiteral("AB"), comma, point), quint16(1 + 65 + 66));
}

void TestTesterChecksum::sumWrapsAtSixteenBits()
{
    QCOMPARE(testerChecksum(QString(1000, QLatin1Char('z')), comma, point),
             quint16((1 + 1000 * 122) % 65536));
}

void TestTesterChecksum::lineOfATesterPasses_data()
{
    QTest::addColumn<QString>("line");

    QTest::newRow("four digits") << "2,1,8/5/2016,18:50:13,0.36,304.6,9.24,>200,1000,3.7,974,,,,,,,0,0C42";
    QTest::newRow("small letters") << "2,1,8/5/2016,18:50:13,0.36,304.6,9.24,>200,1000,3.7,974,,,,,,,0,0c42";
    QTest::newRow("three digits") << "2,1,8/5/2016,18:50:13,0.36,304.6,9.24,>200,1000,3.7,974,,,,,,,0,C42";
    QTest::newRow("blanks around the sum")
        << "2,1,8/5/2016,18:50:13,0.36,304.6,9.24,>200,1000,3.7,974,,,,,,,0, 0C42 ";
    QTest::newRow("one separator") << ",2D";
}

void TestTesterChecksum::lineOfATesterPasses()
{
    QFETCH(QString, line);
    QVERIFY(testerChecksumMatches(line, comma, point));
}

void TestTesterChecksum::lineRewrittenForADecimalCommaPassesWithTheNewMarks()
{
    const QString line =
        QStringLiteral("2;1;8/5/2016;18:50:13;0,36;304,6;9,24;>200;1000;3,7;974;;;;;;;0;0C42");
    QVERIFY(testerChecksumMatches(line, semicolon, comma));
    QVERIFY(!testerChecksumMatches(line, comma, point));
}

void TestTesterChecksum::lineWithoutSeparatorFails()
{
    QVERIFY(!testerChecksumMatches(QStringLiteral("0001"), comma, point));
    QVERIFY(!testerChecksumMatches(QString(), comma, point));
}

void TestTesterChecksum::lineWithoutANumberAtItsEndFails_data()
{
    QTest::addColumn<QString>("line");

    QTest::newRow("nothing") << ",";
    QTest::newRow("no digit") << ",2G";
    QTest::newRow("beyond 16 bits") << ",1002D";
    QTest::newRow("negative") << ",-2D";
}

void TestTesterChecksum::lineWithoutANumberAtItsEndFails()
{
    QFETCH(QString, line);
    QVERIFY(!testerChecksumMatches(line, comma, point));
}

void TestTesterChecksum::anyChangedDigitFails()
{
    const QString line = QStringLiteral("8,4,2/2/2015,12:36:20,,,,9.7,500,,,,,,,,,0,0814");
    QVERIFY(testerChecksumMatches(line, comma, point));
    for (int i = 0; i < line.size(); ++i) {
        if (!line.at(i).isDigit())
            continue;
        QString changed = line;
        changed[i] = changed.at(i) == QLatin1Char('7') ? QLatin1Char('3') : QLatin1Char('7');
        QVERIFY2(!testerChecksumMatches(changed, comma, point), qPrintable(changed));
    }
}

KELMAR_TEST_MAIN(TestTesterChecksum)
#include "tst_testerchecksum.moc"
