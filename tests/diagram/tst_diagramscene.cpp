#include "diagram/DiagramGraphicsScene.h"

#include "diagram/Cable.h"
#include "diagram/DiagramComponent.h"
#include "diagram/DiagramItemType.h"
#include "tests/diagram/DiagramDesk.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

const QStringList sceneMenu{"Add Label",
                            "",
                            "Add Invertor",
                            "Add Generation Meter",
                            "Add Distribution Board",
                            "Add AC Isolator",
                            "Add DC Isolator",
                            "Add PV Panel"};

void answer(BoxWatcher &watcher, const std::function<void(QPlainTextEdit *)> &write,
            QDialogButtonBox::StandardButton button = QDialogButtonBox::Ok)
{
    watcher.expectDialog("DialogComponentSettings", [=](QWidget *dialog) {
        write(dialog->findChild<QPlainTextEdit *>());
        QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(button), Qt::LeftButton);
    });
}

QList<DiagramConnection *> wiresOf(const DiagramGraphicsScene &scene)
{
    QList<DiagramConnection *> wires;
    const QList<QGraphicsItem *> items = scene.items();
    for (QGraphicsItem *item : items) {
        if (auto *wire = dynamic_cast<DiagramConnection *>(item))
            wires.append(wire);
    }
    return wires;
}

} // namespace

class TestDiagramScene : public QObject
{
    Q_OBJECT

private slots:
    void theMenuOffersEveryKind();
    void eachKindIsAddedByTheMenu_data();
    void eachKindIsAddedByTheMenu();
    void aPanelIsAddedWithoutAQuestion();
    void addingAComponentAndEmptyingTheTextAddsNothing();
    void cancellingTheQuestionAddsNothing();
    void theMenuOfAnItemComesBeforeThatOfTheScene();

    void idsAreCounted();
    void idsGoOnFromTheHighestOfTheFile();
    void idsOutOfAllBoundsAreNotCountedOnFrom();

    void wireModeHasAWireInTheHand();
    void settingTheSameModeDoesNothing();
    void aWireIsPlacedByTwoPresses();
    void aWireSnapsToComponentsWhileItIsPlaced();
    void anotherCableTypeReplacesTheWireInTheHand();
    void inEditModeTheCableTypeIsOnlyNoted();
    void aClickWithTheRightButtonEndsWireModeAndThenShowsTheMenu();
    void theSecondPressOfADoubleClickPlacesNothing();
    void inWireModeComponentsAreNotDragged();
    void aWireInTheHandIsNotSaved();
    void aSceneWithWiresInEveryStateGoesInPeace();
};

void TestDiagramScene::theMenuOffersEveryKind()
{
    DiagramDesk desk;
    QCOMPARE(desk.menu({50, 60}), sceneMenu);
    QVERIFY(desk.scene.items().isEmpty());
}

void TestDiagramScene::eachKindIsAddedByTheMenu_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("suggestion");
    QTest::newRow("note") << "Add Label" << int(NoteType) << "Insert notes here";
    QTest::newRow("inverter") << "Add Invertor" << int(InverterType) << "Inverter";
    QTest::newRow("meter") << "Add Generation Meter" << int(GenerationMeterType) << "Generation Meter";
    QTest::newRow("board") << "Add Distribution Board" << int(DistributionBoardType) << "Distribution Board";
    QTest::newRow("ac") << "Add AC Isolator" << int(AcIsolatorType) << "AC Isolator";
    QTest::newRow("dc") << "Add DC Isolator" << int(DcIsolatorType) << "DC Isolator";
}

void TestDiagramScene::eachKindIsAddedByTheMenu()
{
    QFETCH(QString, entry);
    QFETCH(int, type);
    QFETCH(QString, suggestion);
    DiagramDesk desk;
    QSignalSpy modified(&desk.scene, &DiagramGraphicsScene::modified);
    BoxWatcher watcher;
    QString shown;
    answer(watcher, [&shown](QPlainTextEdit *edit) {
        shown = edit->toPlainText();
        QCOMPARE(edit->window()->windowTitle(), QString("Component Settings"));
        edit->insertPlainText("My caption");
    });
    desk.menu({300, 200}, entry);
    QCOMPARE(shown, suggestion);
    const DiagramComponent *component = desk.item("id1");
    QVERIFY(component);
    QCOMPARE(component->type(), type);
    QCOMPARE(component->pos(), QPointF(300, 200));
    QCOMPARE(component->label()->text(), QString("My caption"));
    QCOMPARE(component->label()->scene(), &desk.scene);
    QVERIFY(!modified.isEmpty());
    modified.clear();
    desk.item("id1")->setPos(1, 1);
    QCOMPARE(modified.isEmpty(), type == NoteType);
}

void TestDiagramScene::aPanelIsAddedWithoutAQuestion()
{
    DiagramDesk desk;
    const BoxWatcher watcher;
    const QSignalSpy modified(&desk.scene, &DiagramGraphicsScene::modified);
    desk.menu({300, 200}, "Add PV Panel");
    QCOMPARE(desk.item("id1")->type(), int(PanelType));
    QVERIFY(!desk.item("id1")->label());
    QCOMPARE(modified.size(), 1);
}

