#include "report/GraphicalReportDocument.h"

#include "report/ReportScene.h"
#include "report/items/ReportPage.h"
#include "res/Resources.h"
#include "tests/report/ReportForm.h"
#include "tests/report/ReportSample.h"
#include "tests/support/TestMain.h"

#include <QBuffer>
#include <QPainter>

#include <memory>

using namespace ReportSample;

namespace {

const char secretColour[] = "#0000ff";

QByteArray svg(const QByteArray &content, const QByteArray &attributes = "width=\"100\" height=\"100\"")
{
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" " +
           attributes + ">" + content + "</svg>";
}

QByteArray encoded(const QSize &size, const char *format)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format))
        QTest::qFail(format, __FILE__, __LINE__);
    return bytes;
}

/// A path with corners all over the drawing.
QByteArray corners(int count, int extent)
{
    QByteArray path = "M0 0";
    for (int i = 0; i < count; ++i)
        path += " L" + QByteArray::number(qint64(i) * 7919 % extent) + ' ' +
                QByteArray::number(qint64(i) * 104729 % extent);
    return path;
}

/// A bitmap of a few bytes that claims to be large.
QByteArray hugeBmp()
{
    QByteArray bytes = encoded({2, 2}, "BMP");
    const qint32 side = 1 << 30;
    bytes.replace(18, 4, QByteArray(reinterpret_cast<const char *>(&side), 4));
    bytes.replace(22, 4, QByteArray(reinterpret_cast<const char *>(&side), 4));
    return bytes;
}

/// A photo whose scans come again and again, each for all of its pixels.
QByteArray layeredJpeg()
{
    const QByteArray plain = encoded({4000, 4000}, "JPEG");
    const int scan = plain.indexOf("\xff\xda");
    const QByteArray layers = plain.mid(scan, plain.size() - 2 - scan).repeated(100);
    return plain.left(scan) + layers + plain.right(2);
}

} // namespace

/// Pictures in reports that somebody has made to do harm: opening, showing and saving such a report takes no
/// more than a moment, nothing outside of the file is looked at, and the picture stays in the file as it is.
class TestHostilePictures : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { m_form.reset(); }

    void pictureDoesNoHarm_data();
    void pictureDoesNoHarm();

private:
    void addBitmaps() const;
    void addReachingDrawings() const;
    void addHeavyDrawings() const;
    static QImage pageOf(const GraphicalReportDocument &document);

    std::unique_ptr<ReportForm> m_form;
    QString m_secret;
};

void TestHostilePictures::initTestCase()
{
    m_form = std::make_unique<ReportForm>();
    m_secret = TestHome::instance()->path(QStringLiteral("secret.png"));
    QImage secret(100, 100, QImage::Format_RGB32);
    secret.fill(QColor(secretColour));
    QVERIFY(secret.save(m_secret));
    writeFile(TestHome::instance()->path(QStringLiteral("secret.css")),
              QByteArray("rect { fill: ") + secretColour + " }");
}

void TestHostilePictures::addBitmaps() const
{
    const QByteArray png = encoded({300, 300}, "PNG");
    QTest::newRow("a PNG cut in half") << "png" << png.left(png.size() / 2);
    QTest::newRow("a PNG without its end") << "png" << png.chopped(12);
    const QByteArray jpeg = encoded({300, 300}, "JPEG");
    QTest::newRow("a JPEG cut in half") << "jpg" << jpeg.left(jpeg.size() / 2);
    const QByteArray tiff = encoded({300, 300}, "TIFF");
    QTest::newRow("a TIFF cut in half") << "tif" << tiff.left(tiff.size() / 2);
    QTest::newRow("a bitmap of a thousand million rows") << "bmp" << hugeBmp();
    QTest::newRow("a photo in a hundred layers") << "jpg" << layeredJpeg();
    QTest::newRow("a picture of nothing") << "png" << QByteArray();
    QTest::newRow("text that claims to be a picture") << "tiff" << QByteArray("II*\0hello", 9);
}

void TestHostilePictures::addReachingDrawings() const
{
    const QByteArray path = m_secret.toUtf8();
    const QByteArray css = TestHome::instance()->path(QStringLiteral("secret.css")).toUtf8();
    const QByteArray rect = "<rect width=\"100\" height=\"100\"/>";
    const auto image = [](const QByteArray &href) {
        return svg("<image width=\"100\" height=\"100\" xlink:href=\"" + href + "\"/>");
    };
    QTest::newRow("a drawing with a picture from the disk") << "svg" << image(path);
    QTest::newRow("a drawing with a picture by its address") << "svg" << image("file://" + path);
    QTest::newRow("a drawing with a picture from the net") << "svg" << image("http://localhost:9/secret.png");
    QTest::newRow("a drawing with a picture from the resources")
        << "svg" << image(":/res/images/Varnhold_splash.png");
    QTest::newRow("a reaching drawing under a bitmap's name") << "png" << image(path);
    QTest::newRow("a drawing with a style sheet from the disk")
        << "svg"
        << "<?xml-stylesheet type=\"text/css\" href=\"" + css + "\"?>" + svg(rect);
    QTest::newRow("a drawing that imports a style sheet")
        << "svg" << svg("<style>@import url(\"" + css + "\");</style>" + rect);
    QTest::newRow("a drawing with an entity from the disk")
        << "svg"
        << "<!DOCTYPE svg [<!ENTITY x SYSTEM \"" + css + "\">]>" + svg("<text>&x;</text>");
    QTest::newRow("a drawing with a script")
        << "svg" << svg("<script>document.location='" + path + "'</script><rect onload=\"run()\"/>");
}

