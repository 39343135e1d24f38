#include "app/core/Identity.h"
#include "res/Resources.h"
#include "tests/support/TestMain.h"

#include <QIcon>
#include <QImageReader>
#include <QSvgRenderer>
#include <QtTest>

namespace {

const char *const fileTypes[] = {"certificate",
                                 "chart",
                                 "checklist",
                                 "chp_folder",
                                 "excel",
                                 "folder",
                                 "html",
                                 "image",
                                 "inspection",
                                 "installation_diagram",
                                 "pdf",
                                 "report",
                                 "search",
                                 "varnhold_chart",
                                 "varnhold_checklist",
                                 "varnhold_inspection",
                                 "varnhold_installation_diagram",
                                 "varnhold_report",
                                 "varnhold_verification_certificate",
                                 "word"};

const char *const toolButtons[] = {
    "about",       "cable1core",    "cable2core",   "cable3core",     "close",         "context-copy",
    "context-cut", "context-paste", "context-redo", "context-undo",   "delete",        "delete_row",
    "download",    "export_img",    "export_pdf",   "import",         "kt_7_download", "module32",
    "plus_sign",   "printer",       "redo",         "rename",         "save",          "save_favourite",
    "screencast",  "settings",      "undo",         "window_cascade", "window_next",   "window_prev",
    "window_tile", "wire",          "zoomIn",       "zoomOut"};

bool isBlank(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) != 0)
                return false;
        }
    }
    return true;
}

} // namespace

class TestResources : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }

    void everyIconIsThereForPlainAndForDenseScreens_data();
    void everyIconIsThereForPlainAndForDenseScreens();
    void signsOfMessageBoxesAreThereForPlainAndForDenseScreens();
    void bothSpellingsOfAResourcePathWork();
    void theSplashIsThereForPlainAndForDenseScreens();
    void theToolBarsBackgroundIsFoundWhereTheStyleSheetLooks();
    void photosHaveNoAlphaChannel_data();
    void photosHaveNoAlphaChannel();
    void iconFilesOfferEverySize_data();
    void iconFilesOfferEverySize();
    void theImagesOfAnIconFileShowTheSamePicture();
    void reportArtworkIsThereInEveryLanguage_data();
    void reportArtworkIsThereInEveryLanguage();
    void curveReportTemplateIsThereInEveryLanguage_data() { reportArtworkIsThereInEveryLanguage_data(); }
    void curveReportTemplateIsThereInEveryLanguage();
};

void TestResources::everyIconIsThereForPlainAndForDenseScreens_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : fileTypes)
        QTest::newRow(name) << QStringLiteral(":res/fileTypes/%1").arg(name);
    for (const char *name : toolButtons)
        QTest::newRow(name) << QStringLiteral(":res/toolButtons/%1").arg(name);
    for (const char *name : {"FavouritesStar32x32", "FavouritesStar32x32toggled"})
        QTest::newRow(name) << QStringLiteral(":res/images/%1").arg(name);
}

void TestResources::everyIconIsThereForPlainAndForDenseScreens()
{
    QFETCH(QString, name);
    const QImage plain(name + ".png");
    const QImage dense(name + "@2x.png");
    QCOMPARE(plain.size(), QSize(32, 32));
    QCOMPARE(dense.size(), QSize(64, 64));
    for (const QImage &image : {plain, dense}) {
        QVERIFY(image.hasAlphaChannel());
        QVERIFY(!isBlank(image));
    }
    const QIcon icon(name + ".png");
    QVERIFY(!icon.isNull());
    QCOMPARE(icon.pixmap(QSize(32, 32)).size(), QSize(32, 32));
}

void TestResources::signsOfMessageBoxesAreThereForPlainAndForDenseScreens()
{
    for (const QString &sign :
         {QString("information"), QString("question"), QString("warning"), QString("critical")}) {
        const QString path = ":/res/images/box_" + sign;
        QCOMPARE(QImage(path + ".png").size(), QSize(48, 48));
        QCOMPARE(QImage(path + "@2x.png").size(), QSize(96, 96));
        QVERIFY(!isBlank(QImage(path + ".png")));
    }
}

void TestResources::bothSpellingsOfAResourcePathWork()
{
    QVERIFY(!QPixmap(":res/toolButtons/save.png").isNull());
    QVERIFY(!QPixmap(":/res/toolButtons/save.png").isNull());
}

void TestResources::theSplashIsThereForPlainAndForDenseScreens()
{
    const QImage plain(Identity::brandedImage("splash.png"));
    const QImage dense(Identity::brandedImage("splash@2x.png"));
    QCOMPARE(plain.size(), QSize(480, 300));
    QCOMPARE(dense.size(), plain.size() * 2);
}

void TestResources::theToolBarsBackgroundIsFoundWhereTheStyleSheetLooks()
{
    const QImage plain(":/images/toolbar_bg.png");
    QCOMPARE(plain.size(), QSize(16, 48));
    QVERIFY(plain.hasAlphaChannel());
    QCOMPARE(QImage(":/images/toolbar_bg@2x.png").size(), plain.size() * 2);
    QCOMPARE(QImage(":res/images/toolbar_bg.png"), plain);
}

void TestResources::photosHaveNoAlphaChannel_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("size");
    QTest::newRow("background") << "bg.jpg" << QSize(256, 256);
    QTest::newRow("dense background") << "bg@2x.jpg" << QSize(512, 512);
    QTest::newRow("strip") << "col_small.jpg" << QSize(140, 305);
    QTest::newRow("dense strip") << "col_small@2x.jpg" << QSize(280, 610);
}

