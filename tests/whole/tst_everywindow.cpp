#include "app/core/Identity.h"
#include "app/document/AbstractDocument.h"
#include "app/shell/MainWindow.h"
#include "diagram/DialogComponentSettings.h"
#include "report/GraphicalReportDocument.h"
#include "report/ReportScene.h"
#include "report/items/ReportPage.h"
#include "report/items/ReportTable.h"
#include "report/items/ReportTableCell.h"
#include "tests/support/MenuWatcher.h"
#include "tests/support/Patience.h"
#include "tests/support/TestHome.h"
#include "tests/support/TextRoom.h"
#include "tests/whole/Hands.h"
#include "tests/whole/KeyboardReach.h"
#include "tests/whole/WholeProgram.h"
#include "tests/whole/WindowLook.h"

#include <QtTest>
#include <QtWidgets>

namespace {

const char job[] = "Sunny Lane 12";

QString inJob(const QString &file)
{
    return TestHome::instance()->projectsRoot() + '/' + QLatin1String(job) + '/' + file;
}

/// A file of the tester as it is in the language of the session.
QString results(bool german)
{
    return inJob(german ? "Roof south (German).csv" : "Roof south.csv");
}

QAction *action(const MainWindow &window, const char *name)
{
    return window.findChild<QAction *>(QLatin1String(name));
}

/// A favourite that differs from the pristine document, so that the settings tell when it was changed.
void changeFavourites()
{
    for (const char *suffix : {"kelir", "kelatr", "kelvc", "kelchk"})
        writeFile(TestHome::instance()->dataFolder() + "/default." + QLatin1String(suffix), "changed");
}

/// Takes pictures of the splash, with its message and without, before it goes.
class SplashPictures : public QObject
{
public:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        auto *splash = qobject_cast<QSplashScreen *>(object);
        if (splash && event->type() == QEvent::Show) {
            message = splash->message();
            whole = splash->grab().toImage();
            splash->clearMessage();
            bare = splash->grab().toImage();
        }
        return false;
    }

    QString message;
    QImage whole;
    QImage bare;
};

} // namespace

/// Every window, dialog, box and menu of the program in both languages: texts have room, no key leads to two
/// things, everything has a name and can be reached without a mouse. With KELMAR_SCREENSHOTS a picture of
/// each is kept.
class TestEveryWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void narrowedTextsAreFound();
    void sharedAcceleratorsAreFound();
    void whatTabDoesNotReachIsFound();
    void splashShowsNameAndVersion();
    void languageChooser();
    void welcome_data() { languages(); }
    void welcome();
    void mainWindow_data() { languages(); }
    void mainWindow();
    void menus_data() { languages(); }
    void menus();
    void dialogs_data() { languages(); }
    void dialogs();
    void boxes_data() { languages(); }
    void boxes();
    void boxesOfTheProjectsRoot_data() { languages(); }
    void boxesOfTheProjectsRoot();
    void dialogsOfTheToolkit_data() { languages(); }
    void dialogsOfTheToolkit();
    void menusOnAPage_data() { languages(); }
    void menusOnAPage();
    void menusInADiagram_data() { languages(); }
    void menusInADiagram();

private:
    using Visit = std::function<void(MainWindow &window, BoxWatcher &watcher)>;

    static void languages();
    void start(
        const Visit &visit, const WholeProgram::Preparation &prepare = [](BoxWatcher &) {});
    /// The name of a picture: the language goes first.
    QString named(const QString &name) const { return m_language + ' ' + name; }
    void lookAtMenu(QWidget *over, const std::function<void()> &open, const QString &name) const;
    void lookAtEachBox(BoxWatcher &watcher, const QStringList &names) const;
    AbstractDocument *newDocument(MainWindow &window, const char *actionName) const;

    QString m_language;
};

void TestEveryWindow::languages()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("English") << "en_GB";
    QTest::newRow("German") << "de_DE";
}

