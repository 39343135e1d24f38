#include "tests/support/TestMain.h"

#include "tests/report/items/ItemScene.h"

#include "report/items/ReportCheckBox.h"
#include "report/items/ReportText.h"
#include "tests/support/LocaleSwitch.h"

#include <QGraphicsSvgItem>

namespace {

const QString styled =
    QStringLiteral("<page editable=\"1\" colour=\"#112233\" backgroundColour=\"#445566\" "
                   "font=\"Courier\" fontSize=\"7.75\" fontWeight=\"75.9\" padding=\"0.5\"/>");

} // namespace

class tst_AbstractReportItem : public QObject
{
    Q_OBJECT

private slots:
    void withoutAParentTheDefaultsHold();
    void everyStyleIsReadFromTheParentWhenTheElementLacksIt();
    void onlyWhatTheElementCarriedIsWritten();
    void anItemsOwnStyleGoesBeforeItsParents();
    void editableIsTrueForOneOnly();
    void badValuesFallBack();
    void positionAndStyleAreNeitherReadNorWrittenInOverlayForm();
    void numbersAreWrittenInTheCLocaleAndReadBackExactly();
    void theTabChainLinksBothWays();
    void aCommandWithoutReceiverIsDropped();
    void theFactoryKnowsTheTagsOfAPage();
    void typeNumbersAndTagsBelongTogether_data();
    void typeNumbersAndTagsBelongTogether();
};

void tst_AbstractReportItem::withoutAParentTheDefaultsHold()
{
    ItemScene scene;
    const auto *item = scene.read("<text/>");
    QVERIFY(!item->isEditable());
    QCOMPARE(item->colour(), QColor(Qt::black));
    QCOMPARE(item->backgroundColour(), QColor(Qt::white));
    QCOMPARE(item->font(), QString("Arial"));
    QCOMPARE(item->fontSize(), 8.5);
    QCOMPARE(item->fontWeight(), 50);
    QCOMPARE(item->padding(), 2.0);
    QCOMPARE(item->pos(), QPointF(0, 0));
    QVERIFY(item->reportId().isEmpty());
    QVERIFY(!item->parentReportItem());
}

void tst_AbstractReportItem::everyStyleIsReadFromTheParentWhenTheElementLacksIt()
{
    ItemScene scene;
    auto *page = scene.read(styled);
    const auto *item = scene.read("<text/>", page);
    QCOMPARE(item->parentReportItem(), page);
    QVERIFY(item->isEditable());
    QCOMPARE(item->colour(), QColor("#112233"));
    QCOMPARE(item->backgroundColour(), QColor("#445566"));
    QCOMPARE(item->font(), QString("Courier"));
    QCOMPARE(item->fontSize(), 7.75);
    QCOMPARE(item->fontWeight(), 75);
    QCOMPARE(item->padding(), 0.5);
}

void tst_AbstractReportItem::onlyWhatTheElementCarriedIsWritten()
{
    ItemScene scene;
    auto *page = scene.read(styled);
    auto *item = scene.read("<text colour=\"#ffffff\" fontSize=\"22\"/>", page);
    const QDomElement written = scene.written(item, false);
    QCOMPARE(written.attribute("colour"), QString("#ffffff"));
    QCOMPARE(written.attribute("fontSize"), QString("22"));
    for (const char *name : {"editable", "backgroundColour", "font", "fontWeight", "padding", "id"})
        QVERIFY2(!written.hasAttribute(name), name);

    const QDomElement own = scene.written(page, false);
    QCOMPARE(own.attribute("editable"), QString("1"));
    QCOMPARE(own.attribute("backgroundColour"), QString("#445566"));
    QCOMPARE(own.attribute("font"), QString("Courier"));
    QCOMPARE(own.attribute("fontSize"), QString("7.75"));
    QCOMPARE(own.attribute("fontWeight"), QString("75"));
    QCOMPARE(own.attribute("padding"), QString("0.5"));
}

void tst_AbstractReportItem::anItemsOwnStyleGoesBeforeItsParents()
{
    ItemScene scene;
    auto *page = scene.read(styled);
    auto *item = scene.read("<text editable=\"0\" font=\"Arial\"/>", page);
    QVERIFY(!item->isEditable());
    QCOMPARE(item->font(), QString("Arial"));
    QCOMPARE(scene.written(item, false).attribute("editable"), QString("0"));
}