void TestResources::photosHaveNoAlphaChannel()
{
    QFETCH(QString, name);
    QFETCH(QSize, size);
    QImageReader reader(Identity::brandedImage(name));
    QCOMPARE(reader.format(), QByteArray("jpeg"));
    const QImage image = reader.read();
    QCOMPARE(image.size(), size);
    QVERIFY(!image.hasAlphaChannel());
}

void TestResources::iconFilesOfferEverySize_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("branded") << Identity::brandedImage("logo.ico");
    QTest::newRow("plain") << ":res/images/logo.ico";
}

void TestResources::iconFilesOfferEverySize()
{
    QFETCH(QString, path);
    const QList<int> sides = {16, 24, 32, 48, 64, 128, 256};
    QImageReader reader(path);
    QCOMPARE(reader.format(), QByteArray("ico"));
    QCOMPARE(reader.imageCount(), sides.size());
    QList<QSize> expected;
    for (int i = 0; i < sides.size(); ++i) {
        QVERIFY(reader.jumpToImage(i));
        const QImage image = reader.read();
        QVERIFY2(!image.isNull(), qPrintable(reader.errorString()));
        QCOMPARE(image.size(), QSize(sides.at(i), sides.at(i)));
        QVERIFY(image.hasAlphaChannel());
        QVERIFY(!isBlank(image));
        expected.append(image.size());
    }
    QCOMPARE(QIcon(path).availableSizes(), expected);
}

void TestResources::theImagesOfAnIconFileShowTheSamePicture()
{
    QImageReader reader(Identity::brandedImage("logo.ico"));
    QVector<QImage> shrunk;
    for (int i = 0; i < reader.imageCount(); ++i) {
        QVERIFY(reader.jumpToImage(i));
        shrunk.append(reader.read()
                          .scaled(4, 4, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                          .convertToFormat(QImage::Format_ARGB32));
    }
    QVERIFY(shrunk.size() > 1);
    for (const QImage &image : qAsConst(shrunk)) {
        for (int i = 0; i < 16; ++i) {
            const QRgb left = image.pixel(i % 4, i / 4);
            const QRgb right = shrunk.last().pixel(i % 4, i / 4);
            const int difference = qAbs(qRed(left) - qRed(right)) + qAbs(qGreen(left) - qGreen(right)) +
                                   qAbs(qBlue(left) - qBlue(right)) + qAbs(qAlpha(left) - qAlpha(right));
            QVERIFY2(difference < 60, qPrintable(QString("%1 at %2").arg(difference).arg(i)));
        }
    }
}

void TestResources::reportArtworkIsThereInEveryLanguage_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("English") << ":res/reports_en/";
    QTest::newRow("German") << ":res/reports_de/";
}

void TestResources::reportArtworkIsThereInEveryLanguage()
{
    QFETCH(QString, folder);
    for (const QString &name :
         {QString("Array Test Report"), QString("Inspection Report Page 1"),
          QString("Inspection Report Page 2"), QString("Verification Certificate"), QString("Checklist")}) {
        QSvgRenderer background(folder + "backgrounds/" + name + ".svg");
        QVERIFY2(background.isValid(), qPrintable(name));
        QCOMPARE(background.defaultSize(), QSize(743, 1052));
    }

    QSvgRenderer symbol(folder + "images/checkBox.svg");
    QVERIFY(symbol.isValid());
    for (const QString &element : {QString("checked"), QString("unchecked")}) {
        QVERIFY(symbol.elementExists(element));
        // Twelve units for the box and two above it.
        QCOMPARE(symbol.boundsOnElement(element).size(), QSizeF(12, 14));
    }

    QSvgRenderer logo(folder + "images/logo.svg");
    QVERIFY(logo.isValid());
    QCOMPARE(logo.defaultSize(), QSize(687, 258));
}

void TestResources::curveReportTemplateIsThereInEveryLanguage()
{
    QFETCH(QString, folder);
    const QByteArray bytes = readFile(folder + "PV Array Curve Report.html");
    QVERIFY(bytes.startsWith("\xef\xbb\xbf"));
    QCOMPARE(bytes.count('\n'), bytes.count("\r\n"));
    QCOMPARE(bytes.count('\r'), bytes.count("\r\n"));
    const QString text = QString::fromUtf8(bytes);
    QVERIFY(!text.contains(QChar::ReplacementCharacter));
    for (const char *style : {"1", "2", "4", "5", "6"})
        QVERIFY2(text.contains(QString(".auto-style%1 {").arg(style)), style);
    // The parts of the body stand one behind the other.
    int at = text.indexOf("<body>");
    const bool german = folder.contains("_de");
    for (const QString &part :
         {QString("colspan=\"2\""),
          QString(german ? ">PV Generator - Prüfbericht I-U Kennlinie<" : ">PV Array - IV Curve Report<"),
          QString("<br />\r\n<br />"), QString("colspan=\"5\""), QString("width=\"40%\""),
          QString("Irr (W/m²)"), QString("Tpv (°C)"), QString(">FF<"), QString("<!-- TABLE1_ROWS -->"),
          QString("<br />\r\n<br />"), QString("width=\"20%\""), QString(">Diff.<"),
          QString("<!-- TABLE2_ROWS -->")}) {
        const int next = text.indexOf(part, at);
        QVERIFY2(next > at, qPrintable(part));
        at = next;
    }
    QCOMPARE(text.count(german ? ">Gem.<" : ">MEAS<"), 5);
    QCOMPARE(text.count(">STC<"), 5);
    QCOMPARE(text.count(german ? ">Nom.<" : ">NOM<"), 5);
    QCOMPARE(text.count(">V<"), 6);
    QCOMPARE(text.count(">A<"), 6);
}

KELMAR_TEST_MAIN(TestResources)
#include "tst_resources.moc"
