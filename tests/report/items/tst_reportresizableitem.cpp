#include "tests/support/TestMain.h"

#include "tests/report/items/ItemScene.h"

#include "report/items/ReportResizableItem.h"

#include <QPainter>
#include <QSignalSpy>
#include <QStyleOptionGraphicsItem>

namespace {

const QString page = QStringLiteral("<page/>");
const QString box =
    QStringLiteral("<text x=\"100\" y=\"100\" width=\"200\" height=\"100\" resizable=\"1\">note</text>");

QRectF geometry(const ReportResizableItem *item)
{
    return {item->pos(), item->itemRect().size()};
}

} // namespace

class tst_ReportResizableItem : public QObject
{
    Q_OBJECT

private slots:
    void aResizableItemIsMovableFocusableAndHovers();
    void anItemThatIsNotResizableIsBoundedByItsContent();
    void theFrameReachesBeyondTheContent();
    void theBoundsKeepTheLastFrameForRepainting();
    void theFrameKeepsItsSizeOnScreenAtAnyZoom();
    void theFrameIsDrawnUnderThePointerOnly();
    void theCursorShowsTheHandle();
    void draggingInsideMovesTheItemAndRecordsOneStep();
    void draggingACornerResizesAndKeepsTheOppositeCorner();
    void draggingAnEdgeKeepsTheOppositeEdge();
    void undoAndRedoOfADragRestorePlaceAndSize();
    void aDragThatReturnsToTheStartRecordsNoUndoStep();
    void aClickRecordsNoUndoStep();
    void dragsAreModifications();
    void sizeAndResizableAreWrittenInFullFormOnly();
    void aSizeIsReadOnlyWithBothSidesAboveZero();
    void aSideDraggedPastTheOppositeOneLeavesTheSize();
};

void tst_ReportResizableItem::aResizableItemIsMovableFocusableAndHovers()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableItem>(box);
    QVERIFY(item->isResizable());
    QCOMPARE(int(item->flags()), 2053);
    QVERIFY(item->acceptHoverEvents());

    auto *fixed = scene.read<ReportResizableItem>("<text width=\"200\" height=\"100\"/>");
    QVERIFY(!fixed->isResizable());
    QVERIFY(!(fixed->flags() & QGraphicsItem::ItemIsMovable));
    QVERIFY(!fixed->acceptHoverEvents());
}

void tst_ReportResizableItem::anItemThatIsNotResizableIsBoundedByItsContent()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableItem>("<text width=\"200\" height=\"100\"/>");
    QCOMPARE(item->itemRect(), QRectF(0, 0, 200, 100));
    QCOMPARE(item->boundingRect(), item->itemRect());
}

void tst_ReportResizableItem::theFrameReachesBeyondTheContent()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableItem>(box);
    QCOMPARE(item->boundingRect(), QRectF(-6, -6, 212, 112));
}

void tst_ReportResizableItem::theBoundsKeepTheLastFrameForRepainting()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableItem>(box);
    item->setItemSize(QSizeF(100, 50), 68);
    item->refreshFrame();
    QCOMPARE(item->boundingRect(), QRectF(-6, -6, 212, 112));
    item->refreshFrame();
    QCOMPARE(item->boundingRect(), QRectF(-6, -6, 112, 62));
}

void tst_ReportResizableItem::theFrameKeepsItsSizeOnScreenAtAnyZoom()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableItem>(box);
    QImage image(500, 300, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.scale(2.0, 2.0);
    QStyleOptionGraphicsItem option;
    option.state = QStyle::State_MouseOver;
    QWidget viewport;
    item->paint(&painter, &option, &viewport);
    item->refreshFrame();
    QCOMPARE(item->boundingRect(), QRectF(-3, -3, 206, 106));
}

void tst_ReportResizableItem::theFrameIsDrawnUnderThePointerOnly()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableItem>(box);
    QImage image(300, 200, QImage::Format_RGB32);
    image.fill(Qt::blue);
    const QImage before = image;
    QPainter painter(&image);
    painter.translate(20, 20);
    QStyleOptionGraphicsItem option;
    QWidget viewport;
    item->paint(&painter, &option, &viewport);
    QCOMPARE(image, before);
    option.state = QStyle::State_MouseOver;
    // On paper there is no pointer.
    item->paint(&painter, &option, nullptr);
    QCOMPARE(image, before);
    item->paint(&painter, &option, &viewport);
    // The frame's line, six pixels wide, lies in the middle of the margin: a hatch of white and black.
    QSet<QRgb> colours;
    for (int x = 60; x < 100; ++x)
        colours.insert(image.pixel(x, 17));
    QCOMPARE(colours, (QSet<QRgb>{QColor(Qt::white).rgb(), QColor(Qt::black).rgb()}));
    QCOMPARE(image.pixelColor(100, 60), QColor(Qt::blue));
}

void tst_ReportResizableItem::theCursorShowsTheHandle()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableItem>(box);
    QVERIFY(scene.show());
    QTest::mouseMove(scene.viewport(), scene.at({200, 150}));
    QTRY_COMPARE(item->cursor().shape(), Qt::SizeAllCursor);
    QTest::mouseMove(scene.viewport(), scene.at({303, 150}));
    QTRY_COMPARE(item->cursor().shape(), Qt::SizeHorCursor);
    QTest::mouseMove(scene.viewport(), scene.at({98, 98}));
    QTRY_COMPARE(item->cursor().shape(), Qt::SizeFDiagCursor);
}

