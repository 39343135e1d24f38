#include "curve/ui/CurveZoomer.h"
#include "curve/ui/GraphExport.h"
#include "tests/curve/ui/GraphDesk.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <qwt_plot_canvas.h>
#include <qwt_plot_renderer.h>

using namespace IVCurve;

namespace {

QString path(const QString &name)
{
    return TestHome::instance()->path("out/" + name);
}

QString output(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(patience) || process.exitCode() != 0)
        return program + " failed";
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// A line of what is told of a PDF file.
QString info(const QString &pdf, const QString &key)
{
    const QStringList lines = output("pdfinfo", {pdf}).split('\n');
    for (const QString &line : lines) {
        if (line.startsWith(key + ':'))
            return line.mid(key.size() + 1).simplified();
    }
    return QString();
}

QImage pictureOf(const QString &pdf)
{
    const QString base = path("page");
    output("pdftoppm", {"-png", "-r", "72", "-singlefile", pdf, base});
    return QImage(base + ".png");
}

/// How many dots of a picture have about this colour.
int count(const QImage &image, const QColor &colour)
{
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor here = image.pixelColor(x, y);
            found += qAbs(here.red() - colour.red()) < 30 && qAbs(here.green() - colour.green()) < 30 &&
                     qAbs(here.blue() - colour.blue()) < 30;
        }
    }
    return found;
}

void locales()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

} // namespace

class TestGraphExport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init();

    void pdfIsOnePageOfA4Landscape_data() { locales(); }
    void pdfIsOnePageOfA4Landscape();
    void pdfDialogStartsInTheLastFolderAndRemembersIt();
    void imageIsA4LandscapeAtThreeHundredDots_data();
    void imageIsA4LandscapeAtThreeHundredDots();
    void imageDialogStartsNowhereAndRemembersNothing();
    void formatFollowsTheSuffix();
    void cancelledExportWritesNothing();
    void fileThatCannotBeWrittenIsTold_data();
    void fileThatCannotBeWrittenIsTold();
    void exportShowsWhatTheScreenShows();
    void exportOfLinesThatHaveJustGoneIsComplete();
    void printingIsOnA4LandscapeWithNarrowMargins();
    void printerWithoutColoursGetsNoBackground();
    void keyOfStylesKeepsItsProportionsOnPaper();
};

void TestGraphExport::init()
{
    TestHome::instance()->reset();
    QDir(path("")).removeRecursively();
    QVERIFY(QDir().mkpath(path("")));
}

void TestGraphExport::pdfIsOnePageOfA4Landscape()
{
    QFETCH(QString, locale);
    const LocaleSwitch language(locale);
    GraphDesk desk;
    const quint32 id = desk.add("Roof <south> & west", plainCurve());
    desk.select({id});
    desk.record(id);
    QVERIFY(GraphExport::writeFile(desk.graph(), path("graph.pdf")));
    QCOMPARE(info(path("graph.pdf"), "Pages"), QString("1"));
    QCOMPARE(info(path("graph.pdf"), "Page size"), QString("842 x 595 pts (A4)"));
    QCOMPARE(info(path("graph.pdf"), "Page rot"), QString("0"));
    const QString text = output("pdftotext", {path("graph.pdf"), "-"});
    for (const char *part : {"Voltage (V)", "Current (A)", "Roof <south> & west", "STC"})
        QVERIFY2(text.contains(part), qPrintable(text));
    QVERIFY(text.contains("Roof <south> & west (" + QLocale().toString(1000) + ")"));
    QVERIFY(count(pictureOf(path("graph.pdf")), desk.graph().line(TraceKind::stc, id)->colour()) > 500);
}

void TestGraphExport::pdfDialogStartsInTheLastFolderAndRemembersIt()
{
    GraphDesk desk;
    desk.select({desk.add("Roof", plainCurve())});
    const QString before = path("before");
    QVERIFY(QDir().mkpath(before));
    QSettings().setValue("Directories/LastPdfExportDir", before);
    BoxWatcher watcher;
    watcher.expectFileDialog(path("graph.pdf"));
    desk.graph().exportpdf();
    QCOMPARE(watcher.fileDialogs().first(), (QStringList{"Export PDF", before, "PDF Files (*.pdf)"}));
    QCOMPARE(QSettings().value("Directories/LastPdfExportDir").toString(),
             QFileInfo(path("x")).absolutePath());
    QCOMPARE(info(path("graph.pdf"), "Pages"), QString("1"));
}

void TestGraphExport::imageIsA4LandscapeAtThreeHundredDots_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("png, English") << "en"
                                  << "png";
    QTest::newRow("png, German") << "de"
                                 << "png";
    QTest::newRow("jpeg") << "en"
                          << "jpeg";
    QTest::newRow("bmp") << "en"
                         << "bmp";
    QTest::newRow("capital letters") << "en"
                                     << "PNG";
}

