#include "tests/support/TestMain.h"

#include "tests/report/items/ItemScene.h"

#include "report/items/GraphicsTextItem.h"
#include "report/items/ReportTableSet.h"

#include <QPainter>
#include <QSignalSpy>
#include <QTextCursor>

namespace {

/// A table like that of the array test report: labels in two columns, six columns to fill.
QString testTable(const QString &content = QString())
{
    return QStringLiteral(
               "<table id=\"test_table\" width=\"700\" height=\"520\" numCols=\"8\" numRows=\"26\" "
               "editable=\"1\" fontSize=\"7\"><tableset col=\"0\" size=\"100\" editable=\"0\"/>"
               "<tableset col=\"1\" size=\"120\" editable=\"0\"/>") +
           content + QStringLiteral("</table>");
}

/// A table of equal editable cells.
QString plainTable(int columns, int rows, const QString &content = QString())
{
    return QStringLiteral(
               "<table id=\"t\" width=\"%1\" height=\"%2\" numCols=\"%3\" numRows=\"%4\" editable=\"1\">%5"
               "</table>")
        .arg(columns * 50)
        .arg(rows * 20)
        .arg(columns)
        .arg(rows)
        .arg(content);
}

QPointF middleOf(int col, int row)
{
    return {col * 50.0 + 25.0, row * 20.0 + 10.0};
}

QRectF area(const ReportTableCell *cell)
{
    // The bounds reach half a line beyond the cell.
    return {cell->pos(), cell->boundingRect().size() - QSizeF(1.5, 1.5)};
}

} // namespace

class tst_ReportTable : public QObject
{
    Q_OBJECT

private slots:
    void theGridIsFilledWithCells();
    void aSpanningCellLeavesNoFillerUnderItself();
    void arrowKeysCannotLandUnderASpan();
    void aRowWithASizeKeepsItsHeightAndTheOthersShareWhatRemains();
    void withEveryColumnDescribedAllOfThemStandAtZero();
    void setsThatNameNoColumnOrRowAreDiscarded();
    void aRowsStyleGoesBeforeAColumnsAndBothBeforeTheTables();
    void implicitSetsAreNotWritten();
    void theFullFormDescribesTheGrid();
    void theOverlayFormNeedsAnId();
    void overlayTextsReachTheirCells();
    void overlayCellsThatTheFormLacksAreDropped();
    void anEmptyCellInOverlayFormIsAbsentAndLeavesTheFormsLabel();
    void aLabelClearedAndSavedInFullFormStaysEmpty();
    void changesOfCellsAreChangesOfTheTable();
    void cellsWithoutAnIdShareTheEmptyKey();
    void theFirstEmptyColumnLooksAtTheListedRowsOnly();
    void theFirstEmptyColumnOfAFullRowIsNone();
    void theFirstEmptyColumnOfATableWithoutCells();
    void keysMoveTheCurrentCell_data();
    void keysMoveTheCurrentCell();
    void aTargetOutsideTheGridDoesNothing();
    void typingReplacesTheContentOfTheCurrentCell();
    void keysWithoutPrintableTextDoNotEdit();
    void labelsAreNotEditedByTyping();
    void aPressOnALabelMakesItTheCurrentCell();
    void aDoubleClickOnALabelDoesNotEdit();
    void theTableIsNoTabStopAndTakesFocus();
    void theBoundsReachHalfALineBeyondTheGrid();
    void gridsBeyondReasonAreEmpty_data();
    void gridsBeyondReasonAreEmpty();
    void cellsAndSpansOutsideTheGridAreCut();
    void theSameCellTwiceStandsOnce();
};

void tst_ReportTable::theGridIsFilledWithCells()
{
    ItemScene scene;
    const auto *table = scene.read<ReportTable>(testTable("<cell col=\"0\" row=\"1\">Array</cell>"));
    QCOMPARE(table->columnCount(), 8);
    QCOMPARE(table->rowCount(), 26);
    QCOMPARE(table->cells().size(), 8 * 26);
    QVERIFY(!table->cellAt(0, 1)->isFiller());
    QCOMPARE(table->cellAt(0, 1)->plainText(), QString("Array"));
    QVERIFY(table->cellAt(7, 25)->isFiller());
    QVERIFY(!table->cellAt(8, 0));
    QVERIFY(!table->cellAt(0, 26));
    QVERIFY(!table->cellAt(-1, 0));
    QVERIFY(!table->cellAt(65536, 0));
    QCOMPARE(ReportTable::of(table->cellAt(3, 3)), table);
}

