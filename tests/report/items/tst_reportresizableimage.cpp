#include "tests/support/TestMain.h"

#include "tests/report/items/ItemScene.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/MenuWatcher.h"

#include "report/items/AddDeleteCommand.h"
#include "report/items/BoundedPicture.h"
#include "report/items/ReportResizableImage.h"

#include <QBuffer>
#include <QGraphicsPixmapItem>
#include <QGraphicsSvgItem>
#include <QPainter>
#include <QPointer>
#include <QSvgRenderer>

#include <zlib.h>

namespace {

const QByteArray svgBytes = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"80\" height=\"40\">"
                            "<rect width=\"80\" height=\"40\" fill=\"#ff0000\"/></svg>";

QByteArray pngBytes(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::green);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray chunk(const QByteArray &type, const QByteArray &data)
{
    const auto number = [](quint32 value) {
        const quint32 big = qToBigEndian(value);
        return QByteArray(reinterpret_cast<const char *>(&big), 4);
    };
    const QByteArray body = type + data;
    const auto check =
        quint32(crc32(0, reinterpret_cast<const Bytef *>(body.constData()), uInt(body.size())));
    return number(quint32(data.size())) + body + number(check);
}

/// A picture of a few bytes that claims 20,000 x 20,000 pixels.
QByteArray hugePng()
{
    return QByteArray::fromHex("89504e470d0a1a0a") +
           chunk("IHDR", QByteArray::fromHex("00004e2000004e200806000000")) +
           chunk("IDAT", qCompress(QByteArray(1000, 0)).mid(4)) + chunk("IEND", {});
}

ReportFileEntries entriesWith(const QString &format, const QByteArray &data)
{
    return {{QStringLiteral("xml"), "<document/>"}, {format, data}};
}

/// An image of 160 x 80 at (100, 100), from a picture half that size.
const QString imageXml = QStringLiteral("<image index=\"1\" scale=\"2\" resizable=\"1\" x=\"100\" y=\"100\" "
                                        "width=\"160\" height=\"80\"/>");

QRectF geometry(const ReportResizableImage *item)
{
    return {item->pos(), item->itemRect().size()};
}

} // namespace

class tst_ReportResizableImage : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void anSvgIsDrawnAsOne();
    void aBitmapIsDrawnAsOne();
    void anSvgWithItsSuffixInCapitalsIsTreatedAsABitmap();
    void theDrawingOwnsItsRenderer();
    void draggingACornerKeepsTheAspectAndTheOppositeCorner();
    void draggingASideScalesByTheWidth();
    void anImageWithResizableAbsentCannotBeDraggedAndGetsNoHover();
    void writingAppendsTheEntryAndNumbersIt();
    void theFullFormIsWrittenWhateverTheFlag();
    void anImageWithoutAPictureIsNotWritten();
    void anIndexOutsideTheEntriesIsRefused_data();
    void anIndexOutsideTheEntriesIsRefused();
    void aPictureThatCannotBeDecodedIsEmptyAndStaysInTheFile();
    void aPictureOfTooManyPixelsIsEmptyAndStaysInTheFile();
    void aDrawingThatReachesForFilesStaysAsItIsInTheFile();
    void aDrawingUnderABitmapsNameReachesForNoFiles();
    void choosingAPictureReadsTheFile();
    void everyFormatThatIsOfferedLoads_data();
    void everyFormatThatIsOfferedLoads();
    void aDrawingThatTakesTooLongIsEmptyAndStaysInTheFile();
    void aCancelledChoiceFails();
    void anImageWithAPictureTakesNoOther();
    void anUnreadableFileFails();
    void theMenuDeletes();
    void theDeleteKeyDeletes();
    void undoBringsADeletedImageBack();
    void anImageCannotBeMadeSmallerThanCanBeGrasped();
};

