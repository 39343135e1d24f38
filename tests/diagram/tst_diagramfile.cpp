#include "diagram/DiagramGraphicsScene.h"

#include "diagram/DiagramComponent.h"
#include "tests/diagram/DiagramDesk.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QFileInfo>
#include <QScrollBar>

namespace {

const char house[] =
    "<panel id='id1' x='0' y='0'/>"
    "<dc_isolator id='id2' x='100' y='0'><label x='150' y='5' width='-1' height='-1' "
    "text='DC'/></dc_isolator>"
    "<inverter id='id3' x='100' y='120'>"
    "<label x='115' y='150' width='120' height='40' text='Inverter&#xa;6 kW'/></inverter>"
    "<ac_isolator id='id4' x='120' y='300'/>"
    "<generation_meter id='id5' x='300' y='300'/>"
    "<distribution_board id='id6' x='300' y='420'/>"
    "<label id='id7' x='5' y='6'><label x='5' y='6' width='-1' height='-1' text='A note'/></label>"
    "<connection type='Single' id='id8'>"
    "<connectionA connectedItemId='id1' connectedPosX='30' connectedPosY='20' direction='4'/>"
    "<connectionB connectedItemId='id2' connectedPosX='0' connectedPosY='20' direction='8'/></connection>"
    "<connection type='DC' id='id9'>"
    "<connectionA connectedItemId='id2' connectedPosX='20' connectedPosY='40' direction='2'/>"
    "<connectionB connectedItemId='id3' connectedPosX='75' connectedPosY='0' direction='1'/></connection>"
    "<connection type='AC' id='id10'>"
    "<connectionA connectedItemId='id4' connectedPosX='55' connectedPosY='27.5' direction='4'/>"
    "<connectionB connectedItemId='id5' connectedPosX='0' connectedPosY='30' direction='8'/></connection>";

QByteArray withRoot(const QByteArray &items)
{
    return "<installation_diagram>" + items + "</installation_diagram>";
}

/// The elements of a file in a form that can be compared, in their order.
QStringList elements(const QByteArray &xml)
{
    QDomDocument document;
    if (!document.setContent(xml))
        return {"no XML"};
    QStringList all;
    const QDomNodeList children = document.documentElement().childNodes();
    for (int i = 0; i < children.size(); ++i) {
        QString text;
        QTextStream stream(&text);
        children.at(i).save(stream, 0);
        all.append(text);
    }
    return all;
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

QString file(const char *name)
{
    return TestHome::instance()->path(QLatin1String(name));
}

QByteArray repeated(const QByteArray &text, int count)
{
    QByteArray all;
    for (int i = 0; i < count; ++i)
        all += QByteArray(text).replace("%1", QByteArray::number(i + 1));
    return all;
}

} // namespace

class TestDiagramFile : public QObject
{
    Q_OBJECT

private slots:
    void whatIsSavedIsLoadedAgain();
    void eachSaveReversesTheOrderOfTheComponents();
    void stackingTurnsWithEachSave();
    void wiresStandBehindAllComponents();
    void aFileIsPlainIndentedXml();
    void otherElementsAreSkipped();
    void theSampleIsAWholeInstallation();

    void aFileThatCannotBeOpenedIsTold();
    void aFileThatCannotBeWrittenIsTold();
    void aFullDiskIsTold();
    void aFileThatIsNoXmlIsToldWithItsPlace();