void TestDiagramScene::addingAComponentAndEmptyingTheTextAddsNothing()
{
    DiagramDesk desk;
    const QSignalSpy modified(&desk.scene, &DiagramGraphicsScene::modified);
    BoxWatcher watcher;
    answer(watcher, [](QPlainTextEdit *edit) { edit->clear(); });
    desk.menu({300, 200}, "Add Invertor");
    QVERIFY(desk.scene.items().isEmpty());
    QVERIFY(modified.isEmpty());
    QCOMPARE(desk.scene.newId(), QString("id1"));
}

void TestDiagramScene::cancellingTheQuestionAddsNothing()
{
    DiagramDesk desk;
    BoxWatcher watcher;
    answer(
        watcher, [](QPlainTextEdit *) {}, QDialogButtonBox::Cancel);
    desk.menu({300, 200}, "Add Label");
    QVERIFY(desk.scene.items().isEmpty());
}

void TestDiagramScene::theMenuOfAnItemComesBeforeThatOfTheScene()
{
    DiagramDesk desk;
    desk.read("<inverter id='id1' x='100' y='100'/>");
    QCOMPARE(desk.menu({110, 110}).first(), QString("Delete Inverter"));
    QCOMPARE(desk.menu({90, 90}), sceneMenu);
}

void TestDiagramScene::idsAreCounted()
{
    DiagramGraphicsScene scene;
    QCOMPARE(scene.newId(), QString("id1"));
    QCOMPARE(scene.newId(), QString("id2"));
}

void TestDiagramScene::idsGoOnFromTheHighestOfTheFile()
{
    DiagramDesk desk;
    desk.read("<panel id='id7'/><panel id='id12'/><panel id='xx9'/><panel id='other'/><panel/>"
              "<connection id='id15' type='DC'/><unknown id='id99'/>");
    QCOMPARE(desk.scene.newId(), QString("id16"));
}

void TestDiagramScene::idsOutOfAllBoundsAreNotCountedOnFrom()
{
    DiagramDesk desk;
    desk.read("<panel id='id2147483647'/><panel id='id99999999999999999999'/><panel id='id-5'/>"
              "<panel id='id3'/>");
    QCOMPARE(desk.scene.newId(), QString("id4"));
}

void TestDiagramScene::wireModeHasAWireInTheHand()
{
    DiagramDesk desk;
    QSignalSpy changed(&desk.scene, &DiagramGraphicsScene::modeChanged);
    QVERIFY(!desk.scene.pendingConnection());
    desk.scene.setMode(DiagramGraphicsScene::WireMode);
    QCOMPARE(changed.takeFirst().first().toInt(), 1);
    const DiagramConnection *wire = desk.scene.pendingConnection();
    QVERIFY(wire);
    QCOMPARE(wire->scene(), &desk.scene);
    QCOMPARE(wire->id(), QString("id1"));
    QCOMPARE(wire->endA().pos(), QPointF(0, 0));
    desk.move({120, 130});
    QCOMPARE(wire->endA().pos(), QPointF(120, 130));
    desk.scene.setMode(DiagramGraphicsScene::EditMode);
    QCOMPARE(changed.takeFirst().first().toInt(), 0);
    QVERIFY(!desk.scene.pendingConnection());
    QVERIFY(desk.scene.items().isEmpty());
}

void TestDiagramScene::settingTheSameModeDoesNothing()
{
    DiagramDesk desk;
    desk.scene.setMode(DiagramGraphicsScene::WireMode);
    const QSignalSpy changed(&desk.scene, &DiagramGraphicsScene::modeChanged);
    const DiagramConnection *wire = desk.scene.pendingConnection();
    desk.scene.setMode(DiagramGraphicsScene::WireMode);
    QCOMPARE(desk.scene.pendingConnection(), wire);
    QVERIFY(changed.isEmpty());
}

void TestDiagramScene::aWireIsPlacedByTwoPresses()
{
    DiagramDesk desk;
    desk.scene.setMode(DiagramGraphicsScene::WireMode);
    const QSignalSpy modified(&desk.scene, &DiagramGraphicsScene::modified);
    const DiagramConnection *first = desk.scene.pendingConnection();
    desk.click({100, 100});
    QCOMPARE(first->state(), int(DiagramConnection::PlacingB));
    desk.click({300, 250});
    QCOMPARE(first->state(), int(DiagramConnection::Finished));
    QCOMPARE(first->endA().pos(), QPointF(100, 100));
    QCOMPARE(first->endB().pos(), QPointF(300, 250));
    // The next one is in the hand at once.
    const DiagramConnection *second = desk.scene.pendingConnection();
    QVERIFY(second && second != first);
    QCOMPARE(second->id(), QString("id2"));
    QCOMPARE(second->endA().pos(), QPointF(300, 250));
    QCOMPARE(wiresOf(desk.scene).size(), 2);
    QVERIFY(!modified.isEmpty());
    desk.scene.setMode(DiagramGraphicsScene::EditMode);
    QCOMPARE(wiresOf(desk.scene).size(), 1);
}

