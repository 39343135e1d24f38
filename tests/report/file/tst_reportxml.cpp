#include "report/file/ReportXml.h"
#include "tests/support/TestMain.h"

#include <QTextCodec>
#include <QtTest>

namespace {

QByteArray nested(int levels, const QByteArray &attributes = QByteArray())
{
    return ("<a" + attributes + ">") + QByteArray("<a>").repeated(levels - 1) +
           QByteArray("</a>").repeated(levels);
}

QByteArray inUtf16(const QByteArray &text)
{
    return QTextCodec::codecForName("UTF-16")->fromUnicode(QString::fromUtf8(text));
}

/// Parses, which must fail; what never ends is stopped by the time limit of the test program.
ReportXml::Error refusalOf(const QByteArray &xml)
{
    QDomDocument document;
    ReportXml::Error error;
    if (ReportXml::parse(xml, document, &error))
        QTest::qFail("parsed", __FILE__, __LINE__);
    return error;
}

} // namespace

class TestReportXml : public QObject
{
    Q_OBJECT

private slots:
    void aReportGivesTheTreeThatTheToolkitAloneGives_data();
    void aReportGivesTheTreeThatTheToolkitAloneGives();
    void namesWithAColonKeepItAsPartOfTheName();
    void whatIsNotWellFormedIsToldInTheParsersOwnWords_data();
    void whatIsNotWellFormedIsToldInTheParsersOwnWords();
    void aFailureNeedsNobodyToTellItTo();
    void twoHundredAndFiftySixLevelsAreReadAndOneMoreIsRefused();
    void thirtyThousandLevelsAreRefused_data();
    void thirtyThousandLevelsAreRefused();
    void aDocumentTypeDeclarationIsRefused_data();
    void aDocumentTypeDeclarationIsRefused();
    void aMillionElementsAreRefused_data();
    void aMillionElementsAreRefused();
    void anEndlessDocumentIsRefused();
    void aDocumentIsReadAfterOneThatWasRefused();
};

void TestReportXml::aReportGivesTheTreeThatTheToolkitAloneGives_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("smallest") << QByteArray("<document/>");
    QTest::newRow("declaration") << QByteArray(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<document resPak=\"a\"/>");
    QTest::newRow("text") << QByteArray(
        "<document>\n  <page>\n    <text id=\"a\"> Prüf \n ung </text>\n  </page>\n</document>\n");
    QTest::newRow("blank text") << QByteArray("<document><text>  </text><text>\n</text><text/></document>");
    QTest::newRow("references") << QByteArray(
        "<document a=\"&quot;&#10;&lt;\">&amp;&lt;&#65;&#x3a9;</document>");
    QTest::newRow("character data") << QByteArray(
        "<document><![CDATA[ <b> & ]]>x<!-- c --><?target data?></document>");
    QTest::newRow("mixed") << QByteArray("<document>a<text>b</text>c</document>");
    QTest::newRow("latin 1") << QByteArray(
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><d a=\"\xfc\">\xfc</d>");
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf<document>ü</document>");
    QTest::newRow("utf-16") << inUtf16("<document a=\"ü\">Ω</document>");
    // What the toolkit's parser lets pass passes here, too.
    QTest::newRow("attribute twice") << QByteArray("<document a=\"1\" a=\"2\"/>");
    QTest::newRow("unknown entity") << QByteArray("<document>&nobody;</document>");
    QTest::newRow("zero byte") << QByteArray("<document>\0</document>", 22);
    QTest::newRow("unbound prefix") << QByteArray("<p:document q:a=\"1\"/>");
}

void TestReportXml::aReportGivesTheTreeThatTheToolkitAloneGives()
{
    QFETCH(QByteArray, xml);
    QDomDocument expected;
    QVERIFY(expected.setContent(xml));
    QDomDocument document;
    ReportXml::Error error;
    QVERIFY2(ReportXml::parse(xml, document, &error), qPrintable(error.message));
    QCOMPARE(document.toString(2), expected.toString(2));
    QVERIFY(error.message.isEmpty());
    QVERIFY(!document.documentElement().isNull());
}