    void hostileXmlIsRefusedInWords_data();
    void hostileXmlIsRefusedInWords();
    void numbersThatAreNoneCountAsAbsent_data();
    void numbersThatAreNoneCountAsAbsent();
    void hugeCoordinatesDoNotStopTheScrollBars();
    void duplicateIdsAttachToTheTopmost();
    void thousandsOfItemsAreLoadedAndSaved();
    void aFileAtTheLimitIsLoadedAndSaved();
    void aCaptionOfAHundredThousandLettersIsShownInPartAndKeptWhole();
    void strangeStructuresAreLoadedSavedAndLoadedAgain_data();
    void strangeStructuresAreLoadedSavedAndLoadedAgain();
};

void TestDiagramFile::whatIsSavedIsLoadedAgain()
{
    DiagramGraphicsScene scene;
    QVERIFY(scene.readXml(withRoot(house)));
    const QStringList before = elements(scene.toXml());
    QCOMPARE(before.size(), 10);
    QVERIFY(scene.save(file("house.kelid")));
    DiagramGraphicsScene again;
    QVERIFY(again.load(file("house.kelid")));
    QCOMPARE(sorted(elements(again.toXml())), sorted(before));
    QCOMPARE(again.newId(), QString("id11"));
}

void TestDiagramFile::eachSaveReversesTheOrderOfTheComponents()
{
    DiagramGraphicsScene scene;
    QVERIFY(scene.readXml(withRoot("<panel id='id1'/><panel id='id2'/><panel id='id3'/>")));
    const QStringList first = elements(scene.toXml());
    QVERIFY(first.at(0).contains("id3") && first.at(1).contains("id2") && first.at(2).contains("id1"));
    DiagramGraphicsScene second;
    QVERIFY(second.readXml(scene.toXml()));
    QStringList reversed = first;
    std::reverse(reversed.begin(), reversed.end());
    QCOMPARE(elements(second.toXml()), reversed);
}

void TestDiagramFile::stackingTurnsWithEachSave()
{
    // A board over an inverter, and after the next opening the inverter over the board.
    DiagramDesk desk;
    desk.read("<inverter id='id1' x='100' y='100'/><distribution_board id='id2' x='100' y='100'/>");
    DiagramDesk again;
    QVERIFY(again.scene.readXml(desk.scene.toXml()));
    QCOMPARE(desk.picture({100, 100, 150, 100}).pixelColor(70, 60), QColor(Qt::darkGray));
    QCOMPARE(again.picture({100, 100, 150, 100}).pixelColor(70, 60), QColor(Qt::gray));
    DiagramDesk third;
    QVERIFY(third.scene.readXml(again.scene.toXml()));
    QCOMPARE(third.picture({100, 100, 150, 100}), desk.picture({100, 100, 150, 100}));
}

void TestDiagramFile::wiresStandBehindAllComponents()
{
    DiagramGraphicsScene scene;
    // A component that is newer than the wires.
    QVERIFY(scene.readXml(withRoot(QByteArray(house) + "<panel id='id20'/>")));
    const QStringList all = elements(scene.toXml());
    QCOMPARE(all.size(), 11);
    for (int i = 0; i < all.size(); ++i)
        QCOMPARE(all.at(i).startsWith("<connection "), i >= 8);
}

void TestDiagramFile::aFileIsPlainIndentedXml()
{
    DiagramDesk desk;
    QCOMPARE(desk.scene.toXml(), QByteArray("<installation_diagram/>\n"));
    desk.read("<inverter id='id1'><label text='\xC3\xA4'/></inverter>");
    const QByteArray xml = desk.scene.toXml();
    QVERIFY(xml.startsWith("<installation_diagram>\n  <inverter "));
    QVERIFY(xml.contains("\n    <label "));
    QVERIFY(xml.contains("\xC3\xA4"));
}

void TestDiagramFile::otherElementsAreSkipped()
{
    DiagramGraphicsScene scene;
    QVERIFY(scene.readXml(withRoot("<battery id='id1'/>text<!-- comment --><panel id='id2'/><Panel/>")));
    QCOMPARE(elements(scene.toXml()).size(), 1);
}

void TestDiagramFile::theSampleIsAWholeInstallation()
{
    DiagramDesk desk;
    QVERIFY(desk.scene.load(QStringLiteral(KELMAR_SAMPLES "/Roof south.kelid")));
    QVector<DiagramComponent *> components;
    int wires = 0;
    for (QGraphicsItem *item : desk.scene.items()) {
        if (const auto *wire = dynamic_cast<DiagramConnection *>(item)) {
            ++wires;
            for (const ConnectionPoint *end : {&wire->endA(), &wire->endB()}) {
                QVERIFY2(end->component(), qPrintable(wire->id()));
                // On the edge that it says.
                QPointF onEdge = end->pos();
                int side = 0;
                end->component()->snapToEdge(1, onEdge, side, 2);
                QCOMPARE(side, end->side());
                QVERIFY((onEdge - end->pos()).manhattanLength() < 0.01);
            }
        } else if (auto *component = dynamic_cast<DiagramComponent *>(item)) {
            components.append(component);
        }
    }
    QCOMPARE(wires, 61);
    QCOMPARE(components.size(), 66);
    for (const DiagramComponent *one : qAsConst(components)) {
        for (const DiagramComponent *other : qAsConst(components))
            QVERIFY(one == other || !one->sceneBoundingRect().intersects(other->sceneBoundingRect()));
    }
}

void TestDiagramFile::aFileThatCannotBeOpenedIsTold()
{
    DiagramGraphicsScene scene;
    BoxWatcher watcher;
    watcher.expect(QString(), QMessageBox::Ok);
    QVERIFY(!scene.load(file("missing.kelid")));
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes().first().text, "Error opening " + file("missing.kelid") + " for writing");
    QCOMPARE(watcher.boxes().first().informativeText,
             QString("Is the file read-only or has it been deleted?"));
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Warning);
}

