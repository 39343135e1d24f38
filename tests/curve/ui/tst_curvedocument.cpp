#include "app/core/Language.h"
#include "curve/data/CurveTree.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/ui/CurveGraph.h"
#include "curve/ui/RemovalOrder.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/curve/ui/CurveDesk.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/MenuWatcher.h"
#include "tests/support/TestMain.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <QPaintEvent>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSplitter>
#include <QStandardItemModel>
#include <QToolBar>
#include <QToolButton>

#include <random>

using namespace IVCurve;

namespace {

const char *const stringActions[] = {
    "actionViewDetails",     "actionAssignModule",    "actionCurveReport",        "actionExportPoints",
    "actionExportPointsSTC", "actionExportPWRPoints", "actionExportPWRPointsSTC", "actionSetColour"};

void inBothLanguages()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << "en";
    QTest::newRow("German") << "de";
}

/// What of a widget has been painted since the watch began.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
    QRegion painted;
};

void useLanguageOfRow()
{
    QFETCH(QString, language);
    useLanguage(language, QLocale(language));
}

} // namespace

/// The window of a curve file: what it is built of, its rows, its keys, and how it is saved and closed.
class TestCurveDocument : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void actionsLookAsUsersKnowThem_data();
    void actionsLookAsUsersKnowThem();
    void toolBarAndMenuHoldTheActionsInTheirOrder();
    void checkActionsHaveTextsInsteadOfIcons();
    void splitterHoldsTreeAndGraphSideBySide();
    void probeTellsOfTheLinesOfTheGraph();
    void coloursOfTheStringsOfAFolderAreSeenAtOnce();
    void fileThatCannotBeOpenedIsNotValid();
    void fileWhoseTreeCannotBeReadThrows();

    void rightClickOnEmptySpaceInsertsAtTheTop_data() { inBothLanguages(); }
    void rightClickOnEmptySpaceInsertsAtTheTop();
    void rightClickOnAFolderAllowsRowsAndNoCurves_data() { inBothLanguages(); }
    void rightClickOnAFolderAllowsRowsAndNoCurves();
    void rightClickOnAStringAllowsCurvesAndNoRows_data() { inBothLanguages(); }
    void rightClickOnAStringAllowsCurvesAndNoRows();
    void insertKeyFollowsTheLastRightClick_data() { inBothLanguages(); }
    void insertKeyFollowsTheLastRightClick();
    void rowGoesIntoTheFolderWhateverColumnWasClicked();
    void rowOfTheLastRightClickThatHasGoneIsForgotten();

    void deletionTakesDeeperAndLaterRowsFirst_data() { inBothLanguages(); }
    void deletionTakesDeeperAndLaterRowsFirst();
    void orderOfRemovalIsByDepthThenFromTheLast();
    void keysActOnlyWithTheFocusInsideTheDocument_data() { inBothLanguages(); }
    void keysActOnlyWithTheFocusInsideTheDocument();

    void changeOfTheTreeEnablesSaveUntilItIsSaved();
    void saveWritesTheTreeAlsoWithItsActionDisabled();
    void toolButtonOfSaveDoesTheSame();
    void closingAChangedDocumentAndCancellingKeepsIt_data() { inBothLanguages(); }
    void closingAChangedDocumentAndCancellingKeepsIt();
    void closingAChangedDocumentSavesAfterYesOnly();
};

void TestCurveDocument::init()
{
    TestHome::instance()->reset();
    useLanguage("en", QLocale("en"));
    CurveSample::writeCatalogue({});
}