void tst_ReportTable::aSpanningCellLeavesNoFillerUnderItself()
{
    ItemScene scene;
    const auto *table = scene.read<ReportTable>(testTable(
        "<cell col=\"0\" row=\"0\" colspan=\"2\">STRING</cell><cell col=\"0\" row=\"1\" rowspan=\"2\"/>"));
    QVERIFY(!table->cellAt(1, 0));
    QVERIFY(!table->cellAt(0, 2));
    QVERIFY(table->cellAt(1, 1));
    QCOMPARE(area(table->cellAt(0, 0)).width(), 220.0);
    QCOMPARE(area(table->cellAt(0, 1)).height(), 40.0);
}

void tst_ReportTable::arrowKeysCannotLandUnderASpan()
{
    ItemScene scene;
    auto *table = scene.read<ReportTable>(plainTable(3, 3, "<cell col=\"0\" row=\"1\" colspan=\"2\"/>"));
    QVERIFY(scene.show());
    table->cellAt(1, 0)->setFocus();
    scene.key(Qt::Key_Down);
    QCOMPARE(table->currentCell(), table->cellAt(1, 0));
    table->cellAt(0, 0)->setFocus();
    scene.key(Qt::Key_Down);
    QCOMPARE(table->currentCell(), table->cellAt(0, 1));
    scene.key(Qt::Key_Right);
    QCOMPARE(table->currentCell(), table->cellAt(0, 1));
}

void tst_ReportTable::aRowWithASizeKeepsItsHeightAndTheOthersShareWhatRemains()
{
    ItemScene scene;
    const auto *table = scene.read<ReportTable>("<table width=\"700\" height=\"643.2\" numCols=\"8\" "
                                                "numRows=\"26\"><tableset row=\"25\" size=\"143.2\"/>"
                                                "</table>");
    QCOMPARE(table->rowSet(25)->size(), 143.2);
    QCOMPARE(table->rowSet(3)->size(), 20.0);
    QCOMPARE(table->rowSet(3)->position(), 60.0);
    QCOMPARE(area(table->cellAt(0, 25)).height(), 143.2);
    QCOMPARE(area(table->cellAt(0, 25)).bottom(), 643.2);
    QCOMPARE(area(table->cellAt(7, 3)).size(), QSizeF(87.5, 20.0));
}

void tst_ReportTable::withEveryColumnDescribedAllOfThemStandAtZero()
{
    ItemScene scene;
    const auto *table = scene.read<ReportTable>(
        "<table width=\"100\" height=\"20\" numCols=\"2\" numRows=\"1\"><tableset col=\"0\" size=\"30\"/>"
        "<tableset col=\"1\" size=\"70\"/></table>");
    QCOMPARE(table->cellAt(0, 0)->x(), 0.0);
    QCOMPARE(table->cellAt(1, 0)->x(), 0.0);
    QCOMPARE(area(table->cellAt(0, 0)).width(), 0.0);
    QCOMPARE(area(table->cellAt(1, 0)).width(), 100.0);
}

void tst_ReportTable::setsThatNameNoColumnOrRowAreDiscarded()
{
    ItemScene scene;
    const auto *table = scene.read<ReportTable>(plainTable(
        2, 2, "<tableset size=\"60\"/><tableset col=\"7\" size=\"60\"/><tableset row=\"-3\" size=\"9\"/>"));
    QCOMPARE(table->columnSet(0)->size(), 50.0);
    QCOMPARE(table->rowSet(0)->size(), 20.0);
    int sets = 0;
    for (const QGraphicsItem *child : table->childItems())
        sets += child->type() == ReportTableSetType ? 1 : 0;
    QCOMPARE(sets, 2 + 2 + 2);
    QCOMPARE(table->columnSet(2)->position(), 100.0);
    QCOMPARE(table->rowSet(9)->position(), 40.0);
}

