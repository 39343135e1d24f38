#include "report/GraphicalReportDocument.h"

#include "app/core/Folders.h"
#include "app/core/Shell.h"
#include "app/document/ZoomableGraphicsView.h"
#include "report/ReportScene.h"
#include "report/items/AddDeleteCommand.h"
#include "report/items/ReportPage.h"
#include "report/items/ReportResizableImage.h"
#include "report/items/ReportText.h"
#include "tests/report/ReportForm.h"
#include "tests/report/ReportSample.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QAction>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QSignalSpy>
#include <QToolBar>
#include <QUndoStack>

#include <memory>

using namespace ReportSample;

namespace {

/// A window with a workspace, a tree's stand-in beside it, and a Save of its own, as the main window has.
class WindowShell : public Shell
{
public:
    WindowShell()
    {
        m_window.setCentralWidget(area);
        save = m_window.menuBar()->addMenu(QStringLiteral("File"))->addAction(QStringLiteral("Save"));
        save->setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));
        tree->setFocusPolicy(Qt::StrongFocus);
        m_window.addToolBar(QStringLiteral("beside"))->addWidget(tree);
    }
    QWidget *window() override { return &m_window; }
    void import() override { ++imports; }
    void download() override { ++downloads; }

    QMdiArea *area = new QMdiArea;
    QWidget *tree = new QWidget;
    QAction *save = nullptr;
    int imports = 0;
    int downloads = 0;

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

/// What the user does to a field.
void type(GraphicalReportDocument &document, const char *id, const QString &text)
{
    document.show();
    QApplication::setActiveWindow(document.window());
    QVERIFY(QTest::qWaitForWindowActive(document.window()));
    document.view()->setFocus();
    document.scene()->setFocusItem(document.scene()->itemById(QLatin1String(id)), Qt::OtherFocusReason);
    QTest::keyClicks(document.view(), text);
}

ReportResizableImage *firstImage(const GraphicalReportDocument &document)
{
    const QList<AbstractReportItem *> images = itemsOfType(*document.scene(), ReportResizableImageType);
    return images.isEmpty() ? nullptr : qobject_cast<ReportResizableImage *>(images.first());
}

} // namespace

/// The window of a report: its tool bar, its saved state, and who owns what when images come and go.
class TestReportDocument : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_form = std::make_unique<ReportForm>(); }
    void cleanupTestCase() { m_form.reset(); }
    void init();

    void theToolBarHoldsItsActionsInOrder();
    void aFreshlyOpenedReportIsNotModified();
    void aFileThatCannotBeReadGivesADocumentThatIsNotValid();
    void typingEnablesSaveAndUndo();
    void savingMakesTheDocumentClean();
    void afterSaveAnUndoneStepMakesTheDocumentModifiedUntilItIsRedone();
    void aFailedSaveIsToldAndTheDocumentSaysItIsSaved();
    void closingAsksOnlyWhereChangesWouldBeLost_data();
    void closingAsksOnlyWhereChangesWouldBeLost();
    void saveAsFavouriteAsksFirst();
    void saveAsFavouriteSavesTheDocumentAndTheFavourite_data();
    void saveAsFavouriteSavesTheDocumentAndTheFavourite();
    void aFirstFavouriteCanBeReplacedByEveryUser();
    void setCurrentGivesAndTakesTheFocusOfTheScene();
    void downloadAndImportReachTheMainWindow();
    void downloadAndImportWithoutAMainWindowDoNothing();
    void controlSSavesOnceFromWhereverTheFocusIs();
    void controlSWithoutAMainWindowSaves();

    void deletingAnImageAndSavingRemovesItFromFileAndScene();
    void deletingAnImageUndoingAndSavingRemovesItFromFileAndScene();
    void anAddedImageThatWasUndoneIsStillWritten();
    void stepsOfAPurgedImageCanBeUndoneWithoutHarm();
    void anImageAddedDeletedAndSavedGoesWithItsCommand();
    void everyImageGoesExactlyOnce_data();
    void everyImageGoesExactlyOnce();
    void sceneAndStackMayGoInEitherOrder_data();
    void sceneAndStackMayGoInEitherOrder();
    void aDocumentMayCloseInTheMiddleOfAnEdit();
    void aDocumentMayCloseWhileItSaves_data();
    void aDocumentMayCloseWhileItSaves();