void tst_ReportResizableImage::initTestCase()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void tst_ReportResizableImage::anSvgIsDrawnAsOne()
{
    ItemScene scene;
    const auto *item = scene.read<ReportResizableImage>(imageXml, nullptr, entriesWith("svg", svgBytes));
    const auto *picture = qgraphicsitem_cast<QGraphicsSvgItem *>(item->picture());
    QVERIFY(picture);
    QCOMPARE(picture->cacheMode(), QGraphicsItem::NoCache);
    QCOMPARE(picture->boundingRect().size(), QSizeF(80, 40));
    QCOMPARE(picture->scale(), 2.0);
    QCOMPARE(geometry(item), QRectF(100, 100, 160, 80));
}

void tst_ReportResizableImage::aBitmapIsDrawnAsOne()
{
    ItemScene scene;
    const auto *item = scene.read<ReportResizableImage>("<image index=\"1\" scale=\"0.5\"/>", nullptr,
                                                        entriesWith("png", pngBytes(30, 20)));
    const auto *picture = qgraphicsitem_cast<QGraphicsPixmapItem *>(item->picture());
    QVERIFY(picture);
    QCOMPARE(picture->pixmap().size(), QSize(30, 20));
    QCOMPARE(item->itemRect().size(), picture->boundingRect().size() * 0.5);
}

void tst_ReportResizableImage::anSvgWithItsSuffixInCapitalsIsTreatedAsABitmap()
{
    ItemScene scene;
    const auto *item = scene.read<ReportResizableImage>(imageXml, nullptr, entriesWith("SVG", svgBytes));
    QVERIFY(qgraphicsitem_cast<QGraphicsPixmapItem *>(item->picture()));
    QCOMPARE(item->format(), QString("SVG"));
}

void tst_ReportResizableImage::theDrawingOwnsItsRenderer()
{
    QPointer<QSvgRenderer> renderer;
    {
        ItemScene scene;
        const auto *item = scene.read<ReportResizableImage>(imageXml, nullptr, entriesWith("svg", svgBytes));
        renderer = qgraphicsitem_cast<QGraphicsSvgItem *>(item->picture())->renderer();
        QVERIFY(renderer);
    }
    QVERIFY(!renderer);
}

void tst_ReportResizableImage::draggingACornerKeepsTheAspectAndTheOppositeCorner()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableImage>(imageXml, nullptr, entriesWith("svg", svgBytes));
    QVERIFY(scene.show());
    // Only the height counts: the width follows from the proportions.
    scene.drag({262, 182}, {352, 202});
    QCOMPARE(geometry(item), QRectF(100, 100, 200, 100));
    scene.drag({98, 98}, {48, 118});
    QCOMPARE(geometry(item), QRectF(140, 120, 160, 80));
    QCOMPARE(geometry(item).bottomRight(), QPointF(300, 200));
}

void tst_ReportResizableImage::draggingASideScalesByTheWidth()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableImage>(imageXml, nullptr, entriesWith("svg", svgBytes));
    QVERIFY(scene.show());
    scene.drag({262, 140}, {302, 170});
    QCOMPARE(geometry(item), QRectF(100, 90, 200, 100));
    scene.undoStack()->undo();
    QCOMPARE(geometry(item), QRectF(100, 100, 160, 80));
}

void tst_ReportResizableImage::anImageWithResizableAbsentCannotBeDraggedAndGetsNoHover()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableImage>("<image index=\"1\" x=\"100\" y=\"100\"/>", nullptr,
                                                  entriesWith("svg", svgBytes));
    QVERIFY(scene.show());
    QVERIFY(!item->acceptHoverEvents());
    scene.drag({140, 120}, {300, 300});
    QCOMPARE(item->pos(), QPointF(100, 100));
    QCOMPARE(scene.undoStack()->count(), 0);
}