void tst_ReportTable::aRowsStyleGoesBeforeAColumnsAndBothBeforeTheTables()
{
    ItemScene scene;
    const auto *table = scene.read<ReportTable>(plainTable(
        3, 3,
        "<tableset col=\"0\" editable=\"0\" colour=\"#0000ff\"/><tableset row=\"0\" colour=\"#ff0000\"/>"
        "<cell col=\"1\" row=\"1\" colour=\"#00ff00\"/>"));
    QCOMPARE(table->cellAt(0, 0)->colour(), QColor(Qt::red));
    QVERIFY(table->cellAt(0, 0)->isEditable());
    QCOMPARE(table->cellAt(0, 1)->colour(), QColor(Qt::blue));
    QVERIFY(!table->cellAt(0, 1)->isEditable());
    QCOMPARE(table->cellAt(1, 0)->colour(), QColor(Qt::red));
    QCOMPARE(table->cellAt(1, 1)->colour(), QColor(Qt::green));
    QCOMPARE(table->cellAt(2, 2)->colour(), QColor(Qt::black));
    QVERIFY(table->cellAt(2, 2)->isEditable());
}

void tst_ReportTable::implicitSetsAreNotWritten()
{
    ItemScene scene;
    const auto *table =
        scene.read<ReportTable>(testTable("<tableset row=\"0\" size=\"19.5\" colour=\"#ffffff\"/>"));
    QVERIFY(scene.written(table->columnSet(5), false).isNull());
    QVERIFY(scene.written(table->columnSet(8), false).isNull());
    const QDomElement column = scene.written(table->columnSet(1), false);
    QCOMPARE(column.attribute("col"), QString("1"));
    QCOMPARE(column.attribute("size"), QString("120"));
    QCOMPARE(column.attribute("editable"), QString("0"));
    QVERIFY(!column.hasAttribute("row"));
    const QDomElement row = scene.written(table->rowSet(0), false);
    QCOMPARE(row.attribute("row"), QString("0"));
    QVERIFY(!row.hasAttribute("col"));
    QVERIFY(scene.written(table->rowSet(0), true).isNull());
}

void tst_ReportTable::theFullFormDescribesTheGrid()
{
    ItemScene scene;
    const QDomElement written = scene.written(scene.read(testTable()), false);
    QCOMPARE(written.attribute("width"), QString("700"));
    QCOMPARE(written.attribute("height"), QString("520"));
    QCOMPARE(written.attribute("numCols"), QString("8"));
    QCOMPARE(written.attribute("numRows"), QString("26"));
}

void tst_ReportTable::theOverlayFormNeedsAnId()
{
    ItemScene scene;
    const QDomElement written = scene.written(scene.read(testTable()), true);
    QCOMPARE(written.attributes().size(), 1);
    QCOMPARE(written.attribute("id"), QString("test_table"));
    QVERIFY(scene.written(scene.read("<table numCols=\"1\" numRows=\"1\"/>"), true).isNull());
}

void tst_ReportTable::overlayTextsReachTheirCells()
{
    ItemScene scene;
    auto *table = scene.read<ReportTable>(testTable());
    table->readXml(
        ItemScene::element("<table id=\"test_table\"><cell row=\"0\" col=\"2\">1</cell><cell row=\"12\" "
                           "col=\"7\">412.5</cell></table>"),
        true, {});
    QCOMPARE(table->cellAt(2, 0)->plainText(), QString("1"));
    QCOMPARE(table->cellAt(7, 12)->plainText(), QString("412.5"));
}

void tst_ReportTable::overlayCellsThatTheFormLacksAreDropped()
{
    ItemScene scene;
    auto *table = scene.read<ReportTable>(plainTable(2, 2, "<cell col=\"0\" row=\"0\" colspan=\"2\"/>"));
    table->readXml(ItemScene::element("<table id=\"t\"><cell row=\"0\" col=\"1\">a</cell><cell row=\"2\" "
                                      "col=\"0\">b</cell><cell row=\"-1\" col=\"-1\">c</cell></table>"),
                   true, {});
    const QList<ReportTableCell *> cells = table->cells();
    for (const ReportTableCell *cell : cells)
        QVERIFY(cell->plainText().isEmpty());
}

