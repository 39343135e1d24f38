#pragma once

#include "diagram/DiagramComponent.h"

/// A free note. It is nothing but its caption: it draws nothing, takes the caption's size and place as its
/// own, and goes when the caption goes.
class LabelDiagramComponent final : public DiagramComponent
{
    Q_OBJECT

public:
    LabelDiagramComponent();
    LabelDiagramComponent(const QString &id, const QString &caption, const QPointF &position);

    void removeLabel() override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

protected:
    void labelModified() override;

private:
    void setUp();
    void takeEndsAlong(const QRectF &before);
};
