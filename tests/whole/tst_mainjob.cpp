#include "app/core/Identity.h"
#include "app/shell/MainWindow.h"
#include "report/GraphicalReportDocument.h"
#include "report/ReportScene.h"
#include "report/items/ReportTable.h"
#include "report/items/ReportTableCell.h"
#include "tests/support/Patience.h"
#include "tests/support/TestHome.h"
#include "tests/whole/Hands.h"
#include "tests/whole/IndependentReader.h"
#include "tests/whole/WholeProgram.h"

#include <QtTest>
#include <QtWidgets>
#include <QtXml>

namespace {

const QByteArray resultsFile =
    "PV Tester,4711-0815,V2.10,2\r\n"
    "TestType,Index,DD/MM/YYYY,HH:MM:SS,Rpe (Ohm),Voc (VDC),Isc (ADC),Riso (MOhm),Viso (V),"
    "Irr (W/m2),IVCurve,StatusCode,Checksum\r\n"
    "2,1,8/5/2016,18:50:13,0.36,304.6,9.24,>200,1000,974,,0,0C42\r\n"
    "4,2,9/5/2016,12:44:58,,,,63.0,500,,,0,0849\r\n"
    "8,3,9/5/2016,12:46:02,,,,9.7,500,,,0,0814\r\n";

/// The program's own widgets and documents as the user sees them.
struct Desk
{
    explicit Desk(MainWindow &mainWindow)
        : window(mainWindow)
        , tree(window.findChild<QTreeView *>(QStringLiteral("treeView")))
        , area(window.findChild<QMdiArea *>(QStringLiteral("mdiArea")))
        , fileMenu(window.findChild<QMenu *>(QStringLiteral("menuFile")))
    {
    }

    QAction *action(const char *name) const { return window.findChild<QAction *>(QLatin1String(name)); }
    QFileSystemModel *model() const { return qobject_cast<QFileSystemModel *>(tree->model()); }
    GraphicalReportDocument *report() const
    {
        return qobject_cast<GraphicalReportDocument *>(window.activeDocument());
    }
    QGraphicsView *view() const { return report()->findChild<QGraphicsView *>(); }
    ReportText *field(const QString &id) const
    {
        return qobject_cast<ReportText *>(report()->scene()->itemById(id));
    }
    ReportTable *table() const
    {
        return qobject_cast<ReportTable *>(report()->scene()->itemById(QStringLiteral("test_table")));
    }
    QString cell(int col, int row) const { return table()->cellAt(col, row)->plainText(); }

    MainWindow &window;
    QTreeView *tree;
    QMdiArea *area;
    QMenu *fileMenu;
};

void forEachElement(const QDomElement &parent, const std::function<void(const QDomElement &)> &look)
{
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        look(child);
        forEachElement(child, look);
    }
}

QByteArray outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(patience) || process.exitCode() != 0)
        QTest::qFail(qPrintable(program + QStringLiteral(" failed")), __FILE__, __LINE__);
    return process.readAllStandardOutput();
}

} // namespace

/// From the first start to the printed report, and a second start that finds everything again.
class TestMainJob : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void theFirstStartAsksForLanguageAndProjectsRoot();
    void aNewReportIsFilledFromTheTestersFileSavedAndPrinted();
    void theSavedFileHoldsWhatWasTypedAndImported();
    void thePdfPageShowsTheReport();
    void aSecondStartFindsEverythingAgain();

private:
    void makeAndRenameReport(Desk &desk);
    void importRows(Desk &desk);
    void typeUndoAndRedo(Desk &desk);
    void saveCloseAndReopen(Desk &desk);
    void lookAtTheDialogs(const Desk &desk, BoxWatcher &watcher);

    QString m_root;
    QString m_csv;
    QString m_report;
    QString m_pdf;
};

void TestMainJob::initTestCase()
{
    TestHome *home = TestHome::instance();
    m_root = home->path(QStringLiteral("Meine Projekte"));
    m_csv = home->path(QStringLiteral("tester/results.csv"));
    m_pdf = home->path(QStringLiteral("Roof East.pdf"));
    m_report = m_root + QStringLiteral("/Roof East.kelatr");
    QDir().mkpath(m_root);
    writeFile(m_csv, resultsFile);
}

