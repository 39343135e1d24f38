#include "report/items/ResizeGeometry.h"

#include "tests/support/TestMain.h"

using namespace ResizeGeometry;

class tst_ResizeGeometry : public QObject
{
    Q_OBJECT

private slots:
    void theNinePlacesHaveTheirHandlesAndCursors_data();
    void theNinePlacesHaveTheirHandlesAndCursors();
    void theHandleDragsItsOwnSides_data();
    void theHandleDragsItsOwnSides();
    void theOppositeSideStaysWhereItWas_data();
    void theOppositeSideStaysWhereItWas();
    void anEdgeKeepsTheMiddleOfTheOtherDirection();
    void equalityForgivesRoundingOnly();
};

void tst_ResizeGeometry::theNinePlacesHaveTheirHandlesAndCursors_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<int>("handle");
    QTest::addColumn<Qt::CursorShape>("cursor");
    QTest::newRow("top left") << QPointF(-3, -3) << 17 << Qt::SizeFDiagCursor;
    QTest::newRow("exactly the corner") << QPointF(0, 0) << 17 << Qt::SizeFDiagCursor;
    QTest::newRow("top edge") << QPointF(50, -1) << 18 << Qt::SizeVerCursor;
    QTest::newRow("top right") << QPointF(103, -3) << 20 << Qt::SizeBDiagCursor;
    QTest::newRow("left edge") << QPointF(-1, 25) << 33 << Qt::SizeHorCursor;
    QTest::newRow("inside") << QPointF(50, 25) << 34 << Qt::SizeAllCursor;
    QTest::newRow("right edge") << QPointF(100, 25) << 36 << Qt::SizeHorCursor;
    QTest::newRow("bottom left") << QPointF(-3, 53) << 65 << Qt::SizeBDiagCursor;
    QTest::newRow("bottom edge") << QPointF(50, 50) << 66 << Qt::SizeVerCursor;
    QTest::newRow("bottom right") << QPointF(103, 53) << 68 << Qt::SizeFDiagCursor;
}

void tst_ResizeGeometry::theNinePlacesHaveTheirHandlesAndCursors()
{
    QFETCH(QPointF, point);
    QFETCH(int, handle);
    QFETCH(Qt::CursorShape, cursor);
    QCOMPARE(handleAt(point, QRectF(0, 0, 100, 50)), handle);
    QCOMPARE(cursorOf(handle), cursor);
}

void tst_ResizeGeometry::theHandleDragsItsOwnSides_data()
{
    QTest::addColumn<int>("handle");
    QTest::addColumn<QRectF>("expected");
    QTest::newRow("inside") << 34 << QRectF(17, 25, 100, 50);
    QTest::newRow("bottom right") << 68 << QRectF(10, 20, 107, 55);
    QTest::newRow("top left") << 17 << QRectF(17, 25, 93, 45);
    QTest::newRow("top right") << 20 << QRectF(10, 25, 107, 45);
    QTest::newRow("bottom left") << 65 << QRectF(17, 20, 93, 55);
    QTest::newRow("bottom") << 66 << QRectF(10, 20, 100, 55);
    QTest::newRow("top") << 18 << QRectF(10, 25, 100, 45);
    QTest::newRow("left") << 33 << QRectF(17, 20, 93, 50);
    QTest::newRow("right") << 36 << QRectF(10, 20, 107, 50);
}

void tst_ResizeGeometry::theHandleDragsItsOwnSides()
{
    QFETCH(int, handle);
    QFETCH(QRectF, expected);
    QCOMPARE(dragged(QRectF(10, 20, 100, 50), handle, QPointF(7, 5)), expected);
}

void tst_ResizeGeometry::theOppositeSideStaysWhereItWas_data()
{
    QTest::addColumn<int>("handle");
    QTest::addColumn<QPointF>("position");
    // Wanted: (10, 20) to (110, 70). Taken: 80 x 40.
    QTest::newRow("top left") << 17 << QPointF(30, 30);
    QTest::newRow("top right") << 20 << QPointF(10, 30);
    QTest::newRow("bottom left") << 65 << QPointF(30, 20);
    QTest::newRow("bottom right") << 68 << QPointF(10, 20);
    QTest::newRow("inside") << 34 << QPointF(10, 20);
}

void tst_ResizeGeometry::theOppositeSideStaysWhereItWas()
{
    QFETCH(int, handle);
    QFETCH(QPointF, position);
    QCOMPARE(anchoredPosition(QRectF(10, 20, 100, 50), QRectF(0, 0, 80, 40), handle), position);
}

void tst_ResizeGeometry::anEdgeKeepsTheMiddleOfTheOtherDirection()
{
    const QRectF wanted(10, 20, 100, 50);
    const QRectF actual(0, 0, 80, 40);
    QCOMPARE(anchoredPosition(wanted, actual, 18), QPointF(20, 30));
    QCOMPARE(anchoredPosition(wanted, actual, 66), QPointF(20, 20));
    QCOMPARE(anchoredPosition(wanted, actual, 33), QPointF(30, 25));
    QCOMPARE(anchoredPosition(wanted, actual, 36), QPointF(10, 25));
}

void tst_ResizeGeometry::equalityForgivesRoundingOnly()
{
    QVERIFY(sameSize(QSizeF(100, 50), QSizeF(100 * (1 + 1e-14), 50)));
    QVERIFY(!sameSize(QSizeF(100, 50), QSizeF(100.000001, 50)));
    QVERIFY(!sameSize(QSizeF(100, 50), QSizeF(100, 50.000001)));
    QVERIFY(samePosition(QPointF(1, 0), QPointF(1, 5e-13)));
    QVERIFY(!samePosition(QPointF(1, 0), QPointF(1, 5e-12)));
    QVERIFY(!samePosition(QPointF(0, 1), QPointF(5e-12, 1)));
}

KELMAR_TEST_MAIN(tst_ResizeGeometry)
#include "tst_resizegeometry.moc"