void TestCurveDocument::actionsLookAsUsersKnowThem_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("state");
    const auto row = [](const char *name) -> QTestData & { return QTest::newRow(name); };
    row("actionPrint") << ""
                       << "Print"
                       << "printer"
                       << "Ctrl+P"
                       << "enabled";
    row("actionSave") << "Save"
                      << "Save"
                      << "save"
                      << "Ctrl+S"
                      << "disabled";
    row("actionExportToPdf") << "Export to PDF"
                             << "Export to PDF"
                             << "export_pdf"
                             << ""
                             << "enabled";
    row("actionExportToImage") << "Export to Image"
                               << "Export to Image"
                               << "export_img"
                               << ""
                               << "enabled";
    row("actionInsertTreeRow") << "Insert Row"
                               << "Insert Row"
                               << "plus_sign"
                               << "Ins"
                               << "enabled";
    row("actionDeleteTreeRow") << "Delete Row"
                               << "Delete Row"
                               << "delete_row"
                               << "Del"
                               << "enabled";
    row("actionShowIV") << "IV"
                        << "Show IV Curves"
                        << ""
                        << ""
                        << "checked";
    row("actionShowPWR") << "PWR"
                         << "Show VP Power Curves"
                         << ""
                         << ""
                         << "unchecked";
    row("actionShowMEAS") << "MEAS"
                          << "Show Measured Curve Data"
                          << ""
                          << ""
                          << "unchecked";
    row("actionShowSTC") << "STC"
                         << "Show STC-corrected Curves"
                         << ""
                         << ""
                         << "checked";
    row("actionShowNOM") << "NOM"
                         << "Show Nominal Curve"
                         << ""
                         << ""
                         << "unchecked";
    row("actionDownload") << "Download"
                          << "Download data from tester"
                          << "kt_7_download"
                          << ""
                          << "enabled";
    row("actionViewDetails") << "View Details"
                             << "View Details from tester"
                             << "kt_7_download"
                             << ""
                             << "enabled";
    row("actionManageModules") << "Manage Module Database"
                               << "Manage Module Database"
                               << "module32"
                               << ""
                               << "enabled";
    row("actionImportCSV") << "Import CSV"
                           << "Import CSV"
                           << "import"
                           << ""
                           << "enabled";
    row("actionAssignModule") << "Set PV Module Type"
                              << "Manage Module Database"
                              << "module32"
                              << ""
                              << "enabled";
    row("actionExportPoints") << "Export MEAS IV Curve Points"
                              << "Export Measured IV Curve Points in CSV format"
                              << "import"
                              << ""
                              << "enabled";
    row("actionExportPointsSTC") << "Export STC IV Curve Points"
                                 << "Export STC IV Curve Points in CSV format"
                                 << "import"
                                 << ""
                                 << "enabled";
    row("actionExportPWRPoints") << "Export MEAS PWR Curve Points"
                                 << "Export Measured Power Curve Points in CSV format"
                                 << "import"
                                 << ""
                                 << "enabled";
    row("actionExportPWRPointsSTC") << "Export STC PWR Curve Points"
                                    << "Export STC Power Curve Points in CSV format"
                                    << "import"
                                    << ""
                                    << "enabled";
    row("actionSetColour") << "Set Colour"
                           << "Change the colour of lines on the graph associated with this string"
                           << ""
                           << ""
                           << "enabled";
    row("actionCurveReport") << "Curve Report"
                             << "Curve Report"
                             << ""
                             << ""
                             << "enabled";
}

void TestCurveDocument::actionsLookAsUsersKnowThem()
{
    QFETCH(QString, icon);
    QFETCH(QString, key);
    QFETCH(QString, state);
    const CurveDesk desk(CurveDesk::makeFile(1));
    const QAction *action = desk.action(QTest::currentDataTag());
    QTEST(action->text(), "text");
    QTEST(action->toolTip(), "toolTip");
    QCOMPARE(action->icon().isNull(), icon.isEmpty());
    if (!icon.isEmpty())
        QCOMPARE(action->icon().pixmap(32).toImage(),
                 QIcon(":res/toolButtons/" + icon + ".png").pixmap(32).toImage());
    QCOMPARE(action->shortcut(), QKeySequence(key));
    QCOMPARE(action->isEnabled(), state != "disabled");
    QCOMPARE(action->isCheckable(), state.endsWith("checked"));
    QCOMPARE(action->isChecked(), state == "checked");
    const bool keyOfTheTree = key == "Ctrl+S" || key == "Ins" || key == "Del";
    QCOMPARE(action->shortcutContext(), keyOfTheTree ? Qt::WidgetWithChildrenShortcut : Qt::WindowShortcut);
}

