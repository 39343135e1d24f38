#include "tests/support/TestMain.h"

#include "tests/report/items/ItemScene.h"
#include "tests/support/MenuWatcher.h"

#include "report/items/GraphicsTextItem.h"

#include <QPainter>
#include <QStyleOptionGraphicsItem>
#include <QTextCursor>

namespace {

/// Three columns of 50 and three rows of 20; the first column holds labels.
QString table(const QString &content = QString())
{
    return QStringLiteral(
               "<table id=\"t\" width=\"150\" height=\"60\" numCols=\"3\" numRows=\"3\" editable=\"1\">"
               "<tableset col=\"0\" size=\"50\" editable=\"0\"/>") +
           content + QStringLiteral("</table>");
}

QPointF middleOf(int col, int row)
{
    return {col * 50.0 + 25.0, row * 20.0 + 10.0};
}

QImage painted(ReportTableCell *cell)
{
    QImage image(60, 30, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QPainter painter(&image);
    painter.translate(2.5, 2.5);
    QStyleOptionGraphicsItem option;
    cell->paint(&painter, &option, nullptr);
    return image;
}

} // namespace

class tst_ReportTableCell : public QObject
{
    Q_OBJECT

private slots:
    void aFillerWithTextIsWrittenWithRowAndColAndNoSpan();
    void anEmptyFillerIsNotWritten();
    void aDescribedCellIsWrittenEvenWhenEmpty();
    void spansAreWrittenAboveOne();
    void aCellIsWrittenWithoutPlaceAndWidth();
    void theOverlayFormHoldsEditableCellsWithText();
    void aHeightHasNoEffectOnReading();
    void geometryFollowsTheSets();
    void overlayTextIsFittedIntoTheCell();
    void typeAndTagAreThoseOfACell();
    void aClickOnAnEditableCellEditsAtOnce();
    void focusAloneDoesNotEdit();
    void aLabelIsNotEdited();
    void escapeEndsEditingAndKeepsTheKeyboardInTheTable();
    void keysInTheEditorMoveToOtherCells_data();
    void keysInTheEditorMoveToOtherCells();
    void leftAndRightLeaveTheCellOnlyAtTheEndsOfTheText();
    void movingFromTheEditorSelectsTheTargetsText();
    void movingOntoALabelEndsEditing();
    void movingOutOfTheGridStays();
    void losingFocusEndsEditing();
    void theEditorOffersItsMenuAndTheCellNone();
    void theCellWithTheKeyboardHasAnInnerFrame();
    void theBackgroundIsTheCellsOwn();
    void printingMeansNoFrameOnceFocusIsCleared();
};

void tst_ReportTableCell::aFillerWithTextIsWrittenWithRowAndColAndNoSpan()
{
    ItemScene scene;
    auto *cell = scene.read<ReportTable>(table())->cellAt(2, 1);
    QVERIFY(cell->isFiller());
    cell->setPlainText("8.1");
    const QDomElement written = scene.written(cell, false);
    QCOMPARE(written.attribute("col"), QString("2"));
    QCOMPARE(written.attribute("row"), QString("1"));
    QVERIFY(!written.hasAttribute("colspan"));
    QVERIFY(!written.hasAttribute("rowspan"));
    QCOMPARE(written.text(), QString("8.1"));
}

void tst_ReportTableCell::anEmptyFillerIsNotWritten()
{
    ItemScene scene;
    auto *cell = scene.read<ReportTable>(table())->cellAt(2, 1);
    QVERIFY(scene.written(cell, false).isNull());
    QVERIFY(scene.written(cell, true).isNull());
}

void tst_ReportTableCell::aDescribedCellIsWrittenEvenWhenEmpty()
{
    ItemScene scene;
    auto *cell = scene.read<ReportTable>(table("<cell col=\"2\" row=\"1\" id=\"Voc (VDC)\"/>"))->cellAt(2, 1);
    const QDomElement written = scene.written(cell, false);
    QCOMPARE(written.attribute("id"), QString("Voc (VDC)"));
    QVERIFY(written.text().isEmpty());
}

void tst_ReportTableCell::spansAreWrittenAboveOne()
{
    ItemScene scene;
    auto *cell = scene.read<ReportTable>(table("<cell col=\"1\" row=\"1\" colspan=\"2\" rowspan=\"2\"/>"))
                     ->cellAt(1, 1);
    const QDomElement written = scene.written(cell, false);
    QCOMPARE(written.attribute("colspan"), QString("2"));
    QCOMPARE(written.attribute("rowspan"), QString("2"));
}

void tst_ReportTableCell::aCellIsWrittenWithoutPlaceAndWidth()
{
    ItemScene scene;
    auto *cell =
        scene.read<ReportTable>(table("<cell col=\"1\" row=\"1\" colour=\"#ff0000\"/>"))->cellAt(1, 1);
    const QDomElement written = scene.written(cell, false);
    for (const char *name : {"x", "y", "width"})
        QVERIFY2(!written.hasAttribute(name), name);
    QVERIFY(written.attribute("height").toDouble() >= 20.0);
    QCOMPARE(written.attribute("colour"), QString("#ff0000"));
}

void tst_ReportTableCell::theOverlayFormHoldsEditableCellsWithText()
{
    ItemScene scene;
    auto *grid = scene.read<ReportTable>(
        table("<cell col=\"0\" row=\"0\">Label</cell><cell col=\"1\" row=\"0\" colspan=\"2\">8.1</cell>"));
    QVERIFY(scene.written(grid->cellAt(0, 0), true).isNull());
    const QDomElement written = scene.written(grid->cellAt(1, 0), true);
    QCOMPARE(written.attributes().size(), 2);
    QCOMPARE(written.attribute("col"), QString("1"));
    QCOMPARE(written.attribute("row"), QString("0"));
    QCOMPARE(written.text(), QString("8.1"));
}

void tst_ReportTableCell::aHeightHasNoEffectOnReading()
{
    ItemScene scene;
    auto *grid = scene.read<ReportTable>(table("<cell col=\"1\" row=\"1\" height=\"400\"/>"));
    QCOMPARE(grid->cellAt(1, 1)->boundingRect(), grid->cellAt(2, 2)->boundingRect());
    QCOMPARE(grid->cellAt(1, 1)->textItem()->boxHeight(), 20.0);
}

void tst_ReportTableCell::geometryFollowsTheSets()
{
    ItemScene scene;
    auto *cell = scene.read<ReportTable>(table("<cell col=\"1\" row=\"1\" x=\"9\" y=\"9\" colspan=\"2\"/>"))
                     ->cellAt(1, 1);
    QCOMPARE(cell->pos(), QPointF(50, 20));
    QCOMPARE(cell->boundingRect(), QRectF(-0.5, -0.5, 101.5, 21.5));
    QCOMPARE(cell->textItem()->boxWidth(), 100.0);
    QCOMPARE(cell->textItem()->boxHeight(), 20.0);
    QVERIFY(!cell->textItem()->isStandalone());
    QCOMPARE(int(cell->textItem()->textInteractionFlags()), 0);
}

void tst_ReportTableCell::overlayTextIsFittedIntoTheCell()
{
    ItemScene scene;
    auto *grid = scene.read<ReportTable>(table());
    grid->readXml(
        ItemScene::element("<table id=\"t\"><cell col=\"1\" row=\"1\">several words too many</cell></table>"),
        true, {});
    QVERIFY(grid->cellAt(1, 1)->textItem()->scale() < 1.0);
    QCOMPARE(int(grid->cellAt(1, 1)->textItem()->textInteractionFlags()), 0);
}

void tst_ReportTableCell::typeAndTagAreThoseOfACell()
{
    ItemScene scene;
    auto *cell = scene.read<ReportTable>(table())->cellAt(1, 1);
    QCOMPARE(cell->type(), 0x10007);
    QCOMPARE(cell->elementName(), QString("cell"));
}

void tst_ReportTableCell::aClickOnAnEditableCellEditsAtOnce()
{
    ItemScene scene;
    auto *grid = scene.read<ReportTable>(table("<cell col=\"1\" row=\"1\">old</cell>"));
    QVERIFY(scene.show());
    scene.click(middleOf(1, 1));
    ReportTableCell *cell = grid->cellAt(1, 1);
    QVERIFY(cell->textItem()->hasFocus());
    QCOMPARE(grid->currentCell(), cell);
    QCOMPARE(cell->textItem()->textCursor().selectedText(), QString("old"));
    scene.type("new");
    QCOMPARE(cell->plainText(), QString("new"));
}

void tst_ReportTableCell::focusAloneDoesNotEdit()
{
    ItemScene scene;
    auto *cell = scene.read<ReportTable>(table())->cellAt(1, 1);
    QVERIFY(scene.show());
    scene.setFocusItem(cell);
    QVERIFY(cell->hasFocus());
    QVERIFY(!cell->textItem()->isEditor());
}

void tst_ReportTableCell::aLabelIsNotEdited()
{
    ItemScene scene;
    auto *cell = scene.read<ReportTable>(table())->cellAt(0, 1);
    QVERIFY(scene.show());
    cell->startEditing("x");
    QVERIFY(!cell->textItem()->isEditor());
    QVERIFY(cell->plainText().isEmpty());
}

void tst_ReportTableCell::escapeEndsEditingAndKeepsTheKeyboardInTheTable()
{
    ItemScene scene;
    auto *grid = scene.read<ReportTable>(table());
    QVERIFY(scene.show());
    scene.click(middleOf(1, 1));
    scene.type("a");
    scene.key(Qt::Key_Escape);
    QCOMPARE(int(grid->cellAt(1, 1)->textItem()->textInteractionFlags()), 0);
    QCOMPARE(grid->cellAt(1, 1)->plainText(), QString("a"));
    scene.key(Qt::Key_Down);
    QCOMPARE(grid->currentCell(), grid->cellAt(1, 2));
}

void tst_ReportTableCell::keysInTheEditorMoveToOtherCells_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("col");
    QTest::addColumn<int>("row");
    QTest::newRow("return") << Qt::Key_Return << 1 << 2;
    QTest::newRow("enter") << Qt::Key_Enter << 1 << 2;
    QTest::newRow("down") << Qt::Key_Down << 1 << 2;
    QTest::newRow("up") << Qt::Key_Up << 1 << 0;
    QTest::newRow("right") << Qt::Key_Right << 2 << 1;
}

