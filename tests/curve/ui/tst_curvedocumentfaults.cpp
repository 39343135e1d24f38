#include "app/core/Language.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveTree.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/data/ModuleDatabase.h"
#include "curve/ui/CurveGraph.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/curve/ui/CurveDesk.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QAction>
#include <QComboBox>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QProcess>
#include <QPushButton>

#include <random>

#include <unistd.h>

using namespace IVCurve;

namespace {

/// This process is somebody else for a while, who may not write where root may.
class Nobody
{
public:
    Nobody() : m_root(geteuid() == 0)
    {
        if (m_root && seteuid(65534) != 0)
            QTest::qFail("cannot become nobody", __FILE__, __LINE__);
    }
    ~Nobody()
    {
        if (m_root && seteuid(0) != 0)
            qFatal("cannot become root again");
    }
    Nobody(const Nobody &) = delete;
    Nobody &operator=(const Nobody &) = delete;

private:
    bool m_root;
};

void press(QWidget *dialog, QDialogButtonBox::StandardButton button)
{
    QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(button), Qt::LeftButton);
}

/// What a killed editor has said, as far as it came.
struct Told
{
    QMap<QByteArray, int> last;

    explicit Told(const QByteArray &output)
    {
        QList<QByteArray> lines = output.split('\n');
        // The last line may be half of one.
        lines.removeLast();
        for (const QByteArray &line : lines) {
            const int blank = line.lastIndexOf(' ');
            last[line.left(blank)] = line.mid(blank + 1).toInt();
        }
    }
    int value(const char *what) const { return last.value(what, -1); }
};

} // namespace

/// What goes wrong around an open document: files and rows that go, folders that cannot be written, a program
/// that is killed.
class TestCurveDocumentFaults : public QObject
{
    Q_OBJECT

public slots:
    void openByDesktop(const QUrl &) {}

private slots:
    void init();
    void cleanup();

    void catalogueThatHasGoneLeavesStringsWithoutModules();
    void exportsIntoAFolderOfSomebodyElseAreTold();
    void rowDraggedWhileItsStringIsShownLeavesTheGraph();
    void rowsThatGoWhileADialogIsOpenAreLeftAlone();
    void fileThatHasGoneIsToldWhenAStringIsStored();
    void aDocumentMayCloseBeforeItsSaveBegins();
    void whatWasAcceptedAssignedAndImportedSurvivesAKill();
};

void TestCurveDocumentFaults::init()
{
    TestHome::instance()->reset();
    useLanguage("en", QLocale("en"));
    QDesktopServices::setUrlHandler("file", this, "openByDesktop");
    QSettings().setValue("Curves/HideAutomaticSaveWarning", true);
    CurveSample::writeCatalogue({"1, 'Poly 36', 8.6, 22.4, 8.1, 18.2, 0.0043, -0.078, 0.11, 0.28, 0, 1"});
}

