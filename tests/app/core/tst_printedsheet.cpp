#include "app/core/PrintedSheet.h"
#include "tests/support/TestMain.h"

#include <QPainter>
#include <QPrinter>

class TestPrintedSheet : public QObject
{
    Q_OBJECT

private slots:
    void sheetIsA4ToItsEdges();
    void millimetresBecomeWholeDeviceUnits();
    void markStandsTwentyMillimetresFromTheLeftAndFifteenFromTheTop();
};

namespace {

void setUp(QPrinter &printer)
{
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(TestHome::instance()->path("sheet.pdf"));
    PrintedSheet::setUpA4(printer);
}

/// The smallest rectangle with everything that is not white.
QRect ink(const QImage &image)
{
    QRect all;
    for (int y = 0; y < image.height(); ++y) {
        const uchar *line = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            if (line[x] < 128)
                all |= QRect(x, y, 1, 1);
        }
    }
    return all;
}

} // namespace

void TestPrintedSheet::sheetIsA4ToItsEdges()
{
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer);
    QCOMPARE(printer.pageLayout().pageSize().id(), QPageSize::A4);
    QVERIFY(printer.fullPage());
    QCOMPARE(printer.pageLayout().margins(), QMarginsF());
    QCOMPARE(printer.widthMM(), 210);
    QCOMPARE(printer.heightMM(), 297);
}

void TestPrintedSheet::millimetresBecomeWholeDeviceUnits()
{
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer);
    QCOMPARE(printer.resolution(), 1200);
    // 20 mm are 944.88 units of 1/1200 inch, 15 mm 708.66: cut, not rounded.
    QCOMPARE(PrintedSheet::millimetres(printer, 20, 15), QPoint(944, 708));
    QCOMPARE(PrintedSheet::millimetres(printer, 0, 0), QPoint(0, 0));
}

void TestPrintedSheet::markStandsTwentyMillimetresFromTheLeftAndFifteenFromTheTop()
{
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer);
    QImage sheet(5000, 1200, QImage::Format_Grayscale8);
    sheet.setDotsPerMeterX(qRound(1200 / 0.0254));
    sheet.setDotsPerMeterY(qRound(1200 / 0.0254));
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    PrintedSheet::drawMark(painter, printer);
    QCOMPARE(painter.font().family(), QString("Arial"));
    QCOMPARE(painter.font().pointSize(), 10);
    QCOMPARE(painter.font().weight(), int(QFont::Normal));
    QCOMPARE(painter.pen().color(), QColor(Qt::black));
    const int width = painter.fontMetrics().horizontalAdvance("Created by Kelmar.");
    painter.end();

    const QRect mark = ink(sheet);
    QVERIFY2(mark.left() >= 944 && mark.left() < 944 + 40, qPrintable(QString::number(mark.left())));
    // The point given is that of the base line: only the tail of the y lies below.
    QVERIFY2(mark.top() < 708 - 100 && mark.bottom() > 708 && mark.bottom() < 708 + 60,
             qPrintable(QString("%1 to %2").arg(mark.top()).arg(mark.bottom())));
    QVERIFY(qAbs(mark.width() - width) < 60);
}

KELMAR_TEST_MAIN(TestPrintedSheet)
#include "tst_printedsheet.moc"
