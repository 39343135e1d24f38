#include "app/core/Datalogger.h"
#include "app/core/Folders.h"
#include "app/core/Identity.h"
#include "app/shell/MainWindow.h"
#include "curve/data/CurveTree.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/data/StringRecord.h"
#include "curve/ui/CurveDocument.h"
#include "curve/ui/CurveGraph.h"
#include "curve/ui/CurveTracker.h"
#include "curve/ui/CurveZoomer.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/curve/ui/ReportNumbers.h"
#include "tests/support/MenuWatcher.h"
#include "tests/support/Patience.h"
#include "tests/support/TestHome.h"
#include "tests/whole/Hands.h"
#include "tests/whole/WholeProgram.h"

#include <QDesktopServices>
#include <QtTest>
#include <QtWidgets>

using namespace IVCurve;

namespace {

QString outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(patience) || process.exitCode() != 0)
        QTest::qFail(qPrintable(program + " failed"), __FILE__, __LINE__);
    return QString::fromUtf8(process.readAllStandardOutput());
}

void press(QWidget *dialog, QDialogButtonBox::StandardButton button)
{
    QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(button), Qt::LeftButton);
}

template <typename Widget> Widget *in(QWidget *dialog, const char *name)
{
    auto *found = dialog->findChild<Widget *>(QLatin1String(name));
    if (!found)
        QTest::qFail(name, __FILE__, __LINE__);
    return found;
}

/// A curve document on the screen, and the hands that work in it with the events of a real mouse.
class Bench
{
public:
    explicit Bench(MainWindow &mainWindow) : window(mainWindow) {}

    CurveDocument *document() const { return qobject_cast<CurveDocument *>(window.activeDocument()); }
    CurveTree *tree() const { return document()->findChild<CurveTree *>(); }
    CurveTreeModel *model() const { return qobject_cast<CurveTreeModel *>(tree()->model()); }
    CurveGraph *graph() const { return document()->findChild<CurveGraph *>(); }
    QWidget *canvas() const { return graph()->canvas(); }
    int lines(const char *property) const
    {
        return graph()->findChild<QObject *>("SquishGraphHelper")->property(property).toInt();
    }
    QModelIndex at(const QStringList &names, int column = 0) const
    {
        QModelIndex index;
        for (const QString &name : names) {
            const QModelIndexList found =
                model()->match(model()->index(0, 0, index), Qt::DisplayRole, name, 1, Qt::MatchExactly);
            if (found.isEmpty())
                return QModelIndex();
            index = found.first();
        }
        return index.sibling(index.row(), column);
    }
    void click(const QStringList &names, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        Hands::click(tree(), at(names), modifiers);
    }
    /// Opens the menu of a row with the right button of the mouse, and chooses an entry, or one below "Export
    /// Points".
    void choose(const QStringList &names, const QString &entry) const
    {
        Hands::bringToFront(&window);
        tree()->scrollTo(at(names));
        const QPoint place = tree()->viewport()->mapTo(&window, tree()->visualRect(at(names)).center());
        const MenuWatcher menu(entry);
        QTest::mousePress(window.windowHandle(), Qt::RightButton, Qt::NoModifier, place);
        QTRY_VERIFY2(menu.menus() > 0, qPrintable(entry));
        QTest::mouseRelease(window.windowHandle(), Qt::RightButton, Qt::NoModifier, place);
        QVERIFY2(menu.texts().contains(entry), qPrintable(menu.texts().join(',')));
    }
    QPoint onCanvas(double volts, double amperes) const
    {
        return {qRound(graph()->transform(QwtPlot::xBottom, volts)),
                qRound(graph()->transform(QwtPlot::yLeft, amperes))};
    }
    void moveTo(const QPoint &place) const
    {
        QTest::mouseMove(window.windowHandle(), canvas()->mapTo(&window, place));
        QTest::qWait(1);
    }
    void drag(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        Hands::bringToFront(&window);
        moveTo(from);
        const auto inWindow = [this](const QPoint &place) { return canvas()->mapTo(&window, place); };
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, modifiers, inWindow(from));
        constexpr int steps = 8;
        for (int i = 1; i <= steps; ++i)
            moveTo(from + (to - from) * i / steps);
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, modifiers, inWindow(to));
        QTest::qWait(QApplication::doubleClickInterval() + 10);
    }
    void pressOnCanvas(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        Hands::bringToFront(&window);
        canvas()->setFocus();
        QTRY_VERIFY(canvas()->hasFocus());
        QTest::keyClick(canvas(), key, modifiers);
    }
    /// The part of the plane that is shown.
    QRectF shown() const
    {
        const QwtScaleDiv x = graph()->axisScaleDiv(QwtPlot::xBottom);
        const QwtScaleDiv y = graph()->axisScaleDiv(QwtPlot::yLeft);
        return {x.lowerBound(), y.lowerBound(), x.range(), y.range()};
    }

    MainWindow &window;
};

