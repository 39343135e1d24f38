#include "app/document/GraphicsDocument.h"

#include "app/document/ZoomableGraphicsView.h"

#include <QAction>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolBar>
#include <QWheelEvent>

namespace {

constexpr double zoomFactors[] = {1, 1.5, 2, 3, 4, 6, 8, 12};
constexpr int maximalLevel = 7;

} // namespace

GraphicsDocument::GraphicsDocument(const QString &path, QWidget *parent)
    : DocumentWithToolbar(path, parent)
    , m_actionZoomIn(
          toolBar()->addAction(QIcon(QStringLiteral(":res/toolButtons/zoomIn.png")), tr("Zoom In")))
    , m_actionZoomOut(
          toolBar()->addAction(QIcon(QStringLiteral(":res/toolButtons/zoomOut.png")), tr("Zoom Out")))
    , m_view(new ZoomableGraphicsView)
{
    m_actionZoomIn->setObjectName(QStringLiteral("actionZoomIn"));
    m_actionZoomIn->setShortcut(QKeySequence(QStringLiteral("Ctrl++")));
    connect(m_actionZoomIn, &QAction::triggered, this, &GraphicsDocument::zoomIn);
    m_actionZoomOut->setObjectName(QStringLiteral("actionZoomOut"));
    // The first is how the key stands in the program's tables; the toolkit knows no such key, so the
    // second is the one that works.
    m_actionZoomOut->setShortcuts(
        {QKeySequence(QStringLiteral("Ctrl--")), QKeySequence(QStringLiteral("Ctrl+-"))});
    connect(m_actionZoomOut, &QAction::triggered, this, &GraphicsDocument::zoomOut);
    m_view->setAccessibleName(fileName());
    scrollArea()->setWidget(m_view);
    // It has nothing to scroll: the keyboard is the view's.
    scrollArea()->setFocusPolicy(Qt::NoFocus);
}

double GraphicsDocument::zoomFactor(int level)
{
    const double factor = zoomFactors[qMin(qAbs(level), maximalLevel)];
    return level < 0 ? 1 / factor : factor;
}

void GraphicsDocument::zoomIn()
{
    setZoomLevel(m_zoomLevel + 1);
}

void GraphicsDocument::zoomOut()
{
    setZoomLevel(m_zoomLevel - 1);
}

void GraphicsDocument::setZoomLevel(int level)
{
    m_zoomLevel = qBound(-maximalLevel, level, maximalLevel);
    m_actionZoomIn->setEnabled(m_zoomLevel < maximalLevel);
    m_actionZoomOut->setEnabled(m_zoomLevel > -maximalLevel);
    const double factor = zoomFactor(m_zoomLevel);
    m_view->setTransform(QTransform::fromScale(factor, factor));
}

void GraphicsDocument::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        DocumentWithToolbar::wheelEvent(event);
        return;
    }
    const QPoint pointer = m_view->viewport()->mapFrom(this, event->position().toPoint());
    const QPointF underPointer = m_view->mapToScene(pointer);
    setZoomLevel(m_zoomLevel + (event->angleDelta().y() > 0 ? 1 : -1));
    // The scroll bars take whole units: centring on a point of the scene would lose one now and then,
    // and the drawing would creep at the last level.
    const QPoint strayed = m_view->mapFromScene(underPointer) - pointer;
    QScrollBar *across = m_view->horizontalScrollBar();
    across->setValue(across->value() + (m_view->isRightToLeft() ? -strayed.x() : strayed.x()));
    m_view->verticalScrollBar()->setValue(m_view->verticalScrollBar()->value() + strayed.y());
    event->accept();
}
