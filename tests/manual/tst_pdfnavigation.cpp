#include "tests/support/TestHome.h"
#include "tools/manual/PdfNavigation.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QRegularExpression>
#include <QTextCursor>
#include <QTextDocument>
#include <QtTest>

namespace {

/// Two pages; the first one has a link within the file and one to the outside.
QByteArray twoPages(const QString &address = QStringLiteral("#aim"))
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    QPdfWriter writer(&file);
    writer.setPageSize(QPageSize(QPageSize::A4));
    QPainter painter(&writer);
    QTextDocument text;
    text.documentLayout()->setPaintDevice(&writer);
    QTextCursor cursor(&text);
    for (const QString &one : {address, QStringLiteral("https://varnhold.example/")}) {
        QTextCharFormat format;
        format.setAnchor(true);
        format.setAnchorHref(one);
        cursor.insertText("link ", format);
    }
    text.drawContents(&painter);
    writer.newPage();
    painter.drawText(200, 200, "Second page");
    painter.end();
    return file.data();
}

QByteArray outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        QTest::qFail(qPrintable(program), __FILE__, __LINE__);
    QTest::qVerify(process.readAllStandardError().isEmpty(), "no complaints", "", __FILE__, __LINE__);
    return process.readAllStandardOutput();
}

/// What another program reads in a file: outline and links.
QString read(const QByteArray &pdf)
{
    const QString path = TestHome::instance()->path("file.pdf");
    writeFile(path, pdf);
    return QString::fromUtf8(outputOf("pdftohtml", {"-xml", "-i", "-stdout", path}));
}

} // namespace

class TestPdfNavigation : public QObject
{
    Q_OBJECT

private slots:
    void linksLeadToTheirPlaces();
    void theOutlineIsATree();
    void titlesMayHoldAnyLetter();
    void whatWasThereStays();
    void aLinkToNowhereIsRefused();
    void filesOfOthersAreRefused_data();
    void filesOfOthersAreRefused();
};

void TestPdfNavigation::linksLeadToTheirPlaces()
{
    const QString before = read(twoPages());
    QVERIFY2(!before.contains("#2\""), qPrintable(before));
    const QString after = read(withNavigation(twoPages(), {}, {{"aim", {1, 100}}}));
    QVERIFY2(after.contains(QRegularExpression("<a href=\"[^\"]*#2\">link")), qPrintable(after));
    QVERIFY2(after.contains("<a href=\"https://varnhold.example/\">"), qPrintable(after));
    const QByteArray pdf = withNavigation(twoPages(), {}, {{"aim", {1, 100}}});
    // From the lower edge, as the format has it.
    QVERIFY(pdf.contains("/XYZ 0 742.00 null]"));
}

void TestPdfNavigation::theOutlineIsATree()
{
    const QVector<PdfBookmark> bookmarks{
        {"A", 1, {0, 0}}, {"A1", 2, {0, 9}}, {"A1a", 3, {1, 0}}, {"A2", 2, {1, 5}}, {"B", 1, {1, 9}}};
    const QString told = read(withNavigation(twoPages(), bookmarks, {{"aim", {0, 0}}}));
    const QString outline = told.mid(told.indexOf("<outline>")).remove(QRegularExpression("\\s"));
    QVERIFY2(outline.startsWith("<outline><itempage=\"1\">A</item><outline><itempage=\"1\">A1</item><outline>"
                                "<itempage=\"2\">A1a</item></outline><itempage=\"2\">A2</item></outline>"
                                "<itempage=\"2\">B</item></outline>"),
             qPrintable(outline));
}

void TestPdfNavigation::titlesMayHoldAnyLetter()
{
    const QString title = QString::fromUtf8("1\u2002Größe (W/m²) <\\>");
    const QString told = read(withNavigation(twoPages(), {{title, 1, {0, 0}}}, {{"aim", {0, 0}}}));
    QVERIFY2(told.contains(title.toHtmlEscaped()), qPrintable(told));
}

void TestPdfNavigation::whatWasThereStays()
{
    const QByteArray before = twoPages();
    const QByteArray after = withNavigation(before, {{"A", 1, {0, 0}}}, {{"aim", {1, 0}}});
    QVERIFY(after.startsWith(before));
    QVERIFY(read(after).contains("Second page"));
}

void TestPdfNavigation::aLinkToNowhereIsRefused()
{
    QVERIFY_EXCEPTION_THROWN(withNavigation(twoPages("#elsewhere"), {}, {{"aim", {1, 0}}}),
                             std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(withNavigation(twoPages(), {}, {{"aim", {2, 0}}}), std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(withNavigation(twoPages(), {{"A", 1, {-1, 0}}}, {{"aim", {0, 0}}}),
                             std::runtime_error);
}

void TestPdfNavigation::filesOfOthersAreRefused_data()
{
    QTest::addColumn<QByteArray>("pdf");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("no PDF") << QByteArray("Some text");
    QTest::newRow("cut off") << twoPages().left(twoPages().size() / 2);
    QTest::newRow("no pages") << twoPages().replace("/Kids", "/Kidz");
    QTest::newRow("no catalogue") << twoPages().replace("/Root", "/Toor");
}

void TestPdfNavigation::filesOfOthersAreRefused()
{
    QFETCH(QByteArray, pdf);
    QVERIFY_EXCEPTION_THROWN(withNavigation(pdf, {{"A", 1, {0, 0}}}, {{"aim", {0, 0}}}), std::runtime_error);
}

int main(int argc, char **argv)
{
    TestHome home;
    const QGuiApplication application(argc, argv);
    TestPdfNavigation test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_pdfnavigation.moc"
