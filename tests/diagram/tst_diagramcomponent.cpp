#include "diagram/DiagramComponent.h"

#include "diagram/ComponentKind.h"
#include "diagram/ConnectionRoute.h"
#include "diagram/DiagramItemFactory.h"
#include "diagram/DiagramItemType.h"
#include "tests/diagram/DiagramDesk.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QDialogButtonBox>
#include <QDomElement>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

namespace {

const char inverter[] =
    "<inverter id='id3' x='100' y='200'>"
    "<label x='115' y='230' width='120' height='40' text='Inverter&#xa;6 kW'/></inverter>";
const char note[] = "<label id='id4' x='30' y='40'>"
                    "<label x='300' y='100' width='-1' height='-1' text='Mind the gap'/></label>";

/// Answers the question for a caption.
void answer(BoxWatcher &watcher, const QString &text, QDialogButtonBox::StandardButton button,
            QString *shown = nullptr)
{
    watcher.expectDialog("DialogComponentSettings", [=](QWidget *dialog) {
        auto *edit = dialog->findChild<QPlainTextEdit *>();
        if (shown)
            *shown = edit->toPlainText();
        edit->setPlainText(text);
        QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(button), Qt::LeftButton);
    });
}

} // namespace

class TestDiagramComponent : public QObject
{
    Q_OBJECT

private slots:
    void eachKindHasItsTypeTagSizeAndName_data();
    void eachKindHasItsTypeTagSizeAndName();
    void aNewComponentHasItsCaptionWhereItsKindSays_data();
    void aNewComponentHasItsCaptionWhereItsKindSays();
    void eachKindIsDrawnInItsColours_data();
    void eachKindIsDrawnInItsColours();
    void nothingIsDrawnOutsideOfTheRectangle_data();
    void nothingIsDrawnOutsideOfTheRectangle();
    void whatIsReadIsWritten_data();
    void whatIsReadIsWritten();
    void absentAttributesHaveTheirDefaults();

    void aComponentThatIsMovedTakesItsCaptionAlong();
    void aMovedCaptionLeavesTheComponentWhereItIs();
    void aCaptionLiesOnTopOfItsComponent();
    void theCaptionOfADeletedComponentGoesWithIt();
    void aCaptionDeletedByItsOwnMenuLeavesTheComponent();
    void aNoteGoesWithItsCaption();
    void theTextOfACaptionIsAskedFor();
    void aCancelledQuestionLeavesTheText();
    void aCaptionShowsItsTextAsItIsWritten();
    void whatAFileCannotHoldIsLeftOutOfACaption();
    void aCaptionIsAtLeastAsHighAsItsFileSays();
    void aCaptionIsAsLargeOnEveryScreen();
    void germanNameOfAnInverterStandsInOneLine();
    void everyChangeIsTold();

    void aNoteIsAsLargeAsItsCaptionAndWhereThatIs();
    void wiresFollowTheCaptionOfANote();
    void wiresFollowTheEdgeOfANoteWhoseTextGrows();
};

void TestDiagramComponent::eachKindHasItsTypeTagSizeAndName_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<int>("type");
    QTest::addColumn<QSizeF>("size");
    QTest::addColumn<QString>("name");
    QTest::newRow("ac") << "ac_isolator" << 0x20001 << QSizeF(55, 55) << "AC Isolator";
    QTest::newRow("dc") << "dc_isolator" << 0x20002 << QSizeF(40, 40) << "DC Isolator";
    QTest::newRow("board") << "distribution_board" << 0x20003 << QSizeF(140, 80) << "Distribution Board";
    QTest::newRow("meter") << "generation_meter" << 0x20004 << QSizeF(120, 60) << "Generation Meter";
    QTest::newRow("inverter") << "inverter" << 0x20005 << QSizeF(150, 100) << "Inverter";
    QTest::newRow("note") << "label" << 0x20006 << QSizeF(0, 0) << "Label";
    QTest::newRow("panel") << "panel" << 0x20007 << QSizeF(30, 40) << "PV Panel";
}