void TestDiagramFile::aFileThatCannotBeWrittenIsTold()
{
    DiagramGraphicsScene scene;
    BoxWatcher watcher;
    watcher.expect(QString(), QMessageBox::Ok);
    const QString path = file("no such folder/x.kelid");
    QVERIFY(!scene.save(path));
    QCOMPARE(watcher.boxes().first().text, "Error opening " + path + " for writing");
    QCOMPARE(watcher.boxes().first().informativeText,
             QString("Is the file read-only or has it been deleted?"));
}

void TestDiagramFile::aFullDiskIsTold()
{
    const QString path = QStringLiteral("/dev/full");
    if (!QFileInfo::exists(path))
        QSKIP("no disk here is always full");
    DiagramGraphicsScene scene;
    // Less than what a file keeps back before it writes.
    QVERIFY(scene.readXml(withRoot("<panel id='id1'/>")));
    BoxWatcher watcher;
    watcher.expect(QString(), QMessageBox::Ok);
    QVERIFY(!scene.save(path));
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes().first().text, "Error opening " + path + " for writing");
    QVERIFY(!watcher.boxes().first().informativeText.isEmpty());
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Warning);
}

void TestDiagramFile::aFileThatIsNoXmlIsToldWithItsPlace()
{
    DiagramGraphicsScene scene;
    BoxWatcher watcher;
    watcher.expect(QString(), QMessageBox::Ok);
    writeFile(file("50%1.kelid"), "<installation_diagram>\n<panel></inverter>");
    QVERIFY(!scene.load(file("50%1.kelid")));
    QVERIFY(scene.items().isEmpty());
    const BoxWatcher::Box box = watcher.boxes().first();
    QVERIFY2(box.text.startsWith("XML validation error in " + file("50%1.kelid") + " on line 2, column "),
             qPrintable(box.text));
    QVERIFY(!box.informativeText.isEmpty());
    QCOMPARE(box.icon, QMessageBox::Warning);
}

void TestDiagramFile::hostileXmlIsRefusedInWords_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("nested 30,000 levels")
        << withRoot(repeated("<panel>", 30000) + repeated("</panel>", 30000));
    QTest::newRow("entities") << QByteArray("<!DOCTYPE x [<!ENTITY a 'aaaaaaaaaa'>]>"
                                            "<installation_diagram><panel id='&a;'/></installation_diagram>");
    QTest::newRow("half a million panels") << withRoot(repeated("<panel/>", 500000));
    QTest::newRow("half a million attributes") << withRoot("<panel " + repeated("a%1='' ", 500000) + "/>");
    QTest::newRow("ten million letters")
        << withRoot("<inverter><label text='" + QByteArray(10000000, 'x') + "'/></inverter>");
    QTest::newRow("broken encoding") << withRoot("<panel id='\xff\xfe'");
}