private:
    QString path() const { return TestHome::instance()->path(QStringLiteral("report.kelatr")); }
    std::unique_ptr<ReportForm> m_form;
};

void TestReportDocument::init()
{
    const QByteArray image =
        R"(<image index="1" x="500" y="60" width="40" height="20" scale="10" resizable="1"/>)";
    const QByteArray xml = ReportForm::xml("<page id=\"page1\"><text id=\"client\">Sunny Farm</text>"
                                           "<checkBox id=\"done\" checked=\"true\"/>" +
                                           image + "</page>");
    writeFile(path(), pack(xml, {{QStringLiteral("png"), png(4, 2)}}));
}

void TestReportDocument::theToolBarHoldsItsActionsInOrder()
{
    GraphicalReportDocument document(path());
    struct Expected
    {
        const char *name;
        const char *toolTip;
        const char *shortcut;
        bool enabled;
    };
    const Expected expected[] = {
        {"actionZoomIn", "Zoom In", "Ctrl++", true},
        {"actionZoomOut", "Zoom Out", "Ctrl--", true},
        {"", "", "", true},
        {"actionUndo", "Undo", "Ctrl+Z", false},
        {"actionRedo", "Redo", "Ctrl+Y", false},
        {"", "", "", true},
        {"actionSave", "Save", "Ctrl+S", false},
        {"actionSaveFavourite",
         "Save As Favourite. Next time you create a new report it look like this report.", "Ctrl+Alt+S",
         true},
        {"", "", "", true},
        {"actionDownload", "Download data from tester", "Ctrl+Alt+D", true},
        {"actionImport", "Import data from file", "Ctrl+Alt+I", true},
        {"", "", "", true},
        {"actionPrint", "Print", "Ctrl+P", true},
        {"actionExportToPdf", "Export to PDF", "Ctrl+Shift+E", true},
    };
    const QList<QAction *> actions = document.findChild<QToolBar *>()->actions();
    QCOMPARE(actions.size(), int(std::size(expected)));
    for (int i = 0; i < actions.size(); ++i) {
        const Expected &row = expected[i];
        QCOMPARE(actions.at(i)->objectName(), QLatin1String(row.name));
        QCOMPARE(actions.at(i)->isSeparator(), row.name[0] == '\0');
        if (actions.at(i)->isSeparator())
            continue;
        QCOMPARE(actions.at(i)->toolTip(), QLatin1String(row.toolTip));
        QCOMPARE(actions.at(i)->shortcut(), QKeySequence(QLatin1String(row.shortcut)));
        QVERIFY2(actions.at(i)->isEnabled() == row.enabled, row.name);
        QVERIFY2(!actions.at(i)->icon().pixmap(16).isNull(), row.name);
    }
}

void TestReportDocument::aFreshlyOpenedReportIsNotModified()
{
    GraphicalReportDocument document(path());
    QVERIFY(document.isValid());
    QVERIFY(!document.isModified());
    QCOMPARE(document.windowTitle(), QStringLiteral("report.kelatr"));
    QVERIFY(!action(document, "actionSave")->isEnabled());
    QCOMPARE(document.undoStack()->count(), 0);
    QCOMPARE(document.view()->scene(), document.scene());
    QCOMPARE(document.scene()->undoStack(), document.undoStack());
}

void TestReportDocument::aFileThatCannotBeReadGivesADocumentThatIsNotValid()
{
    BoxWatcher watcher;
    watcher.expect(QStringLiteral("for reading"), QMessageBox::Ok);
    GraphicalReportDocument document(TestHome::instance()->path(QStringLiteral("absent.kelatr")));
    QVERIFY(!document.isValid());
}

