#include "diagram/InstallationDiagramDocument.h"

#include "app/core/Shell.h"
#include "app/document/ZoomableGraphicsView.h"
#include "diagram/DiagramComponent.h"
#include "diagram/DiagramGraphicsScene.h"
#include "res/Resources.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QAction>
#include <QActionGroup>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QToolBar>

namespace {

const char items[] =
    "<installation_diagram><inverter id='id1' x='300' y='200'/>"
    "<label id='id2'><label x='40' y='30' width='-1' height='-1' text='Mind the gap'/></label>"
    "</installation_diagram>";

class WindowShell : public Shell
{
public:
    WindowShell()
    {
        save = m_window.menuBar()->addMenu(QStringLiteral("File"))->addAction(QStringLiteral("Save"));
        save->setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));
    }
    QWidget *window() override { return &m_window; }
    void import() override {}
    void download() override {}
    void show(QWidget *document)
    {
        m_window.setCentralWidget(document);
        m_window.show();
        QApplication::setActiveWindow(&m_window);
        QVERIFY(QTest::qWaitForWindowActive(&m_window, patience));
    }

    QAction *save = nullptr;

private:
    QMainWindow m_window;
};

QAction *action(const QObject &document, const char *name)
{
    auto *found = document.findChild<QAction *>(QLatin1String(name));
    if (!found)
        QTest::qFail(name, __FILE__, __LINE__);
    return found;
}

QList<QAction *> toolBarActions(const QObject &document)
{
    return document.findChild<QToolBar *>()->actions();
}

QString output(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(patience) || process.exitCode() != 0)
        QTest::qFail(qPrintable(program + QStringLiteral(" failed: ") + process.errorString()), __FILE__,
                     __LINE__);
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString textOf(const QString &pdf)
{
    return output(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")});
}

/// The sheet at 100 dots per inch.
QImage pictureOf(const QString &pdf)
{
    const QString base = TestHome::instance()->path(QStringLiteral("sheet"));
    output(QStringLiteral("pdftoppm"), {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("100"),
                                        QStringLiteral("-singlefile"), pdf, base});
    return QImage(base + QStringLiteral(".png"));
}

QByteArray described(const QRect &rect)
{
    return QStringLiteral("%1, %2, %3 by %4")
        .arg(rect.x())
        .arg(rect.y())
        .arg(rect.width())
        .arg(rect.height())
        .toUtf8();
}

QRect inked(const QImage &image)
{
    QRect all;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 200)
                all |= QRect(x, y, 1, 1);
        }
    }
    return all;
}

} // namespace

/// The window of a diagram: its tool bar, its saved state, and the diagram on paper.
class TestDiagramDocument : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }
    void init() { writeFile(path(), items); }

    void theToolBarHoldsItsActionsInOrder();
    void aFreshlyOpenedDiagramIsNotModified();
    void aFileThatCannotBeReadGivesADocumentThatIsNotValid();
    void theViewShowsTheItemsWithRoomAround();
    void theViewGrowsWithTheScene();
    void theSheetIsWhiteOnADesktopOfDarkColours();
    void theWireButtonAndTheModeOfTheSceneGoTogether();
    void theCableButtonsSayWhatNewWiresAre();
    void aChangeEnablesSave();
    void savingClearsTheMarkAndLeavesTheButton();
    void aFailedSaveIsToldAndTheDocumentSaysItIsSaved();
    void closingAsksOnlyWhereChangesWouldBeLost();
    void controlSSavesOnceWithAndWithoutAMainWindow();

    void aDiagramGivesOneLandscapeSheetWithTheMark();
    void theDrawingFillsTheSheetWithinItsBorder();
    void printingAnEmptyDiagramGivesASheetWithTheMarkOnly();
    void exportToPdfLeavesWireModeAndAsksForTheFile();
    void printDrawsOnWhatTheUserChose();
    void aPdfThatCannotBeWrittenIsTold();

private:
    static QString path() { return TestHome::instance()->path(QStringLiteral("house.kelid")); }
    static QString path(const char *name) { return TestHome::instance()->path(QLatin1String(name)); }
};

