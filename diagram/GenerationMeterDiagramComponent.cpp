#include "diagram/GenerationMeterDiagramComponent.h"

#include "diagram/ComponentDrawing.h"
#include "diagram/ComponentKind.h"
#include "diagram/DiagramItemType.h"

GenerationMeterDiagramComponent::GenerationMeterDiagramComponent()
    : DiagramComponent(ComponentKind::ofType(GenerationMeterType))
{
}

GenerationMeterDiagramComponent::GenerationMeterDiagramComponent(const QString &id, const QString &caption,
                                                                 const QPointF &position)
    : DiagramComponent(ComponentKind::ofType(GenerationMeterType), id, caption, position)
{
}

void GenerationMeterDiagramComponent::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    ComponentDrawing::housing(painter, rect(), Qt::darkGray);
    ComponentDrawing::window(painter, QRectF(15, 0, 90, 30));
}