void TestEveryWindow::init()
{
    const QString root = TestHome::instance()->projectsRoot();
    QDir(root).removeRecursively();
    QVERIFY(QDir().mkpath(root + "/Harbour Street 4"));
    QVERIFY(QDir().mkpath(root + '/' + QLatin1String(job)));
    for (const QFileInfo &file : QDir(KELMAR_SAMPLES).entryInfoList(QDir::Files))
        QVERIFY(QFile::copy(file.filePath(), inJob(file.fileName())));
    QDir(TestHome::instance()->dataFolder()).removeRecursively();
    QSettings store(Identity::organisationName(), Identity::applicationName());
    store.clear();
    const QString data = QTest::currentDataTag();
    m_language = data == "German" ? "de" : "en";
    store.setValue("locale", data == "German" ? "de_DE" : "en_GB");
    store.setValue("Directories/RootDir", root);
    store.setValue("Welcome/show", false);
}

/// One start of the program to its end, with `visit` in its one main window.
void TestEveryWindow::start(const Visit &visit, const WholeProgram::Preparation &prepare)
{
    int windows = 0;
    WholeProgram::run(
        {},
        [&prepare](BoxWatcher &watcher) {
            WindowLook::useColours();
            prepare(watcher);
        },
        [&](MainWindow &window, BoxWatcher &watcher, int) {
            ++windows;
            visit(window, watcher);
        });
    QCOMPARE(windows, 1);
}

AbstractDocument *TestEveryWindow::newDocument(MainWindow &window, const char *actionName) const
{
    auto *tree = window.findChild<QTreeView *>("treeView");
    action(window, actionName)->trigger();
    const QString path = tree->currentIndex().data(QFileSystemModel::FilePathRole).toString();
    return window.openDocument(path);
}

void TestEveryWindow::narrowedTextsAreFound()
{
    start([](MainWindow &, BoxWatcher &) {
        QWidget window;
        window.resize(400, 300);
        const QString text = "Übergabe-Checkliste wiederherstellen";
        const QVector<QWidget *> widgets{new QLabel(text, &window), new QPushButton(text, &window),
                                         new QCheckBox(text, &window), new QLabel(text, &window)};
        qobject_cast<QLabel *>(widgets.last())->setWordWrap(true);
        for (int i = 0; i < widgets.size(); ++i)
            widgets.at(i)->setGeometry(10, 60 * i, 360, 50);
        window.show();
        QCOMPARE(TextRoom::clippedTexts(&window), QStringList());
        for (QWidget *widget : widgets)
            widget->resize(60, 24);
        QCOMPARE(TextRoom::clippedTexts(&window).size(), widgets.size());
        for (int i = 0; i < widgets.size(); ++i)
            widgets.at(i)->setGeometry(200, 60 * i, 360, 50);
        QCOMPARE(TextRoom::clippedTexts(&window).size(), widgets.size());
    });
}

void TestEveryWindow::sharedAcceleratorsAreFound()
{
    start([](MainWindow &, BoxWatcher &) {
        QMenu menu;
        menu.addAction("&Schließen");
        menu.addAction("&Vorheriges");
        menu.addAction("Speichern");
        QCOMPARE(KeyboardReach::sharedAccelerators(&menu), QStringList());
        menu.addAction("Fenster &schließen");
        QCOMPARE(KeyboardReach::sharedAccelerators(&menu).size(), 1);

        QDialog dialog;
        QVBoxLayout layout(&dialog);
        layout.addWidget(new QPushButton("&Name"));
        layout.addWidget(new QCheckBox("Groß/&klein"));
        dialog.show();
        QCOMPARE(KeyboardReach::sharedAccelerators(&dialog), QStringList());
        auto *group = new QGroupBox("&Neu");
        layout.addWidget(group);
        group->show();
        QCOMPARE(KeyboardReach::sharedAccelerators(&dialog).size(), 1);
    });
}

void TestEveryWindow::whatTabDoesNotReachIsFound()
{
    start([](MainWindow &, BoxWatcher &) {
        QDialog dialog;
        QVBoxLayout layout(&dialog);
        auto *edit = new QPlainTextEdit("swallows Tab");
        edit->setObjectName("edit");
        layout.addWidget(edit);
        layout.addWidget(new QPushButton("OK"));
        dialog.show();
        edit->setFocus();
        QCOMPARE(KeyboardReach::notReachedByTab(&dialog).size(), 1);
        edit->setTabChangesFocus(true);
        QCOMPARE(KeyboardReach::notReachedByTab(&dialog), QStringList());
    });
}

