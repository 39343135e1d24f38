#include "app/core/XmlNumber.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <QDomDocument>
#include <QtTest>

class TestXmlNumber : public QObject
{
    Q_OBJECT

private slots:
    void numbersAreReadAndEverythingElseCountsAsAbsent_data();
    void numbersAreReadAndEverythingElseCountsAsAbsent();
    void anAbsentAttributeGivesTheFallback();
    void theSessionsLocaleDoesNotMatter();
};

void TestXmlNumber::numbersAreReadAndEverythingElseCountsAsAbsent_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("asDouble");
    QTest::addColumn<int>("asInt");
    QTest::newRow("whole") << "12" << 12.0 << 12;
    QTest::newRow("negative") << "-17" << -17.0 << -17;
    QTest::newRow("fraction") << "0.2326" << 0.2326 << -1;
    QTest::newRow("exponent") << "1e3" << 1000.0 << -1;
    QTest::newRow("bound") << "1000000" << 1e6 << 1000000;
    QTest::newRow("lower bound") << "-1000000" << -1e6 << -1000000;
    QTest::newRow("above the bound") << "1000001" << -1.0 << -1;
    QTest::newRow("below the bound") << "-1000001" << -1.0 << -1;
    QTest::newRow("beyond int") << "99999999999" << -1.0 << -1;
    QTest::newRow("beyond double") << "1e999" << -1.0 << -1;
    QTest::newRow("infinite") << "inf" << -1.0 << -1;
    QTest::newRow("minus infinite") << "-inf" << -1.0 << -1;
    QTest::newRow("no number") << "nan" << -1.0 << -1;
    QTest::newRow("empty") << "" << -1.0 << -1;
    QTest::newRow("text") << "12 pt" << -1.0 << -1;
    QTest::newRow("comma") << "1,5" << -1.0 << -1;
}

void TestXmlNumber::numbersAreReadAndEverythingElseCountsAsAbsent()
{
    QFETCH(QString, text);
    QDomDocument document;
    QDomElement element = document.createElement("text");
    element.setAttribute("x", text);
    QTEST(doubleAttribute(element, "x", -1.0), "asDouble");
    QTEST(intAttribute(element, "x", -1), "asInt");
}

void TestXmlNumber::anAbsentAttributeGivesTheFallback()
{
    const QDomElement element = QDomDocument().createElement("text");
    QCOMPARE(doubleAttribute(element, "x", 2.5), 2.5);
    QCOMPARE(intAttribute(element, "x", 7), 7);
    QCOMPARE(doubleAttribute(QDomElement(), "x", 2.5), 2.5);
}

void TestXmlNumber::theSessionsLocaleDoesNotMatter()
{
    const LocaleSwitch german("de_DE");
    QDomDocument document;
    QDomElement element = document.createElement("text");
    element.setAttribute("x", "1.5");
    QCOMPARE(doubleAttribute(element, "x", 0.0), 1.5);
}

KELMAR_TEST_MAIN(TestXmlNumber)
#include "tst_xmlnumber.moc"
