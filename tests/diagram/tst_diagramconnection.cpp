#include "diagram/DiagramConnection.h"

#include "diagram/Cable.h"
#include "diagram/DiagramComponent.h"
#include "diagram/DiagramItemType.h"
#include "tests/diagram/DiagramDesk.h"
#include "tests/support/TestMain.h"

#include <QDomElement>

namespace {

using Points = QVector<QPointF>;

// Two boards side by side, 60 apart, and a panel below.
const char components[] = "<distribution_board id='id1' x='100' y='100'/>"
                          "<distribution_board id='id2' x='400' y='200'/>"
                          "<panel id='id3' x='300' y='400'/>";

QByteArray wire(const char *type, const char *endB = "")
{
    return QByteArray("<connection id='id9' type='") + type +
           "'><connectionA connectedItemId='id1' connectedPosX='140' connectedPosY='40' direction='4'/>" +
           endB + "</connection>";
}

const char toSecondBoard[] =
    "<connectionB connectedItemId='id2' connectedPosX='0' connectedPosY='40' direction='8'/>";

/// Distance of the first bend from the right edge of the first board.
double standOff(const char *type)
{
    DiagramDesk desk;
    // From the right side upwards and around to a place at the left, so that the wire follows the edge.
    desk.read(QByteArray("<distribution_board id='id1' x='100' y='100'/>"
                         "<distribution_board id='id2' x='100' y='400'/><connection id='id9' type='") +
              type +
              "'><connectionA connectedItemId='id1' connectedPosX='140' connectedPosY='40' direction='4'/>"
              "<connectionB connectedItemId='id2' connectedPosX='140' connectedPosY='40' direction='4'/>"
              "</connection>");
    return desk.wire("id9")->route().points().at(1).x() - 240;
}

} // namespace

class TestDiagramConnection : public QObject
{
    Q_OBJECT

private slots:
    void eachCableHasItsTypeNumberAndName_data();
    void eachCableHasItsTypeNumberAndName();
    void aCableOfNoKindHasTheTypeNumberOfAllConnections();
    void aNewWireHasItsFirstEndInTheHand();
    void placingGoesFromTheFirstEndToTheSecond();
    void nothingIsDrawnBeforeTheFirstEndIsPlaced();
    void aWireIsDrawnBelowTheComponents();
    void cablesAreDrawnAsTwoAndThreeLines_data();
    void cablesAreDrawnAsTwoAndThreeLines();
    void handlesShowThemselvesToAHandOnly();

    void aConnectionWithoutAttachedEndsLoadsWithItsEndsAtTheirDefaults();
    void anEndThatNamesAnAbsentIdIsFree();
    void attachedEndsAreReadAndWritten();
    void noRoundingMovesAnEndFromOneFileToTheNext();
    void aWireBeforeItsComponentInTheFileIsNotAttached();
    void positionsOfFreeEndsAreNotStored();

    void anAcCableRunsTwelveAndAHalfOffTheEdgeASingleWireTwoAndAHalf();
    void wiresFollowAComponentThatIsMoved();
    void theRouteIsThatOfTheNewPlaceAtOnce();
    void anEndThatIsDraggedOverAComponentSnapsOntoItsEdge();
    void anEndThatIsDraggedAwayIsFree();
    void anEndGoesFromOneComponentToAnother();
    void aDcCableDoesNotSnapToAPanelASingleWireDoesInTheMiddleOfASide();
    void aDeletedComponentLeavesItsWiresFreeAtThatEnd();

    void aWireIsDeletedByItsMenuOnAHitOnly();
    void aFreeWireIsDraggedAsAWhole();
    void anAttachedWireStaysWhereItIs();
    void besideItsLinesAFreeWireIsNotTaken();
};

void TestDiagramConnection::eachCableHasItsTypeNumberAndName_data()
{
    QTest::addColumn<int>("cable");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("type");
    QTest::newRow("single") << 1 << "Single" << 0x40001;
    QTest::newRow("dc") << 2 << "DC" << 0x40002;
    QTest::newRow("ac") << 3 << "AC" << 0x40003;
}

void TestDiagramConnection::eachCableHasItsTypeNumberAndName()
{
    QFETCH(int, cable);
    QFETCH(QString, name);
    QFETCH(int, type);
    const DiagramConnection connection(cable, "id1", QPointF());
    QCOMPARE(connection.type(), type);
    QVERIFY(!isComponentType(connection.type()));
    QCOMPARE(connection.displayName(), QString("Connection"));
    DiagramDesk desk;
    desk.read("<connection id='id1' type='" + name.toLatin1() + "'/>");
    QCOMPARE(desk.wire("id1")->cableType(), cable);
    QCOMPARE(desk.wire("id1")->elementName(), QString("connection"));
    QCOMPARE(desk.written("id1").attribute("type"), name);
    QCOMPARE(desk.wire("id1")->zValue(), -1.0);
}

