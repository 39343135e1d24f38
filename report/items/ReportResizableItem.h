#pragma once

#include "report/items/AbstractReportItem.h"

#include <QPen>
#include <QUndoCommand>

/// An item with a size. A resizable one has a frame while the pointer is over it, by which it is dragged
/// and resized with the mouse; each drag is one step of the undo history.
class ReportResizableItem : public AbstractReportItem
{
    Q_OBJECT

public:
    ReportResizableItem(QGraphicsItem *parent, bool isResizable);

    bool writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries) override;
    bool readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries) override;

    /// Gives the item a size. `handle` tells by which handle it is resized, see ResizeGeometry.h.
    virtual void setItemSize(const QSizeF &size, int handle) = 0;
    /// Where the item's content lies, in its own coordinates.
    virtual QRectF itemRect() const = 0;

    bool isResizable() const { return m_resizable; }
    /// Lays the frame around the content, for a view that shows `scale` scene units as one device pixel.
    void updateFrame(double scale);
    void refreshFrame();

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

protected:
    void hoverMoveEvent(QGraphicsSceneHoverEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;

private:
    void setResizable(bool resizable);

    bool m_resizable;
    QRectF m_boundingRect;
    QRectF m_previousOuterRect;
    QRectF m_frameRect;
    double m_frameScale = 1.0;
    int m_handle = 0;
    QRectF m_startGeometry;
    /// The frame's second pen, made for m_frameScale.
    QPen m_hatchPen;
};

/// One drag of a resizable item: from a place and size to another.
class ReportResizableItemCommand : public QUndoCommand
{
public:
    ReportResizableItemCommand(ReportResizableItem *item, const QRectF &oldGeometry,
                               const QRectF &newGeometry, int handle);

    void undo() override;
    void redo() override;

private:
    void apply(const QPointF &position, const QSizeF &size);

    ReportResizableItem *m_item;
    QPointF m_oldPosition;
    QSizeF m_oldSize;
    QPointF m_newPosition;
    QSizeF m_newSize;
    int m_handle;
};
