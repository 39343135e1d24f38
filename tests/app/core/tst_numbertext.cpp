#include "app/core/NumberText.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

class TestNumberText : public QObject
{
    Q_OBJECT

private slots:
    void marksFollowTheLocale_data();
    void marksFollowTheLocale();
    void numbersAreStoredInTheCLocaleWithSixDigits_data();
    void numbersAreStoredInTheCLocaleWithSixDigits();
    void storedNumbersAreShownInTheLocale_data();
    void storedNumbersAreShownInTheLocale();
};

void TestNumberText::marksFollowTheLocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QChar>("decimal");
    QTest::addColumn<QChar>("separator");
    QTest::newRow("English") << "en" << QChar('.') << QChar(',');
    QTest::newRow("German") << "de" << QChar(',') << QChar(';');
    QTest::newRow("Swiss German") << "de_CH" << QChar('.') << QChar(',');
    QTest::newRow("French") << "fr" << QChar(',') << QChar(';');
    QTest::newRow("none") << "C" << QChar('.') << QChar(',');
}

void TestNumberText::marksFollowTheLocale()
{
    QFETCH(QString, locale);
    const LocaleSwitch spoken(locale);
    QTEST(NumberText::decimalMark(), "decimal");
    QTEST(NumberText::listSeparator(), "separator");
}

void TestNumberText::numbersAreStoredInTheCLocaleWithSixDigits_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("stored");
    QTest::newRow("German comma") << "de"
                                  << "803,5"
                                  << "803.5";
    QTest::newRow("English point") << "en"
                                   << "803.5"
                                   << "803.5";
    QTest::newRow("German group mark") << "de"
                                       << "1.234,5"
                                       << "1234.5";
    QTest::newRow("seven digits") << "en"
                                  << "1234567"
                                  << "1.23457e+06";
    QTest::newRow("seven digits behind the point") << "en"
                                                   << "0.1234567"
                                                   << "0.123457";
    QTest::newRow("empty") << "en"
                           << ""
                           << "";
    QTest::newRow("limit of a scale") << "en"
                                      << ">200"
                                      << ">200";
    QTest::newRow("another country's number") << "en"
                                              << "803,5"
                                              << "803,5";
}

void TestNumberText::numbersAreStoredInTheCLocaleWithSixDigits()
{
    QFETCH(QString, locale);
    QFETCH(QString, text);
    const LocaleSwitch spoken(locale);
    QTEST(NumberText::toStored(text), "stored");
}

void TestNumberText::storedNumbersAreShownInTheLocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::newRow("German") << "de"
                            << "803.5"
                            << "803,5";
    QTest::newRow("English") << "en"
                             << "803.5"
                             << "803.5";
    QTest::newRow("grouped") << "en"
                             << "1234.5"
                             << "1,234.5";
    QTest::newRow("empty") << "de"
                           << ""
                           << "";
    QTest::newRow("no number") << "de"
                               << ">200"
                               << ">200";
}

void TestNumberText::storedNumbersAreShownInTheLocale()
{
    QFETCH(QString, locale);
    QFETCH(QString, stored);
    const LocaleSwitch spoken(locale);
    QTEST(NumberText::toShown(stored), "shown");
}

KELMAR_TEST_MAIN(TestNumberText)
#include "tst_numbertext.moc"