void TestDiagramConnection::aCableOfNoKindHasTheTypeNumberOfAllConnections()
{
    for (const int cable : {0, 4, -1})
        QCOMPARE(DiagramConnection(cable, "id1", QPointF()).type(), 0x40000);
    // A name that is none means a single wire, which it is from then on.
    DiagramDesk desk;
    desk.read("<connection id='id1' type='Fibre'/>");
    QCOMPARE(desk.wire("id1")->type(), 0x40001);
    QCOMPARE(desk.written("id1").attribute("type"), QString("Single"));
}

void TestDiagramConnection::aNewWireHasItsFirstEndInTheHand()
{
    const DiagramConnection connection(SingleWire, "id1", QPointF(30, 40));
    QCOMPARE(connection.state(), int(DiagramConnection::PlacingA));
    QCOMPARE(connection.endA().pos(), QPointF(30, 40));
    QCOMPARE(connection.endB().pos(), QPointF(30, 40));
    QVERIFY(connection.endA().isGrabbed());
    QVERIFY(!connection.endB().isGrabbed());
    QVERIFY(!connection.endB().isVisible());
    QCOMPARE(connection.endA().side(), int(LeftSide));
    QCOMPARE(connection.endB().side(), int(RightSide));
    QCOMPARE(connection.endA().boundingRect(), QRectF(-5, -5, 10, 10));
}

void TestDiagramConnection::placingGoesFromTheFirstEndToTheSecond()
{
    DiagramConnection connection(SingleWire, "id1", QPointF());
    connection.moveCurrentEnd({10, 10});
    QCOMPARE(connection.endA().pos(), QPointF(10, 10));
    QCOMPARE(connection.elementName(), QString());
    QCOMPARE(connection.advance(), int(DiagramConnection::PlacingB));
    QVERIFY(!connection.endA().isGrabbed());
    QVERIFY(connection.endB().isGrabbed());
    QVERIFY(connection.endB().isVisible());
    connection.moveCurrentEnd({90, 70});
    QCOMPARE(connection.endA().pos(), QPointF(10, 10));
    QCOMPARE(connection.endB().pos(), QPointF(90, 70));
    QCOMPARE(connection.elementName(), QString());
    QCOMPARE(connection.advance(), int(DiagramConnection::Finished));
    QVERIFY(!connection.endB().isGrabbed());
    connection.moveCurrentEnd({500, 500});
    QCOMPARE(connection.endB().pos(), QPointF(90, 70));
    QCOMPARE(connection.advance(), int(DiagramConnection::Finished));
    QCOMPARE(connection.elementName(), QString("connection"));
}

void TestDiagramConnection::nothingIsDrawnBeforeTheFirstEndIsPlaced()
{
    DiagramDesk desk;
    auto *connection = new DiagramConnection(AcCable, "id1", QPointF(200, 200));
    desk.scene.addItem(connection);
    connection->moveCurrentEnd({100, 100});
    const QImage before = desk.picture({0, 0, 300, 300});
    QImage empty = before;
    empty.fill(Qt::white);
    QCOMPARE(before, empty);
    connection->advance();
    QVERIFY(desk.picture({0, 0, 300, 300}) != empty);
}

void TestDiagramConnection::aWireIsDrawnBelowTheComponents()
{
    DiagramDesk desk;
    // From the left side of the board to an end at its right: the wire leads around it.
    desk.read("<inverter id='id1' x='100' y='100'/>" + wire("Single"));
    const_cast<ConnectionPoint &>(desk.wire("id9")->endB()).moveTo({50, 140});
    DiagramDesk bare;
    bare.read("<inverter id='id1' x='100' y='100'/>");
    QCOMPARE(desk.picture({104, 104, 130, 90}), bare.picture({104, 104, 130, 90}));
    QVERIFY(desk.picture({0, 0, 400, 300}) != bare.picture({0, 0, 400, 300}));
}

void TestDiagramConnection::cablesAreDrawnAsTwoAndThreeLines_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QVector<int>>("lines");
    QTest::newRow("single") << QByteArray("Single") << QVector<int>{0};
    QTest::newRow("dc") << QByteArray("DC") << QVector<int>{-5, 5};
    QTest::newRow("ac") << QByteArray("AC") << QVector<int>{-10, 0, 10};
}

