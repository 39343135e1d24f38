#include "app/core/Identity.h"
#include "app/document/AbstractDocument.h"
#include "app/shell/MainWindow.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/support/MenuWatcher.h"
#include "tests/support/Patience.h"
#include "tests/support/TestHome.h"
#include "tests/support/TextRoom.h"
#include "tests/whole/Hands.h"
#include "tests/whole/WholeProgram.h"
#include "tests/whole/WindowLook.h"

#include <QtTest>
#include <QtWidgets>
#include <qwt_plot.h>
#include <qwt_scale_widget.h>

namespace {

/// A job with a curve file, in the language of the session.
QString inJob(bool german, const char *file, const char *germanFile)
{
    return TestHome::instance()->projectsRoot() + '/' + QString::fromUtf8(german ? germanFile : file);
}

/// What a user sees of a curve file.
struct CurveDesk
{
    explicit CurveDesk(AbstractDocument *curves)
        : document(curves), tree(curves->findChild<QTreeView *>()), folder(tree->model()->index(0, 0))
    {
        tree->expandAll();
        Hands::click(tree, folder);
    }

    QAction *action(const char *name) const { return document->findChild<QAction *>(QLatin1String(name)); }
    QModelIndex string() const { return tree->model()->index(0, 0, folder); }
    QPoint placeOf(const QModelIndex &index) const { return tree->visualRect(index).center(); }
    QPoint emptyPlace() const { return {5, tree->viewport()->height() - 5}; }
    void openMenu(const QPoint &place) const { emit tree->customContextMenuRequested(place); }
    /// Chooses an entry of the first string's menu.
    void choose(const char *name) const
    {
        Hands::click(tree, string());
        const MenuWatcher menu(action(name)->text());
        openMenu(placeOf(string()));
        QTRY_VERIFY2(menu.menus() > 0, name);
    }

    AbstractDocument *document;
    QTreeView *tree;
    QModelIndex folder;
};

void chooseTab(QWidget *dialog, int tab)
{
    dialog->findChild<QTabWidget *>()->setCurrentIndex(tab);
}

void press(QWidget *dialog, const char *button)
{
    QTest::mouseClick(dialog->findChild<QAbstractButton *>(QLatin1String(button)), Qt::LeftButton);
}

} // namespace

/// Every window, dialog, box and menu of curve files in both languages, as tst_everywindow looks at the
/// others.
class TestCurveWindows : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void curveFile_data() { languages(); }
    void curveFile();
    void graphCanBeReadOnADarkDesktop_data() { languages(); }
    void graphCanBeReadOnADarkDesktop();
    void menus_data() { languages(); }
    void menus();
    void details_data() { languages(); }
    void details();
    void modules_data() { languages(); }
    void modules();
    void colour_data() { languages(); }
    void colour();
    void boxes_data() { languages(); }
    void boxes();
    void missingCatalogue_data() { languages(); }
    void missingCatalogue();

private:
    using Visit = std::function<void(const CurveDesk &desk, BoxWatcher &watcher)>;

    static void languages();
    void open(
        const Visit &visit, const WholeProgram::Preparation &prepare = [](BoxWatcher &) {});
    QString named(const QString &name) const { return (m_german ? "de " : "en ") + name; }
    QString word(const char *english, const char *german) const
    {
        return QString::fromUtf8(m_german ? german : english);
    }
    void lookAtMenu(const std::function<void()> &openMenu, const QString &name) const;
    void lookAtModules(QWidget *manager, BoxWatcher &watcher) const;
    std::function<void(QWidget *)> boxLook(const QString &name) const;

    bool m_german = false;
};

void TestCurveWindows::languages()
{
    QTest::addColumn<bool>("german");
    QTest::newRow("English") << false;
    QTest::newRow("German") << true;
}

void TestCurveWindows::init()
{
    QFETCH(bool, german);
    m_german = german;
    const QString root = TestHome::instance()->projectsRoot();
    QDir(root).removeRecursively();
    QDir(TestHome::instance()->dataFolder()).removeRecursively();
    const QString job = german ? "Sonnenweg 12" : "Sunny Lane 12";
    QDirIterator files(QStringLiteral(KELMAR_SAMPLES "/") + job, QDir::Files);
    while (files.hasNext()) {
        const QString file = files.next();
        writeFile(root + '/' + files.fileName(), readFile(file));
    }
    writeFile(TestHome::instance()->dataFolder() + "/modules.db", readFile(KELMAR_MODULE_CATALOGUE));
    QSettings store(Identity::organisationName(), Identity::applicationName());
    store.clear();
    store.setValue("locale", german ? "de_DE" : "en_GB");
    store.setValue("Directories/RootDir", root);
    store.setValue("Welcome/show", false);
}

