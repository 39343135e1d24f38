#include "app/document/GraphicsDocument.h"
#include "app/document/ZoomableGraphicsView.h"
#include "tests/support/TestMain.h"

#include <QGraphicsScene>
#include <QScrollBar>
#include <QToolBar>
#include <QWheelEvent>

class TestGraphicsDocument : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void factorsFollowTheTable_data();
    void factorsFollowTheTable();
    void zoomActionsComeFirstOnTheToolBar();
    void buttonsStepThroughAllLevels();
    void keysZoom();
    void wheelWithControlStaysWithinTheLimits();
    void wheelWithoutRotationCountsAsZoomingOut();
    void pointUnderThePointerStaysThere_data();
    void pointUnderThePointerStaysThere();
    void wheelWithControlDoesNotScrollAtTheLimits();
    void wheelWithoutControlScrolls();

private:
    QAction *action(const char *name) const { return m_document->findChild<QAction *>(name); }
    void wheel(int delta, const QPoint &place, Qt::KeyboardModifiers modifiers = Qt::ControlModifier);
    QPoint scrolled() const
    {
        return {m_document->view()->horizontalScrollBar()->value(),
                m_document->view()->verticalScrollBar()->value()};
    }

    std::unique_ptr<GraphicsDocument> m_document;
    std::unique_ptr<QGraphicsScene> m_scene;
};

void TestGraphicsDocument::init()
{
    m_scene = std::make_unique<QGraphicsScene>(-1000, -700, 4000, 3000);
    m_document = std::make_unique<GraphicsDocument>("/jobs/site.kelid");
    m_document->view()->setScene(m_scene.get());
    m_document->resize(401, 300);
    m_document->show();
    QVERIFY(QTest::qWaitForWindowActive(m_document.get()));
}

void TestGraphicsDocument::cleanup()
{
    m_document.reset();
    m_scene.reset();
}

/// Turns the wheel over a place of the view.
void TestGraphicsDocument::wheel(int delta, const QPoint &place, Qt::KeyboardModifiers modifiers)
{
    QWidget *viewport = m_document->view()->viewport();
    QWheelEvent event(place, viewport->mapToGlobal(place), QPoint(), QPoint(0, delta), Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    // Only what the window system sends goes on to the parents of a widget that ignores it.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(viewport, &event);
}

void TestGraphicsDocument::factorsFollowTheTable_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<double>("factor");
    const double factors[] = {1, 1.5, 2, 3, 4, 6, 8, 12};
    for (int level = 0; level <= 7; ++level) {
        QTest::addRow("%d", level) << level << factors[level];
        QTest::addRow("-%d", level) << -level << 1 / factors[level];
    }
}

void TestGraphicsDocument::factorsFollowTheTable()
{
    QFETCH(int, level);
    QTEST(GraphicsDocument::zoomFactor(level), "factor");
}

void TestGraphicsDocument::zoomActionsComeFirstOnTheToolBar()
{
    const QList<QAction *> actions = m_document->findChild<QToolBar *>()->actions();
    QCOMPARE(actions, QList<QAction *>({action("actionZoomIn"), action("actionZoomOut")}));
    QCOMPARE(actions.at(0)->toolTip(), QString("Zoom In"));
    QCOMPARE(actions.at(1)->toolTip(), QString("Zoom Out"));
    QCOMPARE(actions.at(0)->shortcut(), QKeySequence("Ctrl++"));
    QCOMPARE(actions.at(1)->shortcut(), QKeySequence("Ctrl--"));
}

void TestGraphicsDocument::buttonsStepThroughAllLevels()
{
    for (int level = 1; level <= 7; ++level) {
        QVERIFY(action("actionZoomIn")->isEnabled());
        action("actionZoomIn")->trigger();
        QCOMPARE(m_document->zoomLevel(), level);
        const double factor = GraphicsDocument::zoomFactor(level);
        QCOMPARE(m_document->view()->transform(), QTransform::fromScale(factor, factor));
    }
    QVERIFY(!action("actionZoomIn")->isEnabled());
    QVERIFY(action("actionZoomOut")->isEnabled());
    for (int level = 6; level >= -7; --level) {
        QVERIFY(action("actionZoomOut")->isEnabled());
        action("actionZoomOut")->trigger();
        QCOMPARE(m_document->zoomLevel(), level);
        QVERIFY(action("actionZoomIn")->isEnabled());
    }
    QVERIFY(!action("actionZoomOut")->isEnabled());
    QCOMPARE(m_document->view()->transform(), QTransform::fromScale(1 / 12.0, 1 / 12.0));
}