void TestDiagramComponent::eachKindHasItsTypeTagSizeAndName()
{
    QFETCH(QString, tag);
    QFETCH(int, type);
    QFETCH(QSizeF, size);
    QFETCH(QString, name);
    const std::unique_ptr<DiagramGraphicsItem> item(createDiagramItem(tag));
    QVERIFY(item);
    QCOMPARE(item->type(), type);
    QVERIFY(isComponentType(item->type()));
    QCOMPARE(item->elementName(), tag);
    QCOMPARE(item->boundingRect(), QRectF(QPointF(), size));
    QCOMPARE(item->displayName(), name);
    QCOMPARE(item->id(), QString());
    const bool isNote = tag == "label";
    QCOMPARE(item->flags(), isNote ? QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemHasNoContents
                                   : QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemSendsGeometryChanges);
}

void TestDiagramComponent::aNewComponentHasItsCaptionWhereItsKindSays_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QPointF>("place");
    QTest::newRow("ac isolator") << int(AcIsolatorType) << QPointF(205, 200);
    QTest::newRow("dc isolator") << int(DcIsolatorType) << QPointF(205, 200);
    QTest::newRow("board") << int(DistributionBoardType) << QPointF(165, 200);
    QTest::newRow("meter") << int(GenerationMeterType) << QPointF(165, 200);
    QTest::newRow("inverter") << int(InverterType) << QPointF(315, 230);
    QTest::newRow("note") << int(NoteType) << QPointF(300, 200);
}

void TestDiagramComponent::aNewComponentHasItsCaptionWhereItsKindSays()
{
    QFETCH(int, type);
    QFETCH(QPointF, place);
    const std::unique_ptr<DiagramComponent> component(createComponent(type, "id7", "Text", {300, 200}));
    QCOMPARE(component->id(), QString("id7"));
    QCOMPARE(component->pos(), QPointF(300, 200));
    QVERIFY(component->label());
    QCOMPARE(component->label()->pos(), place);
    QCOMPARE(component->label()->text(), QString("Text"));
    const bool isFixed = type == InverterType;
    QCOMPARE(component->label()->textWidth(), isFixed ? 120.0 : -1.0);
    if (isFixed)
        QCOMPARE(component->label()->boundingRect().size(), QSizeF(120, 40));
    QVERIFY(!std::unique_ptr<DiagramComponent>(createComponent(PanelType, "id8", "Text", {}))->label());
}

void TestDiagramComponent::eachKindIsDrawnInItsColours_data()
{
    QTest::addColumn<QByteArray>("tag");
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QColor>("colour");
    const auto row = [](const char *tag, int x, int y, Qt::GlobalColor colour) {
        QTest::addRow("%s at %d, %d", tag, x, y) << QByteArray(tag) << QPoint(x, y) << QColor(colour);
    };
    for (const char *tag :
         {"ac_isolator", "dc_isolator", "distribution_board", "generation_meter", "inverter", "panel"}) {
        row(tag, 0, 5, Qt::black);
        row(tag, 1, 5, Qt::black);
    }
    row("ac_isolator", 5, 5, Qt::white);
    row("ac_isolator", 27, 27, Qt::darkGray);
    row("ac_isolator", 16, 16, Qt::white);
    row("dc_isolator", 5, 5, Qt::white);
    row("dc_isolator", 19, 19, Qt::black);
    row("distribution_board", 70, 60, Qt::darkGray);
    row("distribution_board", 18, 25, Qt::white);
    row("generation_meter", 60, 45, Qt::darkGray);
    row("generation_meter", 60, 15, Qt::white);
    row("inverter", 75, 50, Qt::gray);
    row("panel", 15, 20, Qt::gray);
}

void TestDiagramComponent::eachKindIsDrawnInItsColours()
{
    QFETCH(QByteArray, tag);
    QFETCH(QPoint, point);
    QFETCH(QColor, colour);
    DiagramDesk desk;
    desk.read("<" + tag + " id='id1' x='20' y='30'/>");
    const QImage picture = desk.picture({20, 30, 160, 120});
    QCOMPARE(picture.pixelColor(point), colour);
}

void TestDiagramComponent::nothingIsDrawnOutsideOfTheRectangle_data()
{
    QTest::addColumn<QByteArray>("tag");
    for (const char *tag : {"ac_isolator", "dc_isolator", "distribution_board", "inverter", "panel"})
        QTest::newRow(tag) << QByteArray(tag);
}