void TestDiagramDocument::theToolBarHoldsItsActionsInOrder()
{
    const InstallationDiagramDocument document(path());
    QStringList seen;
    for (const QAction *entry : toolBarActions(document)) {
        if (!entry->isSeparator())
            QVERIFY2(!entry->icon().pixmap(16).isNull(), qPrintable(entry->toolTip()));
        seen.append(entry->isSeparator()
                        ? QStringLiteral("-")
                        : QStringList{entry->objectName(), entry->toolTip(), entry->shortcut().toString(),
                                      entry->isCheckable() ? "checkable" : "",
                                      entry->isEnabled() ? "on" : "off", entry->isChecked() ? "checked" : ""}
                              .join('|'));
    }
    QCOMPARE(seen,
             (QStringList{
                 "actionZoomIn|Zoom In|Ctrl++||on|",
                 "actionZoomOut|Zoom Out|" + toolBarActions(document).at(1)->shortcut().toString() + "||on|",
                 "-", "actionSave|Save|Ctrl+S||off|", "-", "actionPrint|Print|Ctrl+P||on|",
                 "actionExportToPdf|Export to PDF|Ctrl+Shift+E||on|", "-", "actionWire|Wire||checkable|on|",
                 "-", "action1Core|Single wire||checkable|off|checked",
                 "action2Core|DC cable||checkable|off|", "action2Core|AC cable||checkable|off|"}));
}

void TestDiagramDocument::aFreshlyOpenedDiagramIsNotModified()
{
    const InstallationDiagramDocument document(path());
    QVERIFY(document.isValid());
    QVERIFY(!document.isModified());
    QCOMPARE(document.windowTitle(), QString("house.kelid"));
}

void TestDiagramDocument::aFileThatCannotBeReadGivesADocumentThatIsNotValid()
{
    writeFile(path(), "no diagram");
    BoxWatcher watcher;
    watcher.expect("XML validation error in " + path() + " on line 1", QMessageBox::Ok);
    const InstallationDiagramDocument document(path());
    QVERIFY(!document.isValid());
}

void TestDiagramDocument::theViewShowsTheItemsWithRoomAround()
{
    InstallationDiagramDocument document(path());
    const QRectF drawn = document.scene()->itemsBoundingRect();
    QCOMPARE(drawn.topLeft(), QPointF(40, 30));
    QCOMPARE(drawn.bottomRight(), QPointF(450, 300));
    QCOMPARE(document.view()->sceneRect(), drawn.adjusted(-500, -500, 500, 500));
}

void TestDiagramDocument::theViewGrowsWithTheScene()
{
    InstallationDiagramDocument document(path());
    document.scene()->items().first()->setPos(3000, 100);
    const QRectF grown = document.scene()->sceneRect();
    QCoreApplication::processEvents();
    QVERIFY(grown.right() > 3000);
    QCOMPARE(document.view()->sceneRect(), grown.adjusted(-200, -200, 200, 200));
}

void TestDiagramDocument::theSheetIsWhiteOnADesktopOfDarkColours()
{
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(Qt::black));
    InstallationDiagramDocument document(path());
    document.resize(400, 300);
    document.show();
    QVERIFY(QTest::qWaitForWindowExposed(&document, patience));
    const QImage seen = document.view()->viewport()->grab().toImage();
    QCOMPARE(seen.pixelColor(5, 5), QColor(Qt::white));
    QApplication::setPalette(before);
}

void TestDiagramDocument::theWireButtonAndTheModeOfTheSceneGoTogether()
{
    const InstallationDiagramDocument document(path());
    QAction *wire = action(document, "actionWire");
    const QAction *cable = action(document, "action1Core");
    QVERIFY(!wire->isChecked() && !cable->isEnabled());
    wire->trigger();
    QCOMPARE(document.scene()->mode(), int(DiagramGraphicsScene::WireMode));
    QVERIFY(cable->isEnabled());
    document.scene()->setMode(DiagramGraphicsScene::EditMode);
    QVERIFY(!wire->isChecked() && !cable->isEnabled());
    document.scene()->setMode(DiagramGraphicsScene::WireMode);
    QVERIFY(wire->isChecked() && cable->isEnabled());
    wire->trigger();
    QCOMPARE(document.scene()->mode(), int(DiagramGraphicsScene::EditMode));
}