void TestDiagramConnection::cablesAreDrawnAsTwoAndThreeLines()
{
    QFETCH(QByteArray, type);
    QFETCH(QVector<int>, lines);
    DiagramDesk desk;
    desk.read(components + wire(type, toSecondBoard));
    // The upright part of the S stands in the middle between the boards.
    const QImage picture = desk.picture({0, 0, 500, 400});
    QVector<int> found;
    for (int x = 300; x < 340; ++x) {
        if (picture.pixelColor(x, 190) == QColor(Qt::black))
            found.append(x - 320);
    }
    QCOMPARE(found, lines);
}

void TestDiagramConnection::handlesShowThemselvesToAHandOnly()
{
    DiagramDesk desk;
    desk.read(components + wire("Single", toSecondBoard));
    const auto pixel = [&desk] {
        QCoreApplication::processEvents();
        return desk.view.grab().toImage().pixelColor(243, 143);
    };
    const QColor without = pixel();
    desk.move({240, 140});
    QCOMPARE(pixel(), QColor(Qt::darkGreen));
    // What is printed has no handles.
    QCOMPARE(desk.picture({0, 0, 500, 400}).pixelColor(243, 143), QColor(Qt::white));
    desk.move({600, 500});
    QCOMPARE(pixel(), without);
    desk.drag({240, 140}, {300, 50});
    desk.move({300, 50});
    QCoreApplication::processEvents();
    QCOMPARE(desk.view.grab().toImage().pixelColor(303, 53), QColor(Qt::red));
}

void TestDiagramConnection::aConnectionWithoutAttachedEndsLoadsWithItsEndsAtTheirDefaults()
{
    DiagramDesk desk;
    desk.read("<connection id='id1' type='DC'/>");
    const DiagramConnection *connection = desk.wire("id1");
    QCOMPARE(connection->endA().pos(), QPointF(100, 0));
    QCOMPARE(connection->endB().pos(), QPointF(-100, 0));
    QCOMPARE(connection->state(), int(DiagramConnection::Finished));
    QVERIFY(connection->endB().isVisible());
    QCOMPARE(connection->route().points().first(), QPointF(100, 0));
    QCOMPARE(connection->route().points().last(), QPointF(-100, 0));
}

void TestDiagramConnection::anEndThatNamesAnAbsentIdIsFree()
{
    DiagramDesk desk;
    desk.read("<connection id='id1' type='DC'><connectionA connectedItemId='id77' connectedPosX='5' "
              "connectedPosY='5' direction='1'/></connection>");
    QVERIFY(!desk.wire("id1")->endA().component());
    QCOMPARE(desk.wire("id1")->endA().pos(), QPointF(100, 0));
    QVERIFY(desk.written("id1").firstChildElement().isNull());
}

void TestDiagramConnection::attachedEndsAreReadAndWritten()
{
    DiagramDesk desk;
    desk.read(components + wire("AC", toSecondBoard));
    const DiagramConnection *connection = desk.wire("id9");
    QCOMPARE(connection->endA().component(), desk.item("id1"));
    QCOMPARE(connection->endA().pos(), QPointF(240, 140));
    QCOMPARE(connection->endA().offset(), QPointF(140, 40));
    QCOMPARE(connection->endB().component(), desk.item("id2"));
    QCOMPARE(connection->route().points(), (Points{{240, 140}, {320, 140}, {320, 240}, {400, 240}}));
    const QDomElement written = desk.written("id9");
    QCOMPARE(written.attribute("type"), QString("AC"));
    const QDomElement end = written.firstChildElement("connectionB");
    QCOMPARE(end.attributes().size(), 4);
    QCOMPARE(end.attribute("connectedItemId"), QString("id2"));
    QCOMPARE(end.attribute("connectedPosX"), QString("0"));
    QCOMPARE(end.attribute("connectedPosY"), QString("40"));
    QCOMPARE(end.attribute("direction"), QString("8"));
    QCOMPARE(written.firstChildElement("connectionA").attribute("direction"), QString("4"));
}

void TestDiagramConnection::noRoundingMovesAnEndFromOneFileToTheNext()
{
    DiagramDesk desk;
    desk.read("<panel id='id1' x='0.1' y='1234.7'/><connection id='id2'><connectionA connectedItemId='id1' "
              "connectedPosX='0.3' connectedPosY='0.7' direction='4'/></connection>");
    const QDomElement end = desk.written("id2").firstChildElement();
    QCOMPARE(end.attribute("connectedPosX"), QString("0.3"));
    QCOMPARE(end.attribute("connectedPosY"), QString("0.7"));
}