void TestDiagramComponent::nothingIsDrawnOutsideOfTheRectangle()
{
    QFETCH(QByteArray, tag);
    DiagramDesk desk;
    desk.read("<" + tag + " id='id1' x='20' y='30'/>");
    const QRect inside = desk.item("id1")->boundingRect().toRect().translated(20, 30);
    const QImage picture = desk.picture({0, 0, 200, 150});
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (!inside.contains(x, y))
                QCOMPARE(picture.pixelColor(x, y), QColor(Qt::white));
        }
    }
}

void TestDiagramComponent::whatIsReadIsWritten_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("caption of its own size")
        << QByteArray("<dc_isolator id='id1' x='1.5' y='-20.25'>"
                      "<label x='-3' y='7' width='-1' height='-1' text='DC isolator'/></dc_isolator>");
    QTest::newRow("caption of a given size") << QByteArray(inverter);
    QTest::newRow("note away from its own position") << QByteArray(note);
    QTest::newRow("without a caption") << QByteArray("<ac_isolator id='id1' x='5' y='6'/>");
    QTest::newRow("panel") << QByteArray("<panel id='id12' x='0' y='0'/>");
    QTest::newRow("text with markup, tabs and quotation marks") << QByteArray(
        "<inverter id='id1' x='5' y='6'><label x='1' y='2' width='50' height='10' "
        "text='&lt;b&gt; &amp;amp; &quot;&apos;&#x9;\xE2\x82\xAC\xF0\x9F\x94\x8C'/></inverter>");
}

void TestDiagramComponent::whatIsReadIsWritten()
{
    QFETCH(QByteArray, xml);
    DiagramDesk desk;
    desk.read(xml);
    QDomDocument expected;
    QVERIFY(expected.setContent(xml));
    const QDomElement item = expected.documentElement();
    const QDomElement written = desk.written(item.attribute("id"));
    QCOMPARE(written.tagName(), item.tagName());
    for (const auto &pair : {qMakePair(item, written), qMakePair(item.firstChildElement("label"),
                                                                 written.firstChildElement("label"))}) {
        QCOMPARE(pair.second.attributes().size(), pair.first.attributes().size());
        for (int i = 0; i < pair.first.attributes().size(); ++i) {
            const QDomAttr attribute = pair.first.attributes().item(i).toAttr();
            QCOMPARE(pair.second.attribute(attribute.name()), attribute.value());
        }
    }
}

void TestDiagramComponent::absentAttributesHaveTheirDefaults()
{
    DiagramDesk desk;
    desk.read("<inverter id='id1'><label/></inverter>");
    const DiagramComponent *component = desk.item("id1");
    QCOMPARE(component->pos(), QPointF(0, 0));
    QCOMPARE(component->label()->pos(), QPointF(0, 0));
    QCOMPARE(component->label()->textWidth(), 50.0);
    QCOMPARE(component->label()->text(), QString());
    QCOMPARE(desk.written("id1").firstChildElement().attribute("height"), QString("10"));
}

void TestDiagramComponent::aComponentThatIsMovedTakesItsCaptionAlong()
{
    DiagramDesk desk;
    desk.read(inverter);
    // Beside the caption, which would be moved alone.
    desk.drag({105, 205}, {255, 305});
    QCOMPARE(desk.item("id3")->pos(), QPointF(250, 300));
    QCOMPARE(desk.item("id3")->label()->pos(), QPointF(265, 330));
}

void TestDiagramComponent::aMovedCaptionLeavesTheComponentWhereItIs()
{
    DiagramDesk desk;
    desk.read(inverter);
    const QSignalSpy modified(&desk.scene, &DiagramGraphicsScene::modified);
    desk.drag({175, 250}, {175, 450});
    QCOMPARE(desk.item("id3")->pos(), QPointF(100, 200));
    QCOMPARE(desk.item("id3")->label()->pos(), QPointF(115, 430));
    QVERIFY(!modified.isEmpty());
}

void TestDiagramComponent::aCaptionLiesOnTopOfItsComponent()
{
    DiagramDesk desk;
    desk.read(inverter);
    QCOMPARE(desk.scene.items(QPointF(120, 235)).first(), desk.item("id3")->label());
    QCOMPARE(desk.picture({100, 200, 150, 100}).pixelColor(20, 36), QColor(Qt::white));
}