void tst_ReportTableCell::keysInTheEditorMoveToOtherCells()
{
    QFETCH(Qt::Key, key);
    QFETCH(int, col);
    QFETCH(int, row);
    ItemScene scene;
    auto *grid = scene.read<ReportTable>(table());
    QVERIFY(scene.show());
    scene.click(middleOf(1, 1));
    scene.type("a");
    scene.key(key);
    QCOMPARE(grid->cellAt(1, 1)->plainText(), QString("a"));
    QCOMPARE(grid->currentCell(), grid->cellAt(col, row));
    QVERIFY(grid->cellAt(col, row)->textItem()->hasFocus());
    QVERIFY(!grid->cellAt(1, 1)->textItem()->isEditor());
}

void tst_ReportTableCell::leftAndRightLeaveTheCellOnlyAtTheEndsOfTheText()
{
    ItemScene scene;
    auto *grid = scene.read<ReportTable>(table());
    QVERIFY(scene.show());
    scene.click(middleOf(2, 1));
    scene.type("ab");
    scene.key(Qt::Key_Left);
    scene.key(Qt::Key_Left);
    QVERIFY(grid->cellAt(2, 1)->textItem()->hasFocus());
    scene.key(Qt::Key_Left);
    QVERIFY(grid->cellAt(1, 1)->textItem()->hasFocus());
    scene.type("c");
    scene.key(Qt::Key_Home);
    scene.key(Qt::Key_Right);
    QVERIFY(grid->cellAt(1, 1)->textItem()->hasFocus());
    scene.key(Qt::Key_Right);
    QVERIFY(grid->cellAt(2, 1)->textItem()->hasFocus());
}