void TestGraphicsDocument::keysZoom()
{
    QTest::keyClick(m_document.get(), Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(m_document->zoomLevel(), 1);
    QTest::keyClick(m_document.get(), Qt::Key_Minus, Qt::ControlModifier);
    QTest::keyClick(m_document.get(), Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(m_document->zoomLevel(), -1);
    for (const Qt::KeyboardModifier modifiers : {Qt::NoModifier, Qt::ControlModifier})
        QTest::sendKeyEvent(QTest::Click, m_document.get(), Qt::Key_unknown, QString(), modifiers);
    QCOMPARE(m_document->zoomLevel(), -1);
}

void TestGraphicsDocument::wheelWithControlStaysWithinTheLimits()
{
    for (int i = 0; i < 10; ++i)
        wheel(120, QPoint(100, 80));
    QCOMPARE(m_document->zoomLevel(), 7);
    QVERIFY(!action("actionZoomIn")->isEnabled());
    for (int i = 0; i < 20; ++i)
        wheel(-120, QPoint(100, 80));
    QCOMPARE(m_document->zoomLevel(), -7);
    QVERIFY(!action("actionZoomOut")->isEnabled());
    QVERIFY(action("actionZoomIn")->isEnabled());
}

void TestGraphicsDocument::wheelWithoutRotationCountsAsZoomingOut()
{
    wheel(0, QPoint(100, 80));
    QCOMPARE(m_document->zoomLevel(), -1);
    wheel(1, QPoint(100, 80));
    QCOMPARE(m_document->zoomLevel(), 0);
}

void TestGraphicsDocument::pointUnderThePointerStaysThere_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("odd size, near the corner") << QSize(401, 301) << QPoint(30, 20) << Qt::LeftToRight;
    QTest::newRow("odd size, below right") << QSize(401, 301) << QPoint(300, 200) << Qt::LeftToRight;
    QTest::newRow("even size, near the corner") << QSize(400, 300) << QPoint(30, 20) << Qt::LeftToRight;
    QTest::newRow("from right to left") << QSize(400, 300) << QPoint(30, 20) << Qt::RightToLeft;
    QTest::newRow("even size, in the middle") << QSize(400, 300) << QPoint(195, 125) << Qt::LeftToRight;
}

void TestGraphicsDocument::pointUnderThePointerStaysThere()
{
    QFETCH(QSize, size);
    QFETCH(QPoint, place);
    QFETCH(Qt::LayoutDirection, direction);
    m_document->setLayoutDirection(direction);
    m_document->resize(size);
    QApplication::processEvents();
    const ZoomableGraphicsView *view = m_document->view();
    m_document->view()->centerOn(0, 0);
    for (int step = 0; step < 7; ++step) {
        const QPointF before = view->mapToScene(place);
        wheel(120, place);
        QCOMPARE(m_document->zoomLevel(), step + 1);
        const QPoint landed = view->mapFromScene(before);
        QVERIFY2(
            (landed - place).manhattanLength() <= 1,
            qPrintable(
                QString("level %1: %2, %3").arg(m_document->zoomLevel()).arg(landed.x()).arg(landed.y())));
    }
    for (int step = 0; step < 7; ++step) {
        const QPointF before = view->mapToScene(place);
        wheel(-120, place);
        QCOMPARE(m_document->zoomLevel(), 6 - step);
        const QPoint landed = view->mapFromScene(before);
        QVERIFY2(
            (landed - place).manhattanLength() <= 1,
            qPrintable(
                QString("level %1: %2, %3").arg(m_document->zoomLevel()).arg(landed.x()).arg(landed.y())));
    }
}

void TestGraphicsDocument::wheelWithControlDoesNotScrollAtTheLimits()
{
    for (const QSize size : {QSize(400, 300), QSize(401, 301)}) {
        m_document->resize(size);
        QApplication::processEvents();
        for (int i = 0; i < 8; ++i)
            wheel(120, QPoint(100, 80));
        QCOMPARE(m_document->zoomLevel(), 7);
        const QPoint before = scrolled();
        for (int i = 0; i < 20; ++i)
            wheel(120, QPoint(100, 80));
        QCOMPARE(scrolled(), before);
    }
}

void TestGraphicsDocument::wheelWithoutControlScrolls()
{
    m_document->view()->verticalScrollBar()->setValue(m_document->view()->verticalScrollBar()->minimum());
    const QPoint before = scrolled();
    wheel(-120, QPoint(100, 80), Qt::NoModifier);
    QCOMPARE(m_document->zoomLevel(), 0);
    QCOMPARE(scrolled().x(), before.x());
    QVERIFY(scrolled().y() > before.y());
}

KELMAR_TEST_MAIN(TestGraphicsDocument)
#include "tst_graphicsdocument.moc"
