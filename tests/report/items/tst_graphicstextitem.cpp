#include "tests/support/TestMain.h"

#include "tests/report/items/ItemScene.h"
#include "tests/support/MenuWatcher.h"

#include "report/items/GraphicsTextItem.h"
#include "report/items/ReportText.h"

#include <QClipboard>
#include <QMimeData>
#include <QTextCursor>
#include <QTextDocument>

namespace {

const QString first = QStringLiteral("<text id=\"a\" editable=\"1\" width=\"200\" height=\"40\">one</text>");
const QString second =
    QStringLiteral("<text id=\"b\" editable=\"1\" y=\"100\" width=\"200\" height=\"40\">two</text>");
const QPointF inFirst(50, 15);

QStringList menuTexts()
{
    return {"Cut", "Copy", "Paste", "", "Undo", "Redo"};
}

} // namespace

class tst_GraphicsTextItem : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void itStandsAloneWithoutABox();
    void theBoxIsPartOfTheBounds();
    void pressingTabLeavesTheKeyToTheScene();
    void undoThroughTheKeyboardUsesTheDocumentWideStack();
    void redoThroughTheKeyboardUsesTheDocumentWideStack();
    void onlyPlainTextIsPasted();
    void onlyPlainTextIsCopied();
    void cuttingIsOneStepOfTheStack();
    void theMenuOffersWhatIsPossible();
    void theMenuLeavesTheEditorAsItIs();
    void theMenusEntriesDoTheirWork();
    void anUndoneTextIsEditedFromThereOn();
    void theMiddleButtonPastesNothing();
    void typingFitsTheText();
    void startingWithATextReplacesTheContent();
};

void tst_GraphicsTextItem::init()
{
    QGuiApplication::clipboard()->clear();
}

void tst_GraphicsTextItem::itStandsAloneWithoutABox()
{
    const GraphicsTextItem item;
    QVERIFY(item.isStandalone());
    QCOMPARE(item.boxWidth(), -1.0);
    QCOMPARE(item.boxHeight(), -1.0);
    QCOMPARE(item.basePointSize(), 8.5);
    QVERIFY(!item.isEditor());
    QVERIFY(!item.isMenuOpen());
    QVERIFY(item.tabChangesFocus());
    QVERIFY(!item.acceptHoverEvents());
    QVERIFY(item.flags() & QGraphicsItem::ItemIsFocusable);
    QVERIFY(!item.acceptDrops());
}

void tst_GraphicsTextItem::theBoxIsPartOfTheBounds()
{
    GraphicsTextItem item;
    item.setPlainText("x");
    const double height = item.boundingRect().height();
    item.setBox(QSizeF(100, height + 30));
    QCOMPARE(item.boundingRect().height(), height + 30);
    item.setBox(QSizeF(100, 2));
    QCOMPARE(item.boundingRect().height(), height);
}

void tst_GraphicsTextItem::pressingTabLeavesTheKeyToTheScene()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(first);
    QVERIFY(scene.show());
    scene.click(inFirst);
    QVERIFY(item->textItem()->hasFocus());
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, "\t");
    QCoreApplication::sendEvent(&scene, &tab);
    QCOMPARE(item->plainText(), QString("one"));
    // Sent to the item itself the key does nothing either.
    scene.sendEvent(item->textItem(), &tab);
    QCOMPARE(item->plainText(), QString("one"));
}

void tst_GraphicsTextItem::undoThroughTheKeyboardUsesTheDocumentWideStack()
{
    ItemScene scene;
    auto *a = scene.read<ReportText>(first);
    auto *b = scene.read<ReportText>(second);
    QVERIFY(scene.show());
    scene.setFocusItem(a);
    scene.key(Qt::Key_End);
    scene.type("x");
    scene.setFocusItem(b);
    QVERIFY(b->textItem()->hasFocus());
    scene.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(a->plainText(), QString("one"));
    QCOMPARE(b->plainText(), QString("two"));
}

void tst_GraphicsTextItem::redoThroughTheKeyboardUsesTheDocumentWideStack()
{
    ItemScene scene;
    auto *a = scene.read<ReportText>(first);
    auto *b = scene.read<ReportText>(second);
    QVERIFY(scene.show());
    scene.setFocusItem(a);
    scene.key(Qt::Key_End);
    scene.type("x");
    scene.undoStack()->undo();
    QCOMPARE(a->plainText(), QString("one"));
    scene.setFocusItem(b);
    scene.key(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(a->plainText(), QString("onex"));
}

void tst_GraphicsTextItem::onlyPlainTextIsPasted()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(first);
    QVERIFY(scene.show());
    auto *rich = new QMimeData;
    rich->setHtml("<b>bold</b><img src=\"x.png\"/>");
    rich->setText("bold");
    QGuiApplication::clipboard()->setMimeData(rich);
    scene.click(inFirst);
    scene.key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(item->plainText(), QString("bold"));
    QVERIFY(!item->textItem()->toHtml().contains("font-weight:600"));
    QCOMPARE(scene.undoStack()->count(), 1);
}