void TestDiagramFile::hostileXmlIsRefusedInWords()
{
    QFETCH(QByteArray, xml);
    DiagramGraphicsScene scene;
    GatedXml::Error error;
    QVERIFY(!scene.readXml(xml, &error));
    QVERIFY(!error.message.isEmpty());
    QVERIFY(scene.items().isEmpty());
}

void TestDiagramFile::numbersThatAreNoneCountAsAbsent_data()
{
    QTest::addColumn<QByteArray>("number");
    for (const char *number :
         {"nan", "inf", "-inf", "1e300", "1e7", "-2147483649", "text", "", "1,5", "0x10"})
        QTest::newRow(number) << QByteArray(number);
}

void TestDiagramFile::numbersThatAreNoneCountAsAbsent()
{
    QFETCH(QByteArray, number);
    DiagramDesk desk;
    desk.read(
        "<panel id='id1' x='" + number + "' y='" + number + "'/><inverter id='id2'><label x='" + number +
        "' y='" + number + "' width='" + number + "' height='" + number +
        "' text='x'/></inverter><connection id='id3'><connectionA connectedItemId='id1' connectedPosX='" +
        number + "' connectedPosY='" + number + "' direction='" + number + "'/></connection>");
    QCOMPARE(desk.item("id1")->pos(), QPointF(0, 0));
    QCOMPARE(desk.item("id2")->label()->pos(), QPointF(0, 0));
    QCOMPARE(desk.item("id2")->label()->textWidth(), 50.0);
    QCOMPARE(desk.wire("id3")->endA().pos(), QPointF(0, 0));
    QCOMPARE(desk.wire("id3")->endA().component(), desk.item("id1"));
    QVERIFY(desk.wire("id3")->endA().side() == 0);
}

void TestDiagramFile::hugeCoordinatesDoNotStopTheScrollBars()
{
    DiagramDesk desk;
    desk.read("<panel id='id1' x='1e6' y='-1e6'/><panel id='id2' x='-1e6' y='1e6'/>"
              "<inverter id='id3' x='1e300'><label x='1e6' y='1e6' width='1e6' height='1e6'/></inverter>"
              "<connection id='id4'><connectionA connectedItemId='id1' connectedPosX='1e6' "
              "connectedPosY='-1e6' direction='1'/></connection>");
    desk.view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    desk.view.setSceneRect(desk.scene.itemsBoundingRect());
    desk.view.scale(12, 12);
    desk.view.horizontalScrollBar()->setValue(desk.view.horizontalScrollBar()->maximum());
    QVERIFY(!desk.view.grab().isNull());
    QVERIFY(desk.scene.itemsBoundingRect().width() < 5e6);
}

void TestDiagramFile::duplicateIdsAttachToTheTopmost()
{
    DiagramDesk desk;
    desk.read("<panel id='id1' x='10'/><panel id='id1' x='20'/><connection id='id1'>"
              "<connectionA connectedItemId='id1' connectedPosX='5' connectedPosY='5' direction='1'/>"
              "<connectionA connectedItemId='id1' connectedPosX='6' connectedPosY='6' direction='1'/>"
              "</connection>");
    const QStringList all = elements(desk.scene.toXml());
    QCOMPARE(all.size(), 3);
    QVERIFY(all.last().contains("connectedPosX=\"6\""));
    QVERIFY(!all.last().contains("connectedPosX=\"5\""));
    const QList<QGraphicsItem *> items = desk.scene.items();
    for (QGraphicsItem *item : items) {
        if (const auto *wire = dynamic_cast<DiagramConnection *>(item))
            QCOMPARE(wire->endA().pos(), QPointF(26, 6));
    }
}

void TestDiagramFile::thousandsOfItemsAreLoadedAndSaved()
{
    const QByteArray xml = withRoot(
        repeated("<inverter id='id%1' x='%1' y='5'><label x='%1' y='9' text='Inverter %1'/></inverter>",
                 5000) +
        repeated("<connection id='c%1' type='AC'><connectionA connectedItemId='id%1' connectedPosX='0' "
                 "connectedPosY='50' direction='8'/><connectionB connectedItemId='id7' connectedPosX='0' "
                 "connectedPosY='50' direction='8'/></connection>",
                 3000));
    DiagramGraphicsScene scene;
    QVERIFY(scene.readXml(xml));
    const QStringList all = elements(scene.toXml());
    QCOMPARE(all.size(), 8000);
}