void TestMainJob::theFirstStartAsksForLanguageAndProjectsRoot()
{
    int windows = 0;
    WholeProgram::run(
        {},
        [this](BoxWatcher &watcher) {
            watcher.expectDialog("DialogLanguageChooser", [](QWidget *dialog) {
                WholeProgram::takePicture(dialog, QStringLiteral("language chooser"));
                auto *box = dialog->findChild<QComboBox *>();
                QCOMPARE(box->count(), 2);
                QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                                  Qt::LeftButton);
            });
            watcher.expect(QStringLiteral("Could not find the projects root directory: "), QMessageBox::Ok);
            watcher.expectFileDialog(m_root);
            watcher.expectDialog("DialogWelcome", [](QWidget *dialog) {
                QVERIFY(!dialog->findChild<QDialogButtonBox *>()->isEnabled());
                WholeProgram::takePicture(dialog, QStringLiteral("welcome"));
                Hands::click(dialog->findChild<QCheckBox *>());
                Hands::click(dialog->findChild<QRadioButton *>(QStringLiteral("continueUsing")));
                QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                                  Qt::LeftButton);
            });
        },
        [&windows](MainWindow &window, BoxWatcher &, int) {
            ++windows;
            QCOMPARE(window.windowTitle(), QStringLiteral("Kelmar"));
            WholeProgram::takePicture(&window, QStringLiteral("empty main window"));
        });
    QCOMPARE(windows, 1);
    const QSettings settings(Identity::organisationName(), Identity::applicationName());
    QVERIFY(settings.value(QStringLiteral("locale")).toString().startsWith(QLatin1String("en")));
    QCOMPARE(settings.value(QStringLiteral("Directories/RootDir")).toString(), m_root);
    QCOMPARE(settings.value(QStringLiteral("Welcome/show")).toBool(), false);
}

