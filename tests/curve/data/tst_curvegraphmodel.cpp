#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/data/ModuleDatabase.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QMimeData>
#include <QSignalSpy>
#include <QSqlError>
#include <QSqlQuery>

using namespace IVCurve;

class TestCurveGraphModel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void selectingLoadsAndDeselectingDrops();
    void aFolderLoadsAllStringsBelowIt();
    void deselectingAFolderKeepsAChildThatIsSelectedItself();
    void aSingleDeselectedCellNamesItsRowButTheFirst();
    void aNodeTakesAColourAndNamesItsString();
    void selectedNamesAreJoinedInOrder();
    void editedTextReachesTheLegendWithTheNextSelection();
    void removedRowsAreDropped();
    void aDroppedStringIsDeselected();
    void lookUpsThatFailThrow();
    void aStringThatCannotBeLoadedIsInternalError();
    void aStringDeselectedWhileItsLoadTellsOfAFailureStaysUnloaded();
    void rowsThatGoWhileALoadTellsOfAFailureAreLeftAlone();
    void settingsOfAnUnloadedStringAreTold();

    void editedDetailsReplaceTheRecordAndReachTheTree();
    void detailsOfAnUnloadedStringThrow();
    void assigningAModuleChangesFileAndRecord();
    void theModulesDeltaTakesEffectAtTheNextLoad();
    void assigningTheEmptyRowTakesTheModuleAway();
    void assigningWorksOnStringsThatAreNotLoaded();
    void aDeletedModuleLeavesSeriesAndParallelAt1();
    void aStringWithoutModuleLeavesTheCatalogueAlone();
    void everyStringOfAThousandIsLoadedOnce();

private:
    QModelIndex addString(const QString &name, const QModelIndex &parent = QModelIndex());
    void select(const QModelIndex &index) { m_graph->slotTreeSelectionChanged(rowOf(index), {}); }
    void deselect(const QModelIndex &index) { m_graph->slotTreeSelectionChanged({}, rowOf(index)); }
    QItemSelection rowOf(const QModelIndex &index) const;
    quint32 idOf(const QModelIndex &index) const;

    std::unique_ptr<CurveDatabase> m_database;
    CurveTreeModel *m_tree = nullptr;
    CurveGraphModel *m_graph = nullptr;
};

void TestCurveGraphModel::init()
{
    CurveSample::writeCatalogue({"7, 'Sixty cells', 8.8, 37.5, 8.3, 30.5, 0.0044, -0.1275, 0.11, 0.3, 0, 0"});
    m_database = std::make_unique<CurveDatabase>(CurveSample::newFile());
    m_tree = m_database->treeModel();
    m_graph = m_database->graphModel();
    connect(m_tree, &CurveTreeModel::rowsAboutToBeRemoved, m_graph, &CurveGraphModel::slotRowRemoved);
}

void TestCurveGraphModel::cleanup()
{
    m_database.reset();
    CurveSample::forgetCatalogue();
}

QModelIndex TestCurveGraphModel::addString(const QString &name, const QModelIndex &parent)
{
    TreeItem *node = m_tree->insertNewRow(parent);
    node->setData(TreeItem::NodeDesc, name);
    node->setData(TreeItem::CurveID, m_graph->insertString(CurveSample::record()));
    return m_tree->index(0, 0, parent);
}

QItemSelection TestCurveGraphModel::rowOf(const QModelIndex &index) const
{
    return {index.sibling(index.row(), 0), index.sibling(index.row(), 7)};
}

quint32 TestCurveGraphModel::idOf(const QModelIndex &index) const
{
    return m_tree->item(index)->data.at(TreeItem::CurveID).toUInt();
}