void TestDiagramConnection::aWireBeforeItsComponentInTheFileIsNotAttached()
{
    DiagramDesk desk;
    desk.read(wire("Single") + components);
    QVERIFY(!desk.wire("id9")->endA().component());
}

void TestDiagramConnection::positionsOfFreeEndsAreNotStored()
{
    DiagramDesk desk;
    desk.read(components + wire("Single"));
    const_cast<ConnectionPoint &>(desk.wire("id9")->endB()).moveTo({333, 44});
    QVERIFY(desk.written("id9").firstChildElement("connectionB").isNull());
    DiagramDesk again;
    QVERIFY(again.scene.readXml(desk.scene.toXml()));
    QCOMPARE(again.wire("id9")->endB().pos(), QPointF(-100, 0));
    QCOMPARE(again.wire("id9")->endA().pos(), QPointF(240, 140));
}

void TestDiagramConnection::anAcCableRunsTwelveAndAHalfOffTheEdgeASingleWireTwoAndAHalf()
{
    QCOMPARE(standOff("AC"), 12.5);
    QCOMPARE(standOff("DC"), 7.5);
    QCOMPARE(standOff("Single"), 2.5);
}

void TestDiagramConnection::wiresFollowAComponentThatIsMoved()
{
    DiagramDesk desk;
    desk.read(components + wire("DC", toSecondBoard));
    desk.drag({450, 270}, {500, 370});
    QCOMPARE(desk.item("id2")->pos(), QPointF(450, 300));
    QCOMPARE(desk.wire("id9")->endB().pos(), QPointF(450, 340));
    QCOMPARE(desk.wire("id9")->endA().pos(), QPointF(240, 140));
    QCOMPARE(desk.wire("id9")->endB().offset(), QPointF(0, 40));
}

void TestDiagramConnection::theRouteIsThatOfTheNewPlaceAtOnce()
{
    DiagramDesk desk;
    desk.read(components + wire("DC", toSecondBoard));
    desk.item("id2")->setPos(450, 300);
    QCOMPARE(desk.wire("id9")->route().points(), (Points{{240, 140}, {345, 140}, {345, 340}, {450, 340}}));
    // The same as after opening the file anew.
    DiagramDesk again;
    QVERIFY(again.scene.readXml(desk.scene.toXml()));
    QCOMPARE(again.wire("id9")->route().points(), desk.wire("id9")->route().points());
}

void TestDiagramConnection::anEndThatIsDraggedOverAComponentSnapsOntoItsEdge()
{
    DiagramDesk desk;
    desk.read(components + wire("Single"));
    desk.wire("id9");
    const_cast<ConnectionPoint &>(desk.wire("id9")->endB()).moveTo({600, 100});
    desk.drag({600, 100}, {470, 265});
    const ConnectionPoint &end = desk.wire("id9")->endB();
    QCOMPARE(end.component(), desk.item("id2"));
    QCOMPARE(end.side(), int(BottomSide));
    QCOMPARE(end.pos(), QPointF(470, 280));
    QCOMPARE(end.offset(), QPointF(70, 80));
    QVERIFY(end.isSnapped());
    QCOMPARE(desk.wire("id9")->route().points().last(), QPointF(470, 280));
}

void TestDiagramConnection::anEndThatIsDraggedAwayIsFree()
{
    DiagramDesk desk;
    desk.read(components + wire("Single", toSecondBoard));
    desk.drag({400, 240}, {360, 500});
    const ConnectionPoint &end = desk.wire("id9")->endB();
    QVERIFY(!end.component());
    QVERIFY(!end.isSnapped());
    QCOMPARE(end.pos(), QPointF(360, 500));
    QCOMPARE(desk.wire("id9")->route().points().last(), QPointF(360, 500));
    // The component no longer takes it along.
    desk.item("id2")->setPos(0, 0);
    QCOMPARE(end.pos(), QPointF(360, 500));
}

void TestDiagramConnection::anEndGoesFromOneComponentToAnother()
{
    DiagramDesk desk;
    desk.read(components + wire("Single", toSecondBoard));
    desk.drag({400, 240}, {315, 405});
    const ConnectionPoint &end = desk.wire("id9")->endB();
    QCOMPARE(end.component(), desk.item("id3"));
    desk.item("id2")->setPos(0, 0);
    QCOMPARE(end.pos(), QPointF(315, 400));
    desk.item("id3")->setPos(310, 420);
    QCOMPARE(end.pos(), QPointF(325, 420));
}

