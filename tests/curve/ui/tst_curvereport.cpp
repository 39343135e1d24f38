#include "app/core/Language.h"
#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveModuleRow.h"
#include "curve/data/ModuleDatabase.h"
#include "curve/ui/CurveReport.h"
#include "curve/ui/NameMarkup.h"
#include "curve/ui/TestDate.h"
#include "res/Resources.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/curve/ui/ReportNumbers.h"
#include "tests/support/TestMain.h"

using namespace IVCurve;

namespace {

void inBothLanguages()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

/// A string that was measured at 803 W/m2 and 45 degrees, with the irradiance drifting from point to point.
StringRecord measured(int number)
{
    StringRecord sample = CurveSample::record(60);
    CurveTrace drifting;
    for (const TracePoint &point : sample.measuredCurve().refs)
        drifting.addPoint(point.position().x(), point.position().y() * (1 - number * 0.01),
                          803 + point.index % 7 - number, 0);
    StringHeader header = sample.header();
    header.name = QString("String %1").arg(number);
    header.ff = QLocale().toString(74.2 + number, 'f', 1);
    header.ambientTemp = QLocale().toString(21.5, 'f', 1);
    header.cellTemp = QLocale().toString(44.7, 'f', 1);
    header.irradiance = QLocale().toString(803.4, 'f', 1);
    header.isc = QLocale().toString(8.11, 'f', 2);
    StringRecord record(header, drifting);
    record.findMaximumPower();
    return record;
}

/// The text of a cell that no value has been put into.
QString emptyCell(const QString &name)
{
    return "<!--#" + name + "#-->";
}

} // namespace

class TestCurveReport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }
    void init();

    void numbersAreThoseOfTheFile_data();
    void numbersAreThoseOfTheFile();
    void rowsStandInTheOrderOfTheStrings_data() { inBothLanguages(); }
    void rowsStandInTheOrderOfTheStrings();
    void stringWithoutAModuleHasEmptyNominalCells_data() { inBothLanguages(); }
    void stringWithoutAModuleHasEmptyNominalCells();
    void stringWithoutPointsHasEmptyMeasuredAndCorrectedCells_data() { inBothLanguages(); }
    void stringWithoutPointsHasEmptyMeasuredAndCorrectedCells();
    void curveWithoutAnyPowerHasNoPointOfTheHighest();
    void readingThatIsNoNumberIsAZeroWithItsDecimals_data();
    void readingThatIsNoNumberIsAZeroWithItsDecimals();
    void differenceHasNoSign();
    void noStringsLeaveBothTablesEmpty_data() { inBothLanguages(); }
    void noStringsLeaveBothTablesEmpty();
    void rowsHaveTheFormOfTheirTemplates();
    void nameStandsAsItIs_data();
    void nameStandsAsItIs();
    void nameThatCouldBlockTheLayoutIsShownLetterByLetter_data();
    void nameThatCouldBlockTheLayoutIsShownLetterByLetter();
    void germanTemplateDiffersInItsWordsOnly();
    void missingTemplateIsNoReport();

private:
    static CurveReport newReport();
};

void TestCurveReport::init()
{
    TestHome::instance()->reset();
    useLanguage("en", QLocale("en"));
    CurveSample::writeCatalogue({"1, 'Poly 36', 8.6, 22.4, 8.1, 18.2, 0.0043, -0.078, 0.11, 0.28, 0, 0",
                                 "2, 'Square', 8.6, 22.4, 8.6, 22.4, 0.0043, -0.078, 0.11, 0.28, 0, 0"});
}

CurveReport TestCurveReport::newReport()
{
    QString text;
    if (!CurveReport::readTemplate(text))
        QTest::qFail("no template", __FILE__, __LINE__);
    return CurveReport(text);
}

void TestCurveReport::numbersAreThoseOfTheFile_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("algorithm");
    QTest::addColumn<bool>("withModule");
    QTest::addColumn<int>("fileVersion");
    for (const char *language : {"en", "de"}) {
        for (int algorithm : {0, 1, 2}) {
            for (bool withModule : {false, true}) {
                for (int version : {0, 3})
                    QTest::addRow("%s, algorithm %d, %s module, version %d", language, algorithm,
                                  withModule ? "with" : "without", version)
                        << language << algorithm << withModule << version;
            }
        }
    }
}

