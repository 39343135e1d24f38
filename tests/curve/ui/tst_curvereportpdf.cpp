#include "app/core/Language.h"
#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/ModuleDatabase.h"
#include "curve/ui/CurveGraph.h"
#include "curve/ui/CurveReport.h"
#include "curve/ui/CurveReportPdf.h"
#include "curve/ui/IsolatedTextDocument.h"
#include "res/Resources.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/curve/ui/CurveDesk.h"
#include "tests/support/TestMain.h"

#include <QImage>
#include <QPainter>
#include <QProcess>

using namespace IVCurve;

namespace {

QByteArray outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(patience) || process.exitCode() != 0)
        QTest::qFail(qPrintable(program + " failed"), __FILE__, __LINE__);
    return process.readAllStandardOutput();
}

/// What a finished report says, page by page.
QStringList pagesOf(const QString &pdf)
{
    QStringList pages = QString::fromUtf8(outputOf("pdftotext", {"-layout", pdf, "-"})).split('\f');
    // There is one behind each page, too.
    pages.removeLast();
    return pages;
}

QImage pictureOf(const QString &pdf, int page)
{
    const QString prefix = TestHome::instance()->path("page");
    const QString number = QString::number(page);
    outputOf("pdftoppm", {"-r", "100", "-png", "-singlefile", "-f", number, "-l", number, pdf, prefix});
    return QImage(prefix + ".png");
}

int pixelsLike(const QImage &image, const QColor &colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            count += qAbs(pixel.red() - colour.red()) + qAbs(pixel.green() - colour.green()) +
                         qAbs(pixel.blue() - colour.blue()) <
                     30;
        }
    }
    return count;
}

void inBothLanguages()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

} // namespace

/// The finished report, read and looked at by programs that have not made it.
class TestCurveReportPdf : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }
    void init();

    void threeStringsAreAPageOfTablesAndAPageWithTheGraph_data() { inBothLanguages(); }
    void threeStringsAreAPageOfTablesAndAPageWithTheGraph();
    void manyStringsTakeMorePagesAndTheGraphComesLast_data() { inBothLanguages(); }
    void manyStringsTakeMorePagesAndTheGraphComesLast();
    void marginIsACentimetre();
    void graphIsTheOneOnTheScreen();
    void fileThatCannotBeWrittenIsToldToTheCaller();
    void picturesInANameAreNotLoaded_data();
    void picturesInANameAreNotLoaded();
    void documentAsksNothingOfTheDisk();
    void pictureWithoutEndDoesNotPrintPagesWithoutEnd();

private:
    /// The report on these strings of a document, and the graph that shows them.
    QString write(CurveDesk &desk, const QVector<int> &strings);

    QString m_pdf;
};

void TestCurveReportPdf::init()
{
    TestHome::instance()->reset();
    useLanguage("en", QLocale("en"));
    CurveSample::writeCatalogue({"1, 'Poly 36', 8.6, 22.4, 8.1, 18.2, 0.0043, -0.078, 0.11, 0.28, 0, 0"});
    m_pdf = TestHome::instance()->path("report.pdf");
    QFile::remove(m_pdf);
}

QString TestCurveReportPdf::write(CurveDesk &desk, const QVector<int> &strings)
{
    desk.selectStrings(strings);
    QString text;
    CurveReport::readTemplate(text);
    CurveReport report(text);
    for (const int number : strings)
        report.addString(desk.graph->model()->record(static_cast<quint32>(number)));
    if (!writeReportPdf(report.html(), *desk.graph, m_pdf))
        QTest::qFail("not written", __FILE__, __LINE__);
    return report.html();
}