void tst_ReportTable::anEmptyCellInOverlayFormIsAbsentAndLeavesTheFormsLabel()
{
    ItemScene scene;
    const QString form = plainTable(2, 1, "<cell col=\"0\" row=\"0\">Label</cell>");
    auto *table = scene.read<ReportTable>(form);
    table->cellAt(0, 0)->setPlainText(QString());
    QVERIFY(scene.written(table->cellAt(0, 0), true).isNull());
    auto *fresh = scene.read<ReportTable>(form);
    fresh->readXml(ItemScene::element("<table id=\"t\"/>"), true, {});
    QCOMPARE(fresh->cellAt(0, 0)->plainText(), QString("Label"));
}

void tst_ReportTable::aLabelClearedAndSavedInFullFormStaysEmpty()
{
    ItemScene scene;
    const QString form = plainTable(2, 1, "<cell col=\"0\" row=\"0\">Label</cell>");
    auto *table = scene.read<ReportTable>(form);
    table->cellAt(0, 0)->setPlainText(QString());
    QDomElement saved = scene.written(table, false);
    saved.appendChild(scene.written(table->cellAt(0, 0), false));
    auto *fresh = scene.read<ReportTable>(form);
    fresh->readXml(saved, true, {});
    QVERIFY(fresh->cellAt(0, 0)->plainText().isEmpty());
}

void tst_ReportTable::changesOfCellsAreChangesOfTheTable()
{
    ItemScene scene;
    auto *table = scene.read<ReportTable>(plainTable(2, 1, "<cell col=\"0\" row=\"0\">Label</cell>"));
    QSignalSpy modified(table, &AbstractReportItem::modified);
    table->cellAt(0, 0)->setPlainText("a");
    QVERIFY(modified.count() >= 1);
    modified.clear();
    table->cellAt(1, 0)->setPlainText("b");
    QVERIFY(modified.count() >= 1);
}

void tst_ReportTable::cellsWithoutAnIdShareTheEmptyKey()
{
    ItemScene scene;
    const auto *table = scene.read<ReportTable>(
        plainTable(2, 2, "<cell col=\"0\" row=\"1\" id=\"Isc (ADC)\"/><cell col=\"1\" row=\"0\"/>"));
    const QMap<QString, ReportTableCell *> cells = table->cellsById();
    QCOMPARE(cells.size(), 2);
    QCOMPARE(cells.value("Isc (ADC)"), table->cellAt(0, 1));
    QCOMPARE(cells.value(""), table->cellAt(1, 1));
}

void tst_ReportTable::theFirstEmptyColumnLooksAtTheListedRowsOnly()
{
    ItemScene scene;
    auto *table = scene.read<ReportTable>(testTable(
        "<cell col=\"0\" row=\"12\" rowspan=\"3\">String test</cell><cell col=\"1\" row=\"12\">Voc (V)</cell>"
        "<cell col=\"1\" row=\"13\">Isc (A)</cell><cell col=\"2\" row=\"0\">1</cell>"
        "<cell col=\"7\" row=\"0\">6</cell>"));
    QCOMPARE(table->firstEmptyColumn({12, 13}), 2);
    table->cellAt(4, 13)->setPlainText("8.1");
    QCOMPARE(table->firstEmptyColumn({12, 13}), 5);
    QCOMPARE(table->firstEmptyColumn({12}), 2);
    QCOMPARE(table->firstEmptyColumn({20}), 0);
    QCOMPARE(table->firstEmptyColumn({}), 0);
}

void tst_ReportTable::theFirstEmptyColumnOfAFullRowIsNone()
{
    ItemScene scene;
    auto *table = scene.read<ReportTable>(testTable());
    table->cellAt(7, 12)->setPlainText("8.1");
    QCOMPARE(table->firstEmptyColumn({12}), -1);
    QCOMPARE(table->firstEmptyColumn({0}), 0);
}

void tst_ReportTable::theFirstEmptyColumnOfATableWithoutCells()
{
    ItemScene scene;
    QCOMPARE(scene.read<ReportTable>("<table numCols=\"3\" numRows=\"0\"/>")->firstEmptyColumn({12}), 0);
    QCOMPARE(scene.read<ReportTable>("<table numCols=\"0\" numRows=\"3\"/>")->firstEmptyColumn({12}), -1);
}

