#include "app/document/ZoomableGraphicsView.h"
#include "tests/support/TestMain.h"

#include <QGraphicsScene>
#include <QScrollBar>
#include <QWheelEvent>

class TestZoomableGraphicsView : public QObject
{
    Q_OBJECT

private slots:
    void wheelWithControlIsLeftToTheParent();
    void wheelAloneScrolls();
};

namespace {

/// The scroll bar's value and whether the view took the wheel for itself.
struct Outcome
{
    int moved;
    bool taken;
};

Outcome turnWheel(Qt::KeyboardModifiers modifiers)
{
    QGraphicsScene scene(0, 0, 2000, 2000);
    ZoomableGraphicsView view;
    view.setScene(&scene);
    view.resize(200, 200);
    view.show();
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->minimum());
    const int before = view.verticalScrollBar()->value();
    QWheelEvent event(QPointF(50, 50), view.viewport()->mapToGlobal(QPoint(50, 50)), QPoint(),
                      QPoint(0, -120), Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &event);
    return {view.verticalScrollBar()->value() - before, event.isAccepted()};
}

} // namespace

void TestZoomableGraphicsView::wheelWithControlIsLeftToTheParent()
{
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::KeyboardModifiers(Qt::ControlModifier), Qt::ControlModifier | Qt::ShiftModifier}) {
        const Outcome outcome = turnWheel(modifiers);
        QCOMPARE(outcome.moved, 0);
        QVERIFY(!outcome.taken);
    }
}

void TestZoomableGraphicsView::wheelAloneScrolls()
{
    const Outcome outcome = turnWheel(Qt::NoModifier);
    QVERIFY(outcome.moved > 0);
    QVERIFY(outcome.taken);
}

KELMAR_TEST_MAIN(TestZoomableGraphicsView)
#include "tst_zoomablegraphicsview.moc"