void TestGraphExport::imageIsA4LandscapeAtThreeHundredDots()
{
    QFETCH(QString, locale);
    QFETCH(QString, suffix);
    const LocaleSwitch language(locale);
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    BoxWatcher watcher;
    watcher.expectFileDialog(path("graph." + suffix));
    desk.graph().exportimg();
    QCOMPARE(QImageReader::imageFormat(path("graph." + suffix)), suffix.toLower().toLatin1());
    const QImage image(path("graph." + suffix));
    // 297 and 210 mm.
    QVERIFY(qAbs(image.width() - 3508) <= 1 && qAbs(image.height() - 2480) <= 1);
    QVERIFY(qAbs(image.dotsPerMeterX() - 11811) <= 1);
    QVERIFY(count(image, desk.graph().line(TraceKind::stc, id)->colour()) > 5000);
    QCOMPARE(image.pixelColor(image.width() / 2, image.height() / 2), QColor(Qt::white));
}

void TestGraphExport::imageDialogStartsNowhereAndRemembersNothing()
{
    GraphDesk desk;
    const QString ofThePdfs = path("pdfs");
    QVERIFY(QDir().mkpath(ofThePdfs));
    QSettings().setValue("Directories/LastPdfExportDir", ofThePdfs);
    BoxWatcher watcher;
    watcher.expectFileDialog(path("graph.png"));
    desk.graph().exportimg();
    QCOMPARE(watcher.fileDialogs().first().at(0), QString("Save Image"));
    QVERIFY(watcher.fileDialogs().first().at(1) != ofThePdfs);
    QCOMPARE(watcher.fileDialogs().first().at(2), QString("Images (*.bmp *.jpeg *.png)"));
    QCOMPARE(QSettings().allKeys().filter("Export"), QStringList("Directories/LastPdfExportDir"));
    QCOMPARE(QSettings().value("Directories/LastPdfExportDir").toString(), ofThePdfs);
    QVERIFY(QFileInfo(path("graph.png")).size() > 0);
}

void TestGraphExport::formatFollowsTheSuffix()
{
    QVERIFY(GraphExport::canWrite("a.pdf"));
    QVERIFY(GraphExport::canWrite("a.b.PNG"));
    QVERIFY(GraphExport::canWrite("a.bmp"));
    QVERIFY(GraphExport::canWrite("a.jpeg"));
    QVERIFY(!GraphExport::canWrite("a"));
    QVERIFY(!GraphExport::canWrite("a.kelcrv"));
    QVERIFY(!GraphExport::canWrite("a.png.txt"));
    // From the commands of the window a file without a known format is not written, and harms nothing.
    GraphDesk desk;
    writeFile(path("notes.txt"), "mine");
    GraphExport::writeFile(desk.graph(), path("notes.txt"));
    QCOMPARE(readFile(path("notes.txt")), QByteArray("mine"));
    GraphExport::writeFile(desk.graph(), path("graph"));
    QVERIFY(!QFileInfo::exists(path("graph")));
}

void TestGraphExport::cancelledExportWritesNothing()
{
    GraphDesk desk;
    BoxWatcher watcher;
    watcher.expectFileDialog(QString());
    watcher.expectFileDialog(QString());
    desk.graph().exportpdf();
    desk.graph().exportimg();
    QCOMPARE(QDir(path("")).entryList(QDir::Files), QStringList());
    QVERIFY(!QSettings().contains("Directories/LastPdfExportDir"));
}

void TestGraphExport::fileThatCannotBeWrittenIsTold_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("pdf in no folder") << "no such folder/graph.pdf";
    QTest::newRow("image in no folder") << "no such folder/graph.png";
    QTest::newRow("a folder of that name") << "folder.pdf";
}

void TestGraphExport::fileThatCannotBeWrittenIsTold()
{
    QFETCH(QString, name);
    QVERIFY(QDir().mkpath(path("folder.pdf")));
    GraphDesk desk;
    BoxWatcher watcher;
    watcher.expect("Error opening " + path(name) + " for writing", QMessageBox::Ok);
    QVERIFY(!GraphExport::writeFile(desk.graph(), path(name)));
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Warning);
    QVERIFY(!QFileInfo(path(name)).isFile());
}

void TestGraphExport::exportShowsWhatTheScreenShows()
{
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    const QColor colour = desk.graph().line(TraceKind::stc, id)->colour();
    desk.show();
    // A corner of the plane in which no line lies.
    desk.graph().zoomer()->zoom(QRectF(1, 1, 5, 2));
    QVERIFY(GraphExport::writeFile(desk.graph(), path("zoomed.png")));
    const int zoomed = count(QImage(path("zoomed.png")), colour);
    desk.graph().zoomer()->zoom(0);
    QVERIFY(GraphExport::writeFile(desk.graph(), path("whole.png")));
    const int whole = count(QImage(path("whole.png")), colour);
    // What is left is the legend's mark.
    QVERIFY2(zoomed < 3000 && whole > zoomed + 5000, qPrintable(QString("%1 %2").arg(zoomed).arg(whole)));
    desk.graph().displaySTCToggled(false);
    QVERIFY(GraphExport::writeFile(desk.graph(), path("none.png")));
    QCOMPARE(count(QImage(path("none.png")), colour), 0);
}

