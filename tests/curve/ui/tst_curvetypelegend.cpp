#include "curve/ui/CurveTypeLegend.h"
#include "tests/curve/ui/GraphDesk.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <QPainter>
#include <qwt_plot_canvas.h>
#include <qwt_scale_map.h>

using namespace IVCurve;

namespace {

const QColor ground(Qt::cyan);
const QSize canvasSize(301, 200);

/// The key as it is drawn on a canvas of that size, which lies somewhere on a page.
QImage picture(const CurveTypeLegend &key, const QPoint &place = QPoint())
{
    QImage image(canvasSize + QSize(place.x(), place.y()), QImage::Format_ARGB32);
    image.fill(ground);
    QPainter painter(&image);
    key.draw(&painter, QwtScaleMap(), QwtScaleMap(), QRectF(place, canvasSize));
    return image;
}

const CurveTypeLegend &keyOf(const CurveGraph &graph)
{
    return *static_cast<const CurveTypeLegend *>(graph.itemList(QwtPlotItem::Rtti_PlotUserItem).first());
}

/// Everything that is drawn.
QRect inked(const QImage &image)
{
    QRect all;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != ground)
                all |= QRect(x, y, 1, 1);
        }
    }
    return all;
}

/// Black and not black along a row of the key, from its sample's left end: "#" and ".".
QString sampleAt(const QImage &image, int y)
{
    QString pattern;
    const int left = (image.width() - 80) / 2 + 5;
    for (int x = left; x < left + 30; ++x)
        pattern += image.pixelColor(x, y).lightness() < 60 ? '#' : '.';
    return pattern;
}

bool isSolid(const QString &sample)
{
    return !sample.mid(1, 28).contains('.');
}

bool hasWhite(const QImage &image, const QRect &area)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (image.pixelColor(x, y).lightness() > 230)
                return true;
        }
    }
    return false;
}

} // namespace

class TestCurveTypeLegend : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void boxGrowsWithTheSources_data();
    void boxGrowsWithTheSources();
    void keyGoesWithItsCanvas();
    void withNeitherCurrentNorPowerTheKeyStillDraws_data();
    void withNeitherCurrentNorPowerTheKeyStillDraws();
    void rowsStandInTheirOrderWithTheirStyles();
    void wordsStayInTheBoxInAnyFont_data();
    void wordsStayInTheBoxInAnyFont();
    void keyLiesAboveTheCurves();
    void onAnotherPlotNothingIsDrawn();
    void keyOnTheScreenFollowsItsSwitches();
};

void TestCurveTypeLegend::init()
{
    TestHome::instance()->reset();
}

void TestCurveTypeLegend::boxGrowsWithTheSources_data()
{
    QTest::addColumn<bool>("meas");
    QTest::addColumn<bool>("stc");
    QTest::addColumn<bool>("nom");
    QTest::addColumn<int>("height");
    QTest::newRow("none") << false << false << false << 5;
    QTest::newRow("corrected") << false << true << false << 20;
    QTest::newRow("measured and nominal") << true << false << true << 35;
    QTest::newRow("all") << true << true << true << 50;
}

void TestCurveTypeLegend::boxGrowsWithTheSources()
{
    QFETCH(bool, meas);
    QFETCH(bool, stc);
    QFETCH(bool, nom);
    QFETCH(int, height);
    GraphDesk desk;
    desk.graph().displayMEASToggled(meas);
    desk.graph().displaySTCToggled(stc);
    desk.graph().displayNOMToggled(nom);
    const QImage image = picture(keyOf(desk.graph()));
    // The middle of the pen runs along the edge.
    const QRect box = inked(image);
    QCOMPARE(box.left(), 110);
    QVERIFY(box.width() >= 80 && box.width() <= 82);
    QVERIFY(box.height() >= height && box.height() <= height + 2);
    QVERIFY(qAbs(box.bottom() - (200 - 10)) <= 1);
    if (height > 5)
        QCOMPARE(image.pixelColor(112, box.center().y()), QColor(Qt::gray));
}

void TestCurveTypeLegend::keyGoesWithItsCanvas()
{
    GraphDesk desk;
    const QPoint place(70, 40);
    const QImage onPage = picture(keyOf(desk.graph()), place);
    QCOMPARE(onPage.copy(QRect(place, canvasSize)), picture(keyOf(desk.graph())));
}

void TestCurveTypeLegend::withNeitherCurrentNorPowerTheKeyStillDraws_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

