#include "report/items/GraphicsTextItem.h"

#include "report/items/ReportItemHost.h"
#include "report/items/TextFit.h"

#include <QClipboard>
#include <QGraphicsSceneContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QUndoStack>

namespace {

constexpr Qt::TextInteractionFlags editorFlags =
    Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard | Qt::TextEditable;

QIcon menuIcon(const char *name)
{
    return QIcon(QStringLiteral(":res/toolButtons/") + QLatin1String(name));
}

} // namespace

GraphicsTextItem::GraphicsTextItem(QGraphicsItem *parent) : QGraphicsTextItem(parent)
{
    setAcceptHoverEvents(false);
    setTabChangesFocus(true);
    setFlag(ItemIsFocusable);
    setEditing(false);
    // What is dropped may be formatted text with pictures from anywhere.
    setAcceptDrops(false);
}

QRectF GraphicsTextItem::boundingRect() const
{
    QRectF rect = QGraphicsTextItem::boundingRect();
    if (m_boxHeight > 0.0 && m_boxHeight > rect.height())
        rect.setHeight(m_boxHeight);
    return rect;
}

void GraphicsTextItem::setBox(const QSizeF &box)
{
    prepareGeometryChange();
    m_boxWidth = box.width();
    m_boxHeight = box.height();
    setTextWidth(m_boxWidth);
}

bool GraphicsTextItem::isEditor() const
{
    return textInteractionFlags() & Qt::TextEditable;
}

void GraphicsTextItem::setEditor(bool editor)
{
    setTextInteractionFlags(editor ? editorFlags : Qt::TextInteractionFlags(Qt::NoTextInteraction));
}

void GraphicsTextItem::setBaseFont(const QFont &font)
{
    setFont(font);
    m_basePointSize = font.pointSizeF();
}

void GraphicsTextItem::startEditing(const QString &initial)
{
    setEditor(true);
    setFocus(Qt::OtherFocusReason);
    setEditing(true);
    QTextCursor cursor = textCursor();
    cursor.select(QTextCursor::Document);
    if (!initial.isEmpty())
        cursor.insertText(initial);
    setTextCursor(cursor);
    fitIfChanged();
}

void GraphicsTextItem::fit()
{
    m_fittedText = toPlainText();
    if (m_fittedText.isEmpty() || m_boxWidth <= 0.0 || m_boxHeight <= 0.0)
        return;
    const double newScale = textFitScale(m_fittedText, font(), QSizeF(m_boxWidth, m_boxHeight));
    setTextWidth(m_boxWidth / newScale);
    setScale(newScale);
    emit fitted();
}

void GraphicsTextItem::undoStep()
{
    setFocus();
    document()->undo();
    emit stepped();
}

void GraphicsTextItem::redoStep()
{
    setFocus();
    document()->redo();
    emit stepped();
}

void GraphicsTextItem::fitIfChanged()
{
    if (m_boxHeight > 0.0 && toPlainText() != m_fittedText)
        fit();
}

void GraphicsTextItem::setEditing(bool editing)
{
    m_editing = editing;
    // While the text is not edited a click goes to the parent, which selects all; then it places the
    // cursor. The middle button would paste formatted text.
    setAcceptedMouseButtons(editing ? Qt::LeftButton | Qt::RightButton : Qt::NoButton);
}

void GraphicsTextItem::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    // A text that is not being edited leaves the menu to its parent.
    if (!m_editing) {
        event->ignore();
        return;
    }
    const QPointer<GraphicsTextItem> guard(this);
    m_menuOpen = true;
    showMenu(event->screenPos());
    if (!guard)
        return;
    m_menuOpen = false;
    fitIfChanged();
    event->accept();
}

void GraphicsTextItem::focusInEvent(QFocusEvent *event)
{
    QGraphicsTextItem::focusInEvent(event);
    // A mouse press gives the keyboard before it arrives itself, and then it is the parent's.
    if (event->reason() != Qt::MouseFocusReason)
        setEditing(true);
    // A table cell frames itself while its text has the keyboard.
    if (QGraphicsItem *parent = parentItem())
        parent->update();
}

