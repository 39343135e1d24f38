#include "curve/ui/CurvePanner.h"
#include "curve/ui/CurveTracker.h"
#include "curve/ui/CurveZoomer.h"
#include "tests/curve/ui/GraphDesk.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <qwt_picker_machine.h>
#include <qwt_plot_canvas.h>
#include <qwt_scale_map.h>

using namespace IVCurve;

namespace {

/// A desk with a graph on the screen and a string on it, and hands to work it with.
class HandsOnDesk : public GraphDesk
{
public:
    HandsOnDesk()
    {
        id = add("Roof", plainCurve());
        select({id});
        show();
    }

    QWidget *canvas() { return graph().canvas(); }
    CurveZoomer *zoomer() { return graph().zoomer(); }

    /// Where a point of the curve's plane lies on the canvas.
    QPoint at(double volts, double amperes) const
    {
        const CurveGraph &shown = const_cast<HandsOnDesk *>(this)->graph();
        return {qRound(shown.transform(QwtPlot::xBottom, volts)),
                qRound(shown.transform(QwtPlot::yLeft, amperes))};
    }

    void mouse(QEvent::Type type, const QPoint &where, Qt::KeyboardModifiers modifiers,
               Qt::MouseButton button)
    {
        const bool moves = type == QEvent::MouseMove;
        const bool released = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, where, canvas()->mapToGlobal(where), moves ? Qt::NoButton : button,
                          released ? Qt::NoButton : button, modifiers);
        QCoreApplication::sendEvent(canvas(), &event);
    }

    void drag(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        mouse(QEvent::MouseButtonPress, from, modifiers, Qt::LeftButton);
        mouse(QEvent::MouseMove, (from + to) / 2, modifiers, Qt::LeftButton);
        mouse(QEvent::MouseMove, to, modifiers, Qt::LeftButton);
        mouse(QEvent::MouseButtonRelease, to, modifiers, Qt::LeftButton);
        QCoreApplication::processEvents();
    }

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(canvas(), Qt::Key(key), modifiers);
        QCoreApplication::processEvents();
    }

    /// What of the plane is shown: from the left and the bottom.
    QRectF shown()
    {
        const QwtScaleDiv x = graph().axisScaleDiv(QwtPlot::xBottom);
        const QwtScaleDiv y = graph().axisScaleDiv(QwtPlot::yLeft);
        return {x.lowerBound(), y.lowerBound(), x.range(), y.range()};
    }

    quint32 id = 0;
};

const QRectF base(0, 0, 40.0 * 1.1, 5.0 * 1.1);

bool isNear(const QRectF &one, const QRectF &other)
{
    // A pixel is some 0.06 V wide and 0.01 A high.
    return qAbs(one.left() - other.left()) < 0.2 && qAbs(one.right() - other.right()) < 0.2 &&
           qAbs(one.top() - other.top()) < 0.05 && qAbs(one.bottom() - other.bottom()) < 0.05;
}

void locales()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

} // namespace

class TestGraphZoom : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void patternsAreThoseOfTheGraph();
    void leftDragZoomsToItsRectangle_data() { locales(); }
    void leftDragZoomsToItsRectangle();
    void keysStepThroughTheZooms_data() { locales(); }
    void keysStepThroughTheZooms();
    void keysWithOtherModifiersDoNothing();
    void leftDragWithShiftPans_data() { locales(); }
    void leftDragWithShiftPans();
    void panningMovesAllAxes();
    void otherButtonsZoomNothing();
    void zoomsCanBeNestedDeeply();
    void newLinesEndTheZoom();
    void emptyGraphCanBeZoomedAndPanned();
    void trackerFollowsTheMouse();
};

void TestGraphZoom::init()
{
    TestHome::instance()->reset();
}