void TestMainJob::aNewReportIsFilledFromTheTestersFileSavedAndPrinted()
{
    bool worked = false;
    WholeProgram::run(
        {}, [](BoxWatcher &) {},
        [&](MainWindow &window, BoxWatcher &watcher, int) {
            Desk desk(window);
            makeAndRenameReport(desk);
            watcher.expectFileDialog(m_csv);
            Hands::clickToolButton(&window, QStringLiteral("actionImport"));
            importRows(desk);
            typeUndoAndRedo(desk);
            saveCloseAndReopen(desk);
            watcher.expectFileDialog(m_pdf);
            Hands::press(&window, Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
            QTRY_VERIFY(QFileInfo::exists(m_pdf));
            worked = true;
        });
    QVERIFY(worked);
}

void TestMainJob::makeAndRenameReport(Desk &desk)
{
    Hands::chooseFromMenu(&desk.window, desk.fileMenu, desk.action("actionNewTestReport"));
    // The new file's name is being edited at once.
    QTRY_VERIFY(desk.tree->findChild<QLineEdit *>());
    auto *editor = desk.tree->findChild<QLineEdit *>();
    QCOMPARE(editor->text(), QStringLiteral("Array Test Report.kelatr"));
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("Roof East.kelatr"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_VERIFY(QFileInfo::exists(m_report));
    QTRY_VERIFY(desk.model()->index(m_report).isValid());
    Hands::doubleClick(desk.tree, desk.model()->index(m_report));
    QTRY_VERIFY(desk.report());
    QCOMPARE(desk.report()->filePath(), m_report);
}

void TestMainJob::importRows(Desk &desk)
{
    auto *dialog = desk.window.findChild<QDialog *>(QStringLiteral("DialogImportResults"));
    QTRY_VERIFY(dialog->isVisible());
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Import Results - results.csv"));
    auto *rows = dialog->findChild<QTableView *>();
    QCOMPARE(rows->model()->rowCount(), 3);
    WholeProgram::takePicture(dialog, QStringLiteral("import dialog"));
    Hands::click(rows, rows->model()->index(0, 1));
    Hands::click(rows, rows->model()->index(2, 1), Qt::ShiftModifier);
    QTest::mouseClick(dialog->findChild<QCommandLinkButton *>(), Qt::LeftButton);
    QTRY_COMPARE(desk.cell(2, 12), QStringLiteral("304.6"));
    QCOMPARE(desk.cell(2, 13), QStringLiteral("9.24"));
    QCOMPARE(desk.cell(2, 14), QStringLiteral("974"));
    QCOMPARE(desk.cell(2, 16), QStringLiteral("500"));
    QCOMPARE(desk.cell(2, 17), QStringLiteral("63.0"));
    QCOMPARE(desk.cell(2, 18), QStringLiteral("9.7"));
    QCOMPARE(desk.cell(2, 19), QStringLiteral("0.36"));
    QCOMPARE(desk.field(QStringLiteral("test_instruments"))->plainText(), QStringLiteral("4711-0815"));
    QCOMPARE(desk.field(QStringLiteral("DD/MM/YYYY"))->plainText(), QStringLiteral("9/5/2016"));
    QVERIFY(desk.report()->isModified());
    // The next row goes to the next string.
    Hands::doubleClick(rows, rows->model()->index(0, 1));
    QTRY_COMPARE(desk.cell(3, 12), QStringLiteral("304.6"));
    dialog->close();
}

void TestMainJob::typeUndoAndRedo(Desk &desk)
{
    Hands::bringToFront(&desk.window);
    ReportText *inspector = desk.field(QStringLiteral("inspector"));
    Hands::click(desk.view(), inspector);
    Hands::type(&desk.window, QStringLiteral("A. Example"));
    QCOMPARE(inspector->plainText(), QStringLiteral("A. Example"));
    Hands::press(&desk.window, Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(inspector->plainText(), QString());
    Hands::press(&desk.window, Qt::Key_Y, Qt::ControlModifier);
    QTRY_COMPARE(inspector->plainText(), QStringLiteral("A. Example"));
    // The undo of the second import empties its column, its redo fills it again.
    Hands::clickToolButton(&desk.window, QStringLiteral("actionUndo"));
    QTRY_COMPARE(inspector->plainText(), QString());
    Hands::clickToolButton(&desk.window, QStringLiteral("actionUndo"));
    QTRY_COMPARE(desk.cell(3, 12), QString());
    QCOMPARE(desk.cell(2, 12), QStringLiteral("304.6"));
    Hands::clickToolButton(&desk.window, QStringLiteral("actionRedo"));
    QTRY_COMPARE(desk.cell(3, 12), QStringLiteral("304.6"));
    Hands::clickToolButton(&desk.window, QStringLiteral("actionRedo"));
    QTRY_COMPARE(inspector->plainText(), QStringLiteral("A. Example"));
    // A cell takes the keys after one click, and Return goes to the row below.
    Hands::click(desk.view(), desk.table()->cellAt(2, 1));
    Hands::type(&desk.window, QStringLiteral("KM-300"));
    Hands::press(&desk.window, Qt::Key_Return);
    Hands::type(&desk.window, QStringLiteral("12"));
    QCOMPARE(desk.cell(2, 1), QStringLiteral("KM-300"));
    QCOMPARE(desk.cell(2, 2), QStringLiteral("12"));
    Hands::click(desk.view(), desk.report()->scene()->itemById(QStringLiteral("initial")));
}

void TestMainJob::saveCloseAndReopen(Desk &desk)
{
    WholeProgram::takePicture(&desk.window, QStringLiteral("filled report"));
    Hands::press(&desk.window, Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(!desk.report()->isModified());
    auto *tabs = desk.area->findChild<QTabBar *>();
    QCOMPARE(tabs->count(), 1);
    auto *closeButton = tabs->tabButton(0, QTabBar::RightSide);
    if (!closeButton)
        closeButton = tabs->tabButton(0, QTabBar::LeftSide);
    QTest::mouseClick(closeButton, Qt::LeftButton);
    QTRY_VERIFY(!desk.window.activeDocument());
    Hands::click(desk.tree, desk.model()->index(m_report));
    Hands::press(&desk.window, Qt::Key_O, Qt::ControlModifier);
    QTRY_VERIFY(desk.report());
    QCOMPARE(desk.field(QStringLiteral("inspector"))->plainText(), QStringLiteral("A. Example"));
    QCOMPARE(desk.cell(3, 12), QStringLiteral("304.6"));
    Hands::clickToolButton(&desk.window, QStringLiteral("actionZoomIn"));
    WholeProgram::takePicture(&desk.window, QStringLiteral("zoomed report"));
}

void TestMainJob::theSavedFileHoldsWhatWasTypedAndImported()
{
    const auto entries = independentEntries(m_report);
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries.at(0).first, QStringLiteral("xml"));
    QCOMPARE(entries.at(1).first, QStringLiteral("svg"));
    QDomDocument document;
    QVERIFY(document.setContent(entries.at(0).second));
    QCOMPARE(document.documentElement().attribute(QStringLiteral("resPak")),
             QStringLiteral(":res/reports_en/kelatr_rev3.pak"));
    QMap<QString, QString> texts;
    QMap<QPair<int, int>, QString> cells;
    bool initialIsChecked = false;
    forEachElement(document.documentElement(), [&](const QDomElement &element) {
        const QString id = element.attribute(QStringLiteral("id"));
        if (element.tagName() == QLatin1String("cell"))
            cells.insert({element.attribute(QStringLiteral("col")).toInt(),
                          element.attribute(QStringLiteral("row")).toInt()},
                         element.text());
        else
            texts.insert(id, element.text());
        if (id == QLatin1String("initial"))
            initialIsChecked = element.attribute(QStringLiteral("checked")) == QLatin1String("true");
    });
    QVERIFY(initialIsChecked);
    QCOMPARE(texts.value(QStringLiteral("inspector")), QStringLiteral("A. Example"));
    QCOMPARE(texts.value(QStringLiteral("test_instruments")), QStringLiteral("4711-0815"));
    QCOMPARE(cells.value({2, 1}), QStringLiteral("KM-300"));
    QCOMPARE(cells.value({2, 2}), QStringLiteral("12"));
    QCOMPARE(cells.value({2, 17}), QStringLiteral("63.0"));
    QCOMPARE(cells.value({2, 18}), QStringLiteral("9.7"));
    QCOMPARE(cells.value({3, 12}), QStringLiteral("304.6"));
}

void TestMainJob::thePdfPageShowsTheReport()
{
    const QString text = QString::fromUtf8(
        outputOf(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), m_pdf, QStringLiteral("-")}));
    for (const char *part : {"PV Array Test Report", "INSTALLATION ADDRESS", "A. Example", "4711-0815",
                             "304.6", "Created by Kelmar.", "Polarity Check", "KM-300"})
        QVERIFY2(text.contains(QLatin1String(part)), part);
    const QString prefix = TestHome::instance()->path(QStringLiteral("page"));
    outputOf(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QStringLiteral("96"), QStringLiteral("-png"),
                                          QStringLiteral("-singlefile"), m_pdf, prefix});
    const QImage page(prefix + QStringLiteral(".png"));
    QVERIFY(qAbs(page.width() - 794) <= 1 && qAbs(page.height() - 1123) <= 1);
    // The heading row of the table is black, the margin beside it is paper.
    QVERIFY(qGray(page.pixel(396, 438)) < 90);
    QCOMPARE(qGray(page.pixel(15, 560)), 255);
    if (qEnvironmentVariableIsSet("KELMAR_SCREENSHOTS"))
        outputOf(QStringLiteral("pdftoppm"),
                 {QStringLiteral("-r"), QStringLiteral("110"), QStringLiteral("-png"),
                  QStringLiteral("-singlefile"), m_pdf,
                  qEnvironmentVariable("KELMAR_SCREENSHOTS") + QStringLiteral("/report page")});
}