void TestCurveDocumentFaults::cleanup()
{
    QDesktopServices::unsetUrlHandler("file");
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

void TestCurveDocumentFaults::catalogueThatHasGoneLeavesStringsWithoutModules()
{
    const QString path = CurveDesk::makeFile(2);
    CurveSample::execute(path, {"UPDATE Curves SET ModuleID = 1, ModuleSeries = 20, ModuleParallel = 1"});
    CurveSample::forgetCatalogue();
    const QString missing = "File is missing:\n " + ModuleDatabase::defaultPath();
    CurveDesk desk(path);
    {
        BoxWatcher watcher;
        watcher.expect(missing, QMessageBox::Ok);
        watcher.expect(missing, QMessageBox::Ok);
        desk.selectStrings({1, 2});
        QCOMPARE(desk.lines("STCLineCount"), 2);
        QVERIFY(desk.graph->model()->record(1).nominalCurve().isEmpty());
    }
    // Every use tells of it; how often a dialog uses it is its own affair.
    const auto telling = [&missing](BoxWatcher &watcher, int times) {
        for (int i = 0; i < times; ++i)
            watcher.expect(missing, QMessageBox::Ok);
    };
    BoxWatcher watcher;
    watcher.expectDialog("IVCurve::CurveModulesChooser", [](QWidget *dialog) {
        QCOMPARE(dialog->findChild<QComboBox *>("comboModule")->count(), 0);
        press(dialog, QDialogButtonBox::Ok);
    });
    telling(watcher, 3);
    desk.document.slotAssignModule();
    QCOMPARE(CurveSample::value(path, "SELECT group_concat(ModuleID) FROM Curves").toString(),
             QString("1,1"));
    watcher.expectDialog("IVCurve::CurveDetailsDialog",
                         [](QWidget *dialog) { press(dialog, QDialogButtonBox::Ok); });
    telling(watcher, 1);
    desk.document.slotViewDetails(desk.string(1));
    watcher.expectDialog("IVCurve::CurveModulesDlg", [](QWidget *dialog) { dialog->close(); });
    telling(watcher, 1);
    desk.document.slotManageModules();
}

void TestCurveDocumentFaults::exportsIntoAFolderOfSomebodyElseAreTold()
{
    const QString folder = TestHome::instance()->path("locked");
    QDir().mkpath(folder);
    QFile::setPermissions(TestHome::instance()->path(), QFile::Permissions(0x7755));
    QFile::setPermissions(folder, QFile::Permissions(0x5555));
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.selectStrings({1});
    {
        const Nobody nobody;
        BoxWatcher watcher;
        watcher.expectFileDialog(folder + "/points.csv");
        watcher.expect(" Could not open file:\n " + folder + "/points.csv", QMessageBox::Ok);
        desk.document.slotExportPoints();
        watcher.expectFileDialog(folder + "/report.pdf");
        desk.document.slotCurveReport();
    }
    QVERIFY(QDir(folder).isEmpty());
    QFile::setPermissions(folder, QFile::Permissions(0x7755));
}

void TestCurveDocumentFaults::rowDraggedWhileItsStringIsShownLeavesTheGraph()
{
    const QString path = CurveDesk::makeFile(3);
    CurveDesk desk(path);
    desk.show();
    desk.selectStrings({2});
    QCOMPARE(desk.lines("STCLineCount"), 1);
    QWidget *viewport = desk.tree->viewport();
    QWindow *window = desk.document.windowHandle();
    const QPoint from = desk.tree->visualRect(desk.string(2)).center();
    const QPoint to = desk.tree->visualRect(desk.at({"Wall"})).center();
    const auto inWindow = [&](const QPoint &place) { return viewport->mapTo(&desk.document, place); };
    // The drag runs a loop of its own inside the move that begins it, so each thing the hand does has its own
    // timer.
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, inWindow(from));
    const QVector<QPoint> way{from + QPoint(20, 0), from + QPoint(30, 5), to + QPoint(5, 0), to};
    for (int i = 0; i < way.size(); ++i)
        QTimer::singleShot(100 * (i + 1), this, [&, i] { QTest::mouseMove(window, inWindow(way.at(i))); });
    QTimer::singleShot(600, this, [&] { QTest::mouseRelease(window, Qt::LeftButton, {}, inWindow(to)); });
    QTRY_COMPARE(desk.namesBelow(desk.at({"Wall"})), QStringList{"String 2"});
    QTRY_COMPARE(desk.namesBelow(desk.at({"Roof"})), (QStringList{"String 1", "String 3"}));
    QTRY_COMPARE(desk.lines("STCLineCount"), 0);
    QVERIFY(desk.document.isModified());
    // Selected again it is back, and lies in its new folder after a save.
    desk.select({desk.at({"Wall", "String 2"})});
    QCOMPARE(desk.lines("STCLineCount"), 1);
    desk.document.save();
    const QString folderOfTheString =
        "SELECT p.NodeDesc FROM TreeNodes t JOIN TreeNodes p ON t.ParentNodeID = "
        "p.NodeID WHERE t.CurveID = 2";
    QCOMPARE(CurveSample::value(path, folderOfTheString).toString(), QString("Wall"));
}

void TestCurveDocumentFaults::rowsThatGoWhileADialogIsOpenAreLeftAlone()
{
    CurveDesk desk(CurveDesk::makeFile(3));
    desk.show();
    desk.selectStrings({1, 2});
    BoxWatcher watcher;
    // As when a download that ends meanwhile brings its strings, or another window changes the tree.
    const auto dropRow = [&](QWidget *) {
        desk.model->removeNode(desk.string(1));
        desk.model->insertNewRow(QModelIndex());
    };
    watcher.expectDialog("IVCurve::CurveDetailsDialog", [&](QWidget *dialog) {
        dropRow(dialog);
        press(dialog, QDialogButtonBox::Ok);
    });
    watcher.expect("invalid unordered_map<K, T> key", QMessageBox::Ok);
    desk.document.slotViewDetails(desk.string(1));
    QCOMPARE(desk.lines("STCLineCount"), 1);
    desk.selectStrings({2, 3});
    watcher.expectDialog("IVCurve::CurveModulesChooser", [&](QWidget *dialog) {
        desk.model->removeNode(desk.string(2));
        auto *modules = dialog->findChild<QComboBox *>("comboModule");
        modules->setCurrentIndex(modules->findData(1));
        press(dialog, QDialogButtonBox::Ok);
    });
    desk.document.slotAssignModule();
    QCOMPARE(CurveSample::value(desk.document.filePath(),
                                "SELECT group_concat(CurveID) FROM Curves WHERE ModuleID = 1")
                 .toString(),
             QString("3"));
    watcher.expectDialog("QColorDialog", [&](QWidget *dialog) {
        desk.model->removeNode(desk.string(3));
        press(dialog, QDialogButtonBox::Ok);
    });
    desk.rightClick(desk.string(3), "Set Colour");
    QVERIFY(desk.namesBelow(desk.at({"Roof"})).isEmpty());
}