void TestCurveTypeLegend::withNeitherCurrentNorPowerTheKeyStillDraws()
{
    QFETCH(QString, locale);
    const LocaleSwitch language(locale);
    GraphDesk desk;
    desk.select({desk.add("Roof", plainCurve())});
    const QImage before = picture(keyOf(desk.graph()));
    desk.graph().displayIVToggled(false);
    QVERIFY(desk.graph().itemList(QwtPlotItem::Rtti_PlotCurve).isEmpty());
    QCOMPARE(picture(keyOf(desk.graph())), before);
    QVERIFY(!inked(before).isEmpty());
}

void TestCurveTypeLegend::rowsStandInTheirOrderWithTheirStyles()
{
    GraphDesk desk;
    desk.graph().displayMEASToggled(true);
    desk.graph().displayNOMToggled(true);
    const QImage image = picture(keyOf(desk.graph()));
    // The box begins at 200 - 10 - 50; the middles of the rows are 5 + 5, 15 and 30 below.
    const QString stc = sampleAt(image, 150);
    const QString meas = sampleAt(image, 165);
    const QString nom = sampleAt(image, 180);
    QVERIFY2(isSolid(stc), qPrintable(stc));
    QVERIFY2(meas.contains("#") && meas.contains("..") && !meas.contains(QRegularExpression("\\.##?\\.")),
             qPrintable(meas));
    QVERIFY2(nom.contains(QRegularExpression("#{4,}\\.+##?#?\\.+##?#?\\.")), qPrintable(nom));
    for (const int y : {150, 165, 180})
        QVERIFY(hasWhite(image, QRect(155, y - 5, 34, 10)));
    // Without STC the next one moves up.
    desk.graph().displaySTCToggled(false);
    QVERIFY(!isSolid(sampleAt(picture(keyOf(desk.graph())), 165)));
    desk.graph().displayMEASToggled(false);
    desk.graph().displayNOMToggled(false);
    desk.graph().displaySTCToggled(true);
    QVERIFY(isSolid(sampleAt(picture(keyOf(desk.graph())), 180)));
}

void TestCurveTypeLegend::wordsStayInTheBoxInAnyFont_data()
{
    QTest::addColumn<QFont>("font");
    QTest::newRow("as it is") << QFont();
    QTest::newRow("points") << QFont("Liberation Sans", 24);
    QFont pixels("Liberation Sans");
    pixels.setPixelSize(40);
    QTest::newRow("pixels") << pixels;
}

void TestCurveTypeLegend::wordsStayInTheBoxInAnyFont()
{
    QFETCH(QFont, font);
    const QFont before = QApplication::font();
    GraphDesk desk;
    desk.graph().displayMEASToggled(true);
    desk.graph().displayNOMToggled(true);
    QApplication::setFont(font);
    const QRect box = inked(picture(keyOf(desk.graph())));
    QApplication::setFont(before);
    QVERIFY2(box.right() <= 191 && box.top() >= 139 && box.bottom() <= 191,
             qPrintable(QString("%1 %2 %3").arg(box.right()).arg(box.top()).arg(box.bottom())));
}

void TestCurveTypeLegend::keyLiesAboveTheCurves()
{
    GraphDesk desk;
    const CurveTypeLegend &key = keyOf(desk.graph());
    QCOMPARE(key.rtti(), 1000);
    QCOMPARE(key.z(), 1243.0);
    QVERIFY(key.testRenderHint(QwtPlotItem::RenderAntialiased));
    desk.select({desk.add("Roof", plainCurve())});
    QCOMPARE(static_cast<const QwtPlotItem *>(desk.graph().itemList().last()),
             static_cast<const QwtPlotItem *>(&key));
}

void TestCurveTypeLegend::onAnotherPlotNothingIsDrawn()
{
    QwtPlot plot;
    CurveTypeLegend key;
    QVERIFY(inked(picture(key)).isEmpty());
    key.attach(&plot);
    QVERIFY(inked(picture(key)).isEmpty());
    key.detach();
}

void TestCurveTypeLegend::keyOnTheScreenFollowsItsSwitches()
{
    GraphDesk desk;
    desk.show();
    // Without any string, too, when no line tells the plot to paint itself.
    const QImage before = desk.graph().canvas()->grab().toImage();
    desk.graph().displayMEASToggled(true);
    QCoreApplication::processEvents();
    const QImage with = desk.graph().canvas()->grab().toImage();
    QVERIFY(with != before);
    desk.graph().displayMEASToggled(false);
    QCoreApplication::processEvents();
    QCOMPARE(desk.graph().canvas()->grab().toImage(), before);
}

KELMAR_TEST_MAIN(TestCurveTypeLegend)
#include "tst_curvetypelegend.moc"
