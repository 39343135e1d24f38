#pragma once

#include "diagram/DiagramConnection.h"
#include "diagram/DiagramGraphicsScene.h"

#include <QDomDocument>
#include <QGraphicsView>
#include <QImage>

class DiagramComponent;

/// A diagram on a view that takes the events of a user's hands. One unit of the scene is one pixel.
class DiagramDesk
{
public:
    DiagramDesk();

    DiagramGraphicsScene scene;
    QGraphicsView view;

    /// Adds what stands in a diagram file between its root tags; fails the test when that is not XML.
    void read(const QByteArray &items);
    /// The items as they would be saved. What was returned before is gone.
    QDomElement written() const;
    /// The element with an id, as it would be saved; null if there is none.
    QDomElement written(const QString &id) const;

    template <typename Item = DiagramComponent> Item *item(const QString &id) const
    {
        return dynamic_cast<Item *>(anyItem(id));
    }
    DiagramConnection *wire(const QString &id) const { return item<DiagramConnection>(id); }

    void move(const QPointF &point);
    void press(const QPointF &point, Qt::MouseButton button = Qt::LeftButton);
    void release(const QPointF &point, Qt::MouseButton button = Qt::LeftButton);
    void click(const QPointF &point);
    /// Presses, moves in steps, releases.
    void drag(const QPointF &from, const QPointF &to);
    /// Asks for the context menu at a place and returns its entries; chooses the one with this text.
    QStringList menu(const QPointF &point, const QString &choice = QString());
    /// What is drawn of a part of the scene, without the handles of a hand.
    QImage picture(const QRectF &part);

private:
    /// Elements live no longer than their document.
    mutable QDomDocument m_written;

    DiagramGraphicsItem *anyItem(const QString &id) const;
    QPoint at(const QPointF &point) const { return view.mapFromScene(point); }
};
