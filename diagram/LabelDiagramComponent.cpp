#include "diagram/LabelDiagramComponent.h"

#include "diagram/ComponentKind.h"
#include "diagram/ConnectionPoint.h"
#include "diagram/DiagramItemType.h"
#include "diagram/EdgeSnap.h"

LabelDiagramComponent::LabelDiagramComponent() : DiagramComponent(ComponentKind::ofType(NoteType))
{
    setUp();
}

LabelDiagramComponent::LabelDiagramComponent(const QString &id, const QString &caption,
                                             const QPointF &position)
    : DiagramComponent(ComponentKind::ofType(NoteType), id, caption, position)
{
    setUp();
    setRect(label()->boundingRect());
}

void LabelDiagramComponent::setUp()
{
    setFlags(ItemIsMovable | ItemHasNoContents);
}

void LabelDiagramComponent::removeLabel()
{
    // Without it there would be nothing left to be seen or to be taken hold of.
    remove();
}

void LabelDiagramComponent::paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) {}

void LabelDiagramComponent::labelModified()
{
    // The caption lies on top and is what the user moves. The note's own position stays what it is, as the
    // point that wires at the note count from in files.
    const QRectF before = rect();
    setRect(label()->boundingRect().translated(label()->pos() - pos()));
    takeEndsAlong(before);
    DiagramComponent::labelModified();
}

void LabelDiagramComponent::takeEndsAlong(const QRectF &before)
{
    const QPointF shift = rect().topLeft() - before.topLeft();
    const bool isResized = rect().size() != before.size();
    if (shift.isNull() && !isResized)
        return;
    const QRectF edge = sceneBoundingRect();
    for (ConnectionPoint *end : connectionPoints()) {
        QPointF place = end->pos() + shift;
        if (isResized)
            place = EdgeSnap::ontoSide(edge, EdgeSnap::inside(edge, place), end->side());
        end->attach(this, place, end->side());
        end->moveTo(place);
    }
}
