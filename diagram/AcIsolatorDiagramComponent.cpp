#include "diagram/AcIsolatorDiagramComponent.h"

#include "diagram/ComponentDrawing.h"
#include "diagram/ComponentKind.h"
#include "diagram/DiagramItemType.h"

AcIsolatorDiagramComponent::AcIsolatorDiagramComponent()
    : DiagramComponent(ComponentKind::ofType(AcIsolatorType))
{
}

AcIsolatorDiagramComponent::AcIsolatorDiagramComponent(const QString &id, const QString &caption,
                                                       const QPointF &position)
    : DiagramComponent(ComponentKind::ofType(AcIsolatorType), id, caption, position)
{
}

void AcIsolatorDiagramComponent::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    ComponentDrawing::housing(painter, rect(), Qt::white);
    ComponentDrawing::knob(painter, QRectF(15, 15, 25, 25), Qt::darkGray);
}