void TestCurveReport::numbersAreThoseOfTheFile()
{
    QFETCH(QString, language);
    QFETCH(int, algorithm);
    QFETCH(bool, withModule);
    QFETCH(int, fileVersion);
    useLanguage(language, QLocale(language));
    const QString path = CurveSample::newFile();
    CurveReport report = newReport();
    {
        const CurveDatabase file(path);
        StringRecord record = measured(1);
        record.header().fileVersion = static_cast<quint32>(fileVersion);
        QCOMPARE(file.graphModel()->insertString(record), 1u);
    }
    CurveSample::execute(path, {QString("UPDATE Curves SET STCAlgorithm = %1").arg(algorithm)});
    {
        const CurveDatabase file(path);
        if (withModule) {
            const auto module = ModuleDatabase::instance().table()->row(1);
            file.graphModel()->assignModule(1, *module, 27);
        }
        const auto loaded = file.graphModel()->loadString(1);
        loaded->header().name = "String 1";
        report.addString(*loaded);
    }
    const QMap<QString, QString> expected = reportNumbers(path, 1);
    QCOMPARE(expected.size(), withModule ? 19 : 13);
    const QVector<QStringList> conditions = reportRows(report.html(), 5);
    QCOMPARE(conditions.size(), 1);
    QCOMPARE(conditions[0],
             (QStringList{"String 1", formatTestDate("2016-05-12T10:11:29"), expected["IRRADIANCE"],
                          expected["CELLTEMP"], expected["FILLFACTOR"]}));
    const QVector<QStringList> values = reportRows(report.html(), 17);
    QCOMPARE(values.size(), 1);
    QCOMPARE(values[0][0], QString("String 1"));
    for (int i = 0; i < 16; ++i) {
        const QString name = valueCellNames()[i];
        const QString cell = name + ": " + values[0][i + 1];
        QCOMPARE(cell, name + ": " + expected.value(name, emptyCell(name)));
    }
    // Both locales do write them differently.
    QCOMPARE(values[0][5].contains(','), language == "de");
}

void TestCurveReport::rowsStandInTheOrderOfTheStrings()
{
    QFETCH(QString, language);
    useLanguage(language, QLocale(language));
    CurveReport report = newReport();
    for (const int number : {2, 3, 1}) {
        StringRecord record = measured(number);
        report.addString(record);
    }
    for (const int cells : {5, 17}) {
        const QVector<QStringList> rows = reportRows(report.html(), cells);
        QCOMPARE(rows.size(), 3);
        QCOMPARE(rows[0][0], QString("String 2"));
        QCOMPARE(rows[1][0], QString("String 3"));
        QCOMPARE(rows[2][0], QString("String 1"));
    }
    const QString html = report.html();
    QVERIFY(html.indexOf("String 1") < html.indexOf(language == "de" ? "Messwerte I-U" : "IV Curve Data"));
    QVERIFY(!html.contains("TABLE1_ROWS"));
    QVERIFY(!html.contains("TABLE2_ROWS"));
}

void TestCurveReport::stringWithoutAModuleHasEmptyNominalCells()
{
    QFETCH(QString, language);
    useLanguage(language, QLocale(language));
    CurveReport report = newReport();
    StringRecord record = measured(1);
    report.addString(record);
    const QStringList row = reportRows(report.html(), 17).value(0);
    for (const char *name : {"NOM_PWR", "DIFF_PWR", "NOM_VOC", "NOM_VMPP", "NOM_ISC", "NOM_IMPP"})
        QCOMPARE(row.value(valueCellNames().indexOf(name) + 1), emptyCell(name));
    QVERIFY(!row.value(1).contains('#'));
    QVERIFY(!row.value(2).contains('#'));
}