void TestGraphExport::exportOfLinesThatHaveJustGoneIsComplete()
{
    GraphDesk desk;
    const quint32 low = desk.add("Low", plainCurve());
    const quint32 high = desk.add("High", {{100, 9}, {600, 1}});
    desk.select({low, high});
    QCOMPARE(desk.upperEnd(QwtPlot::xBottom), 600.0 * 1.1);
    desk.graph().slotRemoveCurves(high);
    BoxWatcher watcher;
    watcher.expectFileDialog(path("graph.pdf"));
    desk.graph().exportpdf();
    QCOMPARE(desk.upperEnd(QwtPlot::xBottom), 40.0 * 1.1);
    const QStringList words = output("pdftotext", {path("graph.pdf"), "-"}).simplified().split(' ');
    for (const char *number : {"10", "20", "30", "40"})
        QVERIFY2(words.contains(number), qPrintable(words.join(' ')));
}

void TestGraphExport::printingIsOnA4LandscapeWithNarrowMargins()
{
    GraphDesk desk;
    const quint32 id = desk.add("Roof", plainCurve());
    desk.select({id});
    BoxWatcher watcher;
    watcher.expectDialog("QPrintDialog", [](QWidget *widget) {
        auto *dialog = qobject_cast<QPrintDialog *>(widget);
        const QPageLayout layout = dialog->printer()->pageLayout();
        QCOMPARE(layout.orientation(), QPageLayout::Landscape);
        QCOMPARE(layout.pageSize().id(), QPageSize::A4);
        const QMarginsF margins = layout.margins(QPageLayout::Millimeter);
        for (const qreal margin : {margins.left(), margins.top(), margins.right(), margins.bottom()})
            QVERIFY(qAbs(margin - 5) < 0.1);
        dialog->printer()->setOutputFormat(QPrinter::PdfFormat);
        dialog->printer()->setOutputFileName(path("printed.pdf"));
        dialog->done(QDialog::Accepted);
    });
    desk.graph().print();
    QCOMPARE(info(path("printed.pdf"), "Pages"), QString("1"));
    QCOMPARE(info(path("printed.pdf"), "Page size"), QString("842 x 595 pts (A4)"));
    QVERIFY(count(pictureOf(path("printed.pdf")), desk.graph().line(TraceKind::stc, id)->colour()) > 500);
    watcher.expectDialog("QPrintDialog", [](QWidget *dialog) { dialog->close(); });
    QVERIFY(QFile::remove(path("printed.pdf")));
    desk.graph().print();
    QVERIFY(!QFileInfo::exists(path("printed.pdf")));
}

void TestGraphExport::printerWithoutColoursGetsNoBackground()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setColorMode(QPrinter::Color);
    QwtPlotRenderer coloured;
    GraphExport::adapt(coloured, printer);
    QCOMPARE(coloured.discardFlags(), QwtPlotRenderer::DiscardFlags());
    QVERIFY(!coloured.testLayoutFlag(QwtPlotRenderer::FrameWithScales));
    printer.setColorMode(QPrinter::GrayScale);
    QwtPlotRenderer gray;
    GraphExport::adapt(gray, printer);
    QCOMPARE(gray.discardFlags(), QwtPlotRenderer::DiscardBackground |
                                      QwtPlotRenderer::DiscardCanvasBackground |
                                      QwtPlotRenderer::DiscardCanvasFrame);
    QVERIFY(gray.testLayoutFlag(QwtPlotRenderer::FrameWithScales));
}

void TestGraphExport::keyOfStylesKeepsItsProportionsOnPaper()
{
    GraphDesk desk;
    desk.graph().displayMEASToggled(true);
    desk.graph().displayNOMToggled(true);
    QVERIFY(GraphExport::writeFile(desk.graph(), path("key.png")));
    const QImage image(path("key.png"));
    // The gray box, and the white letters in it; white on the page would be letters outside.
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == QColor(Qt::gray))
                box |= QRect(x, y, 1, 1);
        }
    }
    // In the middle of the canvas, which the axis keeps off the page's left edge.
    QVERIFY2(box.center().x() > image.width() / 2, qPrintable(QString::number(box.center().x())));
    const double proportion = double(box.width()) / box.height();
    QVERIFY2(qAbs(proportion - 80.0 / 50.0) < 0.05, qPrintable(QString::number(proportion)));
    const QRect letters(box.left() + box.width() * 45 / 80, box.top(), box.width() * 34 / 80, box.height());
    const double white = double(count(image.copy(letters), Qt::white)) / (letters.width() * letters.height());
    QVERIFY2(white > 0.05 && white < 0.3, qPrintable(QString::number(white)));
}

KELMAR_TEST_MAIN(TestGraphExport)
#include "tst_graphexport.moc"
