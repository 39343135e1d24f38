#include "diagram/DiagramComponent.h"

#include "app/core/XmlNumber.h"
#include "diagram/ComponentKind.h"
#include "diagram/ConnectionPoint.h"
#include "diagram/DiagramItemType.h"
#include "diagram/DiagramXml.h"
#include "diagram/EdgeSnap.h"

#include <QAction>
#include <QDomElement>
#include <QGraphicsScene>
#include <QGraphicsSceneContextMenuEvent>
#include <QMenu>

using namespace DiagramXml;

DiagramComponent::DiagramComponent(const ComponentKind &kind)
    : m_kind(kind), m_rect(0, 0, kind.width, kind.height)
{
    setFlags(ItemIsMovable | ItemSendsGeometryChanges);
    setZValue(ComponentStacking);
}

DiagramComponent::DiagramComponent(const ComponentKind &kind, const QString &id, const QString &caption,
                                   const QPointF &position)
    : ConnectionTarget(id), m_kind(kind), m_rect(0, 0, kind.width, kind.height)
{
    setFlags(ItemIsMovable | ItemSendsGeometryChanges);
    setZValue(ComponentStacking);
    setPos(position);
    if (!kind.hasCaption)
        return;
    auto *label = new DiagramLabel(this, caption, QSizeF(kind.captionWidth, kind.captionHeight));
    label->setPos(position + QPointF(kind.captionX, kind.captionY));
    takeLabel(label);
}

DiagramComponent::~DiagramComponent()
{
    detachAll();
    delete m_label;
}

void DiagramComponent::takeLabel(DiagramLabel *label)
{
    delete m_label;
    m_label = label;
    if (scene())
        scene()->addItem(label);
    connect(label, &DiagramLabel::modified, this, &DiagramComponent::labelModified);
}

void DiagramComponent::detachAll()
{
    // Of a copy: each end takes itself off the list.
    const QList<ConnectionPoint *> ends = m_connectionPoints;
    for (ConnectionPoint *end : ends) {
        end->detach();
        end->moveTo(end->pos());
    }
}

int DiagramComponent::type() const
{
    return m_kind.type;
}

QString DiagramComponent::displayName() const
{
    return m_kind.translatedName();
}

QString DiagramComponent::elementName() const
{
    return QLatin1String(m_kind.tag);
}

void DiagramComponent::writeXml(QDomElement &element) const
{
    DiagramGraphicsItem::writeXml(element);
    setDoubleAttribute(element, Attribute::x, x());
    setDoubleAttribute(element, Attribute::y, y());
    if (!m_label)
        return;
    QDomElement child = element.ownerDocument().createElement(QLatin1String(Tag::label));
    m_label->writeXml(child);
    element.appendChild(child);
}

void DiagramComponent::readXml(const QDomElement &element)
{
    DiagramGraphicsItem::readXml(element);
    setPos(doubleAttribute(element, Attribute::x, 0), doubleAttribute(element, Attribute::y, 0));
    const QDomElement child = element.firstChildElement(QLatin1String(Tag::label));
    if (child.isNull())
        return;
    auto *label = new DiagramLabel(this);
    label->readXml(child);
    takeLabel(label);
    labelModified();
}

void DiagramComponent::snapToEdge(int, QPointF &point, int &side, int)
{
    const QRectF edge = sceneBoundingRect();
    side = EdgeSnap::nearestSide(edge, point);
    point = EdgeSnap::ontoSide(edge, point, side);
}

void DiagramComponent::addConnectionPoint(ConnectionPoint *end)
{
    m_connectionPoints.append(end);
    emit modified();
}

void DiagramComponent::removeConnectionPoint(ConnectionPoint *end)
{
    m_connectionPoints.removeAll(end);
    emit modified();
}

void DiagramComponent::removeLabel()
{
    delete m_label;
    emit modified();
}

void DiagramComponent::labelModified()
{
    emit modified();
}

void DiagramComponent::setRect(const QRectF &rect)
{
    prepareGeometryChange();
    m_rect = rect;
}

void DiagramComponent::remove()
{
    detachAll();
    emit modified();
    delete this;
}

QVariant DiagramComponent::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemPositionChange && m_label) {
        m_label->setPos(value.toPointF() + m_label->pos() - pos());
    } else if (change == ItemPositionHasChanged) {
        // Only now: wires are laid around the rectangle of the component, which is where it was before.
        for (ConnectionPoint *end : qAsConst(m_connectionPoints))
            end->moveTo(end->offset() + pos());
        emit modified();
    } else if (change == ItemSceneChange && m_label) {
        if (auto *newScene = value.value<QGraphicsScene *>())
            newScene->addItem(m_label);
        else if (m_label->scene())
            m_label->scene()->removeItem(m_label);
    }
    return ConnectionTarget::itemChange(change, value);
}

void DiagramComponent::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    event->accept();
    if (!m_deleteAction)
        m_deleteAction = new QAction(tr("Delete %1").arg(displayName()), this);
    QMenu menu;
    menu.addAction(m_deleteAction);
    menu.addSeparator();
    menu.addActions(m_furtherActions);
    if (menu.exec(event->screenPos()) == m_deleteAction)
        remove();
}
