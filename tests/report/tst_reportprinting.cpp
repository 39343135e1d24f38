#include "report/ReportScene.h"

#include "tests/report/OpenReport.h"
#include "tests/report/ReportForm.h"
#include "tests/report/ReportSample.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QGraphicsTextItem>
#include <QGraphicsView>
#include <QImage>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>

#include <memory>

namespace {

/// What a program of the PDF tools prints about a file.
QString output(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(patience) || process.exitCode() != 0)
        QTest::qFail(qPrintable(program + QStringLiteral(" failed: ") + process.errorString()), __FILE__,
                     __LINE__);
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString textOfSheet(const QString &pdf, int sheet)
{
    const QString number = QString::number(sheet);
    return output(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), QStringLiteral("-f"), number,
                                                QStringLiteral("-l"), number, pdf, QStringLiteral("-")});
}

int sheets(const QString &pdf)
{
    const QString text = output(QStringLiteral("pdfinfo"), {pdf});
    return QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)")).match(text).captured(1).toInt();
}

/// A sheet as pixels, at 50 dots per inch.
QImage picture(const QString &pdf, int sheet)
{
    const QString number = QString::number(sheet);
    const QString base = TestHome::instance()->path(QStringLiteral("sheet"));
    output(QStringLiteral("pdftoppm"),
           {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("50"), QStringLiteral("-f"), number,
            QStringLiteral("-l"), number, QStringLiteral("-singlefile"), pdf, base});
    return QImage(base + QStringLiteral(".png"));
}

} // namespace

/// Reports on paper: sheets, mark, and what happens before anything is drawn.
class TestReportPrinting : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_form = std::make_unique<ReportForm>(); }
    void cleanupTestCase() { m_form.reset(); }

    void twoPagesGiveTwoSheetsWithTheMarkOnEach();
    void theMarkStandsTwentyMillimetresInAndFifteenDown();
    void everySheetIsA4AndIsFilledToItsEdges();
    void textStandsOnTheSheetAsText();
    void zoomingDoesNotChangePrinting();
    void theFrameOfAnImageUnderThePointerIsNotPrinted();
    void exportToPdfAsksForTheFileAndRemembersTheFolder();
    void exportToPdfWithoutASuffixWritesAPdfAllTheSame();
    void aCancelledExportWritesNothing();
    void anExportClearsTheFocusSoThatAnEditCommits();
    void printClearsTheFocusSoThatAnEditCommits();
    void printDrawsOnWhatTheUserChose();
    void aPdfThatCannotBeWrittenIsTold();
    void aReportWithoutPagesPrintsAnEmptySheet();

private:
    void load(OpenReport &report) const
    {
        writeFile(reportPath(QStringLiteral("report.kelatr")),
                  ReportForm::document(R"(<page id="page1"><text id="client">Sunny Farm</text></page>
                      <page id="page2"><text id="remarks">None at all</text></page>)"));
        QVERIFY(report.scene.load(reportPath(QStringLiteral("report.kelatr"))));
    }
    /// Starts an edit in a cell of the table.
    void editCell(OpenReport &report, QGraphicsView &view) const;

    std::unique_ptr<ReportForm> m_form;
};

void TestReportPrinting::twoPagesGiveTwoSheetsWithTheMarkOnEach()
{
    OpenReport report;
    load(report);
    const QString pdf = reportPath(QStringLiteral("two.pdf"));
    QVERIFY(report.scene.writePdf(pdf));
    QCOMPARE(sheets(pdf), 2);
    const QString first = textOfSheet(pdf, 1);
    const QString second = textOfSheet(pdf, 2);
    QVERIFY(first.contains(QStringLiteral("Created by Kelmar.")));
    QVERIFY(second.contains(QStringLiteral("Created by Kelmar.")));
    QVERIFY(first.contains(QStringLiteral("Sunny Farm")));
    QVERIFY(!first.contains(QStringLiteral("None at all")));
    QVERIFY(second.contains(QStringLiteral("None at all")));
    QVERIFY(!second.contains(QStringLiteral("Sunny Farm")));
}