bool isNear(const QRectF &one, const QRectF &other)
{
    const double width = qMax(one.width(), other.width()) / 50;
    const double height = qMax(one.height(), other.height()) / 50;
    return qAbs(one.left() - other.left()) < width && qAbs(one.right() - other.right()) < width &&
           qAbs(one.top() - other.top()) < height && qAbs(one.bottom() - other.bottom()) < height;
}

} // namespace

/// A day with the curves of a roof, from the new file to the report, and another one that finds it all again.
class TestCurveJob : public QObject
{
    Q_OBJECT

public slots:
    void openByDesktop(const QUrl &url) { m_opened.append(url.toLocalFile()); }

private slots:
    void initTestCase();
    void aNewFileTakesCurvesInAndGivesReportAndPoints();
    void theSavedFileHoldsItAll();
    void reportAndPointsSayWhatTheFileHolds();
    void anotherStartFindsItAllAgain();
    void downloadBringsTheCurvesOfTheDay();
    void aGermanSessionSpeaksGermanFromImportToReport();

private:
    void start(const QStringList &arguments, const WholeProgram::User &user);
    void makeFile(const Bench &bench);
    void importWithABadLine(const Bench &bench, BoxWatcher &watcher);
    void selectStringsAndFolders(const Bench &bench);
    void useEverySwitch(const Bench &bench);
    void readTheTracker(const Bench &bench);
    void zoomAndPan(const Bench &bench);
    void chooseAColour(const Bench &bench, BoxWatcher &watcher);
    void editDetails(const Bench &bench, BoxWatcher &watcher);
    void manageModules(const Bench &bench, BoxWatcher &watcher);
    void assignAModule(const Bench &bench, BoxWatcher &watcher);
    void exportPoints(const Bench &bench, BoxWatcher &watcher);
    void writeReport(const Bench &bench, BoxWatcher &watcher);
    void saveAndClose(const Bench &bench, BoxWatcher &watcher);

    QString path(const QString &name) const { return TestHome::instance()->path(name); }

    QString m_curves;
    QStringList m_opened;
    const QString m_tester = "clouds.csv";
    const QStringList m_first{m_tester, "String 1"};
    const QStringList m_second{m_tester, "String 2"};
    const QStringList m_third{m_tester, "String 3"};
};

void TestCurveJob::initTestCase()
{
    TestHome::instance()->reset();
    QSettings store(Identity::organisationName(), Identity::applicationName());
    store.setValue("locale", "en");
    store.setValue("Directories/RootDir", TestHome::instance()->projectsRoot());
    store.setValue("Welcome/show", false);
    m_curves = TestHome::instance()->projectsRoot() + "/Roof.kelcrv";
    QVERIFY(QFile::copy(KELMAR_MODULE_CATALOGUE, TestHome::instance()->dataFolder() + "/modules.db"));
    QByteArray bytes = readFile(KELMAR_SAMPLES "/Passing clouds.csv");
    // Somebody has touched a reading of two of its four lines.
    for (const int line : {2, 4}) {
        QList<QByteArray> lines = bytes.split('\n');
        lines[line].replace(QByteArray(",1000,"), QByteArray(",1001,"));
        bytes = lines.join('\n');
    }
    writeFile(path("tester/" + m_tester), bytes);
    QDir().mkpath(path("out"));
    QDesktopServices::setUrlHandler("file", this, "openByDesktop");
}

/// One start of the program to its end, with `user` in its one main window.
void TestCurveJob::start(const QStringList &arguments, const WholeProgram::User &user)
{
    bool worked = false;
    WholeProgram::run(
        arguments, [](BoxWatcher &) {},
        [&](MainWindow &window, BoxWatcher &watcher, int pass) {
            window.resize(1150, 760);
            user(window, watcher, pass);
            worked = true;
        });
    QVERIFY(worked);
}

void TestCurveJob::aNewFileTakesCurvesInAndGivesReportAndPoints()
{
    start({}, [this](MainWindow &window, BoxWatcher &watcher, int) {
        const Bench bench(window);
        makeFile(bench);
        importWithABadLine(bench, watcher);
        selectStringsAndFolders(bench);
        useEverySwitch(bench);
        readTheTracker(bench);
        zoomAndPan(bench);
        chooseAColour(bench, watcher);
        editDetails(bench, watcher);
        manageModules(bench, watcher);
        assignAModule(bench, watcher);
        exportPoints(bench, watcher);
        writeReport(bench, watcher);
        saveAndClose(bench, watcher);
    });
}