void TestDiagramDocument::theCableButtonsSayWhatNewWiresAre()
{
    const InstallationDiagramDocument document(path());
    action(document, "actionWire")->trigger();
    const QList<QAction *> cables = toolBarActions(document).mid(10);
    QCOMPARE(cables.size(), 3);
    for (const int type : {2, 3, 1}) {
        cables.at(type - 1)->trigger();
        QCOMPARE(document.scene()->cableType(), type);
        QCOMPARE(document.scene()->pendingConnection()->cableType(), type);
        QVERIFY(cables.at(type - 1)->isChecked());
        QVERIFY(!cables.at(type % 3)->isChecked());
    }
}

void TestDiagramDocument::aChangeEnablesSave()
{
    const InstallationDiagramDocument document(path());
    QVERIFY(!action(document, "actionSave")->isEnabled());
    for (QGraphicsItem *item : document.scene()->items()) {
        if (item->type() == 0x20005)
            item->moveBy(5, 0);
    }
    QVERIFY(action(document, "actionSave")->isEnabled());
    QVERIFY(document.isModified());
    QCOMPARE(document.windowTitle(), QString("house.kelid *"));
}

void TestDiagramDocument::savingClearsTheMarkAndLeavesTheButton()
{
    InstallationDiagramDocument document(path());
    document.modified();
    action(document, "actionSave")->trigger();
    QVERIFY(!document.isModified());
    QVERIFY(action(document, "actionSave")->isEnabled());
    QCOMPARE(readFile(path()), document.scene()->toXml());
    QVERIFY(readFile(path()).contains("Mind the gap"));
}

void TestDiagramDocument::aFailedSaveIsToldAndTheDocumentSaysItIsSaved()
{
    QDir().mkpath(path("gone"));
    writeFile(path("gone/x.kelid"), items);
    InstallationDiagramDocument document(path("gone/x.kelid"));
    QVERIFY(QDir(path("gone")).removeRecursively());
    document.modified();
    BoxWatcher watcher;
    watcher.expect("Error opening " + path("gone/x.kelid") + " for writing", QMessageBox::Ok);
    document.save();
    QVERIFY(!document.isModified());
}

void TestDiagramDocument::closingAsksOnlyWhereChangesWouldBeLost()
{
    InstallationDiagramDocument document(path());
    BoxWatcher watcher;
    QVERIFY(document.queryClose());
    document.modified();
    watcher.expect("Save changes to house.kelid?", QMessageBox::Cancel);
    QVERIFY(!document.queryClose());
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Information);
    QCOMPARE(watcher.boxes().first().buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    watcher.expect("Save changes to house.kelid?", QMessageBox::No);
    QVERIFY(document.queryClose());
    QCOMPARE(readFile(path()), QByteArray(items));
    watcher.expect("Save changes to house.kelid?", QMessageBox::Yes);
    QVERIFY(document.queryClose());
    QCOMPARE(readFile(path()), document.scene()->toXml());
}

void TestDiagramDocument::controlSSavesOnceWithAndWithoutAMainWindow()
{
    {
        InstallationDiagramDocument document(path());
        document.show();
        QApplication::setActiveWindow(&document);
        QVERIFY(QTest::qWaitForWindowActive(&document, patience));
        document.modified();
        QTest::keyClick(document.view(), Qt::Key_S, Qt::ControlModifier);
        QVERIFY(!document.isModified());
    }
    WindowShell shell;
    auto *document = new InstallationDiagramDocument(path());
    const QSignalSpy saved(shell.save, &QAction::triggered);
    shell.show(document);
    document->modified();
    document->view()->setFocus();
    QTest::keyClick(document->view(), Qt::Key_S, Qt::ControlModifier);
    // The window's own, which goes to the active document.
    QCOMPARE(saved.size(), 1);
    QVERIFY(document->isModified());
}

void TestDiagramDocument::aDiagramGivesOneLandscapeSheetWithTheMark()
{
    const InstallationDiagramDocument document(path());
    QVERIFY(document.scene()->writePdf(path("house.pdf")));
    const QString info = output(QStringLiteral("pdfinfo"), {path("house.pdf")});
    QVERIFY2(info.contains(QRegularExpression("Pages:\\s+1\\n")), qPrintable(info));
    QVERIFY2(info.contains(QRegularExpression("Page size:\\s+84[12][.0-9]* x 595")), qPrintable(info));
    QVERIFY(textOf(path("house.pdf")).contains("Created by Kelmar."));
    QVERIFY(textOf(path("house.pdf")).contains("Mind the gap"));
}

