#pragma once

#include "diagram/DiagramComponent.h"

/// A distribution board with its row of breakers.
class DistributionBoardDiagramComponent final : public DiagramComponent
{
    Q_OBJECT

public:
    DistributionBoardDiagramComponent();
    DistributionBoardDiagramComponent(const QString &id, const QString &caption, const QPointF &position);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
};