void TestMainJob::aSecondStartFindsEverythingAgain()
{
    bool worked = false;
    WholeProgram::run(
        {m_report}, [](BoxWatcher &) {},
        [&](MainWindow &window, BoxWatcher &watcher, int) {
            const Desk desk(window);
            QVERIFY(desk.report());
            QCOMPARE(desk.cell(2, 12), QStringLiteral("304.6"));
            QTRY_COMPARE(desk.model()->filePath(desk.tree->currentIndex()), m_report);
            QCOMPARE(desk.model()->filePath(desk.tree->rootIndex()), m_root);
            QVERIFY(watcher.texts().isEmpty());
            lookAtTheDialogs(desk, watcher);
            worked = true;
        });
    QVERIFY(worked);
}

void TestMainJob::lookAtTheDialogs(const Desk &desk, BoxWatcher &watcher)
{
    watcher.expectDialog("DialogSettings", [this](QWidget *dialog) {
        QCOMPARE(dialog->findChild<QLineEdit *>(QStringLiteral("rootEdit"))->text(), m_root);
        WholeProgram::takePicture(dialog, QStringLiteral("settings, projects"));
        dialog->findChild<QTabWidget *>()->setCurrentIndex(1);
        WholeProgram::takePicture(dialog, QStringLiteral("settings, favourites"));
        dialog->close();
    });
    Hands::chooseFromMenu(&desk.window, desk.window.findChild<QMenu *>(QStringLiteral("menuEdit")),
                          desk.action("actionSettings"));
    watcher.expectDialog("DialogAbout", [](QWidget *dialog) {
        QCOMPARE(dialog->size(), QSize(400, 300));
        WholeProgram::takePicture(dialog, QStringLiteral("about"));
        dialog->close();
    });
    Hands::chooseFromMenu(&desk.window, desk.window.findChild<QMenu *>(QStringLiteral("menuHelp")),
                          desk.action("actionAbout"));
}

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0);
    TestHome home;
    TestMainJob test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_mainjob.moc"
