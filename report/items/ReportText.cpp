#include "report/items/ReportText.h"

#include "app/core/Shell.h"
#include "report/file/ReportXml.h"
#include "report/items/GraphicsTextItem.h"
#include "report/items/ReportTextCommand.h"

#include <QDomElement>
#include <QFontDialog>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneMouseEvent>
#include <QMenu>
#include <QTextDocument>

namespace {

constexpr int designDpi = 96;
constexpr double maxPointSize = 1000.0;

/// A text as an XML file can hold it: pasted control characters would make the file unreadable.
QString xmlText(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            result += c;
            result += text.at(++i);
        } else if (!c.isSurrogate() && c.unicode() < 0xFFFE &&
                   (c.unicode() >= 0x20 || c == QLatin1Char('\n') || c == QLatin1Char('\t'))) {
            result += c;
        }
    }
    return result;
}

} // namespace

ReportText::ReportText(QGraphicsItem *parent)
    : ReportResizableItem(parent, false), m_textItem(new GraphicsTextItem(this))
{
    setFlag(ItemIsFocusable);
    connect(m_textItem, &GraphicsTextItem::fitted, this, &ReportText::updateBounds);
    connect(m_textItem, &GraphicsTextItem::stepped, this, &ReportText::noteCommittedText);
}

int ReportText::type() const
{
    return Type;
}

bool ReportText::isTabStop() const
{
    return isEditable();
}

const QString &ReportText::elementName() const
{
    static const QString name = QLatin1String(ReportXml::Tag::text);
    return name;
}

bool ReportText::writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries)
{
    if (!ReportResizableItem::writeXml(element, overlayOnly, entries))
        return false;
    if (overlayOnly && type() == ReportTextType && reportId().isEmpty())
        return false;
    if (overlayOnly && !isEditable())
        return true;
    element.appendChild(element.ownerDocument().createTextNode(xmlText(plainText())));
    return true;
}

bool ReportText::readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries)
{
    m_committedText = element.text();
    m_textItem->setPlainText(m_committedText);
    if (!ReportResizableItem::readXml(element, overlayOnly, entries))
        return false;
    if (overlayOnly)
        m_textItem->fit();
    else
        applyStyle();

    const QTextDocument *document = m_textItem->document();
    connect(document, &QTextDocument::contentsChanged, this, &ReportText::documentChanged,
            Qt::UniqueConnection);
    connect(document, &QTextDocument::undoCommandAdded, this, &ReportText::createUndoCommand,
            Qt::UniqueConnection);
    updateBounds();
    return true;
}

void ReportText::setItemSize(const QSizeF &size, int)
{
    if (size.width() > 0.0 && size.height() > 0.0)
        m_textItem->setBox(size);
}

QRectF ReportText::itemRect() const
{
    return m_textItem->boundingRect();
}

QString ReportText::plainText() const
{
    return m_textItem->toPlainText();
}

void ReportText::setPlainText(const QString &text)
{
    m_committedText = text;
    m_textItem->setPlainText(text);
    m_textItem->fit();
}

void ReportText::createUndoCommand()
{
    const QString text = plainText();
    if (text == m_committedText)
        return;
    m_committedText = text;
    offerCommand(new ReportTextCommand(m_textItem));
}

void ReportText::updateBounds()
{
    refreshFrame();
}

void ReportText::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    if (!isEditable()) {
        event->ignore();
        return;
    }
    QMenu menu;
    menu.addAction(tr("Font Settings..."), this, &ReportText::chooseFont);
    menu.exec(event->screenPos());
    event->accept();
}

void ReportText::focusInEvent(QFocusEvent *event)
{
    ReportResizableItem::focusInEvent(event);
    if (isEditable())
        m_textItem->startEditing(QString());
}

void ReportText::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    const bool edits = isEditable() && event->button() == Qt::LeftButton;
    if (edits)
        m_textItem->startEditing(QString());
    ReportResizableItem::mousePressEvent(event);
    if (edits)
        event->accept();
}

void ReportText::documentChanged()
{
    updateBounds();
    emit modified(true);
}

void ReportText::noteCommittedText()
{
    // Typing the same again after an undo is a change all the same.
    m_committedText = plainText();
}

void ReportText::applyStyle()
{
    m_textItem->setEditor(isEditable());
    QFont itemFont(font());
    const int dpi = Shell::logicalDpiY();
    const double points = dpi == designDpi || dpi <= 0 ? fontSize() : fontSize() * designDpi / dpi;
    if (points > 0.0)
        itemFont.setPointSizeF(qMin(points, maxPointSize));
    itemFont.setWeight(qBound(0, fontWeight(), 99));
    m_textItem->setDefaultTextColor(colour());
    m_textItem->setBaseFont(itemFont);
}

void ReportText::chooseFont()
{
    // By the name of the face that stands in for a missing one: the dialog would start with any.
    QFont start = m_textItem->font();
    start.setFamily(QFontInfo(start).family());
    bool accepted = false;
    const QFont font = QFontDialog::getFont(&accepted, start, Shell::parentWindow());
    if (accepted)
        m_textItem->setBaseFont(font);
}
