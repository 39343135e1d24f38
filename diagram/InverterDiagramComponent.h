#pragma once

#include "diagram/DiagramComponent.h"

/// An inverter; its caption is written on it.
class InverterDiagramComponent final : public DiagramComponent
{
    Q_OBJECT

public:
    InverterDiagramComponent();
    InverterDiagramComponent(const QString &id, const QString &caption, const QPointF &position);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
};
