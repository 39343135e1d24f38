#pragma once

#include "diagram/DiagramComponent.h"

/// A meter with its display.
class GenerationMeterDiagramComponent final : public DiagramComponent
{
    Q_OBJECT

public:
    GenerationMeterDiagramComponent();
    GenerationMeterDiagramComponent(const QString &id, const QString &caption, const QPointF &position);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
};
