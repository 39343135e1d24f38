#include "app/batch/RowSelection.h"
#include "tests/support/TestMain.h"

class TestRowSelection : public QObject
{
    Q_OBJECT

private slots:
    void listNamesItsRowsInItsOrder_data();
    void listNamesItsRowsInItsOrder();
    void textThatIsNoListNamesNothing_data();
    void textThatIsNoListNamesNothing();
    void moreRowsThanAnyFileHasAreRefused_data();
    void moreRowsThanAnyFileHasAreRefused();
    void largestListIsTaken();
};

void TestRowSelection::listNamesItsRowsInItsOrder_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVector<int>>("rows");
    QTest::newRow("one") << "7" << QVector<int>{7};
    QTest::newRow("range") << "1-4" << QVector<int>{1, 2, 3, 4};
    QTest::newRow("range of one") << "3-3" << QVector<int>{3};
    QTest::newRow("mixed") << "2,5-7" << QVector<int>{2, 5, 6, 7};
    QTest::newRow("against the order of the file") << "5-6,1" << QVector<int>{5, 6, 1};
    QTest::newRow("twice") << "1,1" << QVector<int>{1, 1};
    QTest::newRow("with blanks") << " 1 , 3-4 " << QVector<int>{1, 3, 4};
    QTest::newRow("with zeros in front") << "007" << QVector<int>{7};
}

void TestRowSelection::listNamesItsRowsInItsOrder()
{
    QFETCH(QString, text);
    QFETCH(QVector<int>, rows);
    const auto parsed = parseRowSelection(text);
    QVERIFY(parsed);
    QCOMPARE(*parsed, rows);
}

void TestRowSelection::textThatIsNoListNamesNothing_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"",   " ",   "0",     "0-3", "4-1", "-1",  "1-", "-",   ",",     "1,",
                             ",1", "1;2", "1-2-3", "a",   "1a",  "1.5", "+1", "1 2", "1 - 2", "\u0661"})
        QTest::newRow(text) << QString::fromUtf8(text);
}

void TestRowSelection::textThatIsNoListNamesNothing()
{
    QFETCH(QString, text);
    QVERIFY(!parseRowSelection(text));
}

void TestRowSelection::moreRowsThanAnyFileHasAreRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("row") << "1000001";
    QTest::newRow("range") << "1-1000001";
    QTest::newRow("ranges together") << "1-999999,1-2";
    QTest::newRow("many digits") << "99999999999999999999";
}

void TestRowSelection::moreRowsThanAnyFileHasAreRefused()
{
    QFETCH(QString, text);
    QVERIFY(!parseRowSelection(text));
}

void TestRowSelection::largestListIsTaken()
{
    const auto parsed = parseRowSelection("1-1000000");
    QVERIFY(parsed);
    QCOMPARE(parsed->size(), 1000000);
    QCOMPARE(parsed->last(), 1000000);
}

KELMAR_TEST_MAIN(TestRowSelection)
#include "tst_rowselection.moc"