void TestCurveWindows::cleanup()
{
    CurveSample::forgetCatalogue();
}

/// One start of the program to its end, with the job's curve file in front.
void TestCurveWindows::open(const Visit &visit, const WholeProgram::Preparation &prepare)
{
    bool visited = false;
    const auto prepared = [&prepare](BoxWatcher &watcher) {
        WindowLook::useColours();
        prepare(watcher);
    };
    WholeProgram::run({}, prepared, [&](MainWindow &window, BoxWatcher &watcher, int) {
        window.resize(1000, 720);
        const QPointer<AbstractDocument> document =
            window.openDocument(inJob(m_german, "Roof south.kelcrv", "Dach Süd.kelcrv"));
        QVERIFY(document);
        visit(CurveDesk(document), watcher);
        if (document)
            document->setModified(false);
        visited = true;
    });
    QVERIFY(visited);
}

void TestCurveWindows::curveFile()
{
    open([this](const CurveDesk &desk, BoxWatcher &watcher) {
        QWidget *window = desk.document->window();
        WindowLook::at(window, named("main window, curves"));
        const auto *bar = desk.document->findChild<QToolBar *>();
        for (QAction *action : bar->actions()) {
            if (action->isCheckable() && !action->isChecked())
                Hands::clickToolButton(desk.document, action->objectName());
        }
        WindowLook::at(window, named("main window, curves, all lines"));
        // As large as the window is at the first start.
        window->resize(751, 617);
        WindowLook::at(window, named("main window, curves, small"));
        Hands::clickToolButton(desk.document, "actionShowIV");
        Hands::clickToolButton(desk.document, "actionShowPWR");
        WindowLook::at(window, named("main window, curves, no lines"));
        watcher.lookAtEach(boxLook("save changes"));
        desk.document->setModified(true);
        watcher.expect(word("Save changes", "speichern"), QMessageBox::No);
        QVERIFY(window->close());
    });
}

void TestCurveWindows::graphCanBeReadOnADarkDesktop()
{
    open(
        [](const CurveDesk &desk, BoxWatcher &) {
            const QwtPlot *plot = desk.document->findChild<QwtPlot *>();
            const QImage window = desk.document->window()->grab().toImage();
            const QPoint corner = plot->mapTo(desk.document->window(), QPoint(1, 1));
            const int ground = window.pixelColor(corner * window.devicePixelRatio()).lightness();
            for (const int axis : {QwtPlot::xBottom, QwtPlot::yLeft}) {
                const QWidget *scale = plot->axisWidget(axis);
                QVERIFY(qAbs(scale->palette().color(QPalette::Text).lightness() - ground) > 150);
                QVERIFY(qAbs(scale->palette().color(QPalette::WindowText).lightness() - ground) > 150);
            }
        },
        [](BoxWatcher &) { WindowLook::useDarkColours(); });
}

void TestCurveWindows::lookAtMenu(const std::function<void()> &openMenu, const QString &name) const
{
    MenuWatcher menu;
    menu.whileOpen = [&] {
        WindowLook::atMenu(qobject_cast<QMenu *>(QApplication::activePopupWidget()), named(name));
    };
    openMenu();
    QTRY_VERIFY2(menu.menus() > 0, qPrintable(name));
}

void TestCurveWindows::menus()
{
    open([this](const CurveDesk &desk, BoxWatcher &) {
        lookAtMenu([&] { desk.openMenu(desk.placeOf(desk.string())); }, "menu of a string");
        lookAtMenu([&] { desk.openMenu(desk.placeOf(desk.folder)); }, "menu of a folder");
        lookAtMenu([&] { desk.openMenu(desk.emptyPlace()); }, "menu of the tree of curves");
        QMenu exports;
        for (const char *name : {"actionExportPoints", "actionExportPointsSTC", "actionExportPWRPoints",
                                 "actionExportPWRPointsSTC"})
            exports.addAction(desk.action(name));
        exports.popup(desk.tree->mapToGlobal(QPoint(40, 40)));
        WindowLook::atMenu(&exports, named("menu of exports"));
        exports.close();
    });
}

void TestCurveWindows::details()
{
    open([this](const CurveDesk &desk, BoxWatcher &watcher) {
        watcher.expectDialog("IVCurve::CurveDetailsDialog", [&](QWidget *dialog) {
            WindowLook::atDialog(dialog, named("details, test"));
            chooseTab(dialog, 1);
            WindowLook::atDialog(dialog, named("details, module"));
            dialog->findChild<QRadioButton *>("radioIEC")->click();
            WindowLook::atDialog(dialog, named("details, other method"));
            watcher.expectDialog("QInputDialog", [this](QWidget *entry) {
                WindowLook::atDialog(entry, named("details, percent"));
                entry->close();
            });
            press(dialog, "btnAlphaPercent");
            // However small the user makes it.
            dialog->resize(10, 10);
            WindowLook::at(dialog, named("details, small"));
            watcher.expectAndLook(word("automatically saved", "automatisch gespeichert"), QMessageBox::Ok,
                                  boxLook("saved at once"));
            dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
        });
        desk.choose("actionViewDetails");
    });
}

