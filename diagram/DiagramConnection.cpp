#include "diagram/DiagramConnection.h"

#include "app/core/XmlNumber.h"
#include "diagram/Cable.h"
#include "diagram/CableLines.h"
#include "diagram/ConnectionTarget.h"
#include "diagram/DiagramItemType.h"
#include "diagram/DiagramXml.h"

#include <QDomElement>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QMenu>
#include <QPainter>

using namespace DiagramXml;

namespace {

/// Half of the pen that the lines of a cable are drawn with.
constexpr double halfPen = 0.5;
/// Kept between the outermost line of a cable and what it leads around.
constexpr double clearance = 2.0;

constexpr QPointF startOfEndA(100, 0);
constexpr QPointF startOfEndB(-100, 0);

RouteEnd routeEnd(const ConnectionPoint &end, double margin)
{
    const ConnectionTarget *component = end.component();
    const QRectF rect = component ? component->sceneBoundingRect() : end.sceneBoundingRect();
    return {rect.adjusted(-margin, -margin, margin, margin), end.pos(), end.side()};
}

QRectF boundsOf(const QVector<QPointF> &points)
{
    QPointF topLeft = points.first();
    QPointF bottomRight = topLeft;
    for (const QPointF &point : points) {
        topLeft = QPointF(qMin(topLeft.x(), point.x()), qMin(topLeft.y(), point.y()));
        bottomRight = QPointF(qMax(bottomRight.x(), point.x()), qMax(bottomRight.y(), point.y()));
    }
    return QRectF(topLeft, bottomRight);
}

void writeEnd(QDomElement &parent, const char *tag, const ConnectionPoint &end)
{
    if (!end.component())
        return;
    QDomElement element = parent.ownerDocument().createElement(QLatin1String(tag));
    element.setAttribute(QLatin1String(Attribute::connectedItemId), end.component()->id());
    setDoubleAttribute(element, Attribute::connectedPosX, end.offset().x());
    setDoubleAttribute(element, Attribute::connectedPosY, end.offset().y());
    element.setAttribute(QLatin1String(Attribute::direction), end.side());
    parent.appendChild(element);
}

} // namespace

DiagramConnection::DiagramConnection(int cableType, const QString &id, const QPointF &position)
    : DiagramGraphicsItem(id), m_cableType(cableType)
{
    setUp();
    m_endA.setPos(position);
    m_endB.setPos(position);
    m_endA.setGrabbed(true);
    m_endB.setVisible(false);
    DiagramConnection::updateRoute();
}

DiagramConnection::DiagramConnection() : m_state(Finished)
{
    setUp();
    m_endA.setPos(startOfEndA);
    m_endB.setPos(startOfEndB);
    DiagramConnection::updateRoute();
}

DiagramConnection::~DiagramConnection() = default;

void DiagramConnection::setUp()
{
    setFlag(ItemIsMovable);
    setZValue(ConnectionStacking);
}

int DiagramConnection::type() const
{
    return Cable::ofType(m_cableType).itemType;
}

QString DiagramConnection::displayName() const
{
    return tr("Connection");
}

QString DiagramConnection::elementName() const
{
    // A wire that is still in the user's hand is no part of the drawing.
    return m_state == Finished ? QLatin1String(Tag::connection) : QString();
}

void DiagramConnection::writeXml(QDomElement &element) const
{
    element.setAttribute(QLatin1String(Attribute::type), QLatin1String(Cable::ofType(m_cableType).name));
    DiagramGraphicsItem::writeXml(element);
    writeEnd(element, Tag::connectionA, m_endA);
    writeEnd(element, Tag::connectionB, m_endB);
}

void DiagramConnection::readXml(const QDomElement &element)
{
    DiagramGraphicsItem::readXml(element);
    m_cableType = Cable::ofName(element.attribute(QLatin1String(Attribute::type))).cableType;
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (child.tagName() == QLatin1String(Tag::connectionA))
            readEnd(m_endA, child);
        else if (child.tagName() == QLatin1String(Tag::connectionB))
            readEnd(m_endB, child);
    }
    m_state = Finished;
    m_endB.setVisible(true);
    updateRoute();
}

