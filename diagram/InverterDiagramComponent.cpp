#include "diagram/InverterDiagramComponent.h"

#include "diagram/ComponentDrawing.h"
#include "diagram/ComponentKind.h"
#include "diagram/DiagramItemType.h"

InverterDiagramComponent::InverterDiagramComponent() : DiagramComponent(ComponentKind::ofType(InverterType))
{
}

InverterDiagramComponent::InverterDiagramComponent(const QString &id, const QString &caption,
                                                   const QPointF &position)
    : DiagramComponent(ComponentKind::ofType(InverterType), id, caption, position)
{
}

void InverterDiagramComponent::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    ComponentDrawing::housing(painter, rect(), Qt::gray);
}
