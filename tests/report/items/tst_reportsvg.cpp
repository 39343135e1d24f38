#include "tests/support/TestMain.h"

#include "tests/report/items/ItemScene.h"

#include "report/items/ReportSvg.h"

#include <QGraphicsSvgItem>
#include <QSvgRenderer>

namespace {

const QString background = QStringLiteral(":res/reports_de/backgrounds/Array Test Report.svg");
const QString svgXml =
    QStringLiteral("<svg id=\"bg\" dpi=\"90\" file=\"") + background + QStringLiteral("\"/>");

QGraphicsSvgItem *drawing(const QGraphicsItem *item)
{
    return item->childItems().isEmpty() ? nullptr
                                        : qgraphicsitem_cast<QGraphicsSvgItem *>(item->childItems().first());
}

} // namespace

class tst_ReportSvg : public QObject
{
    Q_OBJECT

private slots:
    void theBackgroundComesFromTheResources();
    void theResolutionScalesTheItem();
    void fileAndResolutionAreWrittenInBothForms();
    void readingAgainReplacesTheDrawing();
    void anOverlayNamesResourcesOnly();
    void itHasNoContentsOfItsOwn();
};

void tst_ReportSvg::theBackgroundComesFromTheResources()
{
    ItemScene scene;
    const auto *item = scene.read<ReportSvg>(svgXml);
    QVERIFY(drawing(item));
    QVERIFY(drawing(item)->renderer()->isValid());
    QCOMPARE(drawing(item)->cacheMode(), QGraphicsItem::NoCache);
    QCOMPARE(item->boundingRect(), drawing(item)->boundingRect());
    QVERIFY(!item->boundingRect().isEmpty());
}

void tst_ReportSvg::theResolutionScalesTheItem()
{
    ItemScene scene;
    QCOMPARE(scene.read(svgXml)->scale(), 96.0 / 90.0);
    QCOMPARE(scene.read("<svg file=\"" + background + "\"/>")->scale(), 1.0);
    QCOMPARE(scene.read<ReportSvg>("<svg file=\"" + background + "\"/>")->dpi(), 96);
    QCOMPARE(scene.read("<svg dpi=\"0\" file=\"" + background + "\"/>")->scale(), 1.0);
}

void tst_ReportSvg::fileAndResolutionAreWrittenInBothForms()
{
    ItemScene scene;
    auto *item = scene.read(svgXml);
    for (bool overlayOnly : {false, true}) {
        const QDomElement written = scene.written(item, overlayOnly);
        QCOMPARE(written.attribute("file"), background);
        QCOMPARE(written.attribute("dpi"), QString("90"));
        QCOMPARE(written.hasAttribute("x"), !overlayOnly);
    }
    QVERIFY(scene.written(scene.read("<svg file=\"x\"/>"), true).isNull());
}

void tst_ReportSvg::readingAgainReplacesTheDrawing()
{
    ItemScene scene;
    auto *item = scene.read(svgXml);
    QVERIFY(item->readXml(ItemScene::element(svgXml), true, {}));
    QCOMPARE(item->childItems().size(), 1);
}

void tst_ReportSvg::anOverlayNamesResourcesOnly()
{
    const QString path = TestHome::instance()->path("other.svg");
    writeFile(path, "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"7\" height=\"7\"/>");
    ItemScene scene;
    auto *item = scene.read<ReportSvg>(svgXml);
    QVERIFY(item->readXml(ItemScene::element("<svg id=\"bg\" file=\"" + path + "\"/>"), true, {}));
    QCOMPARE(item->file(), background);
    QVERIFY(item->readXml(ItemScene::element("<svg id=\"bg\"/>"), true, {}));
    QCOMPARE(item->file(), background);
}

void tst_ReportSvg::itHasNoContentsOfItsOwn()
{
    const ReportSvg item;
    QVERIFY(item.flags() & QGraphicsItem::ItemHasNoContents);
    QVERIFY(item.boundingRect().isEmpty());
}

KELMAR_TEST_MAIN(tst_ReportSvg)
#include "tst_reportsvg.moc"