void TestCurveJob::makeFile(const Bench &bench)
{
    auto *projects = bench.window.findChild<QTreeView *>("treeView");
    Hands::chooseFromMenu(&bench.window, bench.window.findChild<QMenu *>("menuFile"),
                          bench.window.findChild<QAction *>("actionNewCurveData"));
    QTRY_VERIFY(projects->findChild<QLineEdit *>());
    auto *editor = projects->findChild<QLineEdit *>();
    QCOMPARE(editor->text(), "Curve Data.kelcrv");
    editor->selectAll();
    QTest::keyClicks(editor, "Roof.kelcrv");
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_VERIFY(QFileInfo::exists(m_curves));
    const auto *files = qobject_cast<QFileSystemModel *>(projects->model());
    QTRY_VERIFY(files->index(m_curves).isValid());
    Hands::doubleClick(projects, files->index(m_curves));
    QTRY_VERIFY(bench.document());
    QCOMPARE(bench.document()->filePath(), m_curves);
    QVERIFY(!bench.document()->isModified());
}

void TestCurveJob::importWithABadLine(const Bench &bench, BoxWatcher &watcher)
{
    watcher.expectFileDialog(path("tester/" + m_tester));
    // The file is walked from its end: once told, the user has had enough of it.
    watcher.expectUnticking("Checksum failed on line number 5", QMessageBox::Ok);
    Hands::clickToolButton(bench.document(), "actionImportCSV");
    QTRY_VERIFY(bench.at(m_first).isValid());
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes()[0].checkBoxText, "Continue showing errors during this import");
    bench.tree()->expandAll();
    for (const QStringList &bad : {m_first, m_third})
        QVERIFY(
            bench.at(bad).data(Qt::ToolTipRole).toString().startsWith(QLatin1String("Invalid checksum.")));
    QCOMPARE(bench.at(m_second).data(Qt::ToolTipRole).toString(),
             "Irradiance warning. Greater than 10% variance during test");
    QVERIFY(bench.document()->isModified());
    QVERIFY(bench.window.findChild<QAction *>("actionSave")->isEnabled());
    WholeProgram::takePicture(&bench.window, "curves imported");
}

void TestCurveJob::selectStringsAndFolders(const Bench &bench)
{
    bench.click(m_first);
    QTRY_COMPARE(bench.lines("STCLineCount"), 1);
    QCOMPARE(bench.graph()->titleText(), "String 1");
    bench.click(m_third, Qt::ControlModifier);
    QTRY_COMPARE(bench.lines("STCLineCount"), 2);
    QCOMPARE(bench.graph()->titleText(), "String 1, String 3");
    bench.click(m_first, Qt::ControlModifier);
    QTRY_COMPARE(bench.lines("STCLineCount"), 1);
    // A folder shows all below it.
    bench.click({m_tester});
    QTRY_COMPARE(bench.lines("STCLineCount"), 4);
    QCOMPARE(bench.graph()->titleText(), m_tester);
    WholeProgram::takePicture(&bench.window, "curves of a folder");
}

void TestCurveJob::useEverySwitch(const Bench &bench)
{
    const auto toggle = [&bench](const char *name) {
        Hands::clickToolButton(bench.document(), QLatin1String(name));
    };
    const auto counts = [&bench] {
        QVector<int> all;
        for (const char *property : {"MEASLineCount", "STCLineCount", "NOMLineCount", "MEASPWRLineCount",
                                     "STCPWRLineCount", "NOMPWRLineCount"})
            all.append(bench.lines(property));
        return all;
    };
    using Counts = QVector<int>;
    QCOMPARE(counts(), Counts({0, 4, 0, 0, 0, 0}));
    toggle("actionShowMEAS");
    QTRY_COMPARE(counts(), Counts({4, 4, 0, 0, 0, 0}));
    toggle("actionShowNOM");
    QTRY_COMPARE(counts(), Counts({4, 4, 4, 0, 0, 0}));
    toggle("actionShowPWR");
    QTRY_COMPARE(counts(), Counts({4, 4, 4, 4, 4, 4}));
    QVERIFY(bench.graph()->axisEnabled(QwtPlot::yRight));
    WholeProgram::takePicture(&bench.window, "curves with every switch on");
    toggle("actionShowIV");
    QTRY_COMPARE(counts(), Counts({0, 0, 0, 4, 4, 4}));
    QVERIFY(!bench.graph()->axisEnabled(QwtPlot::yLeft));
    toggle("actionShowSTC");
    QTRY_COMPARE(counts(), Counts({0, 0, 0, 4, 0, 4}));
    toggle("actionShowPWR");
    QTRY_COMPARE(counts(), Counts({0, 0, 0, 0, 0, 0}));
    for (const char *name : {"actionShowIV", "actionShowSTC", "actionShowNOM"})
        toggle(name);
    QTRY_COMPARE(counts(), Counts({4, 4, 0, 0, 0, 0}));
    QVERIFY(bench.graph()->axisEnabled(QwtPlot::yLeft));
}