void tst_ReportTableCell::movingFromTheEditorSelectsTheTargetsText()
{
    ItemScene scene;
    auto *grid = scene.read<ReportTable>(table("<cell col=\"1\" row=\"2\">below</cell>"));
    QVERIFY(scene.show());
    scene.click(middleOf(1, 1));
    scene.key(Qt::Key_Return);
    QCOMPARE(grid->cellAt(1, 2)->textItem()->textCursor().selectedText(), QString("below"));
}

void tst_ReportTableCell::movingOntoALabelEndsEditing()
{
    ItemScene scene;
    auto *grid = scene.read<ReportTable>(table());
    QVERIFY(scene.show());
    scene.click(middleOf(1, 1));
    scene.key(Qt::Key_Left);
    QCOMPARE(grid->currentCell(), grid->cellAt(0, 1));
    QVERIFY(grid->cellAt(0, 1)->hasFocus());
    QVERIFY(!grid->cellAt(0, 1)->textItem()->isEditor());
}

void tst_ReportTableCell::movingOutOfTheGridStays()
{
    ItemScene scene;
    auto *grid = scene.read<ReportTable>(table());
    QVERIFY(scene.show());
    scene.click(middleOf(2, 2));
    scene.key(Qt::Key_Down);
    scene.key(Qt::Key_Right);
    QVERIFY(grid->cellAt(2, 2)->textItem()->hasFocus());
    QCOMPARE(grid->currentCell(), grid->cellAt(2, 2));
}