void TestEveryWindow::splashShowsNameAndVersion()
{
    SplashPictures splash;
    start([](MainWindow &, BoxWatcher &) {}, [&splash](BoxWatcher &) { qApp->installEventFilter(&splash); });
    WholeProgram::keepPicture(splash.whole, named("splash"));
    QCOMPARE(splash.message, Identity::applicationVersion());
    // The name is part of the picture; the version is written on its lower left.
    QRect written;
    for (int y = 0; y < splash.bare.height(); ++y) {
        for (int x = 0; x < splash.bare.width(); ++x) {
            if (splash.bare.pixel(x, y) != splash.whole.pixel(x, y))
                written |= QRect(x, y, 1, 1);
        }
    }
    QVERIFY(!written.isEmpty());
    QVERIFY(written.top() > splash.bare.height() * 3 / 4 && written.right() < splash.bare.width() / 2);
}

void TestEveryWindow::languageChooser()
{
    // Before a language was chosen there is no catalogue: this dialog speaks English to everybody.
    QSettings(Identity::organisationName(), Identity::applicationName()).remove("locale");
    start([](MainWindow &, BoxWatcher &) {},
          [this](BoxWatcher &watcher) {
              watcher.expectDialog("DialogLanguageChooser", [this](QWidget *dialog) {
                  WindowLook::atDialog(dialog, named("language chooser"));
                  dialog->close();
              });
          });
}

void TestEveryWindow::welcome()
{
    QSettings(Identity::organisationName(), Identity::applicationName()).setValue("Welcome/show", true);
    start([](MainWindow &, BoxWatcher &) {},
          [this](BoxWatcher &watcher) {
              watcher.expectDialog("DialogWelcome", [this](QWidget *dialog) {
                  WindowLook::at(dialog, named("welcome"));
                  dialog->findChild<QRadioButton *>("continueUsing")->setFocus();
                  Hands::press(dialog, Qt::Key_Space);
                  QVERIFY(dialog->findChild<QDialogButtonBox *>()->isEnabled());
                  WindowLook::atDialog(dialog, named("welcome, chosen"));
                  dialog->close();
              });
          });
}

void TestEveryWindow::mainWindow()
{
    start([this](MainWindow &window, BoxWatcher &watcher) {
        window.resize(1000, 720);
        auto *tree = window.findChild<QTreeView *>("treeView");
        QTRY_VERIFY(tree->model()->rowCount(tree->rootIndex()) > 0);
        tree->expandAll();
        QTest::qWait(200);
        WindowLook::at(&window, named("main window, empty"));
        for (const char *name : {"actionNewInspectionReport", "actionNewVerificationCertificate",
                                 "actionNewChecklist", "actionNewTestReport"})
            QVERIFY(newDocument(window, name));
        WindowLook::at(&window, named("main window, report"));
        QVERIFY(window.openDocument(inJob("Roof south.kelid")));
        Hands::clickToolButton(window.activeDocument(), "actionZoomOut");
        WindowLook::at(&window, named("main window, diagram"));
        Hands::clickToolButton(window.activeDocument(), "actionWire");
        WindowLook::at(&window, named("main window, wiring"));
        auto *dock = window.findChild<QDockWidget *>("documentSearch");
        dock->raise();
        for (QGroupBox *group : dock->findChildren<QGroupBox *>())
            group->setChecked(true);
        WindowLook::at(&window, named("main window, search criteria"));
        for (QGroupBox *group : dock->findChildren<QGroupBox *>())
            group->setChecked(group->objectName() == "fileGroup");
        Hands::click(dock->findChild<QPushButton *>("search"));
        QTRY_COMPARE(window.activeDocument()->fileName(), QString("Search Results"));
        WindowLook::at(&window, named("main window, search results"));
        dock->findChild<QLineEdit *>("nameEdit")->setText("nowhere");
        Hands::click(dock->findChild<QPushButton *>("search"));
        WindowLook::at(&window, named("main window, no results"));
        window.tileDocuments();
        WindowLook::at(&window, named("main window, tiled"));
        window.documents().at(1)->setModified(true);
        watcher.lookAtEach([this](QWidget *box) { WindowLook::atDialog(box, named("box, save changes")); });
        watcher.expect(window.documents().at(1)->fileName(), QMessageBox::No);
        QVERIFY(window.close());
    });
}

