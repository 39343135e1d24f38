#pragma once

#include "diagram/DiagramComponent.h"

/// A panel. Single wires meet it in the middle of a side, cables not at all.
class PanelDiagramComponent final : public DiagramComponent
{
    Q_OBJECT

public:
    PanelDiagramComponent();
    PanelDiagramComponent(const QString &id, const QString &caption, const QPointF &position);

    void snapToEdge(int cableType, QPointF &point, int &side, int state) override;

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
};