void tst_ReportResizableImage::writingAppendsTheEntryAndNumbersIt()
{
    ItemScene scene;
    const QByteArray png = pngBytes(30, 20);
    auto *first = scene.read(imageXml, nullptr, entriesWith("svg", svgBytes));
    auto *second = scene.read(imageXml, nullptr, entriesWith("png", png));
    ReportFileEntries entries{{QStringLiteral("xml"), {}}};
    QCOMPARE(scene.written(first, false, &entries).attribute("index"), QString("1"));
    QCOMPARE(scene.written(second, false, &entries).attribute("index"), QString("2"));
    QCOMPARE(entries.size(), 3);
    QCOMPARE(entries.at(1).name, QString("svg"));
    QCOMPARE(entries.at(1).data, svgBytes);
    QCOMPARE(entries.at(2).name, QString("png"));
    QCOMPARE(entries.at(2).data, png);
}

void tst_ReportResizableImage::theFullFormIsWrittenWhateverTheFlag()
{
    ItemScene scene;
    auto *item = scene.read(imageXml, nullptr, entriesWith("svg", svgBytes));
    for (bool overlayOnly : {false, true}) {
        const QDomElement written = scene.written(item, overlayOnly);
        QCOMPARE(written.attribute("x"), QString("100"));
        QCOMPARE(written.attribute("width"), QString("160"));
        QCOMPARE(written.attribute("height"), QString("80"));
        QCOMPARE(written.attribute("scale"), QString("2"));
        QCOMPARE(written.attribute("resizable"), QString("1"));
    }
    // It is read in full form, too.
    ReportResizableImage image;
    QVERIFY(image.readXml(ItemScene::element(imageXml), true, entriesWith("svg", svgBytes)));
    QCOMPARE(geometry(&image), QRectF(100, 100, 160, 80));
}

void tst_ReportResizableImage::anImageWithoutAPictureIsNotWritten()
{
    ItemScene scene;
    ReportResizableImage image;
    ReportFileEntries entries{{QStringLiteral("xml"), {}}};
    QVERIFY(scene.written(&image, false, &entries).isNull());
    QCOMPARE(entries.size(), 1);
}

void tst_ReportResizableImage::anIndexOutsideTheEntriesIsRefused_data()
{
    QTest::addColumn<QString>("index");
    QTest::newRow("behind") << "2";
    QTest::newRow("negative") << "-1";
    QTest::newRow("the report itself") << "0";
    QTest::newRow("no number") << "one";
    QTest::newRow("none") << "";
    QTest::newRow("out of range") << "4294967297";
}

void tst_ReportResizableImage::anIndexOutsideTheEntriesIsRefused()
{
    QFETCH(QString, index);
    ReportResizableImage image;
    QVERIFY(!image.readXml(ItemScene::element("<image index=\"" + index + "\"/>"), false,
                           entriesWith("svg", svgBytes)));
    QVERIFY(!image.picture());
}

void tst_ReportResizableImage::aPictureThatCannotBeDecodedIsEmptyAndStaysInTheFile()
{
    ItemScene scene;
    for (const char *format : {"png", "svg", "", "xml"}) {
        auto *item = scene.read<ReportResizableImage>(imageXml, nullptr, entriesWith(format, "no picture"));
        QVERIFY(item->picture());
        QVERIFY(item->itemRect().isEmpty());
        ReportFileEntries entries{{QStringLiteral("xml"), {}}};
        QVERIFY(!scene.written(item, false, &entries).isNull());
        QCOMPARE(entries.at(1).name, QString(format));
        QCOMPARE(entries.at(1).data, QByteArray("no picture"));
    }
}

void tst_ReportResizableImage::aPictureOfTooManyPixelsIsEmptyAndStaysInTheFile()
{
    QVERIFY(decodeBoundedPicture(hugePng()).isNull());
    QVERIFY(!decodeBoundedPicture(pngBytes(300, 200)).isNull());
    ItemScene scene;
    auto *item = scene.read<ReportResizableImage>(imageXml, nullptr, entriesWith("png", hugePng()));
    QVERIFY(qgraphicsitem_cast<QGraphicsPixmapItem *>(item->picture())->pixmap().isNull());
    ReportFileEntries entries{{QStringLiteral("xml"), {}}};
    QVERIFY(!scene.written(item, false, &entries).isNull());
    QCOMPARE(entries.at(1).data, hugePng());
}