void TestReportPrinting::theMarkStandsTwentyMillimetresInAndFifteenDown()
{
    OpenReport report;
    load(report);
    const QString pdf = reportPath(QStringLiteral("mark.pdf"));
    QVERIFY(report.scene.writePdf(pdf));
    const QString boxes =
        output(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")});
    const QRegularExpression word(
        QStringLiteral("xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\" xMax=\"[0-9.]+\" yMax=\"([0-9.]+)\">Created<"));
    QRegularExpressionMatchIterator match = word.globalMatch(boxes);
    int found = 0;
    while (match.hasNext()) {
        const QRegularExpressionMatch place = match.next();
        constexpr double pointsPerMillimetre = 72 / 25.4;
        QVERIFY2(qAbs(place.captured(1).toDouble() - 20 * pointsPerMillimetre) < 1,
                 qPrintable(place.captured(0)));
        const double baseline = 15 * pointsPerMillimetre;
        QVERIFY2(place.captured(2).toDouble() < baseline && place.captured(3).toDouble() > baseline,
                 qPrintable(place.captured(0)));
        ++found;
    }
    QCOMPARE(found, 2);
}

void TestReportPrinting::everySheetIsA4AndIsFilledToItsEdges()
{
    OpenReport report;
    load(report);
    const QString pdf = reportPath(QStringLiteral("a4.pdf"));
    QVERIFY(report.scene.writePdf(pdf));
    const QString info = output(QStringLiteral("pdfinfo"), {QStringLiteral("-l"), QStringLiteral("2"), pdf});
    QCOMPARE(info.count(QStringLiteral("(A4)")), 2);
    // The label stands where it does on the page: 40 of 793 units from the left, 40 of 1123 from the top.
    const QString boxes =
        output(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")});
    const auto place =
        QRegularExpression(QStringLiteral("xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\"[^>]*>CLIENT<")).match(boxes);
    QVERIFY(place.hasMatch());
    QVERIFY2(qAbs(place.captured(1).toDouble() - 40.0 / 793 * 595) < 6, qPrintable(place.captured(1)));
    QVERIFY2(qAbs(place.captured(2).toDouble() - 40.0 / 1123 * 842) < 8, qPrintable(place.captured(2)));
}

void TestReportPrinting::textStandsOnTheSheetAsText()
{
    OpenReport report;
    load(report);
    const QString pdf = reportPath(QStringLiteral("text.pdf"));
    QVERIFY(report.scene.writePdf(pdf));
    const QString first = textOfSheet(pdf, 1);
    for (const char *expected : {"CLIENT", "All done", "Voc (V)", "Template notes"})
        QVERIFY2(first.contains(QLatin1String(expected)), expected);
}

void TestReportPrinting::zoomingDoesNotChangePrinting()
{
    OpenReport report;
    load(report);
    QGraphicsView view(&report.scene);
    view.show();
    const QString plain = reportPath(QStringLiteral("plain.pdf"));
    QVERIFY(report.scene.writePdf(plain));
    view.setTransform(QTransform::fromScale(6, 6));
    view.centerOn(500, 500);
    QCoreApplication::processEvents();
    const QString zoomed = reportPath(QStringLiteral("zoomed.pdf"));
    QVERIFY(report.scene.writePdf(zoomed));
    const QImage expected = picture(plain, 1);
    QVERIFY(!expected.isNull());
    QCOMPARE(picture(zoomed, 1), expected);
}

void TestReportPrinting::theFrameOfAnImageUnderThePointerIsNotPrinted()
{
    const QByteArray image =
        R"(<page id="page1"><image index="1" x="300" y="500" width="200" height="100" scale="50" resizable="1"/></page>)";
    writeFile(reportPath(QStringLiteral("image.kelatr")),
              ReportSample::pack(ReportForm::xml(image), {{QStringLiteral("png"), ReportSample::png(4, 2)}}));
    OpenReport report;
    QVERIFY(report.scene.load(reportPath(QStringLiteral("image.kelatr"))));
    QGraphicsView view(&report.scene);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view, patience));
    view.centerOn(400, 550);
    QTest::mouseMove(view.viewport(), QPoint(1, 1));
    const QString plain = reportPath(QStringLiteral("plain.pdf"));
    QVERIFY(report.scene.writePdf(plain));
    const QImage unframed = view.grab().toImage();
    QTest::mouseMove(view.viewport(), view.mapFromScene(400, 550));
    // The pointer brings up the frame on the screen.
    QTRY_VERIFY(view.grab().toImage() != unframed);
    const QString hovered = reportPath(QStringLiteral("hovered.pdf"));
    QVERIFY(report.scene.writePdf(hovered));
    QCOMPARE(picture(hovered, 1), picture(plain, 1));
}

void TestReportPrinting::exportToPdfAsksForTheFileAndRemembersTheFolder()
{
    OpenReport report;
    load(report);
    QDir().mkpath(reportPath(QStringLiteral("before")));
    QDir().mkpath(reportPath(QStringLiteral("after")));
    const QString key = QStringLiteral("Directories/LastPdfExportDir");
    QSettings().setValue(key, reportPath(QStringLiteral("before")));
    const QString pdf = reportPath(QStringLiteral("after/out.pdf"));
    BoxWatcher watcher;
    watcher.expectFileDialog(pdf);
    report.scene.exportToPdf();
    QCOMPARE(watcher.fileDialogs().size(), 1);
    const QStringList seen = watcher.fileDialogs().first();
    QCOMPARE(seen.at(0), QStringLiteral("Export PDF"));
    QCOMPARE(seen.at(1), reportPath(QStringLiteral("before")));
    QCOMPARE(seen.at(2), QStringLiteral("PDF Files (*.pdf)"));
    QCOMPARE(QSettings().value(key).toString(), reportPath(QStringLiteral("after")));
    QCOMPARE(sheets(pdf), 2);
}