void TestCurveDocument::toolBarAndMenuHoldTheActionsInTheirOrder()
{
    const CurveDesk desk(CurveDesk::makeFile(1));
    const auto namesOf = [](const QList<QAction *> &actions) {
        QStringList names;
        for (const QAction *action : actions)
            names.append(action->isSeparator() ? "-"
                         : action->menu()      ? action->text()
                                               : action->objectName());
        return names;
    };
    QCOMPARE(
        namesOf(desk.document.findChild<QToolBar *>()->actions()),
        (QStringList{"actionSave", "-", "actionShowMEAS", "actionShowSTC", "actionShowNOM", "actionShowIV",
                     "actionShowPWR", "-", "actionDownload", "actionImportCSV", "-", "actionPrint",
                     "actionExportToPdf", "actionExportToImage", "-", "actionManageModules"}));
    QCOMPARE(namesOf(desk.tree->actions()), (QStringList{"actionDeleteTreeRow", "actionInsertTreeRow"}));
    QStringList menu;
    QStringList exports;
    MenuWatcher watcher;
    watcher.whileOpen = [&] {
        const auto *open = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        menu = namesOf(open->actions());
        for (const QAction *action : open->actions()) {
            if (action->menu())
                exports = namesOf(action->menu()->actions());
        }
    };
    emit desk.tree->customContextMenuRequested(QPoint(5, 5));
    QCOMPARE(menu,
             (QStringList{"actionSave", "actionInsertTreeRow", "actionDeleteTreeRow", "actionViewDetails",
                          "actionAssignModule", "actionCurveReport", "Export Points", "actionSetColour"}));
    QCOMPARE(exports, (QStringList{"actionExportPoints", "actionExportPointsSTC", "actionExportPWRPoints",
                                   "actionExportPWRPointsSTC"}));
}

void TestCurveDocument::checkActionsHaveTextsInsteadOfIcons()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.show();
    const auto *bar = desk.document.findChild<QToolBar *>();
    for (const char *name :
         {"actionShowMEAS", "actionShowSTC", "actionShowNOM", "actionShowIV", "actionShowPWR"}) {
        const auto *button = qobject_cast<QToolButton *>(bar->widgetForAction(desk.action(name)));
        QVERIFY(button && button->isVisible());
        QVERIFY(button->sizeHint().width() >= button->fontMetrics().horizontalAdvance(button->text()));
    }
}

void TestCurveDocument::splitterHoldsTreeAndGraphSideBySide()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    auto *splitter = desk.document.findChild<QSplitter *>();
    QCOMPARE(splitter->orientation(), Qt::Horizontal);
    QVERIFY(!splitter->childrenCollapsible());
    QCOMPARE(splitter->count(), 2);
    QCOMPARE(splitter->widget(0), static_cast<QWidget *>(desk.tree));
    QCOMPARE(splitter->widget(1), static_cast<QWidget *>(desk.graph));
    for (int i = 0; i < 2; ++i)
        QCOMPARE(splitter->widget(i)->sizePolicy().horizontalStretch(), 1);
    QCOMPARE(desk.document.layout()->count(), 2);
    QCOMPARE(desk.document.layout()->itemAt(1)->widget(), static_cast<QWidget *>(splitter));
    for (QScrollArea *area : desk.document.findChildren<QScrollArea *>())
        QVERIFY(area->parentWidget() != &desk.document);
    QVERIFY(desk.document.isValid());
    QVERIFY(!desk.document.isModified());
}

void TestCurveDocument::probeTellsOfTheLinesOfTheGraph()
{
    CurveDesk desk(CurveDesk::makeFile(3));
    QCOMPARE(desk.lines("STCLineCount"), 0);
    desk.selectStrings({1, 3});
    for (const char *name : {"actionShowMEAS", "actionShowNOM", "actionShowPWR"})
        desk.action(name)->setChecked(true);
    for (const char *property : {"MEASLineCount", "STCLineCount", "NOMLineCount", "MEASPWRLineCount",
                                 "STCPWRLineCount", "NOMPWRLineCount"})
        QCOMPARE(desk.lines(property), 2);
    // Without a module the nominal lines have no points.
    QCOMPARE(desk.lines("VisibleLineCount"), 8);
    desk.action("actionShowIV")->setChecked(false);
    QCOMPARE(desk.lines("STCLineCount"), 0);
    QCOMPARE(desk.lines("STCPWRLineCount"), 2);
    QCOMPARE(desk.lines("VisibleLineCount"), 4);
    const QObject *probe = desk.graph->findChild<QObject *>("SquishGraphHelper");
    QCOMPARE(probe->parent(), static_cast<QObject *>(desk.graph));
}