void tst_AbstractReportItem::editableIsTrueForOneOnly()
{
    ItemScene scene;
    QVERIFY(scene.read("<text editable=\"1\"/>")->isEditable());
    for (const char *value : {"0", "true", "2", ""})
        QVERIFY2(!scene.read(QString("<text editable=\"%1\"/>").arg(value))->isEditable(), value);
}

void tst_AbstractReportItem::badValuesFallBack()
{
    ItemScene scene;
    auto *page = scene.read(styled);
    const auto *item = scene.read(
        "<text x=\"inf\" y=\"ten\" colour=\"no colour\" fontSize=\"big\" fontWeight=\"nan\"/>", page);
    QCOMPARE(item->pos(), QPointF(0, 0));
    QCOMPARE(item->colour(), QColor("#112233"));
    QCOMPARE(item->fontSize(), 7.75);
    QCOMPARE(item->fontWeight(), 75);
    // Fonts out of all bounds do not reach the text.
    const auto *text = scene.read<ReportText>("<text fontSize=\"-4\" fontWeight=\"9999\">x</text>");
    QCOMPARE(text->plainText(), QString("x"));
}

void tst_AbstractReportItem::positionAndStyleAreNeitherReadNorWrittenInOverlayForm()
{
    ItemScene scene;
    auto *item = scene.read("<text id=\"a\" x=\"3\" y=\"4\" colour=\"#ffffff\" editable=\"1\"/>");
    const QDomElement overlay = scene.written(item, true);
    QCOMPARE(overlay.attributes().size(), 1);
    QCOMPARE(overlay.attribute("id"), QString("a"));
    item->readXml(
        ItemScene::element("<text id=\"a\" x=\"30\" y=\"40\" colour=\"#000000\" editable=\"0\">t</text>"),
        true, {});
    QCOMPARE(item->pos(), QPointF(3, 4));
    QCOMPARE(item->colour(), QColor(Qt::white));
    QVERIFY(item->isEditable());
}

void tst_AbstractReportItem::numbersAreWrittenInTheCLocaleAndReadBackExactly()
{
    ItemScene scene;
    const LocaleSwitch german("de_DE");
    auto *item = scene.read("<text x=\"31.83\" y=\"0.1\"/>");
    const QDomElement written = scene.written(item, false);
    QCOMPARE(written.attribute("x"), QString("31.83"));
    QCOMPARE(written.attribute("y"), QString("0.1"));
}

void tst_AbstractReportItem::theTabChainLinksBothWays()
{
    ItemScene scene;
    auto *first = scene.read("<text/>");
    auto *second = scene.read("<text/>");
    QVERIFY(!first->nextTabStop());
    first->linkTabStop(second);
    QCOMPARE(first->nextTabStop(), second);
    QCOMPARE(second->previousTabStop(), first);
    QVERIFY(!second->nextTabStop());
}

void tst_AbstractReportItem::aCommandWithoutReceiverIsDropped()
{
    const std::unique_ptr<AbstractReportItem> item(createReportItem("checkBox", nullptr));
    auto *checkBox = static_cast<ReportCheckBox *>(item.get());
    checkBox->setChecked(true, true);
    // Nobody ran the command, so the box shows what it showed.
    QCOMPARE(checkBox->symbol()->elementId(), QString("unchecked"));
}

void tst_AbstractReportItem::theFactoryKnowsTheTagsOfAPage()
{
    for (const char *tag : {"cell", "tableset", "document", "", "Text"})
        QVERIFY2(!createReportItem(tag, nullptr), tag);
}

void tst_AbstractReportItem::typeNumbersAndTagsBelongTogether_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<int>("type");
    QTest::newRow("page") << "page" << 0x10001;
    QTest::newRow("text") << "text" << 0x10002;
    QTest::newRow("checkBox") << "checkBox" << 0x10003;
    QTest::newRow("svg") << "svg" << 0x10004;
    QTest::newRow("table") << "table" << 0x10005;
    QTest::newRow("image") << "image" << 0x10008;
}

void tst_AbstractReportItem::typeNumbersAndTagsBelongTogether()
{
    QFETCH(QString, tag);
    QFETCH(int, type);
    const std::unique_ptr<AbstractReportItem> item(createReportItem(tag, nullptr));
    QVERIFY(item);
    QCOMPARE(item->type(), type);
    QCOMPARE(item->elementName(), tag);
    QVERIFY(isReportItem(item.get()));
}

KELMAR_TEST_MAIN(tst_AbstractReportItem)
#include "tst_abstractreportitem.moc"
