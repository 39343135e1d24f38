#pragma once

#include <QGraphicsView>

/// A graphics view that leaves the wheel with Control held to its document, which zooms.
class ZoomableGraphicsView : public QGraphicsView
{
    Q_OBJECT

public:
    using QGraphicsView::QGraphicsView;

protected:
    void wheelEvent(QWheelEvent *event) override;
};