void TestCurveJob::readTheTracker(const Bench &bench)
{
    bench.click(m_second);
    QTRY_COMPARE(bench.lines("MEASLineCount"), 1);
    Hands::bringToFront(&bench.window);
    bench.moveTo(bench.onCanvas(280, 2));
    bench.moveTo(bench.onCanvas(300, 3));
    // What the mouse points at, worked out from the points in the file.
    const CurveLine *line = bench.graph()->linesMeasured().begin()->second.get();
    const QString told =
        bench.graph()
            ->tracker()
            ->trackerTextF(bench.graph()->tracker()->trackerPosition().isNull() ? QPointF(300, 3)
                                                                                : QPointF(300, 3))
            .text();
    const quint32 id = bench.graph()->linesMeasured().begin()->first;
    const QString points =
        CurveSample::value(m_curves, QString("SELECT CurvePoints FROM Curves WHERE CurveID = %1").arg(id))
            .toString();
    QPointF before;
    QPointF after;
    for (const QString &point : points.split('#')) {
        const QStringList parts = point.split(':');
        const QPointF here(parts[0].toDouble(), parts[1].toDouble());
        if (here.x() <= 300)
            before = here;
        else if (after.isNull())
            after = here;
    }
    const double amperes =
        before.y() + (after.y() - before.y()) * (300 - before.x()) / (after.x() - before.x());
    const QLocale locale;
    QVERIFY2(told.contains(QString("String 2: 300.0V") + bench.graph()->tracker()->listSeparator() + ' ' +
                           locale.toString(amperes, 'f', 1) + 'A'),
             qPrintable(told));
    QVERIFY(told.contains("<sub>STC</sub>"));
    QVERIFY(told.contains(line->pen().color().name()));
    // The text is on the screen, beside the mouse.
    QVERIFY(bench.graph()->tracker()->isEnabled());
    QVERIFY(!bench.graph()->tracker()->trackerRect(QFont()).isEmpty());
    WholeProgram::takePicture(&bench.window, "tracker");
}

void TestCurveJob::zoomAndPan(const Bench &bench)
{
    const QRectF base = bench.shown();
    bench.drag(bench.onCanvas(100, 2), bench.onCanvas(500, 6));
    const QRectF zoomed(100, 2, 400, 4);
    QTRY_VERIFY(isNear(bench.shown(), zoomed));
    WholeProgram::takePicture(&bench.window, "zoomed graph");
    bench.drag(bench.onCanvas(200, 4), bench.onCanvas(250, 4.5), Qt::ShiftModifier);
    QTRY_VERIFY(isNear(bench.shown(), QRectF(50, 1.5, 400, 4)));
    bench.drag(bench.onCanvas(100, 2), bench.onCanvas(300, 4));
    QTRY_VERIFY(isNear(bench.shown(), QRectF(100, 2, 200, 2)));
    bench.pressOnCanvas(Qt::Key_O, Qt::ShiftModifier);
    QTRY_VERIFY(isNear(bench.shown(), QRectF(50, 1.5, 400, 4)) || isNear(bench.shown(), zoomed));
    bench.pressOnCanvas(Qt::Key_I, Qt::ShiftModifier);
    QTRY_VERIFY(isNear(bench.shown(), QRectF(100, 2, 200, 2)));
    bench.pressOnCanvas(Qt::Key_Home);
    QTRY_VERIFY(isNear(bench.shown(), base));
}

void TestCurveJob::chooseAColour(const Bench &bench, BoxWatcher &watcher)
{
    watcher.expectDialog("QColorDialog", [](QWidget *dialog) {
        qobject_cast<QColorDialog *>(dialog)->setCurrentColor(Qt::darkBlue);
        press(dialog, QDialogButtonBox::Ok);
    });
    bench.choose(m_second, "Set Colour");
    QTRY_COMPARE(bench.graph()->linesStc().begin()->second->pen().color(), QColor(Qt::darkBlue));
    QCOMPARE(bench.model()->item(bench.at(m_second))->colour, QColor(Qt::darkBlue));
}

