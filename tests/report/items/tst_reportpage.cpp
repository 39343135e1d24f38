#include "tests/support/TestMain.h"

#include "tests/report/items/ItemScene.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/MenuWatcher.h"

#include "report/items/AddDeleteCommand.h"
#include "report/items/ReportPage.h"
#include "report/items/ReportResizableImage.h"

#include <QGraphicsRectItem>
#include <QPainter>
#include <QPointer>

namespace {

const QByteArray svgBytes = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"80\" height=\"40\"/>";

QColor sheetColour(const ReportPage *page)
{
    return qgraphicsitem_cast<QGraphicsRectItem *>(page->childItems().first())->brush().color();
}

ReportResizableImage *imageOn(const ReportPage *page)
{
    const QList<QGraphicsItem *> children = page->childItems();
    for (QGraphicsItem *child : children) {
        if (child->type() == ReportResizableImageType)
            return static_cast<ReportResizableImage *>(child);
    }
    return nullptr;
}

} // namespace

class tst_ReportPage : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void sheetsHaveTheirSizeByType_data();
    void sheetsHaveTheirSizeByType();
    void pagesStandOneBelowTheOther();
    void thePageDrawsNothingItself();
    void theSheetHasTheBackgroundColourOfEachReading();
    void thePageTypeIsAlwaysWrittenAsA4();
    void theOverlayFormIsTheIdAlone();
    void anOverlayDoesNotMoveThePage();
    void theMenuAddsAnImageAtTheClick();
    void onTheSecondPageAnImageComesToStandOnePageLower();
    void aCancelledChoiceAddsNothing();
    void undoneAddingHidesTheImage();
    void theStepThatAddedAnImageOwnsIt();
    void anAddedImagesDragsAreStepsOfTheHistory();
};

void tst_ReportPage::initTestCase()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void tst_ReportPage::sheetsHaveTheirSizeByType_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<QSizeF>("size");
    QTest::newRow("A4") << "<page pageType=\"A4\"/>" << QSizeF(793, 1123);
    QTest::newRow("A3") << "<page pageType=\"A3\"/>" << QSizeF(842, 1190);
    QTest::newRow("none") << "<page/>" << QSizeF(793, 1123);
    QTest::newRow("another") << "<page pageType=\"a3\"/>" << QSizeF(793, 1123);
}

void tst_ReportPage::sheetsHaveTheirSizeByType()
{
    QFETCH(QString, xml);
    QFETCH(QSizeF, size);
    ItemScene scene;
    QCOMPARE(scene.read(xml)->boundingRect(), QRectF(QPointF(), size));
}

void tst_ReportPage::pagesStandOneBelowTheOther()
{
    ItemScene scene;
    const auto *first = scene.read<ReportPage>("<page x=\"30\" y=\"30\"/>");
    const auto *second = scene.read<ReportPage>("<page pageNumber=\"2\"/>");
    const auto *third = scene.read<ReportPage>("<page pageType=\"A3\" pageNumber=\"3\"/>");
    QCOMPARE(first->pageNumber(), 1);
    QCOMPARE(first->pos(), QPointF(0, 0));
    QCOMPARE(second->pos(), QPointF(0, 1173));
    QCOMPARE(third->pos(), QPointF(0, 2480));
    QCOMPARE(third->pageNumber(), 3);
    QCOMPARE(scene.read<ReportPage>("<page pageNumber=\"-7\"/>")->pageNumber(), 1);
}

void tst_ReportPage::thePageDrawsNothingItself()
{
    ItemScene scene;
    QVERIFY(scene.read("<page/>")->flags() & QGraphicsItem::ItemHasNoContents);
}

void tst_ReportPage::theSheetHasTheBackgroundColourOfEachReading()
{
    ItemScene scene;
    auto *page = scene.read<ReportPage>("<page id=\"page1\"/>");
    QCOMPARE(sheetColour(page), QColor(Qt::white));
    page->readXml(ItemScene::element("<page id=\"page1\" backgroundColour=\"#ffffcc\"/>"), false, {});
    QCOMPARE(sheetColour(page), QColor("#ffffcc"));
}

void tst_ReportPage::thePageTypeIsAlwaysWrittenAsA4()
{
    ItemScene scene;
    const QDomElement written = scene.written(scene.read("<page pageType=\"A3\" pageNumber=\"2\"/>"), false);
    QCOMPARE(written.attribute("pageType"), QString("A4"));
    QCOMPARE(written.attribute("pageNumber"), QString("2"));
    QVERIFY(!written.hasAttribute("x"));
    QVERIFY(!written.hasAttribute("y"));
}

void tst_ReportPage::theOverlayFormIsTheIdAlone()
{
    ItemScene scene;
    const QDomElement written = scene.written(scene.read("<page id=\"page1\"/>"), true);
    QCOMPARE(written.attributes().size(), 1);
    QCOMPARE(written.attribute("id"), QString("page1"));
    QVERIFY(scene.written(scene.read("<page/>"), true).isNull());
}

