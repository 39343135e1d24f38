#include "app/document/ZoomableGraphicsView.h"

#include <QWheelEvent>

void ZoomableGraphicsView::wheelEvent(QWheelEvent *event)
{
    if (event->modifiers() & Qt::ControlModifier)
        event->ignore();
    else
        QGraphicsView::wheelEvent(event);
}