void TestCurveJob::editDetails(const Bench &bench, BoxWatcher &watcher)
{
    watcher.expectDialog("IVCurve::CurveDetailsDialog", [](QWidget *dialog) {
        WholeProgram::takePicture(dialog, "details");
        QCOMPARE(in<QLineEdit>(dialog, "TesterSerNo")->text(), "5120-0347");
        auto *irradiance = in<QLineEdit>(dialog, "G");
        irradiance->selectAll();
        QTest::keyClicks(irradiance, "812");
        press(dialog, QDialogButtonBox::Ok);
    });
    watcher.expect("automatically saved when OK is pressed", QMessageBox::Ok, true);
    bench.choose(m_second, "View Details");
    QTRY_COMPARE(bench.at(m_second, CurveTreeModel::IrradianceColumn).data().toString(), "812");
    QVERIFY(QSettings().value("Curves/HideAutomaticSaveWarning").toBool());
    // The next edit is saved without a word.
    watcher.expectDialog("IVCurve::CurveDetailsDialog", [](QWidget *dialog) {
        in<QTabWidget>(dialog, "tabWidget")->setCurrentIndex(1);
        WholeProgram::takePicture(dialog, "details, module");
        Hands::click(in<QRadioButton>(dialog, "radioIEC"));
        press(dialog, QDialogButtonBox::Ok);
    });
    bench.choose(m_second, "View Details");
    QTRY_COMPARE(
        CurveSample::value(m_curves, "SELECT STCAlgorithm FROM Curves WHERE MemLocation = 2").toInt(), 1);
}

void TestCurveJob::manageModules(const Bench &bench, BoxWatcher &watcher)
{
    const auto names = [](QWidget *manager) {
        QStringList all;
        const auto *table = in<QTableWidget>(manager, "tableModules");
        for (int row = 0; row < table->rowCount(); ++row)
            all.append(table->item(row, 0)->text());
        return all;
    };
    const auto clickButton = [](QWidget *manager, const char *name) {
        QTest::mouseClick(in<QPushButton>(manager, name), Qt::LeftButton);
    };
    watcher.expectDialog("IVCurve::CurveModulesEditDlg", [](QWidget *editor) {
        QTest::keyClicks(in<QLineEdit>(editor, "editDescription"), "Roofer 300");
        const QPair<const char *, double> ratings[] = {
            {"editVoc", 40.1}, {"editIsc", 9.6},     {"editVmpp", 32.9},  {"editImpp", 9.1},
            {"editRs", 0.3},   {"editAlpha", 0.005}, {"editBeta", -0.12}, {"editDelta", 0.085}};
        for (const auto &entry : ratings)
            in<QDoubleSpinBox>(editor, entry.first)->setValue(entry.second);
        WholeProgram::takePicture(editor, "module editor");
        press(editor, QDialogButtonBox::Save);
    });
    watcher.expectDialog("IVCurve::CurveModulesEditDlg", [](QWidget *editor) {
        QCOMPARE(in<QDoubleSpinBox>(editor, "editVoc")->value(), 40.1);
        in<QDoubleSpinBox>(editor, "editVoc")->setValue(40.5);
        press(editor, QDialogButtonBox::Save);
    });
    watcher.expect("Deleting a preloaded module.", QMessageBox::Cancel);
    watcher.expectDialog("IVCurve::CurveModulesDlg", [&](QWidget *manager) {
        WholeProgram::takePicture(manager, "modules");
        const QStringList before = names(manager);
        QVERIFY(before.size() > 10);
        clickButton(manager, "btnAdd");
        QCOMPARE(names(manager), before + QStringList{"Roofer 300"});
        auto *table = in<QTableWidget>(manager, "tableModules");
        table->setCurrentCell(table->rowCount() - 1, 0);
        clickButton(manager, "btnEdit");
        clickButton(manager, "btnCopy");
        QCOMPARE(names(manager).last(), "Roofer 300 (Copy)");
        table->setCurrentCell(table->rowCount() - 1, 0);
        clickButton(manager, "btnDelete");
        table->setCurrentCell(0, 0);
        clickButton(manager, "btnDelete");
        QCOMPARE(names(manager), before + QStringList{"Roofer 300"});
        clickButton(manager, "btnClose");
    });
    Hands::clickToolButton(bench.document(), "actionManageModules");
    const QString catalogue = TestHome::instance()->dataFolder() + "/modules.db";
    QTRY_COMPARE(
        CurveSample::value(catalogue, "SELECT Voc FROM Modules WHERE Description = 'Roofer 300'").toDouble(),
        40.5);
    QCOMPARE(CurveSample::value(catalogue, "SELECT count(*) FROM Modules WHERE UserModule = 1").toInt(), 1);
}

