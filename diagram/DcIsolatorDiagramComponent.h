#pragma once

#include "diagram/DiagramComponent.h"

/// An isolator between panels and inverter, with the knob of its switch.
class DcIsolatorDiagramComponent final : public DiagramComponent
{
    Q_OBJECT

public:
    DcIsolatorDiagramComponent();
    DcIsolatorDiagramComponent(const QString &id, const QString &caption, const QPointF &position);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
};