void TestCurveWindows::lookAtModules(QWidget *manager, BoxWatcher &watcher) const
{
    auto *table = manager->findChild<QTableWidget *>("tableModules");
    table->setCurrentCell(1, 0);
    WindowLook::atDialog(manager, named("modules"));
    const auto edit = [&](const char *button, const QString &name) {
        watcher.expectDialog("IVCurve::CurveModulesEditDlg", [this, name](QWidget *editor) {
            WindowLook::atDialog(editor, named(name));
            editor->close();
        });
        press(manager, button);
    };
    edit("btnEdit", "module, preloaded");
    edit("btnAdd", "module, new");
    press(manager, "btnCopy");
    table->setCurrentCell(2, 0);
    edit("btnEdit", "module, own");
    manager->resize(10, 10);
    WindowLook::at(manager, named("modules, small"));
    table->clearSelection();
    table->setCurrentCell(0, 0);
    watcher.expectAndLook(word("preloaded", "mitgeliefert"), QMessageBox::Cancel,
                          boxLook("preloaded module"));
    press(manager, "btnDelete");
}

void TestCurveWindows::modules()
{
    open([this](const CurveDesk &desk, BoxWatcher &watcher) {
        watcher.expectDialog("IVCurve::CurveModulesChooser", [this](QWidget *chooser) {
            auto *list = chooser->findChild<QComboBox *>("comboModule");
            list->setCurrentIndex(list->count() / 2);
            WindowLook::atDialog(chooser, named("module chooser"));
            chooser->close();
        });
        desk.choose("actionAssignModule");
        watcher.expectDialog("IVCurve::CurveModulesDlg", [this, &watcher](QWidget *manager) {
            lookAtModules(manager, watcher);
            manager->close();
        });
        desk.action("actionManageModules")->trigger();
    });
}

void TestCurveWindows::colour()
{
    open([this](const CurveDesk &desk, BoxWatcher &watcher) {
        watcher.expectDialog("QColorDialog", [this](QWidget *dialog) {
            WholeProgram::takePicture(dialog, named("colour"));
            QStringList buttons;
            for (const QAbstractButton *button : dialog->findChildren<QAbstractButton *>())
                buttons.append(button->text().remove('&'));
            QVERIFY2(buttons.contains(word("Cancel", "Abbrechen")), qPrintable(buttons.join(',')));
            dialog->close();
        });
        desk.choose("actionSetColour");
    });
}

std::function<void(QWidget *)> TestCurveWindows::boxLook(const QString &name) const
{
    return [this, name](QWidget *box) {
        if (qobject_cast<QMessageBox *>(box))
            WindowLook::atDialog(box, named("box, " + name));
    };
}

void TestCurveWindows::boxes()
{
    open([this](const CurveDesk &desk, BoxWatcher &watcher) {
        const QString tester = inJob(m_german, "Roof south.csv", "Dach Süd.csv");
        QList<QByteArray> lines = readFile(tester).split('\n');
        lines[2].replace(m_german ? ";1" : ",1", m_german ? ";2" : ",2");
        writeFile(tester, lines.join('\n'));
        watcher.expectFileDialog(tester);
        watcher.expectAndLook(word("Checksum failed", "Falsche Prüfsumme"), QMessageBox::Ok,
                              boxLook("check sum"));
        desk.action("actionImportCSV")->trigger();
        desk.tree->expandAll();
        WindowLook::at(desk.document->window(), named("main window, curves, imported"));
    });
}

void TestCurveWindows::missingCatalogue()
{
    CurveSample::forgetCatalogue();
    const QString missing = word("File is missing", "Datei fehlt");
    open(
        [&](const CurveDesk &desk, BoxWatcher &watcher) {
            watcher.expect(missing, QMessageBox::Ok);
            watcher.expectDialog("IVCurve::CurveModulesDlg", [this](QWidget *manager) {
                WindowLook::atDialog(manager, named("modules, none"));
                manager->close();
            });
            desk.action("actionManageModules")->trigger();
        },
        [&](BoxWatcher &watcher) {
            // Each of the three strings asks for its module.
            watcher.expectAndLook(missing, QMessageBox::Ok, boxLook("missing catalogue"));
            watcher.expect(missing, QMessageBox::Ok);
            watcher.expect(missing, QMessageBox::Ok);
        });
}

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0);
    TestHome home;
    TestCurveWindows test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_curvewindows.moc"