void TestCurveJob::assignAModule(const Bench &bench, BoxWatcher &watcher)
{
    bench.click(m_first);
    bench.click(m_second, Qt::ControlModifier);
    QTRY_COMPARE(bench.lines("STCLineCount"), 2);
    watcher.expectDialog("IVCurve::CurveModulesChooser", [](QWidget *chooser) {
        auto *modules = in<QComboBox>(chooser, "comboModule");
        auto *star = in<QPushButton>(chooser, "toggleFavourites");
        // The user's module has been made a favourite with its star, as new ones are; the preloaded ones are
        // none.
        const int all = modules->count();
        if (!star->isChecked())
            QTest::mouseClick(star, Qt::LeftButton);
        QVERIFY(modules->count() < all);
        modules->setCurrentIndex(modules->findText("Roofer 300"));
        QVERIFY(modules->currentIndex() > 0);
        in<QSpinBox>(chooser, "spinTotalInSeries")->setValue(15);
        WholeProgram::takePicture(chooser, "module chooser");
        press(chooser, QDialogButtonBox::Ok);
    });
    bench.choose(m_second, "Set PV Module Type");
    QVERIFY(QSettings().value("Curves/ShowModuleFavouritesOnly").toBool());
    Hands::clickToolButton(bench.document(), "actionShowNOM");
    QTRY_COMPARE(bench.lines("NOMLineCount"), 2);
    QCOMPARE(bench.lines("VisibleLineCount"), 6);
    WholeProgram::takePicture(&bench.window, "curves with their module");
}

void TestCurveJob::exportPoints(const Bench &bench, BoxWatcher &watcher)
{
    const QPair<const char *, const char *> kinds[] = {{"actionExportPoints", "MEAS"},
                                                       {"actionExportPWRPoints", "PWR"},
                                                       {"actionExportPointsSTC", "STC"},
                                                       {"actionExportPWRPointsSTC", "STC PWR"}};
    for (const auto &kind : kinds) {
        const int before = watcher.fileDialogs().size();
        watcher.expectFileDialog(path(QString("out/1 %1.csv").arg(QLatin1String(kind.second))));
        watcher.expectFileDialog(path(QString("out/2 %1.csv").arg(QLatin1String(kind.second))));
        bench.document()->findChild<QAction *>(QLatin1String(kind.first))->trigger();
        QCOMPARE(watcher.fileDialogs().size(), before + 2);
        QVERIFY(watcher.fileDialogs().last()[1].endsWith(QStringLiteral("/String 2 ") +
                                                         QLatin1String(kind.second)));
    }
    // One of them with the mouse, from the menu in the menu.
    watcher.expectFileDialog(QString());
    watcher.expectFileDialog(path("out/by menu.csv"));
    Hands::bringToFront(&bench.window);
    const QPoint place =
        bench.tree()->viewport()->mapTo(&bench.window, bench.tree()->visualRect(bench.at(m_second)).center());
    QTimer steps;
    int step = 0;
    QObject::connect(&steps, &QTimer::timeout, &steps, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        const QList<QAction *> entries = menu->actions();
        QAction *exports = nullptr;
        for (QAction *entry : entries) {
            if (entry->menu())
                exports = entry;
        }
        if (exports && step == 0)
            WholeProgram::takePicture(&bench.window, "menu of a string");
        if (exports)
            QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(exports).center());
        else
            QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                              menu->actionGeometry(entries.first()).center());
        ++step;
    });
    steps.start(200);
    QTest::mousePress(bench.window.windowHandle(), Qt::RightButton, Qt::NoModifier, place);
    QTRY_VERIFY(QFileInfo::exists(path("out/by menu.csv")));
    steps.stop();
    QTest::mouseRelease(bench.window.windowHandle(), Qt::RightButton, Qt::NoModifier, place);
}

void TestCurveJob::writeReport(const Bench &bench, BoxWatcher &watcher)
{
    watcher.expectFileDialog(path("out/report.pdf"));
    bench.choose(m_second, "Curve Report");
    QTRY_VERIFY(!m_opened.isEmpty());
    QCOMPARE(m_opened, QStringList{path("out/report.pdf")});
    QCOMPARE(QSettings().value("Directories/LastExportDir").toString(), path("out"));
}