void TestGraphZoom::patternsAreThoseOfTheGraph()
{
    GraphDesk desk;
    QVERIFY(dynamic_cast<const QwtPickerTrackerMachine *>(desk.graph().tracker()->stateMachine()));
    QCOMPARE(desk.graph().zoomer()->maxStackDepth(), -1);
    Qt::MouseButton button = Qt::NoButton;
    Qt::KeyboardModifiers modifiers;
    desk.graph().panner()->getMouseButton(button, modifiers);
    QCOMPARE(button, Qt::LeftButton);
    QCOMPARE(modifiers, Qt::KeyboardModifiers(Qt::ShiftModifier));
    QCOMPARE(desk.graph().panner()->cursor().shape(), Qt::OpenHandCursor);
    QCOMPARE(desk.graph().panner()->orientations(), Qt::Horizontal | Qt::Vertical);
}

void TestGraphZoom::leftDragZoomsToItsRectangle()
{
    QFETCH(QString, locale);
    const LocaleSwitch language(locale);
    HandsOnDesk desk;
    QCOMPARE(desk.zoomer()->zoomBase(), base);
    desk.drag(desk.at(10, 4), desk.at(30, 1));
    QVERIFY(isNear(desk.shown(), QRectF(10, 1, 20, 3)));
    QCOMPARE(desk.zoomer()->zoomRectIndex(), 1u);
    // From the lower right to the upper left is the same.
    desk.drag(desk.at(25, 2), desk.at(15, 3));
    QVERIFY(isNear(desk.shown(), QRectF(15, 2, 10, 1)));
    QCOMPARE(desk.zoomer()->zoomStack().size(), 3);
}

void TestGraphZoom::keysStepThroughTheZooms()
{
    QFETCH(QString, locale);
    const LocaleSwitch language(locale);
    HandsOnDesk desk;
    desk.drag(desk.at(10, 4), desk.at(30, 1));
    const QRectF first = desk.shown();
    desk.drag(desk.at(15, 3), desk.at(25, 2));
    const QRectF second = desk.shown();
    desk.press(Qt::Key_O, Qt::ShiftModifier);
    QVERIFY(isNear(desk.shown(), first));
    desk.press(Qt::Key_O, Qt::ShiftModifier);
    QVERIFY(isNear(desk.shown(), base));
    desk.press(Qt::Key_O, Qt::ShiftModifier);
    QVERIFY(isNear(desk.shown(), base));
    desk.press(Qt::Key_I, Qt::ShiftModifier);
    QVERIFY(isNear(desk.shown(), first));
    desk.press(Qt::Key_I, Qt::ShiftModifier);
    QVERIFY(isNear(desk.shown(), second));
    desk.press(Qt::Key_I, Qt::ShiftModifier);
    QVERIFY(isNear(desk.shown(), second));
    desk.press(Qt::Key_Home);
    QVERIFY(isNear(desk.shown(), base));
    QCOMPARE(desk.zoomer()->zoomRectIndex(), 0u);
    // The steps are still there.
    desk.press(Qt::Key_I, Qt::ShiftModifier);
    QVERIFY(isNear(desk.shown(), first));
}

void TestGraphZoom::keysWithOtherModifiersDoNothing()
{
    HandsOnDesk desk;
    desk.drag(desk.at(10, 4), desk.at(30, 1));
    const QRectF zoomed = desk.shown();
    desk.press(Qt::Key_O);
    desk.press(Qt::Key_O, Qt::ControlModifier);
    desk.press(Qt::Key_Home, Qt::ShiftModifier);
    QCOMPARE(desk.shown(), zoomed);
}

void TestGraphZoom::leftDragWithShiftPans()
{
    QFETCH(QString, locale);
    const LocaleSwitch language(locale);
    HandsOnDesk desk;
    desk.drag(desk.at(20, 2), desk.at(30, 3), Qt::ShiftModifier);
    // What lay under the mouse moved along.
    QVERIFY(isNear(desk.shown(), base.translated(-10, -1)));
    QCOMPARE(desk.zoomer()->zoomRectIndex(), 0u);
    QCOMPARE(desk.zoomer()->zoomStack().size(), 1);
    desk.press(Qt::Key_Home);
    QVERIFY(isNear(desk.shown(), base));
}

void TestGraphZoom::panningMovesAllAxes()
{
    HandsOnDesk desk;
    desk.graph().displayPWRToggled(true);
    QCoreApplication::processEvents();
    desk.drag(desk.at(20, 2), desk.at(30, 3), Qt::ShiftModifier);
    QVERIFY(isNear(desk.shown(), base.translated(-10, -1)));
    // One of 5.5 A is as high as 24 of 132 W.
    QVERIFY(qAbs(desk.graph().axisScaleDiv(QwtPlot::yRight).lowerBound() + 24) < 1);
}

