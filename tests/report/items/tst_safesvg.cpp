#include "report/items/SafeSvg.h"

#include "tests/support/TestMain.h"

#include <QBuffer>
#include <QPainter>
#include <QSvgRenderer>

namespace {

QByteArray svg(const QByteArray &content, const QByteArray &attributes = "width=\"20\" height=\"20\"")
{
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" " +
           attributes + ">" + content + "</svg>";
}

QByteArray pngBytes(const QSize &size, const QColor &colour)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

/// The colour in the middle of a drawing; white where it draws nothing.
QColor drawn(const QByteArray &bytes)
{
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QSvgRenderer renderer(bytes);
    renderer.render(&painter);
    painter.end();
    return image.pixelColor(10, 10);
}

const QByteArray redSquare = "<rect width=\"20\" height=\"20\" fill=\"#ff0000\"/>";

} // namespace

class tst_SafeSvg : public QObject
{
    Q_OBJECT

private slots:
    void anOrdinaryDrawingIsDrawnAsItIs();
    void picturesFromTheDiskAreNotDrawn();
    void embeddedPicturesAreDrawn();
    void dataThatIsNoPictureIsNotLookedUpAsAFile();
    void drawingsInsideDrawingsAreNotFollowed();
    void styleSheetsInFilesAreNotRead();
    void aDocumentTypeWithoutEntitiesIsSkipped();
    void shortEntitiesAreExpanded();
    void longEntitiesAreNotDrawn();
    void manyShortEntitiesAreNotDrawn();
    void nestingWithoutEndIsNotDrawn();
    void drawingsWithoutBoundsAreNotDrawn_data();
    void drawingsWithoutBoundsAreNotDrawn();
    void drawingsOfTooMuchAreNotDrawn_data();
    void drawingsOfTooMuchAreNotDrawn();
    void drawingsThatMoveStandStill();
    void referencesAreDrawn();
    void referencesThatMultiplyAreNotDrawn();
    void aReferenceToItselfIsNotDrawn();
    void whatIsNoDrawingGivesNothing_data();
    void whatIsNoDrawingGivesNothing();
    void prefixesThatNobodyDeclaredDoNoHarm();
};

void tst_SafeSvg::anOrdinaryDrawingIsDrawnAsItIs()
{
    const QByteArray source = svg("<!-- mark -->" + redSquare);
    QCOMPARE(drawn(source), QColor(Qt::red));
    QCOMPARE(drawn(safeSvg(source)), QColor(Qt::red));
}

void tst_SafeSvg::picturesFromTheDiskAreNotDrawn()
{
    const QString path = TestHome::instance()->path("blue.png");
    writeFile(path, pngBytes({20, 20}, Qt::blue));
    const QByteArray source =
        svg(redSquare + "<image width=\"20\" height=\"20\" xlink:href=\"" + path.toUtf8() + "\"/>");
    QCOMPARE(drawn(source), QColor(Qt::blue));
    QCOMPARE(drawn(safeSvg(source)), QColor(Qt::red));
}

void tst_SafeSvg::embeddedPicturesAreDrawn()
{
    const QByteArray data = pngBytes({4, 4}, Qt::green).toBase64();
    const QByteArray source = svg(
        redSquare + "<image width=\"20\" height=\"20\" xlink:href=\"data:image/png;base64," + data + "\"/>");
    QCOMPARE(drawn(safeSvg(source)), QColor(Qt::green));
}

void tst_SafeSvg::dataThatIsNoPictureIsNotLookedUpAsAFile()
{
    QVERIFY(!safeSvg(svg(redSquare + "<image width=\"9\" height=\"9\" xlink:href=\"data:;base64,AAAA\"/>"))
                 .contains("image"));
    QVERIFY(!safeSvg(svg(redSquare + "<image width=\"9\" height=\"9\" xlink:href=\"data/../logo.png\"/>"))
                 .contains("image"));
}