void TestDiagramDocument::theDrawingFillsTheSheetWithinItsBorder()
{
    const InstallationDiagramDocument document(path());
    QVERIFY(document.scene()->writePdf(path("house.pdf")));
    QImage sheet = pictureOf(path("house.pdf"));
    QVERIFY(qAbs(sheet.width() - 1169) <= 1 && qAbs(sheet.height() - 827) <= 1);
    // 20 mm are 79 dots. The drawing is 410 by 270 units, so its width is what fits.
    const QRect ink = inked(sheet.copy(0, 76, sheet.width(), sheet.height() - 76)).translated(0, 76);
    QVERIFY2(qAbs(ink.left() - 79) <= 2 && qAbs(ink.top() - 79) <= 2 && qAbs(ink.right() - 1089) <= 2,
             described(ink));
    QVERIFY2(qAbs(ink.width() / double(ink.height()) - 410.0 / 270) < 0.01, described(ink));
}

void TestDiagramDocument::printingAnEmptyDiagramGivesASheetWithTheMarkOnly()
{
    writeFile(path(), "<installation_diagram/>");
    const InstallationDiagramDocument document(path());
    QVERIFY(document.scene()->writePdf(path("empty.pdf")));
    QCOMPARE(textOf(path("empty.pdf")).trimmed(), QString("Created by Kelmar."));
    const QRect ink = inked(pictureOf(path("empty.pdf")));
    QVERIFY2(QRect(75, 40, 200, 30).contains(ink), described(ink));
}

void TestDiagramDocument::exportToPdfLeavesWireModeAndAsksForTheFile()
{
    const InstallationDiagramDocument document(path());
    action(document, "actionWire")->trigger();
    QDir().mkpath(path("before"));
    QDir().mkpath(path("after"));
    QSettings().setValue("Directories/LastPdfExportDir", path("before"));
    BoxWatcher watcher;
    watcher.expectFileDialog(path("after/out.pdf"));
    action(document, "actionExportToPdf")->trigger();
    QVERIFY(!document.scene()->pendingConnection());
    QVERIFY(!action(document, "actionWire")->isChecked());
    QCOMPARE(watcher.fileDialogs().first(), (QStringList{"Export PDF", path("before"), "PDF Files (*.pdf)"}));
    QCOMPARE(QSettings().value("Directories/LastPdfExportDir").toString(), path("after"));
    QVERIFY(textOf(path("after/out.pdf")).contains("Mind the gap"));
    watcher.expectFileDialog(QString());
    action(document, "actionExportToPdf")->trigger();
}

void TestDiagramDocument::printDrawsOnWhatTheUserChose()
{
    const InstallationDiagramDocument document(path());
    BoxWatcher watcher;
    const QString target = path("printed.pdf");
    watcher.expectDialog("QPrintDialog", [target](QWidget *widget) {
        auto *dialog = qobject_cast<QPrintDialog *>(widget);
        QCOMPARE(dialog->printer()->pageLayout().orientation(), QPageLayout::Landscape);
        QCOMPARE(dialog->printer()->pageLayout().pageSize().id(), QPageSize::A4);
        dialog->printer()->setOutputFileName(target);
        dialog->done(QDialog::Accepted);
    });
    action(document, "actionPrint")->trigger();
    QVERIFY(textOf(target).contains("Mind the gap"));
    watcher.expectDialog("QPrintDialog", [](QWidget *dialog) { dialog->close(); });
    QVERIFY(QFile::remove(target));
    action(document, "actionPrint")->trigger();
    QVERIFY(!QFileInfo::exists(target));
}

void TestDiagramDocument::aPdfThatCannotBeWrittenIsTold()
{
    const InstallationDiagramDocument document(path());
    const QString target = path("no such folder/out.pdf");
    BoxWatcher watcher;
    watcher.expect("Error opening " + target + " for writing", QMessageBox::Ok);
    QVERIFY(!document.scene()->writePdf(target));
}

KELMAR_TEST_MAIN(TestDiagramDocument)
#include "tst_diagramdocument.moc"