void tst_ReportTable::keysMoveTheCurrentCell_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("col");
    QTest::addColumn<int>("row");
    QTest::newRow("home") << Qt::Key_Home << 0 << 12;
    QTest::newRow("end") << Qt::Key_End << 4 << 12;
    QTest::newRow("left") << Qt::Key_Left << 1 << 12;
    QTest::newRow("right") << Qt::Key_Right << 3 << 12;
    QTest::newRow("up") << Qt::Key_Up << 2 << 11;
    QTest::newRow("down") << Qt::Key_Down << 2 << 13;
    QTest::newRow("page up") << Qt::Key_PageUp << 2 << 2;
    QTest::newRow("page down") << Qt::Key_PageDown << 2 << 22;
}

void tst_ReportTable::keysMoveTheCurrentCell()
{
    QFETCH(Qt::Key, key);
    QFETCH(int, col);
    QFETCH(int, row);
    ItemScene scene;
    auto *table = scene.read<ReportTable>(plainTable(5, 26));
    QVERIFY(scene.show());
    table->cellAt(2, 12)->setFocus();
    scene.key(key);
    QCOMPARE(table->currentCell(), table->cellAt(col, row));
    QVERIFY(table->cellAt(col, row)->hasFocus());
    QVERIFY(!table->cellAt(col, row)->textItem()->isEditor());
}

void tst_ReportTable::aTargetOutsideTheGridDoesNothing()
{
    ItemScene scene;
    auto *table = scene.read<ReportTable>(plainTable(5, 26));
    QVERIFY(scene.show());
    table->cellAt(0, 20)->setFocus();
    scene.key(Qt::Key_PageDown);
    QCOMPARE(table->currentCell(), table->cellAt(0, 20));
    scene.key(Qt::Key_Left);
    QCOMPARE(table->currentCell(), table->cellAt(0, 20));
    table->cellAt(4, 0)->setFocus();
    scene.key(Qt::Key_Right);
    scene.key(Qt::Key_Up);
    QCOMPARE(table->currentCell(), table->cellAt(4, 0));
}

void tst_ReportTable::typingReplacesTheContentOfTheCurrentCell()
{
    ItemScene scene;
    auto *table = scene.read<ReportTable>(plainTable(3, 3, "<cell col=\"1\" row=\"1\">old</cell>"));
    QVERIFY(scene.show());
    ReportTableCell *cell = table->cellAt(1, 1);
    cell->setFocus();
    scene.type("42");
    QCOMPARE(cell->plainText(), QString("42"));
    QVERIFY(cell->textItem()->hasFocus());
    while (scene.undoStack()->canUndo())
        scene.undoStack()->undo();
    QCOMPARE(cell->plainText(), QString("old"));
}

void tst_ReportTable::keysWithoutPrintableTextDoNotEdit()
{
    ItemScene scene;
    auto *table = scene.read<ReportTable>(plainTable(3, 3, "<cell col=\"1\" row=\"1\">old</cell>"));
    QVERIFY(scene.show());
    ReportTableCell *cell = table->cellAt(1, 1);
    cell->setFocus();
    for (Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Backspace, Qt::Key_F5, Qt::Key_Shift})
        scene.key(key);
    scene.key(Qt::Key_A, Qt::ControlModifier);
    QVERIFY(!cell->textItem()->isEditor());
    QCOMPARE(cell->plainText(), QString("old"));
}

void tst_ReportTable::labelsAreNotEditedByTyping()
{
    ItemScene scene;
    auto *table = scene.read<ReportTable>(testTable("<cell col=\"0\" row=\"1\">Array</cell>"));
    QVERIFY(scene.show());
    table->cellAt(0, 1)->setFocus();
    scene.type("x");
    QCOMPARE(table->cellAt(0, 1)->plainText(), QString("Array"));
    QVERIFY(!table->cellAt(0, 1)->textItem()->isEditor());
}

