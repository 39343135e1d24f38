#include "tests/support/TestMain.h"

#include "tests/report/items/ItemScene.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/MenuWatcher.h"

#include "report/items/GraphicsTextItem.h"
#include "report/items/ReportText.h"

#include "app/core/Shell.h"

#include <QFontDialog>
#include <QSignalSpy>
#include <QTextCursor>
#include <QTextDocument>

namespace {

const QString fieldXml =
    QStringLiteral("<text id=\"inspector\" editable=\"1\" x=\"100\" y=\"100\" width=\"200\" "
                   "height=\"40\" fontSize=\"9\">Ada</text>");
const QString labelXml =
    QStringLiteral("<text x=\"100\" y=\"300\" width=\"200\" height=\"40\">CLIENT</text>");
const QPointF inField(150, 115);
const QPointF inLabel(150, 315);
const QString longText = QStringLiteral("Forty modules in four strings on the south roof. ").repeated(8);

} // namespace

class tst_ReportText : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void textOfAFreshItemThatFitsLeavesScaleOne();
    void aTextThatNeedsMoreHeightIsRenderedSmallerSoThatItFits();
    void deletingTheTextKeepsTheScaleUntilTheFitRunsWithText();
    void aTextSetByAnImportShrinksToo();
    void aTextWithoutBoxIsNotFitted();
    void editableFieldsAreTabStopsAndLabelsAreNot();
    void interactionFollowsEditable();
    void theFontHasItsPointSizeAtNinetySixDotsPerInch();
    void fullFormWritesTheTextOfAnyItem();
    void overlayFormWritesTheTextOfEditableItemsWithAnId();
    void overlayFormTakesTheTextAndNothingElse();
    void controlCharactersDoNotReachTheFile();
    void tabbingIntoAFieldSelectsAllOfIt();
    void clickingIntoAFieldSelectsAllOfItAndASecondClickPlacesTheCursor();
    void aLabelIsNotEditedByFocusOrClick();
    void typingIsOneUndoStepPerStepOfTheText();
    void undoGivesTheItemFocusAndRestoresTheText();
    void typingTheSameAgainAfterAnUndoIsAStepOfItsOwn();
    void readingTwiceConnectsOnce();
    void readingAndSettingTextAreNoUndoSteps();
    void theSelectionIsClearedWhenTheFieldLosesFocus();
    void fontSettingsAreOfferedForEditableTextOnly();
    void fontSettingsChangeTheFontForTheSessionOnly();
    void fontSettingsStartWithTheFaceThatIsSeen();
};

void tst_ReportText::initTestCase()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void tst_ReportText::textOfAFreshItemThatFitsLeavesScaleOne()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(fieldXml);
    item->readXml(ItemScene::element("<text id=\"inspector\">Grace</text>"), true, {});
    QCOMPARE(item->textItem()->scale(), 1.0);
    QCOMPARE(item->textItem()->textWidth(), 200.0);
}

void tst_ReportText::aTextThatNeedsMoreHeightIsRenderedSmallerSoThatItFits()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(fieldXml);
    item->readXml(ItemScene::element("<text id=\"inspector\">" + longText + "</text>"), true, {});
    const GraphicsTextItem *text = item->textItem();
    QVERIFY(text->scale() < 1.0);
    QCOMPARE(text->textWidth(), 200.0 / text->scale());
    // The box, drawn at the scale, has the width it had; the text is not higher than it but for the
    // document's own margins.
    QVERIFY(text->document()->size().height() * text->scale() <= 40.0 + 8.0);
}

void tst_ReportText::deletingTheTextKeepsTheScaleUntilTheFitRunsWithText()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(fieldXml);
    QVERIFY(scene.show());
    item->setPlainText(longText);
    const double scale = item->textItem()->scale();
    QVERIFY(scale < 1.0);
    scene.setFocusItem(item);
    scene.key(Qt::Key_Delete);
    QVERIFY(item->plainText().isEmpty());
    QCOMPARE(item->textItem()->scale(), scale);
    scene.type("a");
    QCOMPARE(item->textItem()->scale(), 1.0);
}

void tst_ReportText::aTextSetByAnImportShrinksToo()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(fieldXml);
    item->setPlainText(longText);
    QVERIFY(item->textItem()->scale() < 1.0);
    item->setPlainText("short");
    QCOMPARE(item->textItem()->scale(), 1.0);
}

void tst_ReportText::aTextWithoutBoxIsNotFitted()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>("<text id=\"a\"/>");
    item->setPlainText(longText);
    QCOMPARE(item->textItem()->scale(), 1.0);
}

void tst_ReportText::editableFieldsAreTabStopsAndLabelsAreNot()
{
    ItemScene scene;
    QVERIFY(scene.read(fieldXml)->isTabStop());
    QVERIFY(!scene.read(labelXml)->isTabStop());
}

