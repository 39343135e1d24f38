#include "diagram/DcIsolatorDiagramComponent.h"

#include "diagram/ComponentDrawing.h"
#include "diagram/ComponentKind.h"
#include "diagram/DiagramItemType.h"

DcIsolatorDiagramComponent::DcIsolatorDiagramComponent()
    : DiagramComponent(ComponentKind::ofType(DcIsolatorType))
{
}

DcIsolatorDiagramComponent::DcIsolatorDiagramComponent(const QString &id, const QString &caption,
                                                       const QPointF &position)
    : DiagramComponent(ComponentKind::ofType(DcIsolatorType), id, caption, position)
{
}

void DcIsolatorDiagramComponent::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    ComponentDrawing::housing(painter, rect(), Qt::white);
    ComponentDrawing::knob(painter, QRectF(12, 12, 15, 15), Qt::black);
}