void tst_ReportTable::aPressOnALabelMakesItTheCurrentCell()
{
    ItemScene scene;
    auto *table =
        scene.read<ReportTable>(plainTable(3, 3, "<tableset col=\"0\" size=\"50\" editable=\"0\"/>"));
    QVERIFY(scene.show());
    scene.click(middleOf(0, 1));
    QCOMPARE(table->currentCell(), table->cellAt(0, 1));
    QVERIFY(table->cellAt(0, 1)->hasFocus());
    scene.key(Qt::Key_Right);
    QCOMPARE(table->currentCell(), table->cellAt(1, 1));
}

void tst_ReportTable::aDoubleClickOnALabelDoesNotEdit()
{
    ItemScene scene;
    auto *table =
        scene.read<ReportTable>(plainTable(3, 3, "<tableset col=\"0\" size=\"50\" editable=\"0\"/>"));
    QVERIFY(scene.show());
    scene.doubleClick(middleOf(0, 2));
    QCOMPARE(table->currentCell(), table->cellAt(0, 2));
    QVERIFY(!table->cellAt(0, 2)->textItem()->isEditor());
}

void tst_ReportTable::theTableIsNoTabStopAndTakesFocus()
{
    ItemScene scene;
    const auto *table = scene.read<ReportTable>(testTable());
    QVERIFY(!table->isTabStop());
    QVERIFY(table->flags() & QGraphicsItem::ItemIsFocusable);
    QCOMPARE(table->cacheMode(), QGraphicsItem::NoCache);
}

void tst_ReportTable::theBoundsReachHalfALineBeyondTheGrid()
{
    ItemScene scene;
    QCOMPARE(scene.read(testTable())->boundingRect(), QRectF(-0.5, -0.5, 701, 521));
}

void tst_ReportTable::gridsBeyondReasonAreEmpty_data()
{
    QTest::addColumn<QString>("columns");
    QTest::addColumn<QString>("rows");
    QTest::newRow("both") << "65535"
                          << "65535";
    QTest::newRow("columns alone") << "1000000"
                                   << "0";
    QTest::newRow("negative") << "-8"
                              << "26";
    QTest::newRow("both negative") << "-8"
                                   << "-26";
    QTest::newRow("overflow") << "99999999999"
                              << "99999999999";
}

void tst_ReportTable::gridsBeyondReasonAreEmpty()
{
    QFETCH(QString, columns);
    QFETCH(QString, rows);
    ItemScene scene;
    const auto *table = scene.read<ReportTable>("<table numCols=\"" + columns + "\" numRows=\"" + rows +
                                                "\"><cell col=\"0\" row=\"0\">a</cell></table>");
    QCOMPARE(table->cells().size(), 0);
    QVERIFY(!table->cellAt(0, 0));
}

void tst_ReportTable::cellsAndSpansOutsideTheGridAreCut()
{
    ItemScene scene;
    const auto *table = scene.read<ReportTable>(plainTable(
        2, 2,
        "<cell col=\"1\" row=\"0\" colspan=\"999999\" rowspan=\"1000000\"/><cell col=\"5\" row=\"0\"/>"
        "<cell col=\"-1\" row=\"0\"/><cell col=\"0\" row=\"0\" colspan=\"-4\" rowspan=\"0\"/>"));
    QCOMPARE(table->cells().size(), 3);
    QCOMPARE(table->cellAt(1, 0)->colspan(), 1);
    QCOMPARE(area(table->cellAt(0, 0)), QRectF(0, 0, 50, 20));
    QCOMPARE(table->cellAt(0, 0)->colspan(), 1);
}

void tst_ReportTable::theSameCellTwiceStandsOnce()
{
    ItemScene scene;
    const auto *table = scene.read<ReportTable>(
        plainTable(2, 1, "<cell col=\"0\" row=\"0\">first</cell><cell col=\"0\" row=\"0\">second</cell>"));
    QCOMPARE(table->cellAt(0, 0)->plainText(), QString("second"));
    int cells = 0;
    for (const QGraphicsItem *child : table->childItems())
        cells += child->type() == ReportTableCellType ? 1 : 0;
    QCOMPARE(cells, 2);
}

KELMAR_TEST_MAIN(tst_ReportTable)
#include "tst_reporttable.moc"