void tst_ReportResizableImage::aDrawingThatReachesForFilesStaysAsItIsInTheFile()
{
    const QByteArray reaching = "<svg xmlns=\"http://www.w3.org/2000/svg\" "
                                "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"80\" height=\"40\">"
                                "<image width=\"80\" height=\"40\" xlink:href=\"/tmp/secret.png\"/></svg>";
    ItemScene scene;
    auto *item = scene.read<ReportResizableImage>(imageXml, nullptr, entriesWith("svg", reaching));
    QCOMPARE(item->picture()->boundingRect().size(), QSizeF(80, 40));
    ReportFileEntries entries{{QStringLiteral("xml"), {}}};
    scene.written(item, false, &entries);
    QCOMPARE(entries.at(1).data, reaching);
}

void tst_ReportResizableImage::aDrawingUnderABitmapsNameReachesForNoFiles()
{
    const QString path = TestHome::instance()->path("blue.png");
    QImage blue(20, 20, QImage::Format_RGB32);
    blue.fill(Qt::blue);
    QVERIFY(blue.save(path));
    const QByteArray reaching = "<svg xmlns=\"http://www.w3.org/2000/svg\" "
                                "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"20\" height=\"20\">"
                                "<rect width=\"20\" height=\"20\" fill=\"#ff0000\"/>"
                                "<image width=\"20\" height=\"20\" xlink:href=\"" +
                                path.toUtf8() + "\"/></svg>";
    ItemScene scene;
    const auto *item = scene.read<ReportResizableImage>(imageXml, nullptr, entriesWith("png", reaching));
    const QPixmap pixmap = qgraphicsitem_cast<QGraphicsPixmapItem *>(item->picture())->pixmap();
    QVERIFY(pixmap.isNull() || pixmap.toImage().pixelColor(10, 10) == QColor(Qt::red));
}

void tst_ReportResizableImage::choosingAPictureReadsTheFile()
{
    const QString path = TestHome::instance()->path("logo.JPG.png");
    writeFile(path, pngBytes(30, 20));
    ReportResizableImage image;
    BoxWatcher boxes;
    boxes.expectFileDialog(path);
    QVERIFY(image.choosePicture());
    QCOMPARE(image.format(), QString("png"));
    QCOMPARE(image.data(), pngBytes(30, 20));
    QCOMPARE(image.itemRect().size(), QSizeF(30, 20));
    QCOMPARE(image.boundingRect(), QRectF(-6, -6, 42, 32));
    QCOMPARE(boxes.fileDialogs().first().first(), QString("Select Image"));
    QCOMPARE(boxes.fileDialogs().first().last(),
             QString("Images (*.png *.jpg *.jpeg *.bmp *.tif *.tiff *.svg)"));
}

void tst_ReportResizableImage::everyFormatThatIsOfferedLoads_data()
{
    QTest::addColumn<QByteArray>("writer");
    for (const char *suffix : {"png", "jpg", "jpeg", "bmp", "tif", "tiff"})
        QTest::newRow(suffix) << QByteArray(suffix);
    QTest::newRow("svg") << QByteArray();
}