void tst_SafeSvg::drawingsInsideDrawingsAreNotFollowed()
{
    const QByteArray inner = svg("<rect width=\"20\" height=\"20\" fill=\"#0000ff\"/>").toBase64();
    const QByteArray source =
        svg(redSquare + "<image width=\"20\" height=\"20\" xlink:href=\"data:image/svg+xml;base64," + inner +
            "\"/>");
    QCOMPARE(drawn(safeSvg(source)), QColor(Qt::red));
}

void tst_SafeSvg::styleSheetsInFilesAreNotRead()
{
    const QString path = TestHome::instance()->path("style.css");
    writeFile(path, "rect { fill: #0000ff }");
    const QByteArray source = "<?xml-stylesheet type=\"text/css\" href=\"" + path.toUtf8() + "\"?>" +
                              svg("<rect width=\"20\" height=\"20\"/>");
    QCOMPARE(drawn(source), QColor(Qt::blue));
    QCOMPARE(drawn(safeSvg(source)), QColor(Qt::black));
}

void tst_SafeSvg::aDocumentTypeWithoutEntitiesIsSkipped()
{
    const QByteArray source = "<?xml version=\"1.0\"?><!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" "
                              "\"http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd\">" +
                              svg(redSquare);
    const QByteArray safe = safeSvg(source);
    QCOMPARE(drawn(safe), QColor(Qt::red));
    QVERIFY(!safe.contains("DOCTYPE"));
}

void tst_SafeSvg::shortEntitiesAreExpanded()
{
    const QByteArray source = "<!DOCTYPE svg [<!ENTITY paint \"#ff0000\">]>" +
                              svg("<rect width=\"20\" height=\"20\" fill=\"&paint;\"/>");
    QCOMPARE(drawn(safeSvg(source)), QColor(Qt::red));
}

void tst_SafeSvg::longEntitiesAreNotDrawn()
{
    QByteArray declarations = "<!ENTITY a0 \"xxxxxxxxxx\">";
    for (int i = 1; i < 9; ++i) {
        const QByteArray previous = "&a" + QByteArray::number(i - 1) + ";";
        declarations += "<!ENTITY a" + QByteArray::number(i) + " \"" + previous.repeated(10) + "\">";
    }
    QVERIFY(safeSvg("<!DOCTYPE svg [" + declarations + "]>" + svg("<text>&a8;</text>")).isEmpty());
}

void tst_SafeSvg::manyShortEntitiesAreNotDrawn()
{
    const QByteArray source = "<!DOCTYPE svg [<!ENTITY a \"" + QByteArray(4000, 'x') + "\">]>" +
                              svg("<text>" + QByteArray("&a;").repeated(50) + "</text>");
    QVERIFY(safeSvg(source).isEmpty());
    QVERIFY(!safeSvg("<!DOCTYPE svg [<!ENTITY a \"" + QByteArray(4000, 'x') + "\">]>" +
                     svg("<text>&a;&a;</text>"))
                 .isEmpty());
}

void tst_SafeSvg::nestingWithoutEndIsNotDrawn()
{
    QVERIFY(safeSvg(svg(QByteArray("<g>").repeated(30000) + QByteArray("</g>").repeated(30000))).isEmpty());
    QVERIFY(!safeSvg(svg(QByteArray("<g>").repeated(100) + QByteArray("</g>").repeated(100))).isEmpty());
}

void tst_SafeSvg::drawingsWithoutBoundsAreNotDrawn_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::newRow("width") << QByteArray("width=\"1e9\" height=\"20\"");
    QTest::newRow("height") << QByteArray("width=\"20\" height=\" 1000000000px\"");
    QTest::newRow("view box") << QByteArray("viewBox=\"0,0\t1e30 20\"");
    QTest::newRow("no number") << QByteArray("width=\"nan\" height=\"20\"");
}

void tst_SafeSvg::drawingsWithoutBoundsAreNotDrawn()
{
    QFETCH(QByteArray, attributes);
    QVERIFY(safeSvg(svg(redSquare, attributes)).isEmpty());
    QVERIFY(!safeSvg(svg(redSquare, "width=\"100em\" height=\"100%\" viewBox=\"0 0 20.5 2e1\"")).isEmpty());
}

