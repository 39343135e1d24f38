#include "tests/support/TestMain.h"

#include "tests/report/items/ItemScene.h"

#include "report/items/GraphicsTextItem.h"
#include "report/items/ReportCheckBox.h"

#include <QGraphicsSvgItem>
#include <QPainter>
#include <QSignalSpy>
#include <QStyleOptionGraphicsItem>
#include <QSvgRenderer>

namespace {

const QString boxXml = QStringLiteral("<checkBox id=\"initial\" x=\"100\" y=\"100\" width=\"122\" "
                                      "height=\"25\">Initial Verification</checkBox>");
const QPointF onLabel(150, 112);
const QPointF onSymbol(90, 107);

} // namespace

class tst_ReportCheckBox : public QObject
{
    Q_OBJECT

private slots:
    void theSymbolStandsLeftOfTheLabelUnchecked();
    void theSymbolsPlaceAndScaleAreRead();
    void theSymbolsScaleIsWrittenOnlyWhenNotOne();
    void checkedIsReadAndWrittenInBothForms();
    void theOverlayFormNeverTouchesTheLabel();
    void withoutAnIdThereIsNoOverlayElement();
    void checkBoxesAreAlwaysTabStops();
    void keysFromSpaceToZToggleAFocusedCheckBox_data();
    void keysFromSpaceToZToggleAFocusedCheckBox();
    void aLeftClickTogglesOnLabelAndSymbol();
    void otherButtonsDoNothing();
    void togglingIsOneUndoStep();
    void togglingIsAModification();
    void theFrameFollowsTheFocus();
    void anEditableCheckBoxEditsItsLabelOnFocus();
    void theBoundsHoldSymbolLabelAndFrame();
    void theFrameIsPaintedOnlyWithFocus();
};

void tst_ReportCheckBox::theSymbolStandsLeftOfTheLabelUnchecked()
{
    ItemScene scene;
    const auto *item = scene.read<ReportCheckBox>(boxXml);
    QCOMPARE(item->symbol()->pos(), QPointF(-15, 2));
    QCOMPARE(item->symbol()->cacheMode(), QGraphicsItem::NoCache);
    QCOMPARE(item->symbol()->elementId(), QString("unchecked"));
    QVERIFY(item->symbol()->renderer()->elementExists("checked"));
    QVERIFY(!item->symbol()->boundingRect().isEmpty());
    QVERIFY(!item->isChecked());
    QCOMPARE(item->plainText(), QString("Initial Verification"));
}

void tst_ReportCheckBox::theSymbolsPlaceAndScaleAreRead()
{
    ItemScene scene;
    const auto *item =
        scene.read<ReportCheckBox>("<checkBox boxPosX=\"-17\" boxPosY=\"1.5\" boxScale=\"1.2\">x</checkBox>");
    QCOMPARE(item->symbol()->pos(), QPointF(-17, 1.5));
    QCOMPARE(item->symbol()->scale(), 1.2);
    const auto *half = scene.read<ReportCheckBox>("<checkBox boxPosX=\"-20\">x</checkBox>");
    QCOMPARE(half->symbol()->pos(), QPointF(-20, 2));
    QCOMPARE(half->symbol()->scale(), 1.0);
}

void tst_ReportCheckBox::theSymbolsScaleIsWrittenOnlyWhenNotOne()
{
    ItemScene scene;
    auto *item =
        scene.read<ReportCheckBox>("<checkBox boxPosX=\"-17\" boxPosY=\"1.5\" boxScale=\"1.2\">x</checkBox>");
    const QDomElement written = scene.written(item, false);
    QCOMPARE(written.attribute("boxPosX"), QString("-17"));
    QCOMPARE(written.attribute("boxPosY"), QString("1.5"));
    QCOMPARE(written.attribute("boxScale"), QString("1.2"));
    const QDomElement plain = scene.written(scene.read(boxXml), false);
    QVERIFY(!plain.hasAttribute("boxScale"));
    QCOMPARE(plain.attribute("boxPosX"), QString("-15"));
    QVERIFY(!scene.written(item, true).hasAttribute("boxPosX"));
}

