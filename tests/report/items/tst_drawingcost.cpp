#include "report/items/DrawingCost.h"

#include "res/Resources.h"
#include "tests/support/TestMain.h"

#include <QSvgRenderer>

namespace {

constexpr QSize page(793, 1123);

QByteArray svg(const QByteArray &content)
{
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"1000\" height=\"1000\">" + content + "</svg>";
}

/// A place of the drawing, scattered but the same at each run.
QByteArray place(int number)
{
    return QByteArray::number(number * 7919 % 1000) + ' ' + QByteArray::number(number * 10473 % 1000);
}

/// The walls and tiles of a plan: many short lines.
QByteArray plan(int lines)
{
    QByteArray content = "<g stroke=\"black\" fill=\"none\">";
    for (int i = 0; i < lines; ++i)
        content += "<path d=\"M" + place(i) + " l7 3 l-2 6\"/>";
    return content + "</g>";
}

/// The border of a field on a map: one line of many short pieces.
QByteArray border(int pieces)
{
    QByteArray path = "M500 500";
    for (int i = 0; i < pieces; ++i)
        path += " l" + QByteArray::number(i % 5 - 2) + ' ' + QByteArray::number(i % 7 - 3);
    return "<path fill=\"#ccddee\" stroke=\"black\" d=\"" + path + "\"/>";
}

QByteArray zigzag(int corners, const QByteArray &style)
{
    QByteArray path = "M0 0";
    for (int i = 0; i < corners; ++i)
        path += " L" + place(i);
    return "<path " + style + " d=\"" + path + "\"/>";
}

bool isQuick(const QByteArray &drawing, const QSize &area = page)
{
    QSvgRenderer renderer(drawing);
    return isDrawnQuickly(renderer, area);
}

} // namespace

class tst_DrawingCost : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }
    void drawingsOfOurOwnAreQuick();
    void plansAndMapsAreQuick();
    void nothingIsQuick();
    void sheetsOfPaintAreCounted();
    void paintOutOfSightCostsNothing();
    void longLinesAreCountedFilledOrNot();
    void dashesAreCounted();
    void theAreaCounts();
    void whatIsNoNumberDoesNoHarm();
};

void tst_DrawingCost::drawingsOfOurOwnAreQuick()
{
    for (const char *path : {":res/reports_en/images/logo.svg", ":res/reports_de/backgrounds/Checklist.svg",
                             ":res/reports_en/backgrounds/Verification Certificate.svg"}) {
        QSvgRenderer renderer(QString::fromLatin1(path));
        QVERIFY(renderer.isValid());
        QVERIFY2(isDrawnQuickly(renderer, page), path);
    }
}

void tst_DrawingCost::plansAndMapsAreQuick()
{
    QVERIFY(isQuick(svg(plan(20000))));
    QVERIFY(isQuick(svg(border(20000))));
    QVERIFY(isQuick(
        svg(QByteArray("<text y=\"20\" font-size=\"12\">A legend of the plan</text>").repeated(1000))));
}

void tst_DrawingCost::nothingIsQuick()
{
    QVERIFY(isQuick(QByteArray()));
    QVERIFY(isQuick(svg(QByteArray())));
}

void tst_DrawingCost::sheetsOfPaintAreCounted()
{
    const QByteArray sheet = "<rect width=\"1000\" height=\"1000\"/>";
    QVERIFY(isQuick(svg(sheet.repeated(50))));
    QVERIFY(!isQuick(svg(sheet.repeated(5000))));
}

void tst_DrawingCost::paintOutOfSightCostsNothing()
{
    QVERIFY(isQuick(svg(QByteArray("<rect x=\"2000\" width=\"10\" height=\"10\"/>").repeated(20000))));
    QVERIFY(isQuick(svg(QByteArray("<rect width=\"1000\" height=\"1000\" fill=\"none\"/>").repeated(20000))));
}

void tst_DrawingCost::longLinesAreCountedFilledOrNot()
{
    QVERIFY(isQuick(svg(zigzag(100, "fill=\"red\""))));
    QVERIFY(!isQuick(svg(zigzag(5000, "fill=\"red\""))));
    QVERIFY(isQuick(svg(zigzag(100, "fill=\"none\" stroke=\"red\""))));
    QVERIFY(!isQuick(svg(zigzag(5000, "fill=\"none\" stroke=\"red\""))));
}

void tst_DrawingCost::dashesAreCounted()
{
    const QByteArray lines = QByteArray("<path d=\"M0 0 L900 900\"/>").repeated(1000);
    QVERIFY(isQuick(svg("<g fill=\"none\" stroke=\"red\" stroke-dasharray=\"9\">" +
                        lines.left(lines.size() / 10) + "</g>")));
    QVERIFY(!isQuick(svg("<g stroke=\"red\" stroke-dasharray=\"0.2\">" + lines + "</g>")));
}

void tst_DrawingCost::theAreaCounts()
{
    const QByteArray drawing = svg(QByteArray("<rect width=\"1000\" height=\"1000\"/>").repeated(50));
    QVERIFY(isQuick(drawing, page));
    QVERIFY(!isQuick(drawing, page * 10));
}

void tst_DrawingCost::whatIsNoNumberDoesNoHarm()
{
    QVERIFY(
        isQuick(svg("<path stroke=\"red\" d=\"M-1e300 1e300 L1e300 nan L0 0\"/><g transform=\"scale(1e300)\">"
                    "<rect width=\"1e300\" height=\"1\"/></g>")));
}

KELMAR_TEST_MAIN(tst_DrawingCost)
#include "tst_drawingcost.moc"