void TestCurveJob::saveAndClose(const Bench &bench, BoxWatcher &watcher)
{
    // A row of the user's own, by key, below all others.
    Hands::click(bench.tree(), bench.at(m_first));
    Hands::press(&bench.window, Qt::Key_Delete);
    QTRY_VERIFY(!bench.at(m_first).isValid());
    QVERIFY(bench.document()->isModified());
    auto *tabs = bench.window.findChild<QMdiArea *>()->findChild<QTabBar *>();
    auto *close = tabs->tabButton(0, QTabBar::RightSide) ? tabs->tabButton(0, QTabBar::RightSide)
                                                         : tabs->tabButton(0, QTabBar::LeftSide);
    watcher.expect("Save changes to Roof.kelcrv?", QMessageBox::Cancel);
    QTest::mouseClick(close, Qt::LeftButton);
    QVERIFY(bench.document() && bench.document()->isModified());
    bench.tree()->setFocus();
    Hands::press(&bench.window, Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(!bench.document()->isModified());
    QTest::mouseClick(close, Qt::LeftButton);
    QTRY_VERIFY(!bench.window.activeDocument());
}

void TestCurveJob::theSavedFileHoldsItAll()
{
    QCOMPARE(CurveSample::value(m_curves, "SELECT count(*) FROM TreeNodes").toInt(), 4);
    // The string whose row was deleted has gone with the save.
    QCOMPARE(CurveSample::value(m_curves, "SELECT group_concat(MemLocation) FROM Curves")
                 .toString()
                 .split(',')
                 .size(),
             3);
    const QVariantList second =
        CurveSample::rows(
            m_curves,
            QStringLiteral(
                "SELECT c.Irradiance, c.STCAlgorithm, c.ModuleSeries, c.ModuleParallel, t.Colour, "
                "c.STC_Rs FROM Curves c JOIN TreeNodes t ON t.CurveID = c.CurveID WHERE MemLocation = 2"))
            .value(0);
    QCOMPARE(second[0].toInt(), 812);
    QCOMPARE(second[1].toInt(), 1);
    QCOMPARE(second[2].toInt(), 15);
    QCOMPARE(second[3].toInt(), 1);
    QCOMPARE(second[4].toString(), QColor(Qt::darkBlue).name());
    QCOMPARE(second[5].toDouble(), 0.3);
    QVERIFY(CurveSample::value(m_curves, "SELECT ModuleID FROM Curves WHERE MemLocation = 3").isNull());
}

void TestCurveJob::reportAndPointsSayWhatTheFileHolds()
{
    const QStringList pages = outputOf("pdftotext", {"-layout", path("out/report.pdf"), "-"}).split('\f');
    // There is one behind each page.
    QCOMPARE(pages.size(), 3);
    const quint32 id =
        CurveSample::value(m_curves, "SELECT CurveID FROM Curves WHERE MemLocation = 2").toUInt();
    const QMap<QString, QString> numbers = reportNumbers(m_curves, id);
    QStringList row{"String 2"};
    for (const QString &cell : valueCellNames())
        row.append(numbers.value(cell));
    QVERIFY2(pages[0].simplified().contains(row.join(' ')), qPrintable(row.join(' ') + pages[0]));
    QVERIFY(pages[0].indexOf("String 1") < pages[0].indexOf("String 2"));
    QVERIFY(pages[1].contains("String 2 (812)"));
    QVERIFY(pages[1].contains("Voltage (V)"));
    for (const char *kind : {"MEAS", "PWR", "STC", "STC PWR"}) {
        const QList<QByteArray> lines =
            readFile(path(QString("out/2 %1.csv").arg(QLatin1String(kind)))).split('\n');
        QCOMPARE(lines[0], QByteArray("String 2 ") + kind);
        QVERIFY(lines[3].startsWith("812,"));
        QCOMPARE(lines[5], QByteArray(QByteArray(kind).contains("PWR") ? "V,P" : "V,I"));
        QVERIFY(lines.size() > 100);
    }
    if (qEnvironmentVariableIsSet("KELMAR_SCREENSHOTS"))
        outputOf("pdftoppm", {"-r", "110", "-png", path("out/report.pdf"),
                              qEnvironmentVariable("KELMAR_SCREENSHOTS") + "/curve report"});
}

void TestCurveJob::anotherStartFindsItAllAgain()
{
    start({m_curves}, [this](MainWindow &window, BoxWatcher &, int) {
        const Bench bench(window);
        QVERIFY(bench.document());
        bench.tree()->expandAll();
        QCOMPARE(bench.model()->rowCount(bench.at({m_tester})), 3);
        QVERIFY(!bench.at(m_first).isValid());
        bench.click(m_second);
        QTRY_COMPARE(bench.lines("STCLineCount"), 1);
        QCOMPARE(bench.lines("MEASLineCount"), 0);
        QCOMPARE(bench.graph()->linesStc().begin()->second->pen().color(), QColor(Qt::darkBlue));
        Hands::clickToolButton(bench.document(), "actionShowNOM");
        QTRY_COMPARE(bench.lines("VisibleLineCount"), 2);
        QVERIFY(!bench.document()->isModified());
    });
}

void TestCurveJob::downloadBringsTheCurvesOfTheDay()
{
    const QString fetched = path("tester/fetched.csv");
    QFile::remove(fetched);
    start({m_curves}, [&](MainWindow &window, BoxWatcher &watcher, int) {
        const Bench bench(window);
        QFile::remove(Datalogger::programPath());
        QVERIFY(QFile::copy(QStringLiteral(KELMAR_DATALOGGER), Datalogger::programPath()));
        qputenv("KELMAR_STANDIN_AUTO", "1");
        qputenv("KELMAR_STANDIN_FILE", fetched.toLocal8Bit());
        watcher.expect("Would you like to import the last file you just downloaded?", QMessageBox::Yes);
        Hands::clickToolButton(bench.document(), "actionDownload");
        QTRY_VERIFY(bench.at({"fetched.csv"}).isValid());
        QTRY_VERIFY(!QApplication::activeModalWidget());
        QVERIFY(bench.model()->rowCount(bench.at({"fetched.csv"})) > 0);
        bench.click({"fetched.csv"});
        QTRY_VERIFY(bench.lines("VisibleLineCount") > 0);
        // The report's own import dialog has nothing to do with it.
        QVERIFY(!window.findChild<QDialog *>("DialogImportResults")->isVisible());
        QVERIFY(QFile::remove(Datalogger::programPath()));
        watcher.expect("Save changes to Roof.kelcrv?", QMessageBox::No);
    });
    QCOMPARE(CurveSample::value(m_curves, "SELECT count(*) FROM TreeNodes").toInt(), 4);
}

void TestCurveJob::aGermanSessionSpeaksGermanFromImportToReport()
{
    QSettings(Identity::organisationName(), Identity::applicationName()).setValue("locale", "de");
    const QString german = TestHome::instance()->projectsRoot() + "/Dach.kelcrv";
    const QString tester = "Roof south (German).csv";
    m_opened.clear();
    QVERIFY(QFile::copy(m_curves, german));
    start({german}, [&](MainWindow &window, BoxWatcher &watcher, int) {
        const Bench bench(window);
        watcher.expectFileDialog(QStringLiteral(KELMAR_SAMPLES "/") + tester);
        Hands::clickToolButton(bench.document(), "actionImportCSV");
        QTRY_VERIFY(bench.at({tester}).isValid());
        bench.tree()->expandAll();
        bench.click({tester});
        QTRY_VERIFY(bench.lines("VisibleLineCount") >= 3);
        for (const char *name : {"actionShowMEAS", "actionShowPWR"})
            Hands::clickToolButton(bench.document(), QLatin1String(name));
        WholeProgram::takePicture(&window, "Kennlinien");
        // Its strings one by one for the report.
        const QModelIndex folder = bench.at({tester});
        for (int row = 0; row < bench.model()->rowCount(folder); ++row)
            Hands::click(bench.tree(), bench.model()->index(row, 0, folder),
                         row ? Qt::ControlModifier : Qt::NoModifier);
        watcher.expectFileDialog(path("out/Bericht.pdf"));
        bench.document()->findChild<QAction *>("actionCurveReport")->trigger();
        QCOMPARE(m_opened, QStringList{path("out/Bericht.pdf")});
        bench.document()->save();
    });
    QSettings(Identity::organisationName(), Identity::applicationName()).setValue("locale", "en");
    const QString text = outputOf("pdftotext", {"-layout", path("out/Bericht.pdf"), "-"});
    QVERIFY(text.contains("PV Generator - Prüfbericht I-U Kennlinie"));
    QVERIFY(text.contains("Spannung"));
    const quint32 id =
        CurveSample::value(german,
                           QStringLiteral("SELECT CurveID FROM Curves WHERE CurvePoints LIKE '%#%' ORDER BY "
                                          "CurveID DESC LIMIT 1"))
            .toUInt();
    QLocale::setDefault(QLocale("de"));
    const QMap<QString, QString> numbers = reportNumbers(german, id);
    QLocale::setDefault(QLocale("en"));
    QVERIFY(numbers.value("STC_VOC").contains(','));
    for (const char *cell : {"MEAS_PWR", "STC_PWR", "MEAS_VOC", "STC_VOC", "STC_VMPP", "STC_ISC", "STC_IMPP"})
        QVERIFY2(text.contains(numbers.value(QLatin1String(cell))), cell);
    if (qEnvironmentVariableIsSet("KELMAR_SCREENSHOTS"))
        outputOf("pdftoppm", {"-r", "110", "-png", path("out/Bericht.pdf"),
                              qEnvironmentVariable("KELMAR_SCREENSHOTS") + "/Kennlinienbericht"});
}

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0);
    TestHome home;
    TestCurveJob test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_curvejob.moc"
