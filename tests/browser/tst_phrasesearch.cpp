#include "browser/PhraseSearch.h"
#include "browser/XmlSearchHandler.h"
#include "report/file/ReportXml.h"
#include "res/Resources.h"
#include "tests/report/ReportSample.h"
#include "tests/support/TestMain.h"

namespace {

/// A report's XML around a page with these elements.
QByteArray xmlOf(const QByteArray &elements)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<document resPak=\"earth.pak\">\n  <page id=\"p\">" +
           elements + "</page>\n</document>\n";
}

/// Notes the runs of text that a reader hands out.
class Runs : public QXmlDefaultHandler
{
public:
    bool characters(const QString &text) override
    {
        texts.append(text);
        return true;
    }
    QStringList texts;
};

} // namespace

class TestPhraseSearch : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }
    void init() { TestHome::instance()->reset(); }

    void typeDecidesWhetherAFileIsLookedInto_data();
    void typeDecidesWhetherAFileIsLookedInto();
    void phraseIsFoundWithinOneRunOfText_data();
    void phraseIsFoundWithinOneRunOfText();
    void textOfAttributesIsNotSearched();
    void picturesOfAReportAreNotSearched();
    void templatesAreNotSearched();
    void runsOfWhiteSpaceAndCdataStandByThemselves();
    void readingEndsAtTheFirstHit();
    void hitBeforeAnErrorCounts();
    void errorBeforeTheHitEndsTheReading();
    void damagedReportsMatchNothing_data();
    void damagedReportsMatchNothing();
    void invalidExpressionMatchesNothing();
    void missingFileMatchesNothing();
    void everyCharacterIsFoundAsTheExpressionAloneFindsIt();
    void quickLookMissesNoMatch_data();
    void quickLookMissesNoMatch();

private:
    static QString write(const QString &name, const QByteArray &bytes)
    {
        const QString path = TestHome::instance()->path("reports/" + name);
        writeFile(path, bytes);
        return path;
    }
    static bool finds(const QString &phrase, const QByteArray &elements,
                      Qt::CaseSensitivity cs = Qt::CaseInsensitive)
    {
        return fileContainsPhrase(phrase, cs, write("site.kelir", ReportSample::pack(xmlOf(elements))));
    }
};

void TestPhraseSearch::typeDecidesWhetherAFileIsLookedInto_data()
{
    QTest::addColumn<bool>("found");
    QTest::newRow("a.kelir") << true;
    QTest::newRow("a.KELIR") << true;
    QTest::newRow("a.kelatr") << true;
    QTest::newRow("a.kelvc") << true;
    QTest::newRow("a.kelchk") << false;
    QTest::newRow("a.kelreport") << false;
    QTest::newRow("a.kelid") << false;
    QTest::newRow("a.kelcrv") << false;
    QTest::newRow("a.txt") << false;
}

void TestPhraseSearch::typeDecidesWhetherAFileIsLookedInto()
{
    const QByteArray report = ReportSample::pack(xmlOf("<text id=\"t\">The earth is loose</text>"));
    const QString path = write(QTest::currentDataTag(), report);
    QTEST(fileContainsPhrase("*earth*", Qt::CaseInsensitive, path), "found");
}

void TestPhraseSearch::phraseIsFoundWithinOneRunOfText_data()
{
    QTest::addColumn<QString>("phrase");
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<bool>("sensitive");
    QTest::addColumn<bool>("found");
    const QByteArray text = "<text id=\"t\">Two PV Strings\non the barn</text>";
    QTest::newRow("in the middle") << "*strings*" << text << false << true;
    QTest::newRow("another case") << "*pv string*" << text << false << true;
    QTest::newRow("another case that counts") << "*pv string*" << text << true << false;
    QTest::newRow("the case that counts") << "*PV String*" << text << true << true;
    QTest::newRow("not there") << "*module*" << text << false << false;
    QTest::newRow("over a line's end") << "*Strings?on*" << text << false << true;
    QTest::newRow("star in the phrase") << "*two*barn*" << text << false << true;
    QTest::newRow("question mark in the phrase") << "*p? str?ngs*" << text << false << true;
    QTest::newRow("set of characters") << "*[pq]v [s-t]tring*" << text << false << true;
    QTest::newRow("excluded characters") << "*p[^v]*" << text << false << false;
    QTest::newRow("without wildcards the whole run") << "Two PV Strings" << text << false << false;
    QTest::newRow("over two elements")
        << "*ab*" << QByteArray("<text>a</text><text>b</text>") << false << false;
    QTest::newRow("over a child") << "*ab*" << QByteArray("<text>a<x/>b</text>") << false << false;
    QTest::newRow("markup") << "*a < b & c*" << QByteArray("<text>a &lt; b &amp; c</text>") << false << true;
    QTest::newRow("dot is a dot") << "*a.b*" << QByteArray("<text>axb</text>") << false << false;
    QTest::newRow("beyond ASCII") << "*GRÖSSE \u03b1*" << QByteArray("<text>Größe α grösse Α</text>") << false
                                  << true;
    QTest::newRow("cell") << "*KM-300*"
                          << QByteArray("<table id=\"g\"><cell row=\"0\" col=\"2\">KM-300</cell></table>")
                          << false << true;
}