void tst_SafeSvg::drawingsOfTooMuchAreNotDrawn_data()
{
    QTest::addColumn<QByteArray>("little");
    QTest::addColumn<QByteArray>("much");
    const auto stops = [](int count) {
        return "<linearGradient>" + QByteArray("<stop offset=\"0\"/>").repeated(count) + "</linearGradient>";
    };
    const auto styled = [](int rules, int elements) {
        return "<style>" + QByteArray("g{fill:red}").repeated(rules) + "</style>" +
               QByteArray("<g/>").repeated(elements);
    };
    QTest::newRow("elements") << QByteArray("<g/>").repeated(50000) << QByteArray("<g/>").repeated(200000);
    QTest::newRow("letters") << "<text>" + QByteArray(100000, 'a') + "</text>"
                             << "<text>" + QByteArray(2000000, 'a') + "</text>";
    QTest::newRow("stops of a gradient") << stops(1000) << stops(20000);
    QTest::newRow("gradients of some stops") << stops(1000).repeated(20) << stops(20000);
    QTest::newRow("rules of style") << styled(1000, 1000) << styled(30000, 1);
    QTest::newRow("rules for elements") << styled(1000, 1000) << styled(5000, 5000);
}

void tst_SafeSvg::drawingsOfTooMuchAreNotDrawn()
{
    QFETCH(QByteArray, little);
    QFETCH(QByteArray, much);
    QVERIFY(!safeSvg(svg(little)).isEmpty());
    QVERIFY(safeSvg(svg(much)).isEmpty());
}

void tst_SafeSvg::drawingsThatMoveStandStill()
{
    const QByteArray source =
        svg("<rect width=\"20\" height=\"20\" fill=\"#ff0000\"><animateColor "
            "attributeName=\"fill\" from=\"#00ff00\" to=\"#0000ff\" dur=\"1s\"/></rect>");
    QVERIFY(QSvgRenderer(source).animated());
    QVERIFY(!QSvgRenderer(safeSvg(source)).animated());
    QCOMPARE(drawn(safeSvg(source)), QColor(Qt::red));
}

void tst_SafeSvg::referencesAreDrawn()
{
    QCOMPARE(drawn(safeSvg(svg("<defs><g id=\"a\">" + redSquare + "</g></defs><use xlink:href=\"#a\"/>"))),
             QColor(Qt::red));
}

void tst_SafeSvg::referencesThatMultiplyAreNotDrawn()
{
    QByteArray content = "<g id=\"a0\">" + redSquare + "</g>";
    for (int i = 1; i < 10; ++i) {
        const QByteArray use = "<use xlink:href=\"#a" + QByteArray::number(i - 1) + "\"/>";
        content += "<g id=\"a" + QByteArray::number(i) + "\">" + use.repeated(10) + "</g>";
    }
    QVERIFY(safeSvg(svg(content)).isEmpty());
}

void tst_SafeSvg::aReferenceToItselfIsNotDrawn()
{
    QVERIFY(safeSvg(svg("<g id=\"a\"><use xlink:href=\"#a\"/></g>")).isEmpty());
    QVERIFY(safeSvg(svg("<g id=\"a\"><use xlink:href=\"#b\"/></g><g id=\"b\"><use xlink:href=\"#a\"/></g>"))
                .isEmpty());
}

void tst_SafeSvg::whatIsNoDrawingGivesNothing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("text") << QByteArray("hello");
    QTest::newRow("another document") << QByteArray("<html/>");
    QTest::newRow("cut") << QByteArray("<svg><g>");
    QTest::newRow("unknown entity") << QByteArray("<svg><text>&what;</text></svg>");
    QTest::newRow("picture") << pngBytes({2, 2}, Qt::red);
}

void tst_SafeSvg::whatIsNoDrawingGivesNothing()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(safeSvg(bytes).isEmpty());
}

void tst_SafeSvg::prefixesThatNobodyDeclaredDoNoHarm()
{
    QCOMPARE(drawn(safeSvg(svg("<g editor:label=\"Layer 1\">" + redSquare + "</g>"))), QColor(Qt::red));
}

KELMAR_TEST_MAIN(tst_SafeSvg)
#include "tst_safesvg.moc"
