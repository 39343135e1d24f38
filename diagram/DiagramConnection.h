#pragma once

#include "diagram/ConnectionPoint.h"
#include "diagram/ConnectionRoute.h"
#include "diagram/DiagramGraphicsItem.h"

#include <QLineF>

class ConnectionTarget;

/// Where a wire that is read from a file looks for the components at its ends. The scene implements it.
class ComponentFinder
{
public:
    virtual ~ComponentFinder() = default;

    /// Null when there is none.
    virtual ConnectionTarget *componentById(const QString &id) const = 0;
};

/// A wire or cable. It lays itself anew whenever one of its ends moves. Its two ends are items of the scene
/// beside it, so the scene must let go of the wire before it clears what is left.
class DiagramConnection : public DiagramGraphicsItem, public ConnectionPointOwner
{
    Q_OBJECT

public:
    /// How far a new wire has been placed.
    enum State
    {
        PlacingA = 0,
        PlacingB = 1,
        Finished = 2
    };

    /// A new wire, to be placed.
    DiagramConnection(int cableType, const QString &id, const QPointF &position);
    /// A wire that is to be read from a file.
    DiagramConnection();
    ~DiagramConnection() override;

    int type() const override;
    QString displayName() const override;
    QString elementName() const override;
    void writeXml(QDomElement &element) const override;
    void readXml(const QDomElement &element) override;

    int cableType() const override { return m_cableType; }
    int state() const override { return m_state; }
    const ConnectionPoint &endA() const { return m_endA; }
    const ConnectionPoint &endB() const { return m_endB; }
    const ConnectionRoute &route() const { return m_route; }

    void moveCurrentEnd(const QPointF &point);
    using QGraphicsItem::advance;
    /// Takes the end that is being placed as placed. Returns the new state.
    int advance();
    void updateRoute() override;
    bool hitTest(const QPointF &point) const;

    QRectF boundingRect() const override { return m_boundingRect; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;

private:
    enum DragMode
    {
        NotDragged = 0,
        WholeDragged = 2
    };

    void setUp();
    void readEnd(ConnectionPoint &end, const QDomElement &element);
    bool isFree() const { return !m_endA.component() && !m_endB.component(); }

    ConnectionPoint m_endA{this, LeftSide};
    ConnectionPoint m_endB{this, RightSide};
    QRectF m_boundingRect;
    ConnectionRoute m_route;
    /// What is drawn along the route.
    QVector<QLineF> m_lines;
    /// From the pointer to end A.
    QPointF m_pressOffset;
    int m_dragMode = NotDragged;
    int m_cableType = 1;
    int m_state = PlacingA;
};
