#include "diagram/DistributionBoardDiagramComponent.h"

#include "diagram/ComponentDrawing.h"
#include "diagram/ComponentKind.h"
#include "diagram/DiagramItemType.h"

#include <QPainter>

namespace {

constexpr int breakers = 7;

} // namespace

DistributionBoardDiagramComponent::DistributionBoardDiagramComponent()
    : DiagramComponent(ComponentKind::ofType(DistributionBoardType))
{
}

DistributionBoardDiagramComponent::DistributionBoardDiagramComponent(const QString &id,
                                                                     const QString &caption,
                                                                     const QPointF &position)
    : DiagramComponent(ComponentKind::ofType(DistributionBoardType), id, caption, position)
{
}

void DistributionBoardDiagramComponent::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    ComponentDrawing::housing(painter, rect(), Qt::darkGray);
    const QRectF row(10, 10, 120, 30);
    ComponentDrawing::window(painter, row);
    for (int i = 1; i < breakers; ++i) {
        const double x = row.left() + i * row.width() / breakers;
        painter->drawLine(QPointF(x, row.top()), QPointF(x, row.bottom()));
    }
}