void TestCurveGraphModel::selectingLoadsAndDeselectingDrops()
{
    const QModelIndex string = addString("a");
    QSignalSpy selected(m_graph, &CurveGraphModel::signalStringSelected);
    QSignalSpy deselected(m_graph, &CurveGraphModel::signalStringDeselected);
    QSignalSpy legend(m_graph, &CurveGraphModel::signalUpdateLegend);
    select(string);
    QCOMPARE(selected.size(), 1);
    QCOMPARE(selected.first().first().toUInt(), idOf(string));
    QCOMPARE(legend.last().first().toString(), QString("a"));
    QCOMPARE(m_graph->record(idOf(string)).measuredCurve().size(), 8);
    deselect(string);
    QCOMPARE(deselected.size(), 1);
    QVERIFY(!m_graph->isLoaded(idOf(string)));
    QCOMPARE(legend.last().first().toString(), QString(""));
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestCurveGraphModel::aFolderLoadsAllStringsBelowIt()
{
    m_tree->insertNewRow(QModelIndex());
    const QModelIndex folder = m_tree->index(0, 0);
    const QModelIndex a = addString("a", folder);
    const QPersistentModelIndex first = a;
    const QPersistentModelIndex below = addString("b", first);
    QVERIFY(m_tree->item(folder)->data.at(TreeItem::CurveID).isNull());
    select(folder);
    QVERIFY(m_graph->isLoaded(idOf(first)) && m_graph->isLoaded(idOf(below)));
    deselect(folder);
    QVERIFY(!m_graph->isLoaded(idOf(first)) && !m_graph->isLoaded(idOf(below)));
}

void TestCurveGraphModel::deselectingAFolderKeepsAChildThatIsSelectedItself()
{
    m_tree->insertNewRow(QModelIndex());
    const QModelIndex folder = m_tree->index(0, 0);
    const QPersistentModelIndex kept = addString("kept", folder);
    const QPersistentModelIndex dropped = addString("dropped", folder);
    select(folder);
    select(kept);
    deselect(folder);
    QVERIFY(m_graph->isLoaded(idOf(kept)));
    QVERIFY(!m_graph->isLoaded(idOf(dropped)));
    QCOMPARE(m_graph->selectedNames(), QString("kept"));
}

void TestCurveGraphModel::aSingleDeselectedCellNamesItsRowButTheFirst()
{
    const QModelIndex string = addString("a");
    select(string);
    // The single first cell unloads nothing.
    m_graph->slotTreeSelectionChanged({}, QItemSelection(string, string));
    QVERIFY(m_graph->isLoaded(idOf(string)));
    const QModelIndex other = string.sibling(0, 3);
    m_graph->slotTreeSelectionChanged({}, QItemSelection(other, other));
    QVERIFY(!m_graph->isLoaded(idOf(string)));
}

void TestCurveGraphModel::aNodeTakesAColourAndNamesItsString()
{
    const QModelIndex string = addString("a");
    QVERIFY(!m_tree->item(string)->colour.isValid());
    select(string);
    const QColor colour = m_tree->item(string)->colour;
    QVERIFY(colour.isValid());
    QCOMPARE(m_graph->record(idOf(string)).colour(), colour);
    QCOMPARE(m_graph->record(idOf(string)).header().name, QString("a"));
    deselect(string);
    select(string);
    QCOMPARE(m_tree->item(string)->colour, colour);
}

void TestCurveGraphModel::selectedNamesAreJoinedInOrder()
{
    addString("b");
    addString("a");
    select(m_tree->index(1, 0));
    select(m_tree->index(0, 0));
    QCOMPARE(m_graph->selectedNames(), QString("b, a"));
}

void TestCurveGraphModel::editedTextReachesTheLegendWithTheNextSelection()
{
    const QPersistentModelIndex edited = addString("String 7");
    const QPersistentModelIndex other = addString("other");
    select(edited);
    QSignalSpy legend(m_graph, &CurveGraphModel::signalUpdateLegend);
    QVERIFY(m_tree->setData(edited, "Roof south"));
    QCoreApplication::processEvents();
    QCOMPARE(legend.size(), 0);
    QCOMPARE(m_graph->record(idOf(edited)).header().name, QString("String 7"));
    select(other);
    QCOMPARE(legend.size(), 1);
    QCOMPARE(legend.first().first().toString(), QString("Roof south, other"));
}

void TestCurveGraphModel::removedRowsAreDropped()
{
    m_tree->insertNewRow(QModelIndex());
    const QModelIndex folder = m_tree->index(0, 0);
    const quint32 id = idOf(addString("a", folder));
    select(folder);
    QSignalSpy deselected(m_graph, &CurveGraphModel::signalStringDeselected);
    m_tree->removeNode(folder);
    QCOMPARE(deselected.size(), 1);
    QVERIFY(!m_graph->isLoaded(id));
}

void TestCurveGraphModel::aDroppedStringIsDeselected()
{
    addString("b");
    const QModelIndex string = addString("a");
    const quint32 id = idOf(string);
    select(string);
    const std::unique_ptr<QMimeData> data(m_tree->mimeData({string}));
    QVERIFY(m_tree->dropMimeData(data.get(), Qt::MoveAction, 2, 0, QModelIndex()));
    m_tree->removeRow(0);
    QVERIFY(!m_graph->isLoaded(id));
    select(m_tree->index(1, 0));
    QVERIFY(m_graph->isLoaded(id));
}

void TestCurveGraphModel::lookUpsThatFailThrow()
{
    try {
        m_graph->record(77);
        QFAIL("no exception");
    } catch (const std::out_of_range &error) {
        QCOMPARE(error.what(), "invalid unordered_map<K, T> key");
    }
}

void TestCurveGraphModel::aStringThatCannotBeLoadedIsInternalError()
{
    const QModelIndex string = addString("a");
    const quint32 id = idOf(string);
    QVERIFY(QSqlQuery(m_database->database()).exec("DELETE FROM Curves"));
    QSignalSpy selected(m_graph, &CurveGraphModel::signalStringSelected);
    select(string);
    QVERIFY(selected.isEmpty());
    try {
        m_graph->record(id);
        QFAIL("no exception");
    } catch (const std::runtime_error &error) {
        QCOMPARE(error.what(), "Internal error: no data associated with string");
    }
    QVERIFY(!m_tree->item(string)->colour.isValid());
}

void TestCurveGraphModel::aStringDeselectedWhileItsLoadTellsOfAFailureStaysUnloaded()
{
    const QModelIndex string = addString("a");
    QVERIFY(QSqlQuery(m_database->database()).exec("UPDATE Curves SET ModuleID = 7"));
    CurveSample::forgetCatalogue();
    BoxWatcher watcher;
    watcher.expectAndLook("File is missing", QMessageBox::Ok, [this, &string](QWidget *) {
        QVERIFY(m_graph->isLoaded(idOf(string)));
        deselect(string);
    });
    QSignalSpy selected(m_graph, &CurveGraphModel::signalStringSelected);
    select(string);
    QVERIFY(selected.isEmpty());
    QVERIFY(!m_graph->isLoaded(idOf(string)));
    QVERIFY(!m_tree->item(string)->colour.isValid());
}

void TestCurveGraphModel::rowsThatGoWhileALoadTellsOfAFailureAreLeftAlone()
{
    m_tree->insertNewRow(QModelIndex());
    const QPersistentModelIndex folder = m_tree->index(0, 0);
    const QPersistentModelIndex last = addString("last", folder);
    const QPersistentModelIndex first = addString("first", folder);
    const quint32 lastId = idOf(last);
    const quint32 firstId = idOf(first);
    QVERIFY(QSqlQuery(m_database->database()).exec("UPDATE Curves SET ModuleID = 7"));
    CurveSample::forgetCatalogue();
    BoxWatcher watcher;
    watcher.expectAndLook("File is missing", QMessageBox::Ok,
                          [this, &folder](QWidget *) { m_tree->removeNode(folder); });
    QSignalSpy selected(m_graph, &CurveGraphModel::signalStringSelected);
    select(folder);
    QCOMPARE(watcher.boxes().size(), 1);
    QVERIFY(selected.isEmpty());
    QCOMPARE(m_tree->rowCount(), 0);
    QVERIFY(!m_graph->isLoaded(firstId) && !m_graph->isLoaded(lastId));
}

void TestCurveGraphModel::settingsOfAnUnloadedStringAreTold()
{
    BoxWatcher watcher;
    watcher.expect("IV curve data not found in collection", QMessageBox::Ok);
    m_graph->saveStringSettings(77);
    QVERIFY(watcher.boxes().first().icon == QMessageBox::Critical);
}

void TestCurveGraphModel::editedDetailsReplaceTheRecordAndReachTheTree()
{
    const QModelIndex string = addString("a");
    const quint32 id = idOf(string);
    select(string);
    const QVector<QPointF> before = m_graph->record(id).stcPowerCurve().points;
    StringRecord copy(m_graph->record(id));
    copy.header().irradiance = "650";
    copy.header().ambientTemp = "12";
    copy.header().cellTemp = "33";
    QSignalSpy changed(m_tree, &CurveTreeModel::dataChanged);
    QSignalSpy deselected(m_graph, &CurveGraphModel::signalStringDeselected);
    QSignalSpy selected(m_graph, &CurveGraphModel::signalStringSelected);
    m_graph->applyDetails(copy, string);
    QCOMPARE(deselected.size(), 1);
    QCOMPARE(selected.size(), 1);
    QCOMPARE(changed.size(), 1);
    QVERIFY(m_graph->record(id).stcPowerCurve().points != before);
    QCOMPARE(string.sibling(0, 3).data().toString(), QString("650"));
    QCOMPARE(string.sibling(0, 4).data().toString(), QString("33"));
    QCOMPARE(m_tree->item(string)->data.at(TreeItem::AmbientTemp).toString(), QString("12"));
    m_graph->applyDetails(copy, QModelIndex());
    QCOMPARE(changed.size(), 1);
}

void TestCurveGraphModel::detailsOfAnUnloadedStringThrow()
{
    QVERIFY_EXCEPTION_THROWN(m_graph->applyDetails(CurveSample::record(), QModelIndex()), std::out_of_range);
}

void TestCurveGraphModel::assigningAModuleChangesFileAndRecord()
{
    const QModelIndex string = addString("a");
    const quint32 id = idOf(string);
    select(string);
    QVERIFY(m_graph->record(id).nominalCurve().isEmpty());
    const QVector<QPointF> before = m_graph->record(id).stcCurve(true).points;
    QSignalSpy selected(m_graph, &CurveGraphModel::signalStringSelected);
    const auto module = ModuleDatabase::instance().table()->row(7);
    m_graph->assignModule(id, *module, 16);
    QCOMPARE(selected.size(), 1);
    StringRecord &record = m_graph->record(id);
    QCOMPARE(record.module().moduleId, 7u);
    QCOMPARE(record.module().series, 16);
    QCOMPARE(record.module().parallel, 1);
    QCOMPARE(record.settings().alpha, QString("0.0044"));
    QCOMPARE(record.settings().Rs, QString("0.3"));
    QCOMPARE(record.nominalCurve().size(), 128);
    QVERIFY(record.stcCurve(true).points != before);
    const auto loaded = m_graph->loadString(id);
    QCOMPARE(loaded->module().moduleId, 7u);
    QCOMPARE(loaded->module().series, 16);
    QCOMPARE(loaded->module().voc, 37.5);
}

void TestCurveGraphModel::theModulesDeltaTakesEffectAtTheNextLoad()
{
    const QModelIndex string = addString("a");
    const quint32 id = idOf(string);
    select(string);
    m_graph->assignModule(id, *ModuleDatabase::instance().table()->row(7), 16);
    QCOMPARE(m_graph->record(id).settings().delta, QString("0.085"));
    const QVector<QPointF> old = m_graph->record(id).stcCurve(true).points;
    deselect(string);
    select(string);
    QCOMPARE(m_graph->record(id).settings().delta, QString("0.11"));
    QVERIFY(m_graph->record(id).stcCurve(true).points != old);
}

void TestCurveGraphModel::assigningTheEmptyRowTakesTheModuleAway()
{
    const QModelIndex string = addString("a");
    const quint32 id = idOf(string);
    select(string);
    m_graph->assignModule(id, *ModuleDatabase::instance().table()->row(7), 16);
    m_graph->assignModule(id, CurveModuleRow(), 1);
    StringRecord &record = m_graph->record(id);
    QCOMPARE(record.module().moduleId, 0u);
    QVERIFY(record.nominalCurve().isEmpty());
    QCOMPARE(QStringList({record.settings().alpha, record.settings().beta, record.settings().Rs}),
             QStringList({"0", "0", "0"}));
    QSqlQuery query(m_database->database());
    QVERIFY(query.exec("SELECT STC_alpha, STC_beta, STC_delta, STC_Rs, ModuleID FROM Curves"));
    QVERIFY(query.next());
    for (int column = 0; column < 4; ++column)
        QVERIFY(query.value(column).isNull());
    QVERIFY(!query.value(4).isNull());
    QCOMPARE(query.value(4).toInt(), 0);
}

void TestCurveGraphModel::assigningWorksOnStringsThatAreNotLoaded()
{
    const QModelIndex string = addString("a");
    QSignalSpy selected(m_graph, &CurveGraphModel::signalStringSelected);
    m_graph->assignModule(idOf(string), *ModuleDatabase::instance().table()->row(7), 16);
    QVERIFY(selected.isEmpty());
    QCOMPARE(m_graph->loadString(idOf(string))->module().series, 16);
}

void TestCurveGraphModel::aDeletedModuleLeavesSeriesAndParallelAt1()
{
    const QModelIndex string = addString("a");
    m_graph->assignModule(idOf(string), *ModuleDatabase::instance().table()->row(7), 16);
    QVERIFY(ModuleDatabase::instance().table()->remove(7));
    const auto record = m_graph->loadString(idOf(string));
    QCOMPARE(record->module().moduleId, 0u);
    QCOMPARE(record->module().series, 1);
    QCOMPARE(record->settings().alpha, QString("0.0044"));
}

void TestCurveGraphModel::aStringWithoutModuleLeavesTheCatalogueAlone()
{
    CurveSample::forgetCatalogue();
    const QModelIndex string = addString("a");
    m_graph->assignModule(idOf(string), CurveModuleRow(), 5);
    const BoxWatcher watcher;
    const auto record = m_graph->loadString(idOf(string));
    QCOMPARE(record->module().moduleId, 0u);
    QCOMPARE(record->module().series, 5);
    QVERIFY(watcher.boxes().isEmpty());
}

void TestCurveGraphModel::everyStringOfAThousandIsLoadedOnce()
{
    m_tree->insertNewRow(QModelIndex());
    const QModelIndex folder = m_tree->index(0, 0);
    QVERIFY(m_database->database().exec("PRAGMA synchronous=OFF").lastError().text().trimmed().isEmpty());
    for (int i = 0; i < 1000; ++i)
        addString(QString::number(i), folder);
    QSignalSpy selected(m_graph, &CurveGraphModel::signalStringSelected);
    select(folder);
    QCOMPARE(selected.size(), 1000);
    select(m_tree->index(0, 0, folder));
    QCOMPARE(selected.size(), 1000);
}

KELMAR_TEST_MAIN(TestCurveGraphModel)
#include "tst_curvegraphmodel.moc"