void DiagramConnection::readEnd(ConnectionPoint &end, const QDomElement &element)
{
    const auto *finder = dynamic_cast<const ComponentFinder *>(scene());
    ConnectionTarget *component =
        finder ? finder->componentById(element.attribute(QLatin1String(Attribute::connectedItemId)))
               : nullptr;
    if (!component)
        return;
    const QPointF offset(doubleAttribute(element, Attribute::connectedPosX, 0),
                         doubleAttribute(element, Attribute::connectedPosY, 0));
    end.attachAt(component, offset, intAttribute(element, Attribute::direction, NoSide));
    end.setPos(offset + component->scenePos());
}

void DiagramConnection::moveCurrentEnd(const QPointF &point)
{
    if (m_state == PlacingA)
        m_endA.setPos(point);
    else if (m_state == PlacingB)
        m_endB.setPos(point);
}

int DiagramConnection::advance()
{
    if (m_state == PlacingA) {
        m_endA.setGrabbed(false);
        m_endB.setGrabbed(true);
        m_endB.setVisible(true);
        m_state = PlacingB;
    } else if (m_state == PlacingB) {
        m_endB.setGrabbed(false);
        m_state = Finished;
    }
    update();
    return m_state;
}

void DiagramConnection::updateRoute()
{
    const Cable &cable = Cable::ofType(m_cableType);
    const double halfWidth = cable.halfWidth + halfPen;
    const double margin = halfWidth + clearance;
    m_route.lay(routeEnd(m_endA, margin), routeEnd(m_endB, margin));
    const QRectF bounds = boundsOf(m_route.points())
                              .adjusted(-halfWidth, -halfWidth, halfWidth, halfWidth)
                              .united(m_endA.sceneBoundingRect())
                              .united(m_endB.sceneBoundingRect());
    prepareGeometryChange();
    m_boundingRect = bounds;
    m_lines = cable.hasOuterWires ? CableLines::outer(m_route.points(), cable.halfWidth) : QVector<QLineF>();
    if (cable.hasMiddleWire)
        m_lines += CableLines::middle(m_route.points());
    emit modified();
}

bool DiagramConnection::hitTest(const QPointF &point) const
{
    return CableLines::hit(m_route.points(), Cable::ofType(m_cableType).hitHalfWidth, point);
}

void DiagramConnection::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    if (m_state == PlacingA)
        return;
    painter->setPen(QPen(Qt::black, 2 * halfPen, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter->drawLines(m_lines);
}

QVariant DiagramConnection::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemSceneChange) {
        auto *newScene = value.value<QGraphicsScene *>();
        for (ConnectionPoint *end : {&m_endA, &m_endB}) {
            if (newScene)
                newScene->addItem(end);
            else if (end->scene())
                end->scene()->removeItem(end);
        }
    }
    return DiagramGraphicsItem::itemChange(change, value);
}

void DiagramConnection::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    if (!hitTest(event->scenePos())) {
        event->ignore();
        return;
    }
    event->accept();
    QMenu menu;
    const QAction *deletion = menu.addAction(tr("Delete %1").arg(displayName()));
    if (menu.exec(event->screenPos()) != deletion)
        return;
    m_endA.detach();
    m_endB.detach();
    emit modified();
    delete this;
}

void DiagramConnection::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    const bool taken = event->button() == Qt::LeftButton && isFree() && hitTest(event->scenePos());
    m_dragMode = taken ? WholeDragged : NotDragged;
    m_pressOffset = m_endA.pos() - event->scenePos();
    // What is not on a line belongs to what lies below.
    event->setAccepted(m_dragMode != NotDragged);
}

void DiagramConnection::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    if (m_dragMode == NotDragged) {
        event->ignore();
        return;
    }
    const QPointF shift = event->scenePos() + m_pressOffset - m_endA.pos();
    m_endA.moveTo(m_endA.pos() + shift);
    m_endB.moveTo(m_endB.pos() + shift);
}