void TestGraphZoom::otherButtonsZoomNothing()
{
    HandsOnDesk desk;
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        desk.mouse(QEvent::MouseButtonPress, desk.at(10, 4), Qt::NoModifier, button);
        desk.mouse(QEvent::MouseMove, desk.at(30, 1), Qt::NoModifier, button);
        desk.mouse(QEvent::MouseButtonRelease, desk.at(30, 1), Qt::NoModifier, button);
        QVERIFY(isNear(desk.shown(), base));
        QCOMPARE(desk.zoomer()->zoomStack().size(), 1);
    }
}

void TestGraphZoom::zoomsCanBeNestedDeeply()
{
    HandsOnDesk desk;
    for (int depth = 1; depth <= 8; ++depth) {
        const QRectF shown = desk.shown();
        const QPointF middle = shown.center();
        desk.drag(desk.at(middle.x() - shown.width() / 4, middle.y() + shown.height() / 4),
                  desk.at(middle.x() + shown.width() / 4, middle.y() - shown.height() / 4));
        QCOMPARE(desk.zoomer()->zoomRectIndex(), uint(depth));
    }
    desk.press(Qt::Key_Home);
    QVERIFY(isNear(desk.shown(), base));
}

void TestGraphZoom::newLinesEndTheZoom()
{
    HandsOnDesk desk;
    desk.drag(desk.at(10, 4), desk.at(30, 1));
    desk.graph().displayMEASToggled(true);
    QVERIFY(isNear(desk.shown(), base));
    QCOMPARE(desk.zoomer()->zoomStack().size(), 1);
    desk.drag(desk.at(10, 4), desk.at(30, 1));
    desk.select({desk.id, desk.add("Wall", {{10, 1}, {20, 0.5}})});
    QVERIFY(isNear(desk.shown(), base));
    QCOMPARE(desk.zoomer()->zoomStack().size(), 1);
    // Without a message that the legend is to be renewed it takes a turn of the event loop.
    desk.drag(desk.at(10, 4), desk.at(30, 1));
    desk.graph().slotRemoveCurves(desk.id);
    desk.graph().slotInsertCurves(desk.id);
    QCoreApplication::processEvents();
    QVERIFY(isNear(desk.shown(), base));
    QCOMPARE(desk.zoomer()->zoomRectIndex(), 0u);
}

void TestGraphZoom::emptyGraphCanBeZoomedAndPanned()
{
    HandsOnDesk desk;
    desk.select({});
    QCoreApplication::processEvents();
    desk.drag({100, 100}, {300, 300});
    desk.drag({100, 100}, {300, 300}, Qt::ShiftModifier);
    desk.press(Qt::Key_O, Qt::ShiftModifier);
    desk.press(Qt::Key_Home);
    desk.mouse(QEvent::MouseMove, {200, 200}, Qt::NoModifier, Qt::NoButton);
    QCoreApplication::processEvents();
    // And then it shows a string again.
    desk.select({desk.id});
    QVERIFY(isNear(desk.shown(), base));
}

void TestGraphZoom::trackerFollowsTheMouse()
{
    HandsOnDesk desk;
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(desk.canvas(), &enter);
    desk.mouse(QEvent::MouseMove, desk.at(25, 1), Qt::NoModifier, Qt::NoButton);
    const CurveTracker *tracker = desk.graph().tracker();
    QVERIFY(tracker->isActive());
    QCOMPARE(tracker->trackerPosition(), desk.at(25, 1));
    QVERIFY(tracker->trackerRect(tracker->trackerFont()).width() > 60);
    QCOMPARE(tracker->trackerRect(tracker->trackerFont()),
             tracker->QwtPlotPicker::trackerRect(tracker->trackerFont()));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(desk.canvas(), &leave);
    QVERIFY(!tracker->isActive());
}

KELMAR_TEST_MAIN(TestGraphZoom)
#include "tst_graphzoom.moc"