void tst_ReportCheckBox::checkedIsReadAndWrittenInBothForms()
{
    ItemScene scene;
    auto *item = scene.read<ReportCheckBox>("<checkBox id=\"a\" checked=\"true\">x</checkBox>");
    QVERIFY(item->isChecked());
    QCOMPARE(item->symbol()->elementId(), QString("checked"));
    QCOMPARE(scene.written(item, false).attribute("checked"), QString("true"));
    QCOMPARE(scene.written(item, true).attribute("checked"), QString("true"));
    item->readXml(ItemScene::element("<checkBox id=\"a\" checked=\"1\"/>"), true, {});
    QVERIFY(!item->isChecked());
    QCOMPARE(scene.written(item, true).attribute("checked"), QString("false"));
}

void tst_ReportCheckBox::theOverlayFormNeverTouchesTheLabel()
{
    ItemScene scene;
    auto *item = scene.read<ReportCheckBox>(boxXml);
    item->readXml(
        ItemScene::element("<checkBox id=\"initial\" checked=\"true\" boxScale=\"3\">Other</checkBox>"), true,
        {});
    QVERIFY(item->isChecked());
    QCOMPARE(item->plainText(), QString("Initial Verification"));
    QCOMPARE(item->symbol()->scale(), 1.0);
}

void tst_ReportCheckBox::withoutAnIdThereIsNoOverlayElement()
{
    ItemScene scene;
    auto *item = scene.read("<checkBox checked=\"true\">x</checkBox>");
    QVERIFY(scene.written(item, true).isNull());
    QVERIFY(!scene.written(item, false).isNull());
}

void tst_ReportCheckBox::checkBoxesAreAlwaysTabStops()
{
    ItemScene scene;
    QVERIFY(scene.read(boxXml)->isTabStop());
    QVERIFY(scene.read("<checkBox editable=\"1\"/>")->isTabStop());
}

void tst_ReportCheckBox::keysFromSpaceToZToggleAFocusedCheckBox_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("toggles");
    QTest::newRow("space") << Qt::Key_Space << true;
    QTest::newRow("digit") << Qt::Key_7 << true;
    QTest::newRow("first letter") << Qt::Key_A << true;
    QTest::newRow("last letter") << Qt::Key_Z << true;
    QTest::newRow("bracket behind the letters") << Qt::Key_BracketLeft << false;
    QTest::newRow("arrow") << Qt::Key_Down << false;
    QTest::newRow("return") << Qt::Key_Return << false;
    QTest::newRow("escape") << Qt::Key_Escape << false;
}

void tst_ReportCheckBox::keysFromSpaceToZToggleAFocusedCheckBox()
{
    QFETCH(Qt::Key, key);
    QFETCH(bool, toggles);
    ItemScene scene;
    auto *item = scene.read<ReportCheckBox>(boxXml);
    QVERIFY(scene.show());
    scene.setFocusItem(item);
    scene.key(key);
    QCOMPARE(item->isChecked(), toggles);
    scene.key(key);
    QVERIFY(!item->isChecked());
}

void tst_ReportCheckBox::aLeftClickTogglesOnLabelAndSymbol()
{
    ItemScene scene;
    auto *item = scene.read<ReportCheckBox>(boxXml);
    QVERIFY(scene.show());
    scene.click(onLabel);
    QVERIFY(item->isChecked());
    scene.click(onSymbol);
    QVERIFY(!item->isChecked());
}

void tst_ReportCheckBox::otherButtonsDoNothing()
{
    ItemScene scene;
    auto *item = scene.read<ReportCheckBox>(boxXml);
    QVERIFY(scene.show());
    scene.click(onLabel, Qt::RightButton);
    scene.click(onSymbol, Qt::MiddleButton);
    QVERIFY(!item->isChecked());
    QCOMPARE(scene.undoStack()->count(), 0);
}