void tst_ReportResizableItem::draggingInsideMovesTheItemAndRecordsOneStep()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableItem>(box);
    QVERIFY(scene.show());
    scene.drag({200, 150}, {230, 110});
    QCOMPARE(geometry(item), QRectF(130, 60, 200, 100));
    QCOMPARE(scene.undoStack()->count(), 1);
}

void tst_ReportResizableItem::draggingACornerResizesAndKeepsTheOppositeCorner()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableItem>(box);
    QVERIFY(scene.show());
    scene.drag({98, 98}, {118, 108});
    QCOMPARE(geometry(item), QRectF(120, 110, 180, 90));
    scene.drag({303, 203}, {313, 213});
    QCOMPARE(geometry(item), QRectF(120, 110, 190, 100));
}

void tst_ReportResizableItem::draggingAnEdgeKeepsTheOppositeEdge()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableItem>(box);
    QVERIFY(scene.show());
    scene.drag({98, 150}, {78, 170});
    QCOMPARE(geometry(item), QRectF(80, 100, 220, 100));
    scene.drag({190, 98}, {190, 118});
    QCOMPARE(geometry(item), QRectF(80, 120, 220, 80));
}

void tst_ReportResizableItem::undoAndRedoOfADragRestorePlaceAndSize()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableItem>(box);
    QVERIFY(scene.show());
    const QRectF before = geometry(item);
    scene.drag({98, 98}, {118, 108});
    const QRectF after = geometry(item);
    QVERIFY(after != before);
    scene.clearFocus();
    scene.undoStack()->undo();
    QCOMPARE(geometry(item), before);
    QVERIFY(item->hasFocus());
    scene.undoStack()->redo();
    QCOMPARE(geometry(item), after);
}

void tst_ReportResizableItem::aDragThatReturnsToTheStartRecordsNoUndoStep()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableItem>(box);
    QVERIFY(scene.show());
    const QRectF before = geometry(item);
    QTest::mouseMove(scene.viewport(), scene.at({200, 150}));
    QTest::mousePress(scene.viewport(), Qt::LeftButton, Qt::NoModifier, scene.at({200, 150}));
    scene.moveTo({260, 190});
    QVERIFY(geometry(item) != before);
    scene.moveTo({200, 150});
    QTest::mouseRelease(scene.viewport(), Qt::LeftButton, Qt::NoModifier, scene.at({200, 150}));
    QCOMPARE(geometry(item), before);
    QCOMPARE(scene.undoStack()->count(), 0);
}

void tst_ReportResizableItem::aClickRecordsNoUndoStep()
{
    ItemScene scene;
    scene.read<ReportResizableItem>(box);
    QVERIFY(scene.show());
    scene.click({200, 150});
    scene.click({303, 203});
    QCOMPARE(scene.undoStack()->count(), 0);
}

void tst_ReportResizableItem::dragsAreModifications()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableItem>(box);
    QVERIFY(scene.show());
    QSignalSpy modified(item, &AbstractReportItem::modified);
    scene.drag({200, 150}, {230, 110});
    QVERIFY(modified.count() > 0);
    QCOMPARE(modified.last().first().toBool(), true);
}

void tst_ReportResizableItem::sizeAndResizableAreWrittenInFullFormOnly()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableItem>(
        "<text id=\"note\" x=\"1.5\" y=\"2\" width=\"200.25\" height=\"100\" resizable=\"2\"/>");
    const QDomElement full = scene.written(item, false);
    QCOMPARE(full.attribute("resizable"), QString("1"));
    QCOMPARE(full.attribute("width"), QString("200.25"));
    QCOMPARE(full.attribute("height"), QString("100"));
    QCOMPARE(full.attribute("x"), QString("1.5"));
    const QDomElement overlay = scene.written(item, true);
    QVERIFY(!overlay.hasAttribute("resizable"));
    QVERIFY(!overlay.hasAttribute("width"));
    QVERIFY(!overlay.hasAttribute("height"));
    auto *fixed = scene.read<ReportResizableItem>("<text width=\"200\" height=\"100\" resizable=\"0\"/>");
    QVERIFY(!scene.written(fixed, false).hasAttribute("resizable"));
}

void tst_ReportResizableItem::aSizeIsReadOnlyWithBothSidesAboveZero()
{
    ItemScene scene;
    const auto *half = scene.read<ReportResizableItem>("<text height=\"400\"/>");
    QVERIFY(half->itemRect().height() < 100.0);
    const auto *negative = scene.read<ReportResizableItem>("<text width=\"-200\" height=\"400\"/>");
    QVERIFY(negative->itemRect().height() < 100.0);
    const auto *senseless = scene.read<ReportResizableItem>("<text width=\"nan\" height=\"1e300\"/>");
    QVERIFY(senseless->itemRect().height() < 100.0);
}

void tst_ReportResizableItem::aSideDraggedPastTheOppositeOneLeavesTheSize()
{
    ItemScene scene;
    auto *item = scene.read<ReportResizableItem>(box);
    QVERIFY(scene.show());
    scene.drag({303, 150}, {20, 150});
    QVERIFY(item->itemRect().width() > 0.0);
    QVERIFY(item->itemRect().height() > 0.0);
}

KELMAR_TEST_MAIN(tst_ReportResizableItem)
#include "tst_reportresizableitem.moc"