void TestPhraseSearch::phraseIsFoundWithinOneRunOfText()
{
    QFETCH(QString, phrase);
    QFETCH(QByteArray, elements);
    QFETCH(bool, sensitive);
    QTEST(finds(phrase, elements, sensitive ? Qt::CaseSensitive : Qt::CaseInsensitive), "found");
}

void TestPhraseSearch::textOfAttributesIsNotSearched()
{
    QVERIFY(!finds("*inspector*", "<text id=\"inspector\">A. Example</text>"));
    QVERIFY(!finds("*earth*", "<!-- earth --><?earth earth?><earth/>"));
}

void TestPhraseSearch::picturesOfAReportAreNotSearched()
{
    const QByteArray container =
        ReportSample::pack(xmlOf("<text>nothing</text>"), {{"svg", "<svg><text>earth</text></svg>"}});
    const QString path = write("a.kelatr", container);
    QVERIFY(!fileContainsPhrase("*earth*", Qt::CaseInsensitive, path));
    QVERIFY(fileContainsPhrase("*nothing*", Qt::CaseInsensitive, path));
}

void TestPhraseSearch::templatesAreNotSearched()
{
    // What every page of the form says comes from the template, and would make every report a find.
    const QString path = write("a.kelatr", readFile(":/res/reports_en/default.kelatr"));
    const QByteArray form = ReportSample::read(":/res/reports_en/kelatr_rev3.pak").first().second;
    QVERIFY(form.contains("INSTALLATION ADDRESS"));
    QVERIFY(!fileContainsPhrase("*installation address*", Qt::CaseInsensitive, path));
}

void TestPhraseSearch::runsOfWhiteSpaceAndCdataStandByThemselves()
{
    Runs runs;
    ReportXml::read("<document>\n  <text>a<![CDATA[b]]>c</text>\n</document>", runs);
    QCOMPARE(runs.texts, (QStringList{"\n  ", "a", "b", "c", "\n"}));
    QVERIFY(finds("\n ", "<text/>\n <text/>"));
    QVERIFY(!finds("*ab*", "<text>a<![CDATA[b]]></text>"));
    QVERIFY(finds("b", "<text>a<![CDATA[b]]></text>"));
}

void TestPhraseSearch::readingEndsAtTheFirstHit()
{
    QRegExp expression("*b*", Qt::CaseInsensitive, QRegExp::Wildcard);
    XmlSearchHandler handler(&expression);
    QVERIFY(handler.characters("a"));
    QVERIFY(!handler.found);
    QVERIFY(!handler.characters("abc"));
    QVERIFY(handler.found);
    QVERIFY(handler.characters("c"));
    QVERIFY(!handler.found);
}

void TestPhraseSearch::hitBeforeAnErrorCounts()
{
    const QString path = write("a.kelir", ReportSample::pack("<document><text>earth</text><broken"));
    QVERIFY(fileContainsPhrase("*earth*", Qt::CaseInsensitive, path));
}

void TestPhraseSearch::errorBeforeTheHitEndsTheReading()
{
    const QString path =
        write("a.kelir", ReportSample::pack("<document></text><text>earth</text></document>"));
    QVERIFY(!fileContainsPhrase("*earth*", Qt::CaseInsensitive, path));
}