void TestHostilePictures::addHeavyDrawings() const
{
    const auto row = [](const char *name, const QByteArray &content) {
        QTest::newRow(name) << "svg" << svg(content);
    };
    QTest::newRow("a drawing without bounds")
        << "svg" << svg("<rect width=\"9\" height=\"9\"/>", "width=\"1e9\"");
    const QByteArray whole = svg("<rect width=\"100\" height=\"100\"/>");
    QTest::newRow("a drawing cut in half") << "svg" << whole.left(whole.size() / 2);
    row("elements within elements", QByteArray("<g>").repeated(50000) + QByteArray("</g>").repeated(50000));
    QTest::newRow("entities of entities")
        << "svg"
        << "<!DOCTYPE svg [<!ENTITY a \"" + QByteArray(9999, 'a') + "\"><!ENTITY b \"" +
               QByteArray("&a;").repeated(1000) + "\">]>" + svg("<text>&b;</text>");
    row("sheets of paint",
        QByteArray("<rect width=\"100\" height=\"100\" opacity=\"0.5\"/>").repeated(55000));
    row("paint by reference", "<g id=\"a\">" +
                                  QByteArray("<rect width=\"100\" height=\"100\"/>").repeated(200) + "</g>" +
                                  QByteArray("<use xlink:href=\"#a\"/>").repeated(200));
    row("a path of corners without end", "<path d=\"" + corners(400000, 100) + "\"/>");
    row("dashes without end",
        "<path fill=\"none\" stroke=\"red\" stroke-dasharray=\"0.01\" d=\"" + corners(50000, 100) + "\"/>");
    row("a line to the moon",
        "<path stroke=\"red\" stroke-dasharray=\"1\" d=\"M0 0 L1e30 1e30 L-1e300 nan\"/>");
    QByteArray stops;
    for (int i = 0; i < 60000; ++i)
        stops += "<stop offset=\"" + QByteArray::number(i / 60000.0) + "\"/>";
    row("a gradient of stops without end",
        "<linearGradient id=\"a\">" + stops +
            "</linearGradient><rect width=\"9\" height=\"9\" fill=\"url(#a)\"/>");
    row("a style rule for each of many elements", "<style>" + QByteArray(".a{fill:red}").repeated(9000) +
                                                      "</style>" +
                                                      QByteArray("<g class=\"a\"/>").repeated(9000));
    row("a style sheet without end", "<style>" + QByteArray("a{fill:red}").repeated(900000) + "</style>");
    row("letters without end", "<text>" + QByteArray(12000000, 'a') + "</text>");
    row("a drawing that never stands still",
        "<rect width=\"9\" height=\"9\"><animate attributeName=\"x\" from=\"0\" to=\"9\" dur=\"1ms\" "
        "repeatCount=\"indefinite\"/></rect>");
}

void TestHostilePictures::pictureDoesNoHarm_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("bytes");
    addBitmaps();
    addReachingDrawings();
    addHeavyDrawings();
}

QImage TestHostilePictures::pageOf(const GraphicalReportDocument &document)
{
    const QRectF place = document.scene()->pages().first()->sceneBoundingRect();
    QImage image(place.size().toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    document.scene()->render(&painter, QRectF(), place);
    return image;
}

void TestHostilePictures::pictureDoesNoHarm()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, bytes);
    const QString path = TestHome::instance()->path(QStringLiteral("report.kelatr"));
    writeFile(path,
              pack(ReportForm::xml("<page id=\"page1\"><image index=\"1\" x=\"100\" y=\"500\" scale=\"5\" "
                                   "resizable=\"1\"/></page>"),
                   {{format, bytes}}));
    // A picture that held the program up would run into the time limit of this test program.
    GraphicalReportDocument document(path);
    QVERIFY(document.isValid());
    const QImage page = pageOf(document);
    document.save();

    QCOMPARE(read(path).mid(1), (Entries{{format, bytes}}));
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x)
            QVERIFY(page.pixelColor(x, y) != QColor(secretColour));
    }
    // Nothing moves on a page, so nothing is painted again.
    QSignalSpy changed(document.scene(), &QGraphicsScene::changed);
    QTest::qWait(10);
    const int before = changed.count();
    QTest::qWait(50);
    QCOMPARE(changed.count(), before);
}

KELMAR_TEST_MAIN(TestHostilePictures)
#include "tst_hostilepictures.moc"