void TestCurveReportPdf::threeStringsAreAPageOfTablesAndAPageWithTheGraph()
{
    QFETCH(QString, language);
    useLanguage(language, QLocale(language));
    const bool german = language == "de";
    CurveDesk desk(CurveDesk::makeFile(3));
    desk.graph->model()->assignModule(2, *ModuleDatabase::instance().table()->row(1), 27);
    desk.graph->displayNOMToggled(true);
    desk.graph->displayMEASToggled(true);
    write(desk, {3, 1, 2});
    const QStringList pages = pagesOf(m_pdf);
    QCOMPARE(pages.size(), 2);
    const QString tables = pages[0].simplified();
    for (const QString &word :
         german ? QStringList{"PV Generator - Prüfbericht I-U Kennlinie", "Messwerte", "Objekt", "Datum",
                              "Uoc", "Umpp", "Gem.", "Nom.", "Diff.", "604,8"}
                : QStringList{"PV Array - IV Curve Report", "Measurement Data", "String", "Date", "Voc",
                              "Vmpp", "MEAS", "NOM", "Diff.", "604.8"})
        QVERIFY2(tables.contains(word), qPrintable(word + " in " + tables));
    QVERIFY(tables.contains("Irr (W/m²)") && tables.contains("Tpv (°C)"));
    QCOMPARE(tables.count("String 3"), 2);
    QVERIFY(tables.indexOf("String 3") < tables.indexOf("String 1"));
    QVERIFY(tables.indexOf("String 1") < tables.indexOf("String 2"));
    QVERIFY(!tables.contains('#'));
    QVERIFY(pages[1].contains("String 1 (803)"));
    QVERIFY(pages[1].contains("String 3, String 1, String 2"));
    QVERIFY(!pages[1].contains("Pmpp"));
    if (qEnvironmentVariableIsSet("KELMAR_SCREENSHOTS")) {
        for (const int page : {1, 2})
            pictureOf(m_pdf, page)
                .save(QString("%1/report %2 %3.png")
                          .arg(qEnvironmentVariable("KELMAR_SCREENSHOTS"), language)
                          .arg(page));
    }
}

void TestCurveReportPdf::manyStringsTakeMorePagesAndTheGraphComesLast()
{
    QFETCH(QString, language);
    useLanguage(language, QLocale(language));
    CurveDesk desk(CurveDesk::makeFile(60));
    QVector<int> all;
    for (int i = 1; i <= 60; ++i)
        all.append(i);
    write(desk, all);
    const QStringList pages = pagesOf(m_pdf);
    QVERIFY2(pages.size() > 3, qPrintable(QString::number(pages.size())));
    const QString tables = pages.mid(0, pages.size() - 1).join(' ');
    // Once in each table, and no line of text is lost where a page ends.
    for (const int number : all)
        QCOMPARE(tables.count(QRegularExpression(QString("String %1\\b").arg(number))), 2);
    QVERIFY(pages.last().contains("String 1 (803)"));
    // Each page of a table has its heads.
    for (int page = 2; page < pages.size() - 1; ++page)
        QVERIFY2(pages[page].contains("Pmpp"), qPrintable(pages[page]));
    if (qEnvironmentVariableIsSet("KELMAR_SCREENSHOTS")) {
        for (int page = 1; page <= pages.size(); ++page)
            pictureOf(m_pdf, page)
                .save(QString("%1/report 60 %2 %3.png")
                          .arg(qEnvironmentVariable("KELMAR_SCREENSHOTS"), language)
                          .arg(page));
    }
}

void TestCurveReportPdf::marginIsACentimetre()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    write(desk, {1});
    const QByteArray info = outputOf("pdfinfo", {m_pdf});
    QVERIFY2(info.contains("841.") || info.contains("842"), info.constData());
    QVERIFY(info.contains("595"));
    // 100 dots per inch: the black bar of the heading begins a centimetre from the edges of the paper.
    const QImage page = pictureOf(m_pdf, 1);
    QVERIFY(qAbs(page.width() - 1169) <= 1 && qAbs(page.height() - 827) <= 1);
    int left = 0;
    while (left < page.width() && qGray(page.pixel(left, 55)) > 128)
        ++left;
    QVERIFY2(left >= 38 && left <= 44, qPrintable(QString::number(left)));
    int top = 0;
    while (top < page.height() && qGray(page.pixel(45, top)) > 128)
        ++top;
    QVERIFY2(top >= 38 && top <= 44, qPrintable(QString::number(top)));
    int right = page.width() - 1;
    while (right > 0 && qGray(page.pixel(right, 55)) > 128)
        --right;
    QVERIFY2(right <= 1169 - 38 && right >= 1169 - 46, qPrintable(QString::number(right)));
}

void TestCurveReportPdf::graphIsTheOneOnTheScreen()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    write(desk, {1});
    QVERIFY(pagesOf(m_pdf).last().contains("Current (A)"));
    QVERIFY(!pagesOf(m_pdf).last().contains("Power (W)"));
    desk.graph->displayPWRToggled(true);
    write(desk, {1});
    QVERIFY(pagesOf(m_pdf).last().contains("Power (W)"));
    desk.graph->setAxisScale(QwtPlot::xBottom, 123000, 123010, 2);
    desk.graph->replot();
    QString text;
    QVERIFY(writeReportPdf(text, *desk.graph, m_pdf));
    const QString zoomed = pagesOf(m_pdf).last();
    QVERIFY2(zoomed.contains("123008") || zoomed.contains("123,008"), qPrintable(zoomed));
}