void tst_ReportTableCell::losingFocusEndsEditing()
{
    ItemScene scene;
    auto *grid = scene.read<ReportTable>(table());
    QVERIFY(scene.show());
    scene.click(middleOf(1, 1));
    scene.type("a");
    scene.setFocusItem(nullptr, Qt::OtherFocusReason);
    QCOMPARE(int(grid->cellAt(1, 1)->textItem()->textInteractionFlags()), 0);
    QCOMPARE(scene.undoStack()->count(), 1);
}

void tst_ReportTableCell::theEditorOffersItsMenuAndTheCellNone()
{
    ItemScene scene;
    scene.read<ReportTable>(table());
    QVERIFY(scene.show());
    {
        MenuWatcher menus;
        scene.contextMenu(middleOf(1, 1));
        QCOMPARE(menus.menus(), 0);
    }
    scene.click(middleOf(1, 1));
    MenuWatcher menus;
    scene.contextMenu(middleOf(1, 1));
    QCOMPARE(menus.texts().first(), QString("Cut"));
}

void tst_ReportTableCell::theCellWithTheKeyboardHasAnInnerFrame()
{
    ItemScene scene;
    auto *cell = scene.read<ReportTable>(table())->cellAt(1, 1);
    QVERIFY(scene.show());
    const QImage before = painted(cell);
    scene.setFocusItem(cell);
    const QImage focused = painted(cell);
    QVERIFY(focused != before);
    cell->startEditing(QString());
    QCOMPARE(painted(cell), focused);
}

void tst_ReportTableCell::theBackgroundIsTheCellsOwn()
{
    ItemScene scene;
    auto *grid = scene.read<ReportTable>(table("<tableset row=\"0\" backgroundColour=\"#000000\"/>"));
    QCOMPARE(painted(grid->cellAt(1, 0)).pixelColor(25, 12), QColor(Qt::black));
    QCOMPARE(painted(grid->cellAt(1, 1)).pixelColor(25, 12), QColor(Qt::white));
    QCOMPARE(painted(grid->cellAt(1, 1)).pixelColor(2, 12), QColor(Qt::black));
}

void tst_ReportTableCell::printingMeansNoFrameOnceFocusIsCleared()
{
    ItemScene scene;
    auto *cell = scene.read<ReportTable>(table())->cellAt(1, 1);
    QVERIFY(scene.show());
    const QImage before = painted(cell);
    cell->startEditing("a");
    QVERIFY(painted(cell) != before);
    scene.setFocusItem(nullptr, Qt::OtherFocusReason);
    QCOMPARE(painted(cell), before);
    QCOMPARE(cell->plainText(), QString("a"));
}

KELMAR_TEST_MAIN(tst_ReportTableCell)
#include "tst_reporttablecell.moc"