void tst_ReportResizableImage::everyFormatThatIsOfferedLoads()
{
    QFETCH(QByteArray, writer);
    const QString suffix = QString::fromLatin1(QTest::currentDataTag());
    const QString path = TestHome::instance()->path("logo." + suffix);
    if (writer.isEmpty()) {
        writeFile(path, svgBytes);
    } else {
        QImage picture(80, 40, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QVERIFY2(picture.save(path, writer.constData()), writer.constData());
    }
    ReportResizableImage image;
    BoxWatcher boxes;
    boxes.expectFileDialog(path);
    QVERIFY(image.choosePicture());
    QVERIFY(boxes.fileDialogs().first().last().contains("*." + suffix));
    QCOMPARE(image.format(), suffix);
    QCOMPARE(image.itemRect().size(), QSizeF(80, 40));

    QGraphicsScene scene;
    scene.addItem(&image);
    QImage drawn(80, 40, QImage::Format_RGB32);
    drawn.fill(Qt::white);
    QPainter painter(&drawn);
    scene.render(&painter, QRectF(0, 0, 80, 40), QRectF(0, 0, 80, 40));
    painter.end();
    scene.removeItem(&image);
    const QColor middle = drawn.pixelColor(40, 20);
    QVERIFY2(middle.red() > 240 && middle.green() < 15 && middle.blue() < 15, qPrintable(middle.name()));
}

void tst_ReportResizableImage::aDrawingThatTakesTooLongIsEmptyAndStaysInTheFile()
{
    const QByteArray heavy = QByteArray(svgBytes).replace(
        "<rect", QByteArray("<rect width=\"80\" height=\"40\"/>").repeated(20000) + "<rect");
    for (const char *format : {"svg", "png"}) {
        ItemScene scene;
        const auto *item = scene.read<ReportResizableImage>(imageXml, nullptr, entriesWith(format, heavy));
        QVERIFY(item->picture()->boundingRect().isEmpty());
        QCOMPARE(item->data(), heavy);
    }
}

void tst_ReportResizableImage::aCancelledChoiceFails()
{
    ReportResizableImage image;
    BoxWatcher boxes;
    boxes.expectFileDialog(QString());
    QVERIFY(!image.choosePicture());
    QVERIFY(!image.picture());
}

void tst_ReportResizableImage::anImageWithAPictureTakesNoOther()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableImage>(imageXml, nullptr, entriesWith("svg", svgBytes));
    const BoxWatcher boxes;
    QVERIFY(!item->choosePicture());
    QVERIFY(boxes.fileDialogs().isEmpty());
}

void tst_ReportResizableImage::anUnreadableFileFails()
{
    ReportResizableImage image;
    QVERIFY(!image.loadPicture(TestHome::instance()->path("missing.png")));
    QVERIFY(!image.picture());
}

void tst_ReportResizableImage::theMenuDeletes()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableImage>(imageXml, nullptr, entriesWith("svg", svgBytes));
    QVERIFY(scene.show());
    const MenuWatcher menus("Delete Image");
    scene.contextMenu({150, 140});
    QCOMPARE(menus.texts(), QStringList{"Delete Image"});
    QVERIFY(!item->isVisible());
    QCOMPARE(scene.undoStack()->count(), 1);
    const auto *command = dynamic_cast<const AddDeleteCommand *>(scene.undoStack()->command(0));
    QVERIFY(command);
    QVERIFY(!command->isAdd());
    QCOMPARE(command->item(), item);
}

void tst_ReportResizableImage::theDeleteKeyDeletes()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableImage>(imageXml, nullptr, entriesWith("svg", svgBytes));
    QVERIFY(scene.show());
    scene.click({150, 140});
    QVERIFY(item->hasFocus());
    scene.key(Qt::Key_A);
    QVERIFY(item->isVisible());
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    press.ignore();
    QCoreApplication::sendEvent(&scene, &press);
    QVERIFY(press.isAccepted());
    QVERIFY(!item->isVisible());
}

void tst_ReportResizableImage::undoBringsADeletedImageBack()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableImage>(imageXml, nullptr, entriesWith("svg", svgBytes));
    item->deleteImage();
    QVERIFY(!item->isVisible());
    scene.undoStack()->undo();
    QVERIFY(item->isVisible());
    scene.undoStack()->redo();
    QVERIFY(!item->isVisible());
    // The step of a deletion does not own the image.
    const QPointer<ReportResizableImage> guard(item);
    scene.undoStack()->clear();
    QVERIFY(guard);
}

void tst_ReportResizableImage::anImageCannotBeMadeSmallerThanCanBeGrasped()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableImage>(imageXml, nullptr, entriesWith("svg", svgBytes));
    QVERIFY(scene.show());
    scene.drag({262, 182}, {20, 20});
    QVERIFY(item->itemRect().width() >= 1.0);
    QVERIFY(item->itemRect().height() >= 1.0);
}

KELMAR_TEST_MAIN(tst_ReportResizableImage)
#include "tst_reportresizableimage.moc"