void TestReportDocument::typingEnablesSaveAndUndo()
{
    GraphicalReportDocument document(path());
    QSignalSpy titles(&document, &AbstractDocument::titleChanged);
    type(document, "client", QStringLiteral("Roof 7"));
    QVERIFY(document.isModified());
    QCOMPARE(document.windowTitle(), QStringLiteral("report.kelatr *"));
    QCOMPARE(titles.count(), 1);
    QVERIFY(action(document, "actionSave")->isEnabled());
    QVERIFY(action(document, "actionUndo")->isEnabled());
    QVERIFY(!action(document, "actionRedo")->isEnabled());
    action(document, "actionUndo")->trigger();
    QVERIFY(action(document, "actionRedo")->isEnabled());
    action(document, "actionRedo")->trigger();
    QCOMPARE(textOf(*document.scene(), "client"), QStringLiteral("Roof 7"));
}

void TestReportDocument::savingMakesTheDocumentClean()
{
    GraphicalReportDocument document(path());
    type(document, "client", QStringLiteral("Roof 7"));
    const int steps = document.undoStack()->count();
    QVERIFY(steps > 0);
    action(document, "actionSave")->trigger();
    QVERIFY(!document.isModified());
    QVERIFY(!action(document, "actionSave")->isEnabled());
    QVERIFY(document.undoStack()->isClean());
    QCOMPARE(document.undoStack()->count(), steps);
    QCOMPARE(elementById(readXml(path()), QStringLiteral("client")).text(), QStringLiteral("Roof 7"));
}

void TestReportDocument::afterSaveAnUndoneStepMakesTheDocumentModifiedUntilItIsRedone()
{
    GraphicalReportDocument document(path());
    document.show();
    document.undoStack()->push(new AddDeleteCommand(firstImage(document), true));
    type(document, "client", QStringLiteral("R"));
    document.save();
    document.undo();
    QVERIFY(document.isModified());
    QVERIFY(action(document, "actionSave")->isEnabled());
    document.redo();
    QVERIFY(!document.isModified());
    QVERIFY(!action(document, "actionSave")->isEnabled());
}

void TestReportDocument::aFailedSaveIsToldAndTheDocumentSaysItIsSaved()
{
    const QString folder = TestHome::instance()->path(QStringLiteral("folder"));
    QDir().mkpath(folder);
    const QString inside = folder + QStringLiteral("/report.kelatr");
    QFile::remove(inside);
    QVERIFY(QFile::copy(path(), inside));
    GraphicalReportDocument document(inside);
    type(document, "client", QStringLiteral("Roof 7"));
    QVERIFY(QDir(folder).removeRecursively());
    BoxWatcher watcher;
    watcher.expect(QStringLiteral("for writing"), QMessageBox::Ok);
    document.save();
    QVERIFY(!document.isModified());
    QVERIFY(!action(document, "actionSave")->isEnabled());
    QVERIFY(document.undoStack()->isClean());
}

void TestReportDocument::closingAsksOnlyWhereChangesWouldBeLost_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<QString>("inFile");
    QTest::newRow("yes") << int(QMessageBox::Yes) << true << QStringLiteral("Roof 7");
    QTest::newRow("no") << int(QMessageBox::No) << true << QStringLiteral("Sunny Farm");
    QTest::newRow("cancel") << int(QMessageBox::Cancel) << false << QStringLiteral("Sunny Farm");
}

void TestReportDocument::closingAsksOnlyWhereChangesWouldBeLost()
{
    QFETCH(int, button);
    QFETCH(bool, closes);
    QFETCH(QString, inFile);
    GraphicalReportDocument document(path());
    BoxWatcher watcher;
    QVERIFY(document.queryClose());
    QVERIFY(watcher.boxes().isEmpty());
    type(document, "client", QStringLiteral("Roof 7"));
    watcher.expect(QStringLiteral("Save changes to report.kelatr?"), QMessageBox::StandardButton(button));
    QCOMPARE(document.queryClose(), closes);
    const BoxWatcher::Box box = watcher.boxes().first();
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    QCOMPARE(elementById(readXml(path()), QStringLiteral("client")).text(), inFile);
}

