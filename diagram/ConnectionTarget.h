#pragma once

#include "diagram/DiagramGraphicsItem.h"

class ConnectionPoint;

/// What the end of a wire can be attached to, as the end sees it.
class ConnectionTarget : public DiagramGraphicsItem
{
public:
    using DiagramGraphicsItem::DiagramGraphicsItem;

    /// Moves a point onto the edge and tells the side. Leaves `side` as it is where wires of this type do not
    /// attach.
    virtual void snapToEdge(int cableType, QPointF &point, int &side, int state) = 0;
    virtual void addConnectionPoint(ConnectionPoint *end) = 0;
    virtual void removeConnectionPoint(ConnectionPoint *end) = 0;
};