void TestEveryWindow::menus()
{
    start([this](MainWindow &window, BoxWatcher &) {
        QVERIFY(newDocument(window, "actionNewChecklist"));
        QStringList bar;
        for (const char *name : {"menuFile", "menuEdit", "menuLanguage", "menuWindow", "menuHelp"}) {
            auto *menu = window.findChild<QMenu *>(QLatin1String(name));
            bar.append(menu->title());
            menu->popup(window.mapToGlobal(QPoint(20, 40)));
            WindowLook::atMenu(menu, named(QLatin1String(name)));
            menu->close();
        }
        QCOMPARE(QSet<QString>(bar.begin(), bar.end()).size(), bar.size());
        auto *tree = window.findChild<QTreeView *>("treeView");
        QTRY_VERIFY(tree->visualRect(tree->currentIndex()).isValid());
        lookAtMenu(
            tree,
            [tree] {
                emit tree->customContextMenuRequested(tree->visualRect(tree->currentIndex()).center());
            },
            "menu of a file");
        lookAtMenu(
            tree,
            [tree] { emit tree->customContextMenuRequested(QPoint(5, tree->viewport()->height() - 5)); },
            "menu of the tree");
    });
}

/// Looks at the menu that `open` brings up over a widget.
void TestEveryWindow::lookAtMenu(QWidget *over, const std::function<void()> &open, const QString &name) const
{
    Hands::bringToFront(over->window());
    MenuWatcher menu;
    menu.whileOpen = [&] {
        WindowLook::atMenu(qobject_cast<QMenu *>(QApplication::activePopupWidget()), named(name));
    };
    open();
    QTRY_VERIFY2(menu.menus() > 0, qPrintable(name));
}

void TestEveryWindow::dialogs()
{
    start([this](MainWindow &window, BoxWatcher &watcher) {
        for (const QString changed : {"", ", changed"}) {
            if (!changed.isEmpty())
                changeFavourites();
            watcher.expectDialog("DialogSettings", [&](QWidget *dialog) {
                WindowLook::atDialog(dialog, named("settings, projects"));
                dialog->findChild<QTabWidget *>()->setCurrentIndex(1);
                WindowLook::atDialog(dialog, named("settings, favourites" + changed));
                // However small the user makes it.
                dialog->resize(10, 10);
                WindowLook::at(dialog, named("settings, small"));
                dialog->close();
            });
            action(window, "actionSettings")->trigger();
        }
        watcher.expectDialog("DialogAbout", [this](QWidget *dialog) {
            WindowLook::at(dialog, named("about"));
            dialog->close();
        });
        action(window, "actionAbout")->trigger();

        watcher.expectFileDialog(results(m_language == "de"));
        action(window, "actionImport")->trigger();
        auto *import = window.findChild<QDialog *>("DialogImportResults");
        QTRY_VERIFY(import->isVisible());
        WindowLook::atDialog(import, named("import"));
        import->resize(1100, 500);
        WindowLook::at(import, named("import, wide"));
        import->close();

        DialogComponentSettings caption("KM 6000 TL\n6 kW", &window);
        caption.show();
        WindowLook::atDialog(&caption, named("caption"));
    });
}

/// Looks at the boxes that follow, one name for each.
void TestEveryWindow::lookAtEachBox(BoxWatcher &watcher, const QStringList &names) const
{
    auto next = std::make_shared<int>(0);
    watcher.lookAtEach([this, names, next](QWidget *box) {
        WindowLook::atDialog(box, named("box, " + names.value((*next)++, "one more")));
    });
}