void TestCurveReportPdf::fileThatCannotBeWrittenIsToldToTheCaller()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    QVERIFY(
        !writeReportPdf("<p>x</p>", *desk.graph, TestHome::instance()->path("no such folder/report.pdf")));
}

void TestCurveReportPdf::picturesInANameAreNotLoaded_data()
{
    QTest::addColumn<QString>("name");
    const QString path = TestHome::instance()->path("red.png");
    QTest::newRow("path") << "<img src=\"" + path + "\" width=200 height=60>";
    QTest::newRow("URL") << "<img src=\"file://" + path + "\" width=200 height=60>";
    QTest::newRow("resource") << "<img src=\":/res/toolButtons/save.png\" width=200 height=60>";
    QTest::newRow("style") << "<div style=\"background-image:url('" + path +
                                  "')\">wide enough to be seen</div>";
    QTest::newRow("style sheet") << "<link rel=\"stylesheet\" href=\"" +
                                        TestHome::instance()->path("red.css") + "\">x";
}

void TestCurveReportPdf::picturesInANameAreNotLoaded()
{
    QFETCH(QString, name);
    QImage red(20, 20, QImage::Format_RGB32);
    red.fill(Qt::red);
    QVERIFY(red.save(TestHome::instance()->path("red.png")));
    writeFile(TestHome::instance()->path("red.css"), "td { background-color: red; } body { color: red; }");
    CurveDesk desk(CurveDesk::makeFile(1));
    CurveSample::record();
    desk.selectStrings({1});
    StringRecord &record = desk.graph->model()->record(1);
    record.header().name = name;
    QString text;
    QVERIFY(CurveReport::readTemplate(text));
    CurveReport report(text);
    report.addString(record);
    QVERIFY(writeReportPdf(report.html(), *desk.graph, m_pdf));
    const QImage page = pictureOf(m_pdf, 1);
    QCOMPARE(pixelsLike(page, Qt::red), 0);
    // Nor does the toolkit's symbol of a missing picture stand there: no picture is larger than a dot.
    const QStringList pictures =
        QString::fromUtf8(outputOf("pdfimages", {"-list", "-f", "1", "-l", "1", m_pdf})).split('\n').mid(2);
    for (const QString &picture : pictures) {
        const QStringList columns = picture.simplified().split(' ');
        QVERIFY2(columns.size() < 5 || (columns[3] == "1" && columns[4] == "1"), qPrintable(picture));
    }
}

void TestCurveReportPdf::documentAsksNothingOfTheDisk()
{
    // The toolkit looks for a picture of its name on disk when the document has none to give.
    QImage red(20, 20, QImage::Format_RGB32);
    red.fill(Qt::red);
    const QString path = TestHome::instance()->path("red.png");
    QVERIFY(red.save(path));
    const auto redPixels = [&path](QTextDocument &document) {
        document.setHtml("<img src=\"" + path + "\"><table background=\"" + path +
                         "\"><tr><td>x</td></tr></table>");
        document.setPageSize(QSizeF(200, 200));
        QImage page(200, 200, QImage::Format_RGB32);
        page.fill(Qt::white);
        QPainter painter(&page);
        document.drawContents(&painter);
        painter.end();
        return pixelsLike(page, Qt::red);
    };
    QTextDocument open;
    QVERIFY(redPixels(open) > 0);
    IsolatedTextDocument isolated;
    QCOMPARE(redPixels(isolated), 0);
}

void TestCurveReportPdf::pictureWithoutEndDoesNotPrintPagesWithoutEnd()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    for (const QString &name :
         {QString("<img height=1000000000>"), QString("<img width=2000000000 height=2000000000>")}) {
        desk.selectStrings({1});
        StringRecord &record = desk.graph->model()->record(1);
        record.header().name = name;
        CurveReport report("<table><!-- TABLE1_ROWS --></table>");
        report.addString(record);
        QVERIFY(writeReportPdf(report.html(), *desk.graph, m_pdf));
        QVERIFY(QFileInfo(m_pdf).size() < 20000000);
    }
}

KELMAR_TEST_MAIN(TestCurveReportPdf)
#include "tst_curvereportpdf.moc"