void tst_ReportPage::anOverlayDoesNotMoveThePage()
{
    ItemScene scene;
    auto *page = scene.read<ReportPage>("<page id=\"page2\" pageType=\"A3\" pageNumber=\"2\"/>");
    page->readXml(ItemScene::element("<page id=\"page2\" pageType=\"A4\" pageNumber=\"1\"/>"), true, {});
    QCOMPARE(page->pos(), QPointF(0, 1240));
    QCOMPARE(page->boundingRect().size(), QSizeF(842, 1190));
}

void tst_ReportPage::theMenuAddsAnImageAtTheClick()
{
    const QString path = TestHome::instance()->path("logo.svg");
    writeFile(path, svgBytes);
    ItemScene scene;
    auto *page = scene.read<ReportPage>("<page/>");
    QVERIFY(scene.show());
    BoxWatcher boxes;
    boxes.expectFileDialog(path);
    const MenuWatcher menus("Add Image");
    scene.contextMenu({300, 200});
    QCOMPARE(menus.texts(), QStringList{"Add Image"});
    const ReportResizableImage *image = imageOn(page);
    QVERIFY(image);
    QCOMPARE(image->pos(), QPointF(300, 200));
    QCOMPARE(image->format(), QString("svg"));
    QVERIFY(image->isResizable());
    QVERIFY(image->isVisible());
    QCOMPARE(scene.undoStack()->count(), 1);
}

void tst_ReportPage::onTheSecondPageAnImageComesToStandOnePageLower()
{
    const QString path = TestHome::instance()->path("logo.svg");
    writeFile(path, svgBytes);
    ItemScene scene;
    scene.setSceneRect(0, 1173, 800, 600);
    auto *page = scene.read<ReportPage>("<page pageNumber=\"2\"/>");
    QVERIFY(scene.show());
    BoxWatcher boxes;
    boxes.expectFileDialog(path);
    const MenuWatcher menus("Add Image");
    scene.contextMenu({300, 1373});
    const ReportResizableImage *image = imageOn(page);
    QVERIFY(image);
    QCOMPARE(image->pos(), QPointF(300, 1373));
    QCOMPARE(image->scenePos(), QPointF(300, 1373 + 1173));
}

void tst_ReportPage::aCancelledChoiceAddsNothing()
{
    ItemScene scene;
    auto *page = scene.read<ReportPage>("<page/>");
    QVERIFY(scene.show());
    BoxWatcher boxes;
    boxes.expectFileDialog(QString());
    const MenuWatcher menus("Add Image");
    scene.contextMenu({300, 200});
    QVERIFY(!imageOn(page));
    QCOMPARE(scene.undoStack()->count(), 0);
}

void tst_ReportPage::undoneAddingHidesTheImage()
{
    ItemScene scene;
    auto *image = new ReportResizableImage(scene.read("<page/>"));
    scene.undoStack()->push(new AddDeleteCommand(image, true));
    QVERIFY(image->isVisible());
    scene.undoStack()->undo();
    QVERIFY(!image->isVisible());
    QCOMPARE(image->scene(), &scene);
    scene.undoStack()->redo();
    QVERIFY(image->isVisible());
}

void tst_ReportPage::theStepThatAddedAnImageOwnsIt()
{
    ItemScene scene;
    const QPointer<ReportResizableImage> image = new ReportResizableImage(scene.read("<page/>"));
    scene.undoStack()->push(new AddDeleteCommand(image, true));
    scene.undoStack()->push(new AddDeleteCommand(image, false));
    scene.undoStack()->clear();
    QVERIFY(!image);
    // A step whose image has gone with another one does nothing.
    AddDeleteCommand orphan(image, false);
    orphan.redo();
    orphan.undo();
    QVERIFY(!orphan.item());
}

void tst_ReportPage::anAddedImagesDragsAreStepsOfTheHistory()
{
    const QString path = TestHome::instance()->path("logo.svg");
    writeFile(path, svgBytes);
    ItemScene scene;
    auto *page = scene.read<ReportPage>("<page/>");
    QVERIFY(scene.show());
    BoxWatcher boxes;
    boxes.expectFileDialog(path);
    const MenuWatcher menus("Add Image");
    scene.contextMenu({300, 200});
    scene.drag({330, 220}, {360, 250});
    QCOMPARE(imageOn(page)->pos(), QPointF(330, 230));
    QCOMPARE(scene.undoStack()->count(), 2);
    while (scene.undoStack()->canUndo())
        scene.undoStack()->undo();
    QVERIFY(!imageOn(page)->isVisible());
}

KELMAR_TEST_MAIN(tst_ReportPage)
#include "tst_reportpage.moc"