void TestReportDocument::saveAsFavouriteAsksFirst()
{
    GraphicalReportDocument document(path());
    const QByteArray before = readFile(path());
    const QString favourite = TestHome::instance()->dataFolder() + QStringLiteral("/default.kelatr");
    BoxWatcher watcher;
    watcher.expect(QStringLiteral("favourite"), QMessageBox::No);
    action(document, "actionSaveFavourite")->trigger();
    const BoxWatcher::Box box = watcher.boxes().first();
    QCOMPARE(box.text,
             QStringLiteral("Saving this document as a favourite means that every time you create a new "
                            "document of this type it will look like this document."));
    QCOMPARE(box.informativeText,
             QStringLiteral(
                 "Are you sure you want to overwrite the favourite?\n(NOTE: You may restore the default "
                 "document at any time from the settings.)"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(box.defaultButton, QMessageBox::No);
    QVERIFY(!QFile::exists(favourite));
    QCOMPARE(readFile(path()), before);
}

void TestReportDocument::saveAsFavouriteSavesTheDocumentAndTheFavourite_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("as the program names it") << QStringLiteral("report.kelatr");
    QTest::newRow("in capitals") << QStringLiteral("REPORT.KELATR");
}

void TestReportDocument::saveAsFavouriteSavesTheDocumentAndTheFavourite()
{
    QFETCH(QString, name);
    const QString file = TestHome::instance()->path(name);
    writeFile(file, readFile(path()));
    GraphicalReportDocument document(file);
    type(document, "client", QStringLiteral("Roof 7"));
    BoxWatcher watcher;
    watcher.expect(QStringLiteral("favourite"), QMessageBox::Yes);
    document.saveAsFavourite();
    QVERIFY(!document.isModified());
    const QByteArray saved = readFile(file);
    QCOMPARE(elementById(readXml(file), QStringLiteral("client")).text(), QStringLiteral("Roof 7"));
    QCOMPARE(readFile(TestHome::instance()->dataFolder() + QStringLiteral("/default.kelatr")), saved);
}

void TestReportDocument::aFirstFavouriteCanBeReplacedByEveryUser()
{
    const QString favourite = TestHome::instance()->dataFolder() + QStringLiteral("/default.kelatr");
    QFile::remove(favourite);
    GraphicalReportDocument document(path());
    BoxWatcher watcher;
    watcher.expect(QStringLiteral("favourite"), QMessageBox::Yes);
    document.saveAsFavourite();
    const QFile::Permissions all = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                                   QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QCOMPARE(QFile::permissions(favourite) & all, all);
}

void TestReportDocument::setCurrentGivesAndTakesTheFocusOfTheScene()
{
    GraphicalReportDocument document(path());
    type(document, "client", QStringLiteral("R"));
    QVERIFY(document.scene()->focusItem());
    document.setCurrent(false);
    QVERIFY(!document.scene()->focusItem());
    QVERIFY(!document.scene()->hasFocus());
    document.setCurrent(true);
    QVERIFY(!document.scene()->focusItem());
    QVERIFY(document.scene()->hasFocus());
}

void TestReportDocument::downloadAndImportReachTheMainWindow()
{
    WindowShell shell;
    GraphicalReportDocument document(path());
    action(document, "actionDownload")->trigger();
    QCOMPARE(shell.downloads, 1);
    action(document, "actionImport")->trigger();
    action(document, "actionImport")->trigger();
    QCOMPARE(shell.imports, 2);
}

void TestReportDocument::downloadAndImportWithoutAMainWindowDoNothing()
{
    GraphicalReportDocument document(path());
    action(document, "actionDownload")->trigger();
    action(document, "actionImport")->trigger();
    QVERIFY(!document.isModified());
}

void TestReportDocument::controlSSavesOnceFromWhereverTheFocusIs()
{
    WindowShell shell;
    auto *document = new GraphicalReportDocument(path());
    shell.area->setViewMode(QMdiArea::TabbedView);
    shell.area->addSubWindow(document);
    connect(shell.save, &QAction::triggered, document, &GraphicalReportDocument::save);
    QSignalSpy byWindow(shell.save, &QAction::triggered);
    QSignalSpy byDocument(action(*document, "actionSave"), &QAction::triggered);
    shell.window()->show();
    type(*document, "client", QStringLiteral("A"));
    QVERIFY(document->isModified());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!document->isModified());
    QCOMPARE(byWindow.count() + byDocument.count(), 1);

    type(*document, "client", QStringLiteral("B"));
    QVERIFY(document->isModified());
    shell.tree->setFocus();
    QCOMPARE(QApplication::focusWidget(), shell.tree);
    QTest::keyClick(shell.tree, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!document->isModified());
    QCOMPARE(byWindow.count() + byDocument.count(), 2);
}