void TestCurveDocument::coloursOfTheStringsOfAFolderAreSeenAtOnce()
{
    CurveDesk desk(CurveDesk::makeFile(3));
    desk.show();
    desk.tree->scrollTo(desk.string(3, CurveTreeModel::ColourColumn));
    QCoreApplication::processEvents();
    PaintWatch watch(desk.tree->viewport());
    // The rows of the strings are not the ones that are selected.
    desk.select({desk.at({"Roof"})});
    for (const int number : {1, 2, 3}) {
        const QModelIndex swatch = desk.string(number, CurveTreeModel::ColourColumn);
        QVERIFY(swatch.data(Qt::BackgroundRole).isValid());
        const QPoint place = desk.tree->visualRect(swatch).center();
        QVERIFY(desk.tree->viewport()->rect().contains(place));
        QTRY_VERIFY(watch.painted.contains(place));
    }
}

void TestCurveDocument::fileThatCannotBeOpenedIsNotValid()
{
    const QString path = TestHome::instance()->path("folder.kelcrv");
    QDir().mkpath(path);
    BoxWatcher watcher;
    watcher.expect(QString(), QMessageBox::Ok);
    CurveDocument document(path);
    QVERIFY(!document.isValid());
    QCOMPARE(watcher.boxes().value(0).icon, QMessageBox::Critical);
    QCOMPARE(watcher.boxes().value(0).title, QString("Kelmar"));
    // What has no file can still be asked to close and to save.
    QVERIFY(document.queryClose());
    document.save();
}

void TestCurveDocument::fileWhoseTreeCannotBeReadThrows()
{
    const QString path = CurveSample::newFile();
    CurveSample::execute(path, {"DROP TABLE TreeNodes"});
    BoxWatcher watcher;
    watcher.expect("TreeNodes", QMessageBox::Ok);
    QVERIFY_EXCEPTION_THROWN(CurveDocument{path}, std::exception);
    // The table has been made meanwhile, and the connection is free again.
    const CurveDocument second(path);
    QVERIFY(second.isValid());
}

void TestCurveDocument::rightClickOnEmptySpaceInsertsAtTheTop()
{
    useLanguageOfRow();
    CurveDesk desk(CurveDesk::makeFile(2));
    desk.show();
    desk.rightClick(QModelIndex());
    QVERIFY(desk.isEnabled("actionInsertTreeRow"));
    for (const char *name : stringActions)
        QVERIFY2(!desk.isEnabled(name), name);
    desk.rightClick(QModelIndex(), desk.action("actionInsertTreeRow")->text());
    const QStringList top = desk.namesBelow();
    QCOMPARE(top.size(), 3);
    QCOMPARE(top.mid(1), (QStringList{"Roof", "Wall"}));
    QVERIFY(desk.document.isModified());
}

void TestCurveDocument::rightClickOnAFolderAllowsRowsAndNoCurves()
{
    useLanguageOfRow();
    CurveDesk desk(CurveDesk::makeFile(2));
    desk.show();
    desk.rightClick(desk.at({"Wall"}));
    QVERIFY(desk.isEnabled("actionInsertTreeRow"));
    for (const char *name : stringActions)
        QVERIFY2(!desk.isEnabled(name), name);
    desk.rightClick(desk.at({"Wall"}), desk.action("actionInsertTreeRow")->text());
    QCOMPARE(desk.namesBelow(desk.at({"Wall"})).size(), 1);
    QCOMPARE(desk.namesBelow().size(), 2);
}

void TestCurveDocument::rightClickOnAStringAllowsCurvesAndNoRows()
{
    useLanguageOfRow();
    CurveDesk desk(CurveDesk::makeFile(2));
    desk.show();
    desk.rightClick(desk.at({"Wall"}));
    desk.rightClick(desk.string(1));
    QVERIFY(!desk.isEnabled("actionInsertTreeRow"));
    for (const char *name : stringActions)
        QVERIFY2(desk.isEnabled(name), name);
    // A string by its curve, not by its place in the tester.
    desk.model->item(desk.string(2))->setData(TreeItem::MemLocation, QVariant());
    desk.rightClick(desk.string(2));
    QVERIFY(desk.isEnabled("actionInsertTreeRow"));
    QVERIFY(desk.isEnabled("actionViewDetails"));
}

