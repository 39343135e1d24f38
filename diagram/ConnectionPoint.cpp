#include "diagram/ConnectionPoint.h"

#include "diagram/ConnectionRoute.h"
#include "diagram/ConnectionTarget.h"
#include "diagram/DiagramItemType.h"

#include <QGraphicsScene>
#include <QPainter>

namespace {

constexpr QRectF handle(-5, -5, 10, 10);

} // namespace

ConnectionPoint::ConnectionPoint(ConnectionPointOwner *connection, int side)
    : m_connection(connection), m_side(side)
{
    setFlags(ItemIsMovable | ItemSendsGeometryChanges);
    setAcceptHoverEvents(true);
    setZValue(ConnectionPointStacking);
    updateHandle();
}

ConnectionPoint::~ConnectionPoint()
{
    detach();
}

void ConnectionPoint::setGrabbed(bool grabbed)
{
    m_grabbed = grabbed;
    updateHandle();
}

void ConnectionPoint::attach(ConnectionTarget *component, const QPointF &scenePoint, int side)
{
    attachAt(component, scenePoint - component->scenePos(), side);
}

void ConnectionPoint::attachAt(ConnectionTarget *component, const QPointF &offset, int side)
{
    if (m_component != component) {
        detach();
        m_component = component;
        component->addConnectionPoint(this);
    }
    m_side = side;
    m_offset = offset;
    m_snapped = true;
    update();
}

void ConnectionPoint::detach()
{
    ConnectionTarget *component = m_component;
    m_component = nullptr;
    m_snapped = false;
    if (component)
        component->removeConnectionPoint(this);
}

void ConnectionPoint::moveTo(const QPointF &point)
{
    setPos(point);
    m_connection->updateRoute();
}

void ConnectionPoint::updateHandle()
{
    // Most ends have nothing to draw most of the time, and there are two for each wire to be passed by.
    setFlag(ItemHasNoContents, !followsPointer());
    update();
}

QRectF ConnectionPoint::boundingRect() const
{
    return handle;
}

void ConnectionPoint::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *widget)
{
    // Handles are for hands: there is no widget when the diagram is printed.
    if (!widget || !(m_hovered || m_grabbed))
        return;
    painter->setPen(
        QPen(m_snapped ? Qt::darkGreen : Qt::red, 2, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter->drawLine(handle.topLeft(), handle.bottomRight());
    painter->drawLine(handle.bottomLeft(), handle.topRight());
}

QVariant ConnectionPoint::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemPositionChange && followsPointer())
        return snapped(value.toPointF());
    // Only now: before the change the route would lead to where the end was.
    if (change == ItemPositionHasChanged && followsPointer())
        m_connection->updateRoute();
    return QGraphicsItem::itemChange(change, value);
}

QPointF ConnectionPoint::snapped(QPointF point)
{
    const QList<QGraphicsItem *> under =
        scene() ? scene()->items(point, Qt::IntersectsItemBoundingRect, Qt::DescendingOrder)
                : QList<QGraphicsItem *>();
    for (QGraphicsItem *item : under) {
        if (!isComponentType(item->type()))
            continue;
        auto *component = static_cast<ConnectionTarget *>(item);
        int side = NoSide;
        component->snapToEdge(m_connection->cableType(), point, side, m_connection->state());
        if (side != NoSide) {
            attach(component, point, side);
            return point;
        }
    }
    detach();
    return point;
}

void ConnectionPoint::hoverEnterEvent(QGraphicsSceneHoverEvent *)
{
    m_hovered = true;
    updateHandle();
}

void ConnectionPoint::hoverLeaveEvent(QGraphicsSceneHoverEvent *)
{
    m_hovered = false;
    updateHandle();
}
