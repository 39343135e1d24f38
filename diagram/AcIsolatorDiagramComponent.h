#pragma once

#include "diagram/DiagramComponent.h"

/// An isolator between inverter and board, with the knob of its switch.
class AcIsolatorDiagramComponent final : public DiagramComponent
{
    Q_OBJECT

public:
    AcIsolatorDiagramComponent();
    AcIsolatorDiagramComponent(const QString &id, const QString &caption, const QPointF &position);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
};