void TestCurveDocument::insertKeyFollowsTheLastRightClick()
{
    useLanguageOfRow();
    CurveDesk desk(CurveDesk::makeFile(2));
    desk.show();
    desk.rightClick(desk.string(1));
    QTest::keyClick(desk.tree, Qt::Key_Insert);
    QCOMPARE(desk.namesBelow().size(), 2);
    QVERIFY(!desk.document.isModified());
    // The click was on the folder: the row goes into it, the next one goes to the top.
    desk.rightClick(desk.at({"Wall"}));
    QTest::keyClick(desk.tree, Qt::Key_Insert);
    QCOMPARE(desk.namesBelow(desk.at({"Wall"})).size(), 1);
    QTest::keyClick(desk.tree, Qt::Key_Insert);
    QCOMPARE(desk.namesBelow(desk.at({"Wall"})).size(), 1);
    QCOMPARE(desk.namesBelow().size(), 3);
}

void TestCurveDocument::rowGoesIntoTheFolderWhateverColumnWasClicked()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.show();
    desk.rightClick(desk.at({"Wall"}, CurveTreeModel::DateColumn));
    desk.document.slotInsertRow();
    QCOMPARE(desk.namesBelow(desk.at({"Wall"})).size(), 1);
}

void TestCurveDocument::rowOfTheLastRightClickThatHasGoneIsForgotten()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.show();
    desk.rightClick(desk.at({"Wall"}));
    desk.model->removeNode(desk.at({"Wall"}));
    desk.document.slotInsertRow();
    QCOMPARE(desk.namesBelow(), (QStringList{"<New Row>", "Roof"}));
    desk.rightClick(desk.string(1));
    desk.model->removeNode(desk.at({"Roof"}));
    const BoxWatcher watcher;
    desk.document.slotViewDetails();
    QCOMPARE(desk.namesBelow(), QStringList{"<New Row>"});
}

void TestCurveDocument::deletionTakesDeeperAndLaterRowsFirst()
{
    useLanguageOfRow();
    CurveDesk desk(CurveDesk::makeFile(3));
    desk.show();
    QStringList removed;
    connect(desk.model, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [&](const QModelIndex &parent, int first, int last) {
                QCOMPARE(first, last);
                removed.append(desk.model->index(first, 0, parent).data().toString());
            });
    desk.select({desk.at({"Roof"}), desk.string(1), desk.at({"Wall"}), desk.string(3)});
    const BoxWatcher watcher;
    QTest::keyClick(desk.tree, Qt::Key_Delete);
    QCOMPARE(removed, (QStringList{"String 3", "String 1", "Wall", "Roof"}));
    QVERIFY(desk.namesBelow().isEmpty());
    QVERIFY(desk.document.isModified());
    QCOMPARE(desk.lines("STCLineCount"), 0);
}

void TestCurveDocument::orderOfRemovalIsByDepthThenFromTheLast()
{
    QStandardItemModel model;
    QList<QStandardItem *> level{model.invisibleRootItem()};
    for (int depth = 0; depth < 4; ++depth) {
        QList<QStandardItem *> next;
        for (QStandardItem *parent : level) {
            for (int i = 0; i < 3; ++i) {
                parent->appendRow(new QStandardItem(QString("%1.%2").arg(parent->text()).arg(i)));
                next.append(parent->child(i));
            }
        }
        level = next;
    }
    QModelIndexList all =
        model.match(model.index(0, 0), Qt::DisplayRole, ".", -1, Qt::MatchContains | Qt::MatchRecursive);
    QCOMPARE(all.size(), 3 + 9 + 27 + 81);
    std::mt19937 random(7);
    std::shuffle(all.begin(), all.end(), random);
    const QVector<QPersistentModelIndex> sorted = inOrderOfRemoval(all);
    QCOMPARE(sorted.size(), all.size());
    for (const QPersistentModelIndex &index : sorted) {
        // None has gone with another one, and none has children left.
        QVERIFY(index.isValid());
        QCOMPARE(model.rowCount(index), 0);
        QCOMPARE(index.row(), model.rowCount(index.parent()) - 1);
        QVERIFY(model.removeRow(index.row(), index.parent()));
    }
    QCOMPARE(model.rowCount(), 0);
}