void TestReportDocument::controlSWithoutAMainWindowSaves()
{
    GraphicalReportDocument document(path());
    type(document, "client", QStringLiteral("A"));
    QTest::keyClick(document.view(), Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!document.isModified());
    QCOMPARE(elementById(readXml(path()), QStringLiteral("client")).text(), QStringLiteral("A"));
}

void TestReportDocument::deletingAnImageAndSavingRemovesItFromFileAndScene()
{
    GraphicalReportDocument document(path());
    firstImage(document)->deleteImage();
    QVERIFY(document.isModified());
    QVERIFY(firstImage(document));
    QVERIFY(!firstImage(document)->isVisible());
    document.save();
    QVERIFY(!firstImage(document));
    QCOMPARE(read(path()).size(), 1);
    QVERIFY(elements(readXml(path()), QStringLiteral("image")).isEmpty());
}

void TestReportDocument::deletingAnImageUndoingAndSavingRemovesItFromFileAndScene()
{
    GraphicalReportDocument document(path());
    firstImage(document)->deleteImage();
    document.undo();
    QVERIFY(firstImage(document)->isVisible());
    document.save();
    QVERIFY(!firstImage(document));
    QCOMPARE(read(path()).size(), 1);
}

void TestReportDocument::anAddedImageThatWasUndoneIsStillWritten()
{
    GraphicalReportDocument document(path());
    document.undoStack()->push(new AddDeleteCommand(firstImage(document), true));
    document.undo();
    QVERIFY(!firstImage(document)->isVisible());
    document.save();
    QCOMPARE(read(path()).size(), 2);
    GraphicalReportDocument again(path());
    QVERIFY(firstImage(again)->isVisible());
}

void TestReportDocument::stepsOfAPurgedImageCanBeUndoneWithoutHarm()
{
    GraphicalReportDocument document(path());
    document.show();
    QPointer<ReportResizableImage> image = firstImage(document);
    image->setItemSize(QSizeF(80, 40), 68);
    image->deleteImage();
    document.save();
    QVERIFY(image);
    QVERIFY(!image->scene());
    document.undo();
    QVERIFY(document.isModified());
    QVERIFY(!firstImage(document));
    document.redo();
    document.save();
    QVERIFY(!firstImage(document));
    QVERIFY(image);
}

void TestReportDocument::anImageAddedDeletedAndSavedGoesWithItsCommand()
{
    GraphicalReportDocument document(path());
    auto *added = new ReportResizableImage(document.scene()->pages().first());
    document.scene()->adopt(added);
    const QPointer<ReportResizableImage> image(added);
    emit added->newCommand(new AddDeleteCommand(added, true));
    added->deleteImage();
    document.save();
    QVERIFY(image && !image->scene());
    document.undo();
    document.undo();
    document.undoStack()->push(new QUndoCommand);
    QVERIFY2(!image, "the command that owned it is gone");
    document.save();
}

void TestReportDocument::everyImageGoesExactlyOnce_data()
{
    QTest::addColumn<bool>("fromFile");
    QTest::addColumn<QString>("steps");
    for (const bool fromFile : {true, false}) {
        // d delete, u undo, r redo, s save, c clear the stack, p push another step
        for (const char *steps : {"", "d", "ds", "dus", "dsu", "dsuu", "dsc", "dc", "duc", "dupsr", "dss",
                                  "dsurs", "dup", "dsup", "su", "uc"})
            QTest::addRow("%s, %s", fromFile ? "from the file" : "added", steps)
                << fromFile << QString::fromLatin1(steps);
    }
}