void TestDiagramComponent::theCaptionOfADeletedComponentGoesWithIt()
{
    DiagramDesk desk;
    desk.read(inverter);
    const QPointer<DiagramLabel> label = desk.item("id3")->label();
    const QSignalSpy modified(&desk.scene, &DiagramGraphicsScene::modified);
    QCOMPARE(desk.menu({105, 205}, "Delete Inverter"), (QStringList{"Delete Inverter", ""}));
    QVERIFY(!desk.item("id3"));
    QVERIFY(!label);
    QVERIFY(desk.scene.items().isEmpty());
    QVERIFY(!modified.isEmpty());
}

void TestDiagramComponent::aCaptionDeletedByItsOwnMenuLeavesTheComponent()
{
    DiagramDesk desk;
    desk.read(inverter);
    const QSignalSpy modified(&desk.scene, &DiagramGraphicsScene::modified);
    QCOMPARE(desk.menu({175, 250}, "Delete Label"), (QStringList{"Set Label Text", "", "Delete Label"}));
    QVERIFY(desk.item("id3"));
    QVERIFY(!desk.item("id3")->label());
    QVERIFY(desk.written("id3").firstChildElement().isNull());
    QVERIFY(!modified.isEmpty());
}

void TestDiagramComponent::aNoteGoesWithItsCaption()
{
    DiagramDesk desk;
    desk.read(note);
    desk.menu({310, 110}, "Delete Label");
    QVERIFY(!desk.item("id4"));
    QVERIFY(desk.scene.items().isEmpty());
}

void TestDiagramComponent::theTextOfACaptionIsAskedFor()
{
    DiagramDesk desk;
    desk.read(inverter);
    const QSignalSpy modified(&desk.scene, &DiagramGraphicsScene::modified);
    BoxWatcher watcher;
    QString shown;
    answer(watcher, "New\ntext", QDialogButtonBox::Ok, &shown);
    desk.menu({175, 250}, "Set Label Text");
    QCOMPARE(shown, QString("Inverter\n6 kW"));
    QCOMPARE(desk.item("id3")->label()->text(), QString("New\ntext"));
    QCOMPARE(desk.item("id3")->label()->toPlainText(), QString("New\ntext"));
    QVERIFY(!modified.isEmpty());
}

void TestDiagramComponent::aCancelledQuestionLeavesTheText()
{
    DiagramDesk desk;
    desk.read(inverter);
    const QSignalSpy modified(&desk.scene, &DiagramGraphicsScene::modified);
    BoxWatcher watcher;
    answer(watcher, "New text", QDialogButtonBox::Cancel);
    desk.menu({175, 250}, "Set Label Text");
    QCOMPARE(desk.item("id3")->label()->text(), QString("Inverter\n6 kW"));
    QVERIFY(modified.isEmpty());
}

void TestDiagramComponent::aCaptionShowsItsTextAsItIsWritten()
{
    const QString text = "a < b & \"c\" <b>bold</b>\n<img src='/etc/passwd'>";
    DiagramLabel label(nullptr, text, QSizeF(-1, -1));
    QCOMPARE(label.toPlainText(), text);
    QCOMPARE(label.text(), text);
}

void TestDiagramComponent::whatAFileCannotHoldIsLeftOutOfACaption()
{
    const QString text = QString("a") + QChar(1) + 'b' + QChar(0xd800) + 'c' + QChar(0xffff) + "\r\td\n" +
                         QString::fromUtf8("\xF0\x9F\x94\x8C");
    DiagramDesk desk;
    desk.read(inverter);
    desk.item("id3")->label()->setText(text);
    const QString kept = QString::fromUtf8("abc\td\n\xF0\x9F\x94\x8C");
    QCOMPARE(desk.item("id3")->label()->text(), kept);
    QCOMPARE(desk.written("id3").firstChildElement().attribute("text"), kept);
}

void TestDiagramComponent::aCaptionIsAtLeastAsHighAsItsFileSays()
{
    DiagramDesk desk;
    desk.read("<inverter id='id1'><label width='80' height='90' text='x'/></inverter>"
              "<inverter id='id2'><label width='40' height='5' text='many words in a row'/></inverter>");
    QCOMPARE(desk.item("id1")->label()->boundingRect(), QRectF(0, 0, 80, 90));
    QVERIFY(desk.item("id1")->label()->shape().contains(QPointF(40, 85)));
    QVERIFY(desk.item("id1")->label()->contains(QPointF(40, 85)));
    QVERIFY(desk.item("id2")->label()->boundingRect().height() > 40);
}