void TestEveryWindow::boxes()
{
    const bool german = m_language == "de";
    start([&](MainWindow &window, BoxWatcher &watcher) {
        auto *report = qobject_cast<GraphicalReportDocument *>(newDocument(window, "actionNewTestReport"));
        QVERIFY(report);
        lookAtEachBox(watcher, {"favourite"});
        watcher.expect(german ? "Favorit" : "favourite", QMessageBox::No);
        report->saveAsFavourite();

        // The three boxes about rows that cannot be written, each from the rows of the dialog.
        watcher.expectFileDialog(results(german));
        action(window, "actionImport")->trigger();
        auto *import = window.findChild<QDialog *>("DialogImportResults");
        QTRY_VERIFY(import->isVisible());
        auto *table = import->findChild<QTableView *>();
        lookAtEachBox(watcher, {"no room"});
        watcher.expect(german ? "kein Platz" : "No more room", QMessageBox::Ok);
        for (int i = 0; i < 7; ++i) {
            table->selectRow(4);
            import->findChild<QCommandLinkButton *>()->click();
        }
        report->undoStack()->setClean();
        lookAtEachBox(watcher, {"no place"});
        QVERIFY(newDocument(window, "actionNewChecklist"));
        watcher.expect(german ? "keine Stelle" : "Unable to find where", QMessageBox::Ok);
        import->findChild<QCommandLinkButton *>()->click();
        import->close();

        writeFile(inJob("Broken.kelid"), "<installation_diagram>");
        writeFile(inJob("Broken.kelir"), "no report");
        lookAtEachBox(watcher, {"no XML", "no report", "no datalogger"});
        watcher.expect("XML", QMessageBox::Ok);
        delete window.openDocument(inJob("Broken.kelid"));
        watcher.expect("Broken.kelir", QMessageBox::Ok);
        delete window.openDocument(inJob("Broken.kelir"));
        watcher.expect("VarnholdDatalogger", QMessageBox::Ok);
        action(window, "actionDownload")->trigger();

        lookAtEachBox(watcher, {"trash"});
        auto *tree = window.findChild<QTreeView *>("treeView");
        tree->setFocus();
        watcher.expect(german ? "Papierkorb" : "trash", QMessageBox::No);
        action(window, "actionDelete")->trigger();

        lookAtEachBox(watcher, {"language"});
        auto *menu = window.findChild<QMenu *>("menuLanguage");
        watcher.expect(german ? "Sprache" : "language", QMessageBox::Cancel);
        menu->actions().at(german ? 1 : 0)->trigger();
        window.closeDocument(report);
    });
}

void TestEveryWindow::boxesOfTheProjectsRoot()
{
    const bool german = m_language == "de";
    const QString missing = TestHome::instance()->path("gone/projects");
    QSettings(Identity::organisationName(), Identity::applicationName())
        .setValue("Directories/RootDir", missing);
    start(
        [&](MainWindow &window, BoxWatcher &watcher) {
            lookAtEachBox(watcher, {"create path"});
            watcher.expect(german ? "nicht vorhanden" : "does not exist", QMessageBox::No);
            watcher.expectDialog("DialogSettings", [&](QWidget *dialog) {
                dialog->findChild<QLineEdit *>("rootEdit")->setText(missing);
                dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
                QVERIFY(dialog->isVisible());
                dialog->close();
            });
            action(window, "actionSettings")->trigger();
        },
        [&](BoxWatcher &watcher) {
            watcher.expect(missing, QMessageBox::Ok);
            watcher.expectFileDialog(QString());
            watcher.expect(german ? "kein Projektverzeichnis" : "No projects directory", QMessageBox::Ok);
            auto next = std::make_shared<int>(0);
            watcher.lookAtEach([this, next](QWidget *box) {
                const QString number = QString::number(++*next);
                if (qobject_cast<QMessageBox *>(box))
                    WindowLook::atDialog(box, named("box, projects root " + number));
                else
                    WholeProgram::takePicture(box, named("projects root " + number));
            });
        });
}