void TestReportXml::namesWithAColonKeepItAsPartOfTheName()
{
    QDomDocument document;
    QVERIFY(ReportXml::parse("<a:b c:d=\"1\" xmlns:a=\"u\"/>", document));
    QCOMPARE(document.documentElement().tagName(), QString("a:b"));
    QCOMPARE(document.documentElement().attribute("c:d"), QString("1"));
    QCOMPARE(document.documentElement().attribute("xmlns:a"), QString("u"));
}

void TestReportXml::whatIsNotWellFormedIsToldInTheParsersOwnWords_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("null") << QByteArray();
    QTest::newRow("no XML") << QByteArray("report");
    QTest::newRow("mismatch") << QByteArray("<document>\n  <page>\n  </pag>\n</document>");
    QTest::newRow("cut") << QByteArray("<document>\n  <page>\n");
    QTest::newRow("cut tag") << QByteArray("<document>\n  <page x=\"1");
    QTest::newRow("no quotes") << QByteArray("<document>\n<page x=1/></document>");
    QTest::newRow("two roots") << QByteArray("<document/><document/>");
    QTest::newRow("only a comment") << QByteArray("<!-- nothing -->");
}

void TestReportXml::whatIsNotWellFormedIsToldInTheParsersOwnWords()
{
    QFETCH(QByteArray, xml);
    QString message;
    int line = 0;
    int column = 0;
    QDomDocument expected;
    QVERIFY(!expected.setContent(xml, &message, &line, &column));

    QDomDocument document;
    ReportXml::Error error;
    QVERIFY(!ReportXml::parse(xml, document, &error));
    QCOMPARE(error.message, message);
    QCOMPARE(error.line, line);
    QCOMPARE(error.column, column);
    QVERIFY(document.isNull() && document.documentElement().isNull());
}

void TestReportXml::aFailureNeedsNobodyToTellItTo()
{
    QDomDocument document;
    QVERIFY(!ReportXml::parse("<document>", document));
    QVERIFY(!ReportXml::parse(nested(300), document));
}

void TestReportXml::twoHundredAndFiftySixLevelsAreReadAndOneMoreIsRefused()
{
    QDomDocument document;
    QVERIFY(ReportXml::parse(nested(256), document));
    ReportXml::Error error;
    QVERIFY(!ReportXml::parse("\n" + nested(257), document, &error));
    QCOMPARE(error.message, QString("elements are nested too deeply"));
    QCOMPARE(error.line, 2);
    QVERIFY(error.column > 256 * 3 && error.column <= 257 * 3 + 1);
    // Depth counts, not number.
    QVERIFY(ReportXml::parse("<d>" + QByteArray("<a></a>").repeated(1000) + "</d>", document));
}

void TestReportXml::thirtyThousandLevelsAreRefused_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("plain") << nested(30000);
    QTest::newRow("never closed") << QByteArray("<a>").repeated(30000);
    QTest::newRow("utf-16") << inUtf16(nested(30000));
    QTest::newRow("declared as latin 1") << "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + nested(30000);
    QTest::newRow("behind an unbound prefix") << nested(30000, " p:b=\"1\"");
    QTest::newRow("behind an attribute given twice") << nested(30000, " b=\"1\" b=\"2\"");
    QTest::newRow("behind a control character") << "<d>\x01" + nested(30000) + "</d>";
    QTest::newRow("behind invalid UTF-8") << "<d>\xff\xfe\xc0" + nested(30000) + "</d>";
}

void TestReportXml::thirtyThousandLevelsAreRefused()
{
    QFETCH(QByteArray, xml);
    QVERIFY(!refusalOf(xml).message.isEmpty());
}

