#include "diagram/PanelDiagramComponent.h"

#include "diagram/Cable.h"
#include "diagram/ComponentDrawing.h"
#include "diagram/ComponentKind.h"
#include "diagram/DiagramItemType.h"
#include "diagram/EdgeSnap.h"

PanelDiagramComponent::PanelDiagramComponent() : DiagramComponent(ComponentKind::ofType(PanelType)) {}

PanelDiagramComponent::PanelDiagramComponent(const QString &id, const QString &caption,
                                             const QPointF &position)
    : DiagramComponent(ComponentKind::ofType(PanelType), id, caption, position)
{
}

void PanelDiagramComponent::snapToEdge(int cableType, QPointF &point, int &side, int state)
{
    if (cableType != SingleWire)
        return;
    DiagramComponent::snapToEdge(cableType, point, side, state);
    point = EdgeSnap::middleOfSide(sceneBoundingRect(), side);
}

void PanelDiagramComponent::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    ComponentDrawing::housing(painter, rect(), Qt::gray);
}