void TestCurveReport::stringWithoutPointsHasEmptyMeasuredAndCorrectedCells()
{
    QFETCH(QString, language);
    useLanguage(language, QLocale(language));
    CurveReport report = newReport();
    StringRecord record(measured(1).header(), CurveTrace());
    record.module() = ModuleDatabase::binding(1, 20, 2);
    report.addString(record);
    const QStringList row = reportRows(report.html(), 17).value(0);
    for (int i = 0; i < 16; ++i) {
        const QString name = valueCellNames()[i];
        QCOMPARE(row.value(i + 1) == emptyCell(name), !name.startsWith("NOM"));
    }
    QCOMPARE(row.value(valueCellNames().indexOf("NOM_PWR") + 1),
             QLocale().toString(20 * 18.2 * 2 * 8.1, 'f', 0));
    QCOMPARE(reportRows(report.html(), 5).value(0).value(2), QString("803"));
}

void TestCurveReport::curveWithoutAnyPowerHasNoPointOfTheHighest()
{
    CurveTrace dark;
    for (int i = 0; i < 5; ++i)
        dark.addPoint(i * 10, 0, 0, 0);
    StringRecord record(measured(1).header(), dark);
    record.findMaximumPower();
    CurveReport report = newReport();
    report.addString(record);
    const QStringList row = reportRows(report.html(), 17).value(0);
    QCOMPARE(row.value(valueCellNames().indexOf("MEAS_PWR") + 1), QString("0"));
    QCOMPARE(row.value(valueCellNames().indexOf("MEAS_VOC") + 1), QString("40.0"));
    QCOMPARE(row.value(valueCellNames().indexOf("MEAS_VMPP") + 1), emptyCell("MEAS_VMPP"));
    QCOMPARE(row.value(valueCellNames().indexOf("MEAS_IMPP") + 1), emptyCell("MEAS_IMPP"));
}

void TestCurveReport::readingThatIsNoNumberIsAZeroWithItsDecimals_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("reading");
    QTest::addColumn<QString>("zero");
    QTest::newRow("English, text") << "en"
                                   << ">200"
                                   << "0.0";
    QTest::newRow("English, empty") << "en"
                                    << ""
                                    << "0.0";
    QTest::newRow("English, German number") << "en"
                                            << "44,75x"
                                            << "0.0";
    QTest::newRow("German, text") << "de"
                                  << ">200"
                                  << "0,0";
    QTest::newRow("German, English number") << "de"
                                            << "44.7"
                                            << "0,0";
}

void TestCurveReport::readingThatIsNoNumberIsAZeroWithItsDecimals()
{
    QFETCH(QString, language);
    QFETCH(QString, reading);
    QFETCH(QString, zero);
    useLanguage(language, QLocale(language));
    StringRecord record = measured(1);
    record.header().irradiance = reading;
    record.header().cellTemp = reading;
    record.header().ff = reading;
    CurveReport report = newReport();
    report.addString(record);
    QCOMPARE(reportRows(report.html(), 5).value(0).mid(2), (QStringList{"0", zero, "0"}));
}

void TestCurveReport::differenceHasNoSign()
{
    const auto difference = [](int series) {
        StringRecord record = measured(1);
        record.module() = ModuleDatabase::binding(1, series, 1);
        CurveReport report = newReport();
        report.addString(record);
        const QStringList row = reportRows(report.html(), 17).value(0);
        const double nominal = series * 18.2 * 8.1;
        const double above = record.stcPowerCurve().maxI - nominal;
        QTest::qVerify(row.value(4) == QLocale().toString(std::abs(above) / nominal * 100, 'f', 1), "row", "",
                       __FILE__, __LINE__);
        return above;
    };
    QVERIFY(difference(10) > 0);
    QVERIFY(difference(60) < 0);
}

void TestCurveReport::noStringsLeaveBothTablesEmpty()
{
    QFETCH(QString, language);
    useLanguage(language, QLocale(language));
    const QString html = newReport().html();
    QVERIFY(reportRows(html, 5).isEmpty());
    QVERIFY(reportRows(html, 17).isEmpty());
    QVERIFY(!html.contains("_ROWS"));
}

