#include "report/items/ReportResizableItem.h"

#include "app/core/XmlNumber.h"
#include "report/file/ReportXml.h"
#include "report/items/ResizeGeometry.h"

#include <QCursor>
#include <QDomElement>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

namespace Attribute = ReportXml::Attribute;

namespace {

/// Device pixels by which the frame reaches beyond the content, and its line's distance from that edge.
constexpr double frameReach = 6.0;
constexpr double frameInset = 3.0;

QPen framePen(const QBrush &brush)
{
    QPen pen(brush, 6.0, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
    pen.setCosmetic(true);
    return pen;
}

} // namespace

ReportResizableItem::ReportResizableItem(QGraphicsItem *parent, bool isResizable)
    : AbstractReportItem(parent), m_resizable(isResizable)
{
    if (isResizable)
        setResizable(true);
}

bool ReportResizableItem::writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries)
{
    if (!overlayOnly) {
        if (m_resizable)
            element.setAttribute(Attribute::resizable, "1");
        const QSizeF size = itemRect().size();
        if (size.width() > 0.0)
            setDoubleAttribute(element, Attribute::width, size.width());
        if (size.height() > 0.0)
            setDoubleAttribute(element, Attribute::height, size.height());
    }
    return AbstractReportItem::writeXml(element, overlayOnly, entries);
}

bool ReportResizableItem::readXml(const QDomElement &element, bool overlayOnly,
                                  const ReportFileEntries &entries)
{
    if (!overlayOnly) {
        setResizable(intAttribute(element, Attribute::resizable, 0) != 0);
        const QSizeF size(doubleAttribute(element, Attribute::width, 0.0),
                          doubleAttribute(element, Attribute::height, 0.0));
        if (size.width() > 0.0 && size.height() > 0.0) {
            setItemSize(size, ResizeGeometry::bottomRight);
            refreshFrame();
        }
    }
    return AbstractReportItem::readXml(element, overlayOnly, entries);
}

void ReportResizableItem::updateFrame(double scale)
{
    const QRectF content = itemRect();
    if (!m_resizable) {
        if (content == m_boundingRect)
            return;
        prepareGeometryChange();
        m_boundingRect = content;
        return;
    }
    const double reach = frameReach * scale;
    const double inset = frameInset * scale;
    const QRectF outer = content.adjusted(-reach, -reach, reach, reach);

    prepareGeometryChange();
    m_frameRect = outer.adjusted(inset, inset, -inset, -inset);
    m_frameScale = scale;
    // What was drawn last lies within the bounds, so that it is wiped out.
    m_boundingRect = m_previousOuterRect.isNull() ? outer : outer | m_previousOuterRect;
    m_previousOuterRect = outer;
    QBrush hatch(Qt::black, Qt::Dense4Pattern);
    hatch.setTransform(QTransform::fromScale(scale, scale));
    m_hatchPen = framePen(hatch);
    update();
}

void ReportResizableItem::refreshFrame()
{
    updateFrame(m_frameScale);
}

QRectF ReportResizableItem::boundingRect() const
{
    return m_boundingRect;
}

void ReportResizableItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    // Without a widget the item is printed, wherever the pointer is.
    if (!m_resizable || !widget || !(option->state & QStyle::State_MouseOver))
        return;
    const double horizontalScale = painter->worldTransform().m11();
    const double scale = qFuzzyIsNull(horizontalScale) ? 1.0 : 1.0 / horizontalScale;
    if (scale != m_frameScale)
        updateFrame(scale);

    static const QPen white = framePen(Qt::white);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(white);
    painter->drawRect(m_frameRect);
    painter->setPen(m_hatchPen);
    painter->drawRect(m_frameRect);
}

void ReportResizableItem::hoverMoveEvent(QGraphicsSceneHoverEvent *event)
{
    m_handle = ResizeGeometry::handleAt(event->pos(), itemRect());
    setCursor(ResizeGeometry::cursorOf(m_handle));
}

void ReportResizableItem::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (!m_resizable || event->button() != Qt::LeftButton) {
        AbstractReportItem::mousePressEvent(event);
        return;
    }
    m_handle = ResizeGeometry::handleAt(event->pos(), itemRect());
    m_startGeometry = QRectF(pos(), itemRect().size());
}

void ReportResizableItem::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    if (!m_resizable) {
        AbstractReportItem::mouseMoveEvent(event);
        return;
    }
    const QPointF offset = event->scenePos() - event->buttonDownScenePos(Qt::LeftButton);
    const QRectF wanted = ResizeGeometry::dragged(m_startGeometry, m_handle, offset);
    if (!ResizeGeometry::sameSize(wanted.size(), itemRect().size())) {
        setItemSize(wanted.size(), m_handle);
        refreshFrame();
    }
    setPos(ResizeGeometry::anchoredPosition(wanted, itemRect(), m_handle));
    emit modified(true);
}

void ReportResizableItem::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    if (!m_resizable) {
        AbstractReportItem::mouseReleaseEvent(event);
        return;
    }
    const QRectF geometry(pos(), itemRect().size());
    if (ResizeGeometry::samePosition(geometry.topLeft(), m_startGeometry.topLeft()) &&
        ResizeGeometry::sameSize(geometry.size(), m_startGeometry.size()))
        return;
    offerCommand(new ReportResizableItemCommand(this, m_startGeometry, geometry, m_handle));
}

void ReportResizableItem::setResizable(bool resizable)
{
    m_resizable = resizable;
    setAcceptHoverEvents(resizable);
    if (resizable)
        setFlags(ItemIsMovable | ItemIsFocusable | ItemSendsGeometryChanges);
    else
        setFlag(ItemIsMovable, false);
}

ReportResizableItemCommand::ReportResizableItemCommand(ReportResizableItem *item, const QRectF &oldGeometry,
                                                       const QRectF &newGeometry, int handle)
    : m_item(item)
    , m_oldPosition(oldGeometry.topLeft())
    , m_oldSize(oldGeometry.size())
    , m_newPosition(newGeometry.topLeft())
    , m_newSize(newGeometry.size())
    , m_handle(handle)
{
}

void ReportResizableItemCommand::undo()
{
    apply(m_oldPosition, m_oldSize);
}

void ReportResizableItemCommand::redo()
{
    apply(m_newPosition, m_newSize);
}

void ReportResizableItemCommand::apply(const QPointF &position, const QSizeF &size)
{
    m_item->setFocus();
    m_item->setItemSize(size, m_handle);
    m_item->refreshFrame();
    m_item->setPos(position);
}