void tst_ReportCheckBox::togglingIsOneUndoStep()
{
    ItemScene scene;
    auto *item = scene.read<ReportCheckBox>(boxXml);
    QVERIFY(scene.show());
    scene.click(onLabel);
    scene.click(onLabel);
    scene.click(onLabel);
    QCOMPARE(scene.undoStack()->count(), 3);
    scene.undoStack()->undo();
    QVERIFY(!item->isChecked());
    QCOMPARE(item->symbol()->elementId(), QString("unchecked"));
    scene.undoStack()->redo();
    QVERIFY(item->isChecked());
    QCOMPARE(item->symbol()->elementId(), QString("checked"));
}

void tst_ReportCheckBox::togglingIsAModification()
{
    ItemScene scene;
    auto *item = scene.read<ReportCheckBox>(boxXml);
    QSignalSpy modified(item, &AbstractReportItem::modified);
    item->setChecked(true, true);
    QCOMPARE(modified.count(), 1);
    QCOMPARE(modified.first().first().toBool(), true);
}

void tst_ReportCheckBox::theFrameFollowsTheFocus()
{
    ItemScene scene;
    auto *item = scene.read<ReportCheckBox>(boxXml);
    QVERIFY(scene.show());
    QVERIFY(!item->hasFrame());
    scene.setFocusItem(item);
    QVERIFY(item->hasFrame());
    scene.setFocusItem(nullptr);
    QVERIFY(!item->hasFrame());
}

void tst_ReportCheckBox::anEditableCheckBoxEditsItsLabelOnFocus()
{
    ItemScene scene;
    auto *item = scene.read<ReportCheckBox>("<checkBox id=\"a\" editable=\"1\">x</checkBox>");
    QVERIFY(scene.show());
    scene.setFocusItem(item);
    QVERIFY(item->textItem()->hasFocus());
    scene.type("new");
    QCOMPARE(item->plainText(), QString("new"));
    QVERIFY(!item->isChecked());
    QCOMPARE(scene.written(item, true).text(), QString("new"));
}

void tst_ReportCheckBox::theBoundsHoldSymbolLabelAndFrame()
{
    ItemScene scene;
    auto *item = scene.read<ReportCheckBox>(boxXml);
    const QSizeF symbol = item->symbol()->boundingRect().size();
    QCOMPARE(item->boundingRect(),
             (QRectF(QPointF(-15, 2), symbol) | QRectF(0, 0, 122, 25)).adjusted(-2, -2, 2, 2));
    item->setPlainText(QString("many words in a label ").repeated(20));
    QVERIFY(item->boundingRect().contains(item->symbol()->mapRectToParent(item->symbol()->boundingRect())));
    QVERIFY(
        item->boundingRect().contains(item->textItem()->mapRectToParent(item->textItem()->boundingRect())));
}

void tst_ReportCheckBox::theFrameIsPaintedOnlyWithFocus()
{
    ItemScene scene;
    auto *item = scene.read<ReportCheckBox>(boxXml);
    QVERIFY(scene.show());
    QImage image(200, 60, QImage::Format_RGB32);
    image.fill(Qt::blue);
    const QImage before = image;
    const auto paint = [&] {
        QPainter painter(&image);
        painter.translate(30.5, 10.5);
        QStyleOptionGraphicsItem option;
        item->paint(&painter, &option, nullptr);
    };
    paint();
    QCOMPARE(image, before);
    scene.setFocusItem(item);
    paint();
    QSet<QRgb> colours;
    for (int x = 30; x < 130; ++x)
        colours.insert(image.pixel(x, 9));
    QVERIFY(colours.contains(QColor(Qt::white).rgb()));
    QVERIFY(colours.contains(QColor(Qt::black).rgb()));
}

KELMAR_TEST_MAIN(tst_ReportCheckBox)
#include "tst_reportcheckbox.moc"