void TestDiagramConnection::aDcCableDoesNotSnapToAPanelASingleWireDoesInTheMiddleOfASide()
{
    for (const char *type : {"Single", "DC", "AC"}) {
        DiagramDesk desk;
        desk.read(components + wire(type, toSecondBoard));
        desk.drag({400, 240}, {325, 425});
        const ConnectionPoint &end = desk.wire("id9")->endB();
        const bool attaches = qstrcmp(type, "Single") == 0;
        QCOMPARE(end.component(), attaches ? desk.item("id3") : nullptr);
        QCOMPARE(end.pos(), attaches ? QPointF(330, 420) : QPointF(325, 425));
        QCOMPARE(end.isSnapped(), attaches);
    }
}

void TestDiagramConnection::aDeletedComponentLeavesItsWiresFreeAtThatEnd()
{
    DiagramDesk desk;
    desk.read(components + wire("DC", toSecondBoard));
    desk.menu({450, 270}, "Delete Distribution Board");
    QVERIFY(!desk.item("id2"));
    const ConnectionPoint &end = desk.wire("id9")->endB();
    QVERIFY(!end.component());
    QVERIFY(!end.isSnapped());
    QCOMPARE(end.pos(), QPointF(400, 240));
    QCOMPARE(desk.wire("id9")->endA().component(), desk.item("id1"));
}

void TestDiagramConnection::aWireIsDeletedByItsMenuOnAHitOnly()
{
    DiagramDesk desk;
    desk.read(components + wire("AC", toSecondBoard));
    const QSignalSpy modified(&desk.scene, &DiagramGraphicsScene::modified);
    // Within the wire's rectangle, but not on a line.
    QVERIFY(!desk.menu({270, 220}).contains("Delete Connection"));
    QVERIFY(desk.wire("id9"));
    QCOMPARE(desk.menu({328, 190}, "Delete Connection"), QStringList{"Delete Connection"});
    QVERIFY(!desk.wire("id9"));
    QVERIFY(!modified.isEmpty());
    QCOMPARE(desk.scene.items().size(), 3);
    // Nothing is left that would follow.
    desk.item("id1")->setPos(0, 0);
}

void TestDiagramConnection::aFreeWireIsDraggedAsAWhole()
{
    DiagramDesk desk;
    desk.read("<connection id='id1' type='AC'/>");
    const DiagramConnection *connection = desk.wire("id1");
    const_cast<ConnectionPoint &>(connection->endA()).moveTo({300, 200});
    const_cast<ConnectionPoint &>(connection->endB()).moveTo({100, 300});
    const Points before = connection->route().points();
    const QPointF onLine = (before.at(1) + before.at(2)) / 2;
    QVERIFY(connection->hitTest(onLine));
    desk.drag(onLine + QPointF(3, 3), onLine + QPointF(203, 103));
    QCOMPARE(connection->endA().pos(), QPointF(500, 300));
    QCOMPARE(connection->endB().pos(), QPointF(300, 400));
}

void TestDiagramConnection::anAttachedWireStaysWhereItIs()
{
    DiagramDesk desk;
    desk.read(components + wire("AC"));
    const_cast<ConnectionPoint &>(desk.wire("id9")->endB()).moveTo({400, 50});
    const Points before = desk.wire("id9")->route().points();
    const QPointF onLine = (before.at(0) + before.at(1)) / 2;
    QVERIFY(desk.wire("id9")->hitTest(onLine));
    desk.drag(onLine, onLine + QPointF(100, 100));
    QCOMPARE(desk.wire("id9")->route().points(), before);
}

void TestDiagramConnection::besideItsLinesAFreeWireIsNotTaken()
{
    DiagramDesk desk;
    desk.read("<connection id='id1' type='Single'/>");
    const_cast<ConnectionPoint &>(desk.wire("id1")->endA()).moveTo({300, 100});
    const_cast<ConnectionPoint &>(desk.wire("id1")->endB()).moveTo({100, 300});
    const Points before = desk.wire("id1")->route().points();
    QVERIFY(!desk.wire("id1")->hitTest({150, 150}));
    desk.drag({150, 150}, {400, 400});
    QCOMPARE(desk.wire("id1")->route().points(), before);
}

KELMAR_TEST_MAIN(TestDiagramConnection)
#include "tst_diagramconnection.moc"