void TestCurveReport::rowsHaveTheFormOfTheirTemplates()
{
    CurveReport report("<!-- TABLE1_ROWS -->|<!-- TABLE2_ROWS -->");
    StringRecord record{StringHeader(), CurveTrace()};
    report.addString(record);
    const QString centred =
        "<td style=\" font-family: Arial, Helvetica, sans-serif; text-align: center;\">%1< / td>\n";
    QString expected = "<tr>\n  <td style=\" font-family: Arial, Helvetica, sans-serif;\">< / td>\n";
    for (const char *text : {"", "0", "0.0", "0"})
        expected += "  " + centred.arg(text);
    expected += "</tr>\n|<tr>\n\t<td style=\" font-family: Arial, Helvetica, sans-serif;\">< / td>\n";
    for (const QString &name : valueCellNames())
        expected += "\t" + centred.arg(emptyCell(name));
    QCOMPARE(report.html(), expected + "</tr>\n");
}

void TestCurveReport::nameStandsAsItIs_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"Roof & wall", "<b>East</b> 3", "&Uuml;berdach", "<font color='red'>bad</font>",
                             "x<sub>2</sub>", "a > b", "<img src=\"/etc/plan.png\" width=20>",
                             "two<br/>lines", "<!-- a remark -->3", "\"quoted\""})
        QTest::newRow(name) << name;
}

void TestCurveReport::nameStandsAsItIs()
{
    QFETCH(QString, name);
    StringRecord record = measured(1);
    record.header().name = name;
    CurveReport report = newReport();
    report.addString(record);
    QCOMPARE(reportRows(report.html(), 5).value(0).value(0), name);
    QCOMPARE(reportRows(report.html(), 17).value(0).value(0), name);
}

void TestCurveReport::nameThatCouldBlockTheLayoutIsShownLetterByLetter_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("tables in tables") << QString("<table><tr><td>").repeated(50);
    QTest::newRow("one wide table") << "<TABLE cellpadding=100000000><tr><td>x";
    QTest::newRow("blanks in the tag") << "< table cellpadding=100000000>";
    QTest::newRow("padding of a cell") << "<td style=\"padding:100000000px\">x";
    QTest::newRow("style of an allowed element") << "<b style=\"padding:100000000px\">x</b>";
    QTest::newRow("style sheet") << "<style>td{padding:100000000px}</style>x";
    QTest::newRow("quote that reaches into the next name") << "<b title=\"";
    QTest::newRow("end of a tag in quotes") << "<b title=\">\" style=\"padding:1e9px\">x</b>";
    QTest::newRow("tag in pieces") << "<<b>table cellpadding=100000000>";
    QTest::newRow("comment without an end") << "<!-- x";
    QTest::newRow("markup without end") << QString("<div>").repeated(20000);
    QTest::newRow("no tag at all") << "4 < 5";
}

void TestCurveReport::nameThatCouldBlockTheLayoutIsShownLetterByLetter()
{
    QFETCH(QString, name);
    QCOMPARE(nameMarkup(name), name.toHtmlEscaped());
    QVERIFY(!nameMarkup(name).contains('<'));
}

void TestCurveReport::germanTemplateDiffersInItsWordsOnly()
{
    QString english;
    QVERIFY(CurveReport::readTemplate(english));
    useLanguage("de", QLocale("de"));
    QString german;
    QVERIFY(CurveReport::readTemplate(german));
    QVERIFY(english != german);
    const QPair<QString, QString> words[] = {
        {">PV Array - IV Curve Report<", ">PV Generator - Prüfbericht I-U Kennlinie<"},
        {">Measurement Data<", ">Messwerte<"},
        {">String<", ">Objekt<"},
        {">Date<", ">Datum<"},
        {">IV Curve Data<", ">Messwerte I-U Kennlinie<"},
        {">Voc<", ">Uoc<"},
        {">Vmpp<", ">Umpp<"},
        {">MEAS<", ">Gem.<"},
        {">NOM<", ">Nom.<"}};
    for (const auto &word : words) {
        QVERIFY2(english.contains(word.first), qPrintable(word.first));
        english.replace(word.first, word.second);
    }
    QCOMPARE(german, english);
}

void TestCurveReport::missingTemplateIsNoReport()
{
    useLanguage("fr", QLocale("fr"));
    // There are English forms for everybody else, so the folder itself must be missing.
    QString text;
    QCOMPARE(CurveReport::readTemplate(text), QFile::exists(reportsResource("PV Array Curve Report.html")));
    QVERIFY(!QFile::exists(reportsResource("PV Array Curve Report.html")));
}

KELMAR_TEST_MAIN(TestCurveReport)
#include "tst_curvereport.moc"