void tst_ReportText::interactionFollowsEditable()
{
    ItemScene scene;
    QCOMPARE(int(scene.read<ReportText>(fieldXml)->textItem()->textInteractionFlags()), 19);
    QCOMPARE(int(scene.read<ReportText>(labelXml)->textItem()->textInteractionFlags()), 0);
}

void tst_ReportText::theFontHasItsPointSizeAtNinetySixDotsPerInch()
{
    ItemScene scene;
    const auto *item = scene.read<ReportText>(
        "<text font=\"Courier\" fontSize=\"9\" fontWeight=\"75\" colour=\"#ff0000\">x</text>");
    const QFont font = item->textItem()->font();
    QCOMPARE(font.family(), QString("Courier"));
    QCOMPARE(font.pointSizeF(), 9.0 * 96 / Shell::logicalDpiY());
    QCOMPARE(font.weight(), 75);
    QCOMPARE(item->textItem()->basePointSize(), font.pointSizeF());
    QCOMPARE(item->textItem()->defaultTextColor(), QColor(Qt::red));
}

void tst_ReportText::fullFormWritesTheTextOfAnyItem()
{
    ItemScene scene;
    QCOMPARE(scene.written(scene.read(labelXml), false).text(), QString("CLIENT"));
    QCOMPARE(scene.written(scene.read(fieldXml), false).text(), QString("Ada"));
}

void tst_ReportText::overlayFormWritesTheTextOfEditableItemsWithAnId()
{
    ItemScene scene;
    QVERIFY(scene.written(scene.read(labelXml), true).isNull());
    QCOMPARE(scene.written(scene.read(fieldXml), true).text(), QString("Ada"));
    const QDomElement fixed = scene.written(scene.read("<text id=\"fixed\">T</text>"), true);
    QVERIFY(!fixed.isNull());
    QVERIFY(fixed.text().isEmpty());
}

void tst_ReportText::overlayFormTakesTheTextAndNothingElse()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(fieldXml);
    item->readXml(
        ItemScene::element("<text id=\"inspector\" x=\"1\" width=\"9\" height=\"9\" resizable=\"1\" "
                           "fontSize=\"30\">line one\nline two</text>"),
        true, {});
    QCOMPARE(item->plainText(), QString("line one\nline two"));
    QCOMPARE(item->pos(), QPointF(100, 100));
    QCOMPARE(item->itemRect().width(), 200.0);
    QVERIFY(!item->isResizable());
    QCOMPARE(item->fontSize(), 9.0);
}

void tst_ReportText::controlCharactersDoNotReachTheFile()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(fieldXml);
    item->setPlainText(QString("a") + QChar(0x0b) + QChar(0x01) + QChar(0xd800) + "b\tc\nd" + QChar(0xd83d) +
                       QChar(0xde00));
    QCOMPARE(scene.written(item, false).text(), QString("ab\tc\nd") + QChar(0xd83d) + QChar(0xde00));
}

void tst_ReportText::tabbingIntoAFieldSelectsAllOfIt()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(fieldXml);
    QVERIFY(scene.show());
    scene.setFocusItem(item, Qt::OtherFocusReason);
    QVERIFY(item->textItem()->hasFocus());
    QCOMPARE(item->textItem()->textCursor().selectedText(), QString("Ada"));
}

void tst_ReportText::clickingIntoAFieldSelectsAllOfItAndASecondClickPlacesTheCursor()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(fieldXml);
    QVERIFY(scene.show());
    scene.click(inField);
    QVERIFY(item->textItem()->hasFocus());
    QCOMPARE(item->textItem()->textCursor().selectedText(), QString("Ada"));
    QTest::qWait(QApplication::doubleClickInterval() + 10);
    scene.click(inField);
    QVERIFY(item->textItem()->hasFocus());
    QVERIFY(!item->textItem()->textCursor().hasSelection());
    QCOMPARE(item->textItem()->textCursor().position(), 3);
}

void tst_ReportText::aLabelIsNotEditedByFocusOrClick()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(labelXml);
    QVERIFY(scene.show());
    scene.setFocusItem(item);
    scene.type("x");
    scene.click(inLabel);
    scene.type("x");
    QVERIFY(!item->textItem()->hasFocus());
    QCOMPARE(item->plainText(), QString("CLIENT"));
}

void tst_ReportText::typingIsOneUndoStepPerStepOfTheText()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(fieldXml);
    QVERIFY(scene.show());
    QSignalSpy modified(item, &AbstractReportItem::modified);
    scene.click(inField);
    scene.key(Qt::Key_End);
    scene.type("bcd");
    QCOMPARE(item->plainText(), QString("Adabcd"));
    QCOMPARE(scene.undoStack()->count(), 1);
    scene.key(Qt::Key_Home);
    scene.type("x");
    QCOMPARE(scene.undoStack()->count(), 2);
    QCOMPARE(item->textItem()->document()->availableUndoSteps(), 2);
    QVERIFY(modified.count() >= 2);
    QCOMPARE(modified.first().first().toBool(), true);
}

