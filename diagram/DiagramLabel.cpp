#include "diagram/DiagramLabel.h"

#include "app/core/XmlNumber.h"
#include "diagram/DiagramItemType.h"
#include "diagram/DiagramXml.h"
#include "diagram/DialogComponentSettings.h"

#include <QDomElement>
#include <QGraphicsSceneContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

using namespace DiagramXml;

namespace {

constexpr double sizeOfText = -1;
constexpr double storedWidth = 50;
constexpr double storedHeight = 10;
constexpr double halfPen = 0.5;
/// In units of the drawing, as the components are: with a font in points a caption would be larger beside its
/// component on a finer screen, and wires would miss the edge of a note.
constexpr int letterHeight = 12;
/// The time to lay out a long word grows with its square, and nobody reads on to here. The text itself stays
/// whole.
constexpr int lettersShown = 4000;

/// A text without what no XML file can hold: it would be saved, and could not be opened again.
QString storable(const QString &text)
{
    QString kept;
    for (int i = 0; i < text.size(); ++i) {
        const QChar character = text.at(i);
        if (character.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            kept += character;
            kept += text.at(++i);
        } else if (!character.isSurrogate() && character.unicode() < 0xfffe &&
                   (character.unicode() >= 0x20 || character == QLatin1Char('\n') ||
                    character == QLatin1Char('\t'))) {
            kept += character;
        }
    }
    return kept;
}

} // namespace

DiagramLabel::DiagramLabel(DiagramLabelOwner *owner, const QString &text, const QSizeF &size)
    : DiagramLabel(owner)
{
    setSize(size);
    setText(text);
}

DiagramLabel::DiagramLabel(DiagramLabelOwner *owner) : m_owner(owner)
{
    setFlags(ItemIsMovable | ItemSendsGeometryChanges);
    setZValue(CaptionStacking);
    QFont letters = font();
    letters.setPixelSize(letterHeight);
    setFont(letters);
    // The ground is white whatever the desktop's colours are.
    setDefaultTextColor(Qt::black);
}

void DiagramLabel::setText(const QString &text)
{
    m_text = storable(text);
    showText();
    emit modified();
}

void DiagramLabel::showText()
{
    QString lines = m_text.left(lettersShown).toHtmlEscaped();
    lines.replace(QLatin1Char('\n'), QLatin1String("<br />"));
    setHtml(QStringLiteral("<center>%1</center>").arg(lines));
}

void DiagramLabel::setSize(const QSizeF &size)
{
    prepareGeometryChange();
    m_minimumHeight = size.height();
    setTextWidth(size.width() < 0 ? sizeOfText : size.width());
}

void DiagramLabel::writeXml(QDomElement &element) const
{
    setDoubleAttribute(element, Attribute::x, x());
    setDoubleAttribute(element, Attribute::y, y());
    setDoubleAttribute(element, Attribute::width, textWidth());
    setDoubleAttribute(element, Attribute::height, m_minimumHeight);
    element.setAttribute(QLatin1String(Attribute::text), m_text);
}

void DiagramLabel::readXml(const QDomElement &element)
{
    setPos(doubleAttribute(element, Attribute::x, 0), doubleAttribute(element, Attribute::y, 0));
    setSize(QSizeF(doubleAttribute(element, Attribute::width, storedWidth),
                   doubleAttribute(element, Attribute::height, storedHeight)));
    setText(element.attribute(QLatin1String(Attribute::text)));
}

QRectF DiagramLabel::boundingRect() const
{
    QRectF rect = QGraphicsTextItem::boundingRect();
    if (rect.height() < m_minimumHeight)
        rect.setHeight(m_minimumHeight);
    return rect;
}

QPainterPath DiagramLabel::shape() const
{
    QPainterPath path;
    path.addRect(boundingRect());
    return path;
}

bool DiagramLabel::contains(const QPointF &point) const
{
    return boundingRect().contains(point);
}

void DiagramLabel::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    painter->setBrush(Qt::white);
    painter->setPen(QPen(Qt::black, 2 * halfPen, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter->drawRect(boundingRect().adjusted(halfPen, halfPen, -halfPen, -halfPen));
    // Without a part of it that is exposed, the text is drawn whole and is not clipped, which costs a sheet
    // of many captions a fifth of its time.
    QStyleOptionGraphicsItem whole(*option);
    whole.exposedRect = QRectF();
    QGraphicsTextItem::paint(painter, &whole, widget);
}

QVariant DiagramLabel::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemPositionHasChanged)
        emit modified();
    return QGraphicsTextItem::itemChange(change, value);
}

void DiagramLabel::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    event->accept();
    QMenu menu;
    const QAction *setting = menu.addAction(tr("Set Label Text"));
    menu.addSeparator();
    const QAction *deletion = menu.addAction(tr("Delete Label"));
    const QAction *chosen = menu.exec(event->screenPos());
    if (chosen == setting) {
        if (const auto text = DialogComponentSettings::ask(m_text))
            setText(*text);
    } else if (chosen == deletion) {
        // Either ends this object.
        if (m_owner)
            m_owner->removeLabel();
        else
            delete this;
    }
}
