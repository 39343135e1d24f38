#pragma once

#include "app/document/DocumentWithToolbar.h"

class QAction;
class ZoomableGraphicsView;

/// A document with a graphics view that zooms in fixed steps, from the tool bar and around the pointer
/// with Control and the wheel.
class GraphicsDocument : public DocumentWithToolbar
{
    Q_OBJECT

public:
    explicit GraphicsDocument(const QString &path, QWidget *parent = nullptr);

    /// The scale of a zoom level from -7 to 7; 1 at level 0.
    static double zoomFactor(int level);

    ZoomableGraphicsView *view() const { return m_view; }
    int zoomLevel() const { return m_zoomLevel; }

public slots:
    void zoomIn();
    void zoomOut();

protected:
    void wheelEvent(QWheelEvent *event) override;

private:
    void setZoomLevel(int level);

    QAction *m_actionZoomIn;
    QAction *m_actionZoomOut;
    ZoomableGraphicsView *m_view;
    int m_zoomLevel = 0;
};