void GraphicsTextItem::focusOutEvent(QFocusEvent *event)
{
    if (m_menuOpen)
        return;
    setEditing(false);
    if (!m_standalone)
        setEditor(false);
    QGraphicsTextItem::focusOutEvent(event);
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    setTextCursor(cursor);
    if (QGraphicsItem *parent = parentItem())
        parent->update();
}

void GraphicsTextItem::keyPressEvent(QKeyEvent *event)
{
    if (!m_standalone && leaveCell(event))
        return;
    if (event->key() != Qt::Key_Tab && !handleShortcut(event))
        QGraphicsTextItem::keyPressEvent(event);
    fitIfChanged();
}

bool GraphicsTextItem::leaveCell(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        setEditor(false);
        // The keyboard stays with the cell, where the arrow keys go on.
        if (QGraphicsItem *cell = parentItem())
            cell->setFocus(Qt::OtherFocusReason);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        emit requestMove(0, 1);
        return true;
    case Qt::Key_Up:
        emit requestMove(0, -1);
        return true;
    case Qt::Key_Left:
        if (!textCursor().atStart())
            return false;
        emit requestMove(-1, 0);
        return true;
    case Qt::Key_Right:
        if (!textCursor().atEnd())
            return false;
        emit requestMove(1, 0);
        return true;
    default:
        return false;
    }
}

bool GraphicsTextItem::handleShortcut(QKeyEvent *event)
{
    const ReportItemHost *host = ReportItemHost::of(this);
    QUndoStack *stack = host ? host->undoStack() : nullptr;
    const bool control = event->modifiers() & Qt::ControlModifier;
    if ((control && event->key() == Qt::Key_Z) || event->matches(QKeySequence::Undo)) {
        if (stack)
            stack->undo();
    } else if ((control && event->key() == Qt::Key_Y) || event->matches(QKeySequence::Redo)) {
        if (stack)
            stack->redo();
    } else if (event->matches(QKeySequence::Cut)) {
        cut();
    } else if (event->matches(QKeySequence::Copy)) {
        copy();
    } else if (event->matches(QKeySequence::Paste)) {
        paste();
    } else {
        return false;
    }
    return true;
}

void GraphicsTextItem::showMenu(const QPoint &screenPosition)
{
    QMenu menu;
    QAction *actionCut = menu.addAction(menuIcon("context-cut.png"), tr("Cut"), this, &GraphicsTextItem::cut);
    QAction *actionCopy =
        menu.addAction(menuIcon("context-copy.png"), tr("Copy"), this, &GraphicsTextItem::copy);
    QAction *actionPaste =
        menu.addAction(menuIcon("context-paste.png"), tr("Paste"), this, &GraphicsTextItem::paste);
    menu.addSeparator();
    QAction *actionUndo = menu.addAction(menuIcon("context-undo.png"), tr("Undo"));
    QAction *actionRedo = menu.addAction(menuIcon("context-redo.png"), tr("Redo"));

    const ReportItemHost *host = ReportItemHost::of(this);
    QUndoStack *stack = host ? host->undoStack() : nullptr;
    const bool hasSelection = textCursor().hasSelection();
    actionCut->setEnabled(hasSelection);
    actionCopy->setEnabled(hasSelection);
    actionPaste->setEnabled(!QGuiApplication::clipboard()->text().isEmpty());
    actionUndo->setEnabled(stack && stack->canUndo());
    actionRedo->setEnabled(stack && stack->canRedo());
    if (stack) {
        connect(actionUndo, &QAction::triggered, stack, &QUndoStack::undo);
        connect(actionRedo, &QAction::triggered, stack, &QUndoStack::redo);
    }
    menu.exec(screenPosition);
}

void GraphicsTextItem::copy()
{
    const QTextCursor cursor = textCursor();
    if (cursor.hasSelection())
        QGuiApplication::clipboard()->setText(cursor.selection().toPlainText());
}

void GraphicsTextItem::cut()
{
    copy();
    textCursor().removeSelectedText();
}

void GraphicsTextItem::paste()
{
    textCursor().insertText(QGuiApplication::clipboard()->text());
}