void TestEveryWindow::dialogsOfTheToolkit()
{
    start([this](MainWindow &window, BoxWatcher &watcher) {
        auto *report = qobject_cast<GraphicalReportDocument *>(newDocument(window, "actionNewTestReport"));
        QString name;
        QStringList buttons;
        const auto look = [&](QWidget *dialog) {
            WholeProgram::takePicture(dialog, named(name));
            const QList<QAbstractButton *> all = dialog->findChildren<QAbstractButton *>();
            for (const QAbstractButton *button : all)
                buttons.append(button->text().remove('&'));
            QVERIFY2(buttons.contains(m_language == "de" ? "Abbrechen" : "Cancel"),
                     qPrintable(name + ": " + buttons.join(',')));
            buttons.clear();
        };
        watcher.lookAtEach(look);
        name = "file dialog, open";
        watcher.expectFileDialog(QString());
        action(window, "actionImport")->trigger();
        name = "file dialog, save";
        watcher.expectFileDialog(QString());
        report->scene()->exportToPdf();
        name = "print";
        watcher.expectDialog("QPrintDialog", [&](QWidget *dialog) {
            look(dialog);
            dialog->close();
        });
        report->scene()->print();
        name = "font";
        watcher.expectDialog("QFontDialog", [&](QWidget *dialog) {
            look(dialog);
            dialog->close();
        });
        auto *field = qobject_cast<ReportText *>(report->scene()->itemById("inspector"));
        QGraphicsSceneContextMenuEvent event(QEvent::GraphicsSceneContextMenu);
        MenuWatcher menu(m_language == "de" ? "Schrifteinstellungen..." : "Font Settings...");
        report->scene()->sendEvent(field, &event);
        window.closeDocument(report);
    });
}

void TestEveryWindow::menusOnAPage()
{
    start([this](MainWindow &window, BoxWatcher &) {
        auto *report = qobject_cast<GraphicalReportDocument *>(newDocument(window, "actionNewTestReport"));
        const auto menuOf = [&](QGraphicsItem *item, const QString &name) {
            lookAtMenu(
                &window,
                [&] {
                    QGraphicsSceneContextMenuEvent event(QEvent::GraphicsSceneContextMenu);
                    event.setScreenPos(window.mapToGlobal(QPoint(400, 300)));
                    report->scene()->sendEvent(item, &event);
                },
                name);
        };
        auto *field = qobject_cast<ReportText *>(report->scene()->itemById("inspector"));
        menuOf(field, "menu of a field");
        Hands::click(report->findChild<QGraphicsView *>(), field);
        Hands::type(&window, "A. Example");
        menuOf(report->scene()->focusItem(), "menu of a text");
        menuOf(report->scene()->pages().first(), "menu of a page");
        for (QGraphicsItem *item : report->scene()->items()) {
            if (item->type() == 0x10008)
                menuOf(item, "menu of an image");
        }
        report->undoStack()->setClean();
        window.closeDocument(report);
    });
}

void TestEveryWindow::menusInADiagram()
{
    start([this](MainWindow &window, BoxWatcher &) {
        AbstractDocument *document = window.openDocument(inJob("Roof south.kelid"));
        QVERIFY(document);
        auto *view = document->findChild<QGraphicsView *>();
        QMap<int, QGraphicsItem *> oneOfEachType;
        for (QGraphicsItem *item : view->scene()->items()) {
            if (item->type() >= 0x20000 && item->isVisible())
                oneOfEachType.insert(item->type(), item);
        }
        QVERIFY(oneOfEachType.size() >= 8);
        const auto menuAt = [&](const QPointF &place, const QString &name) {
            lookAtMenu(
                &window,
                [&] {
                    QGraphicsSceneContextMenuEvent event(QEvent::GraphicsSceneContextMenu);
                    event.setScenePos(place);
                    event.setScreenPos(window.mapToGlobal(QPoint(400, 300)));
                    QApplication::sendEvent(view->scene(), &event);
                },
                name);
        };
        menuAt(QPointF(-400, -400), "menu of the sheet");
        for (const QGraphicsItem *item : qAsConst(oneOfEachType)) {
            if (item->type() < 0x40000 && item->type() != 0x20006)
                menuAt(item->sceneBoundingRect().topLeft() + QPointF(3, 3),
                       "menu of a component " + QString::number(item->type() & 15));
        }
        menuAt(QPointF(20, -80), "menu of a caption");
        document->setModified(false);
    });
}

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0);
    TestHome home;
    TestEveryWindow test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_everywindow.moc"