void tst_GraphicsTextItem::onlyPlainTextIsCopied()
{
    ItemScene scene;
    scene.read<ReportText>("<text editable=\"1\" width=\"200\" height=\"90\">one\ntwo</text>");
    QVERIFY(scene.show());
    scene.click(inFirst);
    scene.key(Qt::Key_C, Qt::ControlModifier);
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    QCOMPARE(data->text(), QString("one\ntwo"));
    QVERIFY(!data->hasHtml());
}

void tst_GraphicsTextItem::cuttingIsOneStepOfTheStack()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(first);
    QVERIFY(scene.show());
    scene.click(inFirst);
    scene.key(Qt::Key_X, Qt::ControlModifier);
    QVERIFY(item->plainText().isEmpty());
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("one"));
    QCOMPARE(scene.undoStack()->count(), 1);
    scene.undoStack()->undo();
    QCOMPARE(item->plainText(), QString("one"));
}

void tst_GraphicsTextItem::theMenuOffersWhatIsPossible()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(first);
    QVERIFY(scene.show());
    scene.click(inFirst);
    {
        MenuWatcher menus;
        scene.contextMenu(inFirst);
        QCOMPARE(menus.texts(), menuTexts());
        QVERIFY(menus.isEnabled("Cut") && menus.isEnabled("Copy"));
        QVERIFY(!menus.isEnabled("Paste") && !menus.isEnabled("Undo") && !menus.isEnabled("Redo"));
    }
    scene.key(Qt::Key_End);
    scene.type("x");
    QGuiApplication::clipboard()->setText("text");
    {
        MenuWatcher menus;
        scene.contextMenu(inFirst);
        QVERIFY(!menus.isEnabled("Cut") && !menus.isEnabled("Copy"));
        QVERIFY(menus.isEnabled("Paste") && menus.isEnabled("Undo") && !menus.isEnabled("Redo"));
    }
    scene.undoStack()->undo();
    QCOMPARE(scene.focusItem(), item->textItem());
    MenuWatcher menus;
    scene.contextMenu(inFirst);
    QVERIFY(!menus.isEnabled("Undo") && menus.isEnabled("Redo"));
}

void tst_GraphicsTextItem::theMenuLeavesTheEditorAsItIs()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(first);
    QVERIFY(scene.show());
    scene.click(inFirst);
    MenuWatcher menus;
    bool wasOpen = false;
    menus.whileOpen = [&] { wasOpen = item->textItem()->isMenuOpen(); };
    scene.contextMenu(inFirst);
    QVERIFY(wasOpen);
    QVERIFY(!item->textItem()->isMenuOpen());
    QCOMPARE(item->textItem()->textCursor().selectedText(), QString("one"));
}

void tst_GraphicsTextItem::theMenusEntriesDoTheirWork()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(first);
    QVERIFY(scene.show());
    scene.click(inFirst);
    const auto choose = [&](const QString &text) {
        const MenuWatcher menus(text);
        scene.contextMenu(inFirst);
    };
    choose("Copy");
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("one"));
    choose("Cut");
    QVERIFY(item->plainText().isEmpty());
    choose("Paste");
    choose("Paste");
    QCOMPARE(item->plainText(), QString("oneone"));
    choose("Undo");
    QVERIFY(item->plainText() != QString("oneone"));
    choose("Redo");
    QCOMPARE(item->plainText(), QString("oneone"));
}

void tst_GraphicsTextItem::anUndoneTextIsEditedFromThereOn()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(first);
    QVERIFY(scene.show());
    scene.click(inFirst);
    scene.key(Qt::Key_End);
    scene.type("x");
    scene.setFocusItem(nullptr);
    scene.undoStack()->undo();
    QVERIFY(item->textItem()->hasFocus());
    MenuWatcher menus;
    scene.contextMenu(inFirst);
    QCOMPARE(menus.texts(), menuTexts());
}

void tst_GraphicsTextItem::theMiddleButtonPastesNothing()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(first);
    QVERIFY(scene.show());
    QGuiApplication::clipboard()->setText("text");
    scene.click(inFirst);
    scene.click(inFirst, Qt::MiddleButton);
    QCOMPARE(item->plainText(), QString("one"));
}

void tst_GraphicsTextItem::typingFitsTheText()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>("<text editable=\"1\" width=\"60\" height=\"22\">one</text>");
    QVERIFY(scene.show());
    scene.click({20, 10});
    scene.type("several words in a small box");
    QVERIFY(item->textItem()->scale() < 1.0);
    QCOMPARE(item->textItem()->textWidth(), 60.0 / item->textItem()->scale());
}

void tst_GraphicsTextItem::startingWithATextReplacesTheContent()
{
    ItemScene scene;
    auto *item = scene.read<ReportText>(first);
    QVERIFY(scene.show());
    item->textItem()->startEditing("n");
    QCOMPARE(item->plainText(), QString("n"));
    QVERIFY(item->textItem()->textCursor().atEnd());
    QVERIFY(!item->textItem()->textCursor().hasSelection());
    scene.type("ew");
    QCOMPARE(item->plainText(), QString("new"));
    while (scene.undoStack()->canUndo())
        scene.undoStack()->undo();
    QCOMPARE(item->plainText(), QString("one"));
}

KELMAR_TEST_MAIN(tst_GraphicsTextItem)
#include "tst_graphicstextitem.moc"