void TestReportXml::aDocumentTypeDeclarationIsRefused_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("name only") << QByteArray("<!DOCTYPE document><document/>");
    QTest::newRow("external") << QByteArray("<!DOCTYPE document SYSTEM \"file:///etc/hostname\"><document/>");
    QTest::newRow("public") << QByteArray(
        "<!DOCTYPE document PUBLIC \"-//A//B\" \"http://localhost/x\"><document/>");
    QTest::newRow("entity") << QByteArray("<!DOCTYPE d [<!ENTITY a \"b\">]><d>&a;</d>");
    QTest::newRow("external entity") << QByteArray(
        "<!DOCTYPE d [<!ENTITY a SYSTEM \"file:///etc/hostname\">]><d>&a;</d>");
    QTest::newRow("parameter entity")
        << QByteArray("<!DOCTYPE d [<!ENTITY % a \"<!ENTITY b 'c'>\"> %a;]><d>&b;</d>");
    QTest::newRow("behind a comment") << QByteArray("<?xml version=\"1.0\"?><!-- c -->\n<!DOCTYPE d><d/>");
    QTest::newRow("utf-16") << inUtf16("<!DOCTYPE d [<!ENTITY a \"b\">]><d>&a;</d>");

    QByteArray billion = "<!DOCTYPE d [<!ENTITY e0 \"0123456789\">";
    for (int i = 1; i < 10; ++i) {
        billion += "<!ENTITY e" + QByteArray::number(i) + " \"" +
                   ("&e" + QByteArray::number(i - 1) + ";").repeated(10) + "\">";
    }
    QTest::newRow("a billion") << billion + "]><d>&e9;</d>";
    QTest::newRow("quadratic") << "<!DOCTYPE d [<!ENTITY a \"" + QByteArray(28000, 'x') + "\">]><d>" +
                                      QByteArray("&a;").repeated(9000) + "</d>";
    QTest::newRow("in an attribute") << billion + "]><d a=\"&e9;\"/>";
}

void TestReportXml::aDocumentTypeDeclarationIsRefused()
{
    QFETCH(QByteArray, xml);
    const ReportXml::Error error = refusalOf(xml);
    QCOMPARE(error.message, QString("document type declarations are not allowed"));
    QVERIFY(error.line > 0);
}

void TestReportXml::aMillionElementsAreRefused_data()
{
    QTest::addColumn<QByteArray>("part");
    QTest::newRow("elements") << QByteArray("<a/>");
    QTest::newRow("comments") << QByteArray("<!---->");
    QTest::newRow("instructions") << QByteArray("<?a?>");
    QTest::newRow("elements with texts") << QByteArray("<a>x</a>");
    QTest::newRow("elements with attributes") << QByteArray("<a b='' c='' d=''/>");
}

void TestReportXml::aMillionElementsAreRefused()
{
    QFETCH(QByteArray, part);
    const ReportXml::Error error = refusalOf("<d>" + part.repeated(1 << 20) + "</d>");
    QCOMPARE(error.message, QString("too many elements"));
}

void TestReportXml::anEndlessDocumentIsRefused()
{
    QByteArray xml = "<d>";
    xml.append(64 * 1024 * 1024, ' ');
    const ReportXml::Error error = refusalOf(xml + "</d>");
    QCOMPARE(error.message, QString("the document is too large"));
}

void TestReportXml::aDocumentIsReadAfterOneThatWasRefused()
{
    QDomDocument document;
    ReportXml::Error error;
    QVERIFY(!ReportXml::parse(nested(300), document, &error));
    QVERIFY(ReportXml::parse("<document id=\"2\"/>", document, &error));
    QVERIFY(error.message.isEmpty());
    QCOMPARE(error.line, 0);
    QCOMPARE(document.documentElement().attribute("id"), QString("2"));
}

KELMAR_TEST_MAIN(TestReportXml)
#include "tst_reportxml.moc"