void TestPhraseSearch::damagedReportsMatchNothing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray xml = xmlOf("<text>earth</text>");
    const QByteArray whole = ReportSample::pack(xml);
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("prefix alone") << whole.left(4);
    QTest::newRow("cut") << whole.left(whole.size() / 2);
    QTest::newRow("without the check sum") << whole.left(whole.size() - 4);
    QTest::newRow("wrong check sum") << whole.left(whole.size() - 1) + char(whole.back() ^ 1);
    QTest::newRow("no container") << xml;
    QTest::newRow("no entries") << ReportSample::pack(ReportSample::Entries());
    QTest::newRow("zip") << QByteArray("PK\x03\x04") + QByteArray(100, '\0');
    QTest::newRow("bomb") << QByteArray("\x7f\xff\xff\x00", 4) + qCompress(QByteArray(64 << 20, '\0')).mid(4);
    QTest::newRow("declaration") << ReportSample::pack(
        "<!DOCTYPE document [<!ENTITY e \"earth\">]><document>&e; earth</document>");
    QTest::newRow("entities within entities") << ReportSample::pack(
        "<!DOCTYPE d [<!ENTITY a \"earthearthearthearth\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">"
        "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;\">]><d>&c;&c;&c;&c;</d>");
    QTest::newRow("deep") << ReportSample::pack(QByteArray("<a>").repeated(100000) + "earth");
    QTest::newRow("random") << QByteArray::fromHex("00000010789c") + QByteArray("earth").repeated(40);
}

void TestPhraseSearch::damagedReportsMatchNothing()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!fileContainsPhrase("*earth*", Qt::CaseInsensitive, write("a.kelatr", bytes)));
}

void TestPhraseSearch::invalidExpressionMatchesNothing()
{
    QVERIFY(!finds("*[a*", "<text>a [a</text>"));
    QVERIFY(!finds("*[*", "<text>[</text>"));
}

void TestPhraseSearch::missingFileMatchesNothing()
{
    QVERIFY(!fileContainsPhrase("*", Qt::CaseInsensitive, TestHome::instance()->path("gone.kelir")));
    QVERIFY(QDir().mkpath(TestHome::instance()->path("folder.kelir")));
    QVERIFY(!fileContainsPhrase("*", Qt::CaseInsensitive, TestHome::instance()->path("folder.kelir")));
}

void TestPhraseSearch::everyCharacterIsFoundAsTheExpressionAloneFindsIt()
{
    for (const Qt::CaseSensitivity cs : {Qt::CaseInsensitive, Qt::CaseSensitive}) {
        for (uint code = 1; code < 0xd800; ++code) {
            const QChar character(static_cast<ushort>(code));
            if (QStringLiteral("*?[]").contains(character))
                continue;
            QRegExp expression('*' + QString(character) + '*', cs, QRegExp::Wildcard);
            XmlSearchHandler handler(&expression);
            for (const uint other : {code, QChar::toLower(code), QChar::toUpper(code),
                                     QChar::toTitleCase(code), QChar::toCaseFolded(code)}) {
                const QString text = "x" + QString(QChar(static_cast<ushort>(other)));
                handler.characters(text);
                if (handler.found != expression.exactMatch(text))
                    QFAIL(qPrintable(QString("U+%1 in U+%2").arg(code, 4, 16).arg(other, 4, 16)));
            }
        }
    }
}

void TestPhraseSearch::quickLookMissesNoMatch_data()
{
    QTest::addColumn<QString>("pattern");
    for (const char *pattern :
         {"*", "**", "?", "*a*", "*ab?c*", "a*bc", "*[ab]c*", "*a[*]c*", "*\\*", "*a\\?*"})
        QTest::newRow(pattern) << pattern;
}

void TestPhraseSearch::quickLookMissesNoMatch()
{
    QFETCH(QString, pattern);
    for (const Qt::CaseSensitivity cs : {Qt::CaseInsensitive, Qt::CaseSensitive}) {
        QRegExp expression(pattern, cs, QRegExp::Wildcard);
        XmlSearchHandler handler(&expression);
        int matches = 0;
        for (const char *text : {"", " ", "a", "A", "abc", "ABxC", "xabycz", "a bc", "aBC", "b", "bc", "a*c",
                                 "\\", "x\\y", "\\*", "a\\?"}) {
            handler.characters(text);
            QVERIFY2(handler.found == expression.exactMatch(text), text);
            matches += handler.found ? 1 : 0;
        }
        QVERIFY(matches > 0);
    }
}

KELMAR_TEST_MAIN(TestPhraseSearch)
#include "tst_phrasesearch.moc"