void TestCurveDocument::keysActOnlyWithTheFocusInsideTheDocument()
{
    useLanguageOfRow();
    const QString path = CurveDesk::makeFile(2);
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *beside = new QLineEdit(&window);
    CurveDesk desk(path);
    layout->addWidget(beside);
    layout->addWidget(&desk.document);
    window.resize(800, 500);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window, patience));
    desk.select({desk.string(1)});
    beside->setFocus();
    QTRY_VERIFY(beside->hasFocus());
    QTest::keyClick(beside, Qt::Key_Delete);
    QTest::keyClick(beside, Qt::Key_Insert);
    QVERIFY(!desk.document.isModified());
    desk.tree->setFocus();
    QTRY_VERIFY(desk.tree->hasFocus());
    QTest::keyClick(desk.tree, Qt::Key_Delete);
    QVERIFY(!desk.string(1).isValid());
    QTest::keyClick(desk.tree, Qt::Key_Insert);
    QCOMPARE(desk.namesBelow().size(), 3);
    desk.document.setParent(nullptr);
}

void TestCurveDocument::changeOfTheTreeEnablesSaveUntilItIsSaved()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    QSignalSpy spy(&desk.document, &CurveDocument::modified);
    QSignalSpy titles(&desk.document, &AbstractDocument::titleChanged);
    QVERIFY(!desk.isEnabled("actionSave"));
    desk.model->setData(desk.string(1), "Renamed");
    QVERIFY(desk.isEnabled("actionSave"));
    QVERIFY(desk.document.isModified());
    QCOMPARE(desk.document.windowTitle(), QString("roof.kelcrv *"));
    desk.document.save();
    QVERIFY(!desk.isEnabled("actionSave"));
    QVERIFY(!desk.document.isModified());
    QCOMPARE(spy.first().first().toBool(), true);
    QCOMPARE(spy.last().first().toBool(), false);
    QCOMPARE(titles.size(), 2);
    QCOMPARE(CurveSample::value(desk.document.filePath(),
                                "SELECT count(*) FROM TreeNodes WHERE NodeDesc = 'Renamed'")
                 .toInt(),
             1);
}

void TestCurveDocument::saveWritesTheTreeAlsoWithItsActionDisabled()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    // Behind the model's back, as when the change was one of the colour.
    desk.model->item(desk.string(1))->setData(TreeItem::NodeDesc, "Silent");
    QVERIFY(!desk.isEnabled("actionSave"));
    desk.document.save();
    QCOMPARE(CurveSample::value(desk.document.filePath(),
                                "SELECT count(*) FROM TreeNodes WHERE NodeDesc = 'Silent'")
                 .toInt(),
             1);
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

void TestCurveDocument::toolButtonOfSaveDoesTheSame()
{
    CurveDesk desk(CurveDesk::makeFile(1));
    desk.show();
    desk.model->setData(desk.string(1), "Renamed");
    auto *button = desk.document.findChild<QToolBar *>()->widgetForAction(desk.action("actionSave"));
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!desk.document.isModified());
    QVERIFY(!desk.isEnabled("actionSave"));
    QCOMPARE(CurveSample::value(desk.document.filePath(),
                                "SELECT count(*) FROM TreeNodes WHERE NodeDesc = 'Renamed'")
                 .toInt(),
             1);
}

void TestCurveDocument::closingAChangedDocumentAndCancellingKeepsIt()
{
    useLanguageOfRow();
    CurveDesk desk(CurveDesk::makeFile(1));
    QVERIFY(desk.document.queryClose());
    desk.model->setData(desk.string(1), "Renamed");
    BoxWatcher watcher;
    watcher.expect("roof.kelcrv", QMessageBox::Cancel);
    QVERIFY(!desk.document.queryClose());
    QVERIFY(desk.document.isModified());
    const BoxWatcher::Box box = watcher.boxes().first();
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    QFETCH(QString, language);
    if (language == "en")
        QCOMPARE(box.text, QString("Save changes to roof.kelcrv?"));
    else
        QVERIFY(box.text != "Save changes to roof.kelcrv?");
}

void TestCurveDocument::closingAChangedDocumentSavesAfterYesOnly()
{
    const QString path = CurveDesk::makeFile(1);
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        {
            CurveDesk desk(path);
            desk.model->setData(desk.string(1), "Renamed");
            BoxWatcher watcher;
            watcher.expect("Save changes to roof.kelcrv?", answer);
            QVERIFY(desk.document.queryClose());
        }
        QCOMPARE(
            CurveSample::value(path, "SELECT count(*) FROM TreeNodes WHERE NodeDesc = 'Renamed'").toInt(),
            answer == QMessageBox::Yes ? 1 : 0);
    }
}

KELMAR_TEST_MAIN(TestCurveDocument)
#include "tst_curvedocument.moc"