void TestCurveDocumentFaults::fileThatHasGoneIsToldWhenAStringIsStored()
{
    const QString path = CurveDesk::makeFile(2);
    CurveDesk desk(path);
    desk.selectStrings({1});
    QVERIFY(QFile::remove(path));
    BoxWatcher watcher;
    // The file is open and still there for this process, but SQLite does not write to one without a name.
    watcher.expectDialog("IVCurve::CurveDetailsDialog",
                         [](QWidget *dialog) { press(dialog, QDialogButtonBox::Ok); });
    watcher.expect("readonly", QMessageBox::Ok);
    desk.document.slotViewDetails(desk.string(1));
    // What is shown stays, and what was loaded can still be exported.
    QCOMPARE(desk.lines("STCLineCount"), 1);
    desk.document.save();
    QVERIFY(!QFile::exists(path));
    watcher.expectFileDialog(TestHome::instance()->path("rescued.csv"));
    desk.document.slotExportPoints();
    QVERIFY(QFile::exists(TestHome::instance()->path("rescued.csv")));
}

void TestCurveDocumentFaults::aDocumentMayCloseBeforeItsSaveBegins()
{
    const QPointer<CurveDocument> document = new CurveDocument(CurveDesk::makeFile(1));
    // What waits goes on before the file is written, so that the cursor is seen.
    QTimer::singleShot(0, document, [&document] { delete document; });
    document->save();
    QVERIFY(!document);
}

void TestCurveDocumentFaults::whatWasAcceptedAssignedAndImportedSurvivesAKill()
{
    std::mt19937 random(40);
    int saves = 0;
    int imports = 0;
    int unsavedEdits = 0;
    for (int kills = 0; kills < 40; ++kills) {
        const QString path = CurveDesk::makeFile(2, "killed.kelcrv");
        QProcess editor;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        editor.setProcessEnvironment(environment);
        editor.start(KELMAR_CURVE_EDITOR, {path, QString(KELMAR_SAMPLES) + "/Passing clouds.csv"});
        QVERIFY(editor.waitForStarted(patience));
        QByteArray output;
        // Every other one has saved at least once, however slow the machine is; then at any moment.
        while (!output.contains(kills % 2 ? "save done" : "details begin")) {
            QVERIFY(editor.waitForReadyRead(patience));
            output += editor.readAllStandardOutput();
        }
        QTest::qSleep(int(random() % 150));
        editor.kill();
        QVERIFY(editor.waitForFinished(patience));
        output += editor.readAllStandardOutput();
        const Told told(output);

        // What was reported done is there; what had begun may be.
        const auto isOneOf = [&told](int found, const char *done, const char *begun, int before) {
            const int reported = told.value(done);
            return found == told.value(begun) || found == (reported < 0 ? before : reported);
        };
        const QString first = " FROM Curves WHERE CurveID = 1";
        const int irradiance = CurveSample::value(path, "SELECT Irradiance" + first).toInt();
        QVERIFY2(isOneOf(irradiance, "details done", "details begin", 803),
                 qPrintable(QString::number(irradiance)));
        const int series = CurveSample::value(path, "SELECT ifnull(ModuleSeries, 0)" + first).toInt();
        QVERIFY2(isOneOf(series, "module done", "module begin", 0) || told.value("module done") < 0,
                 qPrintable(QString::number(series)));
        const int curves = CurveSample::value(path, "SELECT count(*) FROM Curves").toInt();
        QVERIFY2(curves >= 2 + qMax(0, told.value("imported")), qPrintable(QString::number(curves)));
        QCOMPARE(CurveSample::value(path, "PRAGMA integrity_check").toString(), QString("ok"));
        imports += told.value("imported") > 0;

        const CurveDesk again(path);
        QVERIFY(again.document.isValid());
        // A save that was cut short may have left part of the tree, as it is written row by row.
        if (told.value("save begin") != told.value("save done"))
            continue;
        const int saved = told.value("save done");
        QCOMPARE(again.model->rowCount(), saved < 0 ? 2 : saved);
        saves += saved > 0;
        // The folder that came with the last save bears its own name: renaming it waited for the next one.
        QVERIFY(again.namesBelow().value(0) != "edited since the last save");
        unsavedEdits += told.value("edited") >= 0;
        again.select({again.at({"Roof"})});
        QCOMPARE(again.graph->model()->record(1).header().irradiance, QString::number(irradiance));
    }
    QVERIFY2(saves >= 10 && imports >= 20 && unsavedEdits >= 20,
             qPrintable(QString("%1 %2 %3").arg(saves).arg(imports).arg(unsavedEdits)));
}

KELMAR_TEST_MAIN(TestCurveDocumentFaults)
#include "tst_curvedocumentfaults.moc"