void TestDiagramScene::aWireSnapsToComponentsWhileItIsPlaced()
{
    DiagramDesk desk;
    desk.read("<inverter id='id1' x='100' y='100'/><inverter id='id2' x='400' y='300'/>");
    desk.scene.setCableType(DcCable);
    desk.scene.setMode(DiagramGraphicsScene::WireMode);
    const DiagramConnection *wire = desk.scene.pendingConnection();
    desk.click({240, 150});
    desk.click({480, 310});
    QCOMPARE(wire->cableType(), int(DcCable));
    QCOMPARE(wire->endA().component(), desk.item("id1"));
    QCOMPARE(wire->endA().pos(), QPointF(250, 150));
    QCOMPARE(wire->endB().component(), desk.item("id2"));
    QCOMPARE(wire->endB().pos(), QPointF(480, 300));
    QCOMPARE(wire->endB().side(), int(TopSide));
}

void TestDiagramScene::anotherCableTypeReplacesTheWireInTheHand()
{
    DiagramDesk desk;
    desk.scene.setMode(DiagramGraphicsScene::WireMode);
    desk.click({100, 100});
    desk.scene.setCableType(AcCable);
    const DiagramConnection *wire = desk.scene.pendingConnection();
    QCOMPARE(wire->cableType(), int(AcCable));
    QCOMPARE(wire->state(), int(DiagramConnection::PlacingA));
    QCOMPARE(wire->id(), QString("id2"));
    QCOMPARE(wire->scene(), &desk.scene);
    QCOMPARE(wiresOf(desk.scene).size(), 1);
}

void TestDiagramScene::inEditModeTheCableTypeIsOnlyNoted()
{
    DiagramDesk desk;
    desk.scene.setCableType(AcCable);
    QVERIFY(desk.scene.items().isEmpty());
    desk.scene.setMode(DiagramGraphicsScene::WireMode);
    QCOMPARE(desk.scene.pendingConnection()->cableType(), int(AcCable));
}

void TestDiagramScene::aClickWithTheRightButtonEndsWireModeAndThenShowsTheMenu()
{
    DiagramDesk desk;
    desk.scene.setMode(DiagramGraphicsScene::WireMode);
    desk.click({100, 100});
    const QSignalSpy changed(&desk.scene, &DiagramGraphicsScene::modeChanged);
    desk.press({200, 200}, Qt::RightButton);
    QCOMPARE(desk.menu({200, 200}), sceneMenu);
    desk.release({200, 200}, Qt::RightButton);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(desk.scene.mode(), int(DiagramGraphicsScene::EditMode));
    QVERIFY(wiresOf(desk.scene).isEmpty());
}

void TestDiagramScene::theSecondPressOfADoubleClickPlacesNothing()
{
    DiagramDesk desk;
    desk.scene.setMode(DiagramGraphicsScene::WireMode);
    desk.move({100, 100});
    QTest::mouseDClick(desk.view.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
    QCOMPARE(wiresOf(desk.scene).size(), 1);
}

void TestDiagramScene::inWireModeComponentsAreNotDragged()
{
    DiagramDesk desk;
    desk.read("<inverter id='id1' x='100' y='100'/>");
    desk.scene.setMode(DiagramGraphicsScene::WireMode);
    desk.drag({110, 110}, {300, 300});
    QCOMPARE(desk.item("id1")->pos(), QPointF(100, 100));
}

void TestDiagramScene::aWireInTheHandIsNotSaved()
{
    DiagramDesk desk;
    desk.scene.setMode(DiagramGraphicsScene::WireMode);
    QVERIFY(desk.written().firstChildElement().isNull());
    desk.click({100, 100});
    QVERIFY(desk.written().firstChildElement().isNull());
    desk.click({200, 200});
    QCOMPARE(desk.written().childNodes().size(), 1);
    QCOMPARE(desk.written().firstChildElement().attribute("id"), QString("id1"));
}

void TestDiagramScene::aSceneWithWiresInEveryStateGoesInPeace()
{
    auto scene = std::make_unique<DiagramGraphicsScene>();
    QVERIFY(scene->readXml(
        "<installation_diagram><inverter id='id1'><label text='x'/></inverter><connection id='id2'>"
        "<connectionA connectedItemId='id1'/><connectionB connectedItemId='id1' direction='2'/></connection>"
        "<connection id='id3'/></installation_diagram>"));
    scene->setMode(DiagramGraphicsScene::WireMode);
    scene->pendingConnection()->moveCurrentEnd({5, 5});
    scene->pendingConnection()->advance();
    QCOMPARE(wiresOf(*scene).size(), 3);
    const QPointer<DiagramConnection> wire = wiresOf(*scene).first();
    scene.reset();
    QVERIFY(!wire);
}

KELMAR_TEST_MAIN(TestDiagramScene)
#include "tst_diagramscene.moc"