void TestReportDocument::everyImageGoesExactlyOnce()
{
    QFETCH(bool, fromFile);
    QFETCH(QString, steps);
    auto document = std::make_unique<GraphicalReportDocument>(path());
    QPointer<ReportResizableImage> image = firstImage(*document);
    if (!fromFile) {
        image = new ReportResizableImage(document->scene()->pages().first());
        document->scene()->adopt(image);
        emit image->newCommand(new AddDeleteCommand(image, true));
    }
    for (const QChar step : qAsConst(steps)) {
        switch (step.toLatin1()) {
        case 'd':
            image->deleteImage();
            break;
        case 'u':
            document->undo();
            break;
        case 'r':
            document->redo();
            break;
        case 's':
            document->save();
            break;
        case 'c':
            document->undoStack()->clear();
            break;
        default:
            document->undoStack()->push(new QUndoCommand);
        }
    }
    document.reset();
    QVERIFY2(!image, "nobody deleted it");
}

void TestReportDocument::sceneAndStackMayGoInEitherOrder_data()
{
    QTest::addColumn<bool>("sceneFirst");
    QTest::newRow("scene first") << true;
    QTest::newRow("stack first") << false;
}

void TestReportDocument::sceneAndStackMayGoInEitherOrder()
{
    QFETCH(bool, sceneFirst);
    auto stack = std::make_unique<QUndoStack>();
    auto scene = std::make_unique<ReportScene>(stack.get());
    QVERIFY(scene->load(path()));
    QList<QPointer<ReportResizableImage>> images;
    for (int i = 0; i < 3; ++i) {
        images.append(new ReportResizableImage(scene->pages().first()));
        scene->adopt(images.last());
        emit images.last()->newCommand(new AddDeleteCommand(images.last(), true));
    }
    images.at(1)->deleteImage();
    images.at(2)->deleteImage();
    scene->discard(images.at(2));
    if (sceneFirst)
        scene.reset();
    stack.reset();
    scene.reset();
    for (const auto &image : qAsConst(images))
        QVERIFY(!image);
}

void TestReportDocument::aDocumentMayCloseInTheMiddleOfAnEdit()
{
    auto document = std::make_unique<GraphicalReportDocument>(path());
    type(*document, "client", QStringLiteral("half a w"));
    QVERIFY(document->scene()->focusItem());
    const QPointer<ReportScene> scene(document->scene());
    document.reset();
    QVERIFY(!scene);
    QCOMPARE(elementById(readXml(path()), QStringLiteral("client")).text(), QStringLiteral("Sunny Farm"));
}

void TestReportDocument::aDocumentMayCloseWhileItSaves_data()
{
    QTest::addColumn<bool>("asFavourite");
    QTest::newRow("save") << false;
    QTest::newRow("save as favourite") << true;
}

void TestReportDocument::aDocumentMayCloseWhileItSaves()
{
    QFETCH(bool, asFavourite);
    const QPointer<GraphicalReportDocument> document = new GraphicalReportDocument(path());
    type(*document, "client", QStringLiteral("Roof 7"));
    // The document goes as soon as it lets others have a turn; the loop of its question does not count.
    QTimer hand;
    connect(&hand, &QTimer::timeout, this, [&document] {
        if (QThread::currentThread()->loopLevel() == 0)
            delete document;
    });
    hand.start(0);
    BoxWatcher watcher;
    if (asFavourite)
        watcher.expect(QStringLiteral("as a favourite"), QMessageBox::Yes);
    action(*document, asFavourite ? "actionSaveFavourite" : "actionSave")->trigger();
    QVERIFY(!document);
    QCOMPARE(elementById(readXml(path()), QStringLiteral("client")).text(), QStringLiteral("Roof 7"));
}

KELMAR_TEST_MAIN(TestReportDocument)
#include "tst_reportdocument.moc"
