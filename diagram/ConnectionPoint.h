#pragma once

#include <QGraphicsItem>

class ConnectionTarget;

/// The wire that an end belongs to, as the end sees it.
class ConnectionPointOwner
{
public:
    virtual ~ConnectionPointOwner() = default;

    virtual int cableType() const = 0;
    virtual int state() const = 0;
    virtual void updateRoute() = 0;
};

/// The handle at an end of a wire. While it follows the pointer it jumps onto the edge of what it comes over
/// and stays attached there. It shows itself only to a hand that could take it.
class ConnectionPoint : public QGraphicsItem
{
public:
    ConnectionPoint(ConnectionPointOwner *connection, int side);
    ~ConnectionPoint() override;

    ConnectionTarget *component() const { return m_component; }
    /// From the position of the attached component.
    QPointF offset() const { return m_offset; }
    int side() const { return m_side; }
    bool isSnapped() const { return m_snapped; }
    bool isGrabbed() const { return m_grabbed; }
    void setGrabbed(bool grabbed);

    void attach(ConnectionTarget *component, const QPointF &scenePoint, int side);
    /// As attach(), by the place within the component: no rounding moves an end from one file to the next.
    void attachAt(ConnectionTarget *component, const QPointF &offset, int side);
    void detach();
    void moveTo(const QPointF &point);

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;
    void hoverEnterEvent(QGraphicsSceneHoverEvent *event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent *event) override;

private:
    bool followsPointer() const { return m_connection && (m_hovered || m_grabbed); }
    QPointF snapped(QPointF point);
    void updateHandle();

    ConnectionPointOwner *m_connection;
    QPointF m_offset;
    ConnectionTarget *m_component = nullptr;
    int m_side;
    bool m_hovered = false;
    bool m_snapped = false;
    bool m_grabbed = false;
};