void TestReportPrinting::exportToPdfWithoutASuffixWritesAPdfAllTheSame()
{
    OpenReport report;
    load(report);
    const QString pdf = reportPath(QStringLiteral("no suffix"));
    QVERIFY(report.scene.writePdf(pdf));
    QVERIFY(readFile(pdf).startsWith("%PDF-"));
}

void TestReportPrinting::aCancelledExportWritesNothing()
{
    OpenReport report;
    load(report);
    QSettings().setValue(QStringLiteral("Directories/LastPdfExportDir"),
                         reportPath(QStringLiteral("before")));
    BoxWatcher watcher;
    watcher.expectFileDialog(QString());
    report.scene.exportToPdf();
    QCOMPARE(QSettings().value(QStringLiteral("Directories/LastPdfExportDir")).toString(),
             reportPath(QStringLiteral("before")));
}

void TestReportPrinting::editCell(OpenReport &report, QGraphicsView &view) const
{
    view.show();
    QApplication::setActiveWindow(&view);
    QVERIFY(QTest::qWaitForWindowActive(&view, patience));
    view.centerOn(200, 250);
    const QPoint cell = view.mapFromScene(QPointF(40 + 100 + 150, 200 + 50));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, cell);
    QTest::keyClicks(&view, QStringLiteral("812"));
    QVERIFY(report.scene.focusItem());
    QCOMPARE(cellText(report.scene, "grid", 2, 2), QStringLiteral("812"));
}

void TestReportPrinting::anExportClearsTheFocusSoThatAnEditCommits()
{
    OpenReport report;
    load(report);
    QGraphicsView view(&report.scene);
    editCell(report, view);
    BoxWatcher watcher;
    watcher.expectFileDialog(QString());
    report.scene.exportToPdf();
    QVERIFY(!report.scene.focusItem());
    QCOMPARE(report.stack.count(), 1);
    for (const QGraphicsItem *item : report.scene.items()) {
        const auto *editor = dynamic_cast<const QGraphicsTextItem *>(item);
        QVERIFY(!editor || !editor->hasFocus());
    }
}

void TestReportPrinting::printClearsTheFocusSoThatAnEditCommits()
{
    OpenReport report;
    load(report);
    QGraphicsView view(&report.scene);
    editCell(report, view);
    BoxWatcher watcher;
    bool hadFocus = true;
    watcher.expectDialog("QPrintDialog", [&](QWidget *dialog) {
        hadFocus = report.scene.focusItem();
        static_cast<QDialog *>(dialog)->reject();
    });
    report.scene.print();
    QVERIFY(!hadFocus);
    QCOMPARE(report.stack.count(), 1);
}

void TestReportPrinting::printDrawsOnWhatTheUserChose()
{
    OpenReport report;
    load(report);
    const QString pdf = reportPath(QStringLiteral("printed.pdf"));
    BoxWatcher watcher;
    QPageSize::PageSizeId size = QPageSize::Custom;
    bool isFullPage = false;
    int resolution = 0;
    watcher.expectDialog("QPrintDialog", [&](QWidget *widget) {
        auto *dialog = static_cast<QPrintDialog *>(widget);
        QPrinter *printer = dialog->printer();
        size = printer->pageLayout().pageSize().id();
        isFullPage = printer->fullPage();
        resolution = printer->resolution();
        dialog->findChild<QLineEdit *>(QStringLiteral("filename"))->setText(pdf);
        dialog->accept();
    });
    report.scene.print();
    QCOMPARE(size, QPageSize::A4);
    QVERIFY(isFullPage);
    QCOMPARE(resolution, 1200);
    QCOMPARE(sheets(pdf), 2);
}

void TestReportPrinting::aPdfThatCannotBeWrittenIsTold()
{
    OpenReport report;
    load(report);
    BoxWatcher watcher;
    watcher.expect(QStringLiteral("for writing"), QMessageBox::Ok);
    const QString pdf = reportPath(QStringLiteral("no such folder/%1.pdf"));
    QVERIFY(!report.scene.writePdf(pdf));
    QCOMPARE(watcher.texts(),
             QStringList(QStringLiteral("Error opening ") + pdf + QStringLiteral(" for writing")));
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Warning);
}

void TestReportPrinting::aReportWithoutPagesPrintsAnEmptySheet()
{
    OpenReport report;
    const QString pdf = reportPath(QStringLiteral("empty.pdf"));
    QVERIFY(report.scene.writePdf(pdf));
    QCOMPARE(sheets(pdf), 1);
}

KELMAR_TEST_MAIN(TestReportPrinting)
#include "tst_reportprinting.moc"