void tst_ReportText::undoGivesTheItemFocusAndRestoresTheText()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(fieldXml);
    QVERIFY(scene.show());
    scene.click(inField);
    scene.type("Grace");
    QCOMPARE(item->plainText(), QString("Grace"));
    scene.clearFocus();
    while (scene.undoStack()->canUndo())
        scene.undoStack()->undo();
    QCOMPARE(item->plainText(), QString("Ada"));
    QVERIFY(item->textItem()->hasFocus());
    while (scene.undoStack()->canRedo())
        scene.undoStack()->redo();
    QCOMPARE(item->plainText(), QString("Grace"));
}

void tst_ReportText::typingTheSameAgainAfterAnUndoIsAStepOfItsOwn()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(fieldXml);
    QVERIFY(scene.show());
    scene.click(inField);
    scene.key(Qt::Key_End);
    scene.type("x");
    scene.undoStack()->undo();
    QCOMPARE(item->plainText(), QString("Ada"));
    QVERIFY(!scene.undoStack()->canUndo());
    scene.key(Qt::Key_End);
    scene.type("x");
    QVERIFY(scene.undoStack()->canUndo());
    QVERIFY(!scene.undoStack()->canRedo());
    scene.undoStack()->undo();
    QCOMPARE(item->plainText(), QString("Ada"));
}

void tst_ReportText::readingTwiceConnectsOnce()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(fieldXml);
    for (int i = 0; i < 3; ++i)
        item->readXml(ItemScene::element("<text id=\"inspector\">Grace</text>"), true, {});
    QVERIFY(scene.show());
    QSignalSpy commands(item, &AbstractReportItem::newCommand);
    QSignalSpy modified(item, &AbstractReportItem::modified);
    scene.click(inField);
    scene.key(Qt::Key_End);
    modified.clear();
    scene.type("x");
    QCOMPARE(commands.count(), 1);
    QCOMPARE(modified.count(), 1);
}

void tst_ReportText::readingAndSettingTextAreNoUndoSteps()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(fieldXml);
    item->readXml(ItemScene::element("<text id=\"inspector\">Grace</text>"), true, {});
    item->setPlainText("Imported");
    QCOMPARE(scene.undoStack()->count(), 0);
    QVERIFY(!item->textItem()->document()->isUndoAvailable());
}

void tst_ReportText::theSelectionIsClearedWhenTheFieldLosesFocus()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(fieldXml);
    QVERIFY(scene.show());
    scene.click(inField);
    QVERIFY(item->textItem()->textCursor().hasSelection());
    scene.setFocusItem(nullptr);
    QVERIFY(!item->textItem()->textCursor().hasSelection());
    QCOMPARE(int(item->textItem()->textInteractionFlags()), 19);
}

void tst_ReportText::fontSettingsAreOfferedForEditableTextOnly()
{
    ItemScene scene;
    scene.read<ReportText>(fieldXml);
    scene.read<ReportText>(labelXml);
    QVERIFY(scene.show());
    {
        MenuWatcher menus;
        scene.contextMenu(inField);
        QCOMPARE(menus.texts(), QStringList{"Font Settings..."});
    }
    MenuWatcher menus;
    scene.contextMenu(inLabel);
    QCOMPARE(menus.menus(), 0);
}

void tst_ReportText::fontSettingsChangeTheFontForTheSessionOnly()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(fieldXml);
    QVERIFY(scene.show());
    QSignalSpy modified(item, &AbstractReportItem::modified);
    const QFont wanted("Courier", 20);
    BoxWatcher boxes;
    boxes.expectDialog("QFontDialog", [&](QWidget *dialog) {
        static_cast<QFontDialog *>(dialog)->setCurrentFont(wanted);
        static_cast<QFontDialog *>(dialog)->accept();
    });
    MenuWatcher menus("Font Settings...");
    scene.contextMenu(inField);
    QCOMPARE(item->textItem()->font().pointSizeF(), 20.0);
    QCOMPARE(item->fontSize(), 9.0);
    QCOMPARE(scene.written(item, false).attribute("fontSize"), QString("9"));
    QCOMPARE(scene.undoStack()->count(), 0);
    QCOMPARE(modified.count(), 0);
}

void tst_ReportText::fontSettingsStartWithTheFaceThatIsSeen()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(QString(fieldXml).replace("<text ", "<text font='No Such Face' "));
    QVERIFY(scene.show());
    QCOMPARE(item->textItem()->font().family(), QString("No Such Face"));
    const QString seen = QFontInfo(item->textItem()->font()).family();
    BoxWatcher boxes;
    boxes.expectDialog("QFontDialog", [&](QWidget *dialog) {
        QCOMPARE(static_cast<QFontDialog *>(dialog)->currentFont().family(), seen);
        static_cast<QFontDialog *>(dialog)->accept();
    });
    MenuWatcher menus("Font Settings...");
    scene.contextMenu(inField);
    QCOMPARE(QFontInfo(item->textItem()->font()).family(), seen);
}

KELMAR_TEST_MAIN(tst_ReportText)
#include "tst_reporttext.moc"