void TestDiagramComponent::aCaptionIsAsLargeOnEveryScreen()
{
    const QFont before = QApplication::font();
    QVector<QSizeF> sizes;
    for (const int points : {9, 18}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        sizes.append(DiagramLabel(nullptr, "Inverter", QSizeF(-1, -1)).boundingRect().size());
    }
    QApplication::setFont(before);
    QCOMPARE(sizes.first(), sizes.last());
}

void TestDiagramComponent::germanNameOfAnInverterStandsInOneLine()
{
    // The room of an inverter's caption is fixed; the longest name that the program proposes must fit in.
    const DiagramLabel caption(nullptr, "Wechselrichter", QSizeF(120, 40));
    QVERIFY(caption.boundingRect().isValid());
    QCOMPARE(caption.document()->firstBlock().layout()->lineCount(), 1);
}

void TestDiagramComponent::everyChangeIsTold()
{
    DiagramDesk desk;
    desk.read(inverter);
    QSignalSpy modified(&desk.scene, &DiagramGraphicsScene::modified);
    const auto expectTold = [&modified](const std::function<void()> &change) {
        modified.clear();
        change();
        QVERIFY(!modified.isEmpty());
    };
    DiagramComponent *component = desk.item("id3");
    expectTold([&] { component->setPos(1, 2); });
    expectTold([&] { component->label()->setPos(3, 4); });
    expectTold([&] { component->label()->setText("x"); });
    expectTold([&] { component->removeLabel(); });
}

void TestDiagramComponent::aNoteIsAsLargeAsItsCaptionAndWhereThatIs()
{
    DiagramDesk desk;
    desk.read(note);
    const DiagramComponent *component = desk.item("id4");
    QCOMPARE(component->pos(), QPointF(30, 40));
    QCOMPARE(component->sceneBoundingRect(), component->label()->sceneBoundingRect());
    desk.drag({310, 110}, {410, 160});
    QCOMPARE(component->label()->pos(), QPointF(400, 150));
    QCOMPARE(component->sceneBoundingRect(), component->label()->sceneBoundingRect());
    component->label()->setText("Much longer than before\nand higher");
    QCOMPARE(component->sceneBoundingRect(), component->label()->sceneBoundingRect());
    QCOMPARE(component->pos(), QPointF(30, 40));
}

void TestDiagramComponent::wiresFollowTheCaptionOfANote()
{
    DiagramDesk desk;
    desk.read(QByteArray(note) +
              "<connection id='id5' type='Single'><connectionA connectedItemId='id4' connectedPosX='270' "
              "connectedPosY='70' direction='8'/></connection>");
    const DiagramConnection *wire = desk.wire("id5");
    QCOMPARE(wire->endA().pos(), QPointF(300, 110));
    desk.drag({310, 110}, {410, 160});
    QCOMPARE(wire->endA().pos(), QPointF(400, 160));
    QCOMPARE(wire->route().points().first(), QPointF(400, 160));
    // And it is stored so that it comes back there.
    DiagramDesk again;
    QVERIFY(again.scene.readXml(desk.scene.toXml()));
    QCOMPARE(again.wire("id5")->endA().pos(), QPointF(400, 160));
    QCOMPARE(again.item("id4")->label()->pos(), QPointF(400, 150));
}

void TestDiagramComponent::wiresFollowTheEdgeOfANoteWhoseTextGrows()
{
    DiagramDesk desk;
    desk.read(note);
    DiagramComponent *component = desk.item("id4");
    DiagramConnection *wire = new DiagramConnection;
    desk.scene.addItem(wire);
    const QRectF before = component->sceneBoundingRect();
    const_cast<ConnectionPoint &>(wire->endA())
        .attach(component, {before.right(), before.center().y()}, RightSide);
    component->label()->setText("Much longer than before");
    QVERIFY(component->sceneBoundingRect().right() > before.right());
    QCOMPARE(wire->endA().pos().x(), component->sceneBoundingRect().right());
}

KELMAR_TEST_MAIN(TestDiagramComponent)
#include "tst_diagramcomponent.moc"