void TestDiagramFile::aFileAtTheLimitIsLoadedAndSaved()
{
    // The most captions that the least text can ask for.
    const QByteArray xml = withRoot(repeated("<panel><label/></panel>", 65000));
    DiagramGraphicsScene scene;
    QVERIFY(scene.readXml(xml));
    QCOMPARE(elements(scene.toXml()).size(), 65000);
}

void TestDiagramFile::aCaptionOfAHundredThousandLettersIsShownInPartAndKeptWhole()
{
    const QByteArray letters(100000, 'x');
    DiagramDesk desk;
    desk.read("<inverter id='id1'><label width='50' height='10' text='" + letters + "'/></inverter>");
    QVERIFY(!desk.view.grab().isNull());
    QCOMPARE(desk.item("id1")->label()->toPlainText().size(), 4000);
    QCOMPARE(desk.written("id1").firstChildElement().attribute("text").toUtf8(), letters);
}

void TestDiagramFile::strangeStructuresAreLoadedSavedAndLoadedAgain_data()
{
    QTest::addColumn<QByteArray>("items");
    QTest::newRow("another root's children") << QByteArray("<x><panel id='id1'/></x><panel id='id2'/>");
    QTest::newRow("several captions")
        << QByteArray("<inverter id='id1'><label text='a'/><label text='b'/></inverter>");
    QTest::newRow("a component in a component")
        << QByteArray("<inverter id='id1'><panel id='id2'/><label text='a'><label/></label></inverter>");
    QTest::newRow("wires first") << QByteArray("<connection id='id1'><connectionA connectedItemId='id2'/>"
                                               "</connection><panel id='id2'/>");
    QTest::newRow("a wire at a wire") << QByteArray(
        "<connection id='id1'/><connection id='id2'><connectionA connectedItemId='id1'/></connection>");
    QTest::newRow("a wire from a component to itself")
        << QByteArray("<panel id='id1'/><connection id='id2' type='AC'><connectionA connectedItemId='id1' "
                      "direction='1'/><connectionB connectedItemId='id1' direction='1'/></connection>");
    QTest::newRow("sides that are none")
        << QByteArray("<panel id='id1'/><connection id='id2' type='DC'><connectionA connectedItemId='id1' "
                      "direction='3'/><connectionB connectedItemId='id1' connectedPosX='7' connectedPosY='9' "
                      "direction='-8'/></connection>");
    QTest::newRow("cables of no kind")
        << QByteArray("<connection id='id1' type='Fibre'/><connection id='id2'/>");
    QTest::newRow("no ids") << QByteArray("<panel/><inverter/><connection><connectionA/></connection>");
    QTest::newRow("a note without a caption") << QByteArray("<label id='id1' x='5' y='5'/>");
    QTest::newRow("captions without room")
        << QByteArray("<inverter id='id1'><label width='0' height='0' text='words and words'/></inverter>"
                      "<inverter id='id2'><label width='-7' height='-7' text='words and words'/></inverter>"
                      "<inverter id='id3'><label width='1e-300' height='1e-300' text='words'/></inverter>");
}

void TestDiagramFile::strangeStructuresAreLoadedSavedAndLoadedAgain()
{
    QFETCH(QByteArray, items);
    DiagramDesk desk;
    desk.read(items);
    QVERIFY(!desk.view.grab().isNull());
    const QByteArray once = desk.scene.toXml();
    DiagramDesk again;
    QVERIFY(again.scene.readXml(once));
    QCOMPARE(sorted(elements(again.scene.toXml())), sorted(elements(once)));
    QVERIFY(!again.view.grab().isNull());
}

KELMAR_TEST_MAIN(TestDiagramFile)
#include "tst_diagramfile.moc"
