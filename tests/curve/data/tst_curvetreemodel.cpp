#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveTree.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/data/TreeItemText.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QMimeData>
#include <QSignalSpy>

using namespace IVCurve;

class TestCurveTreeModel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void headersAndColumnsAreThoseOfTheView();
    void columnsShowTheirFields();
    void onlyThreeColumnsCanBeSet();
    void onlyTheFirstColumnIsEditedAndDragged();
    void statusTextsAndColours_data();
    void statusTextsAndColours();
    void theSwatchHasTheNodesColour();
    void datesAreShownInTheLocale_data();
    void datesAreShownInTheLocale();

    void newRowsComeFirstWithTheNextNumber();
    void numbersGoOnAboveTheHighestInTheFile();
    void removingReportsAChange();
    void rowsOutOfRangeAreRefused();

    void siblingsKeepTheirOrderOverSavingAndOpening();
    void editedTextColourAndStatusAreSaved();
    void savingDeletesCurvesWithoutANode();
    void anEmptyTreeIsNotSaved();
    void aNodeWhoseCurveIsGoneReadsAsAFolder();
    void savingWithoutATableTellsAndMakesIt();

    void dragDataAreAddressesMostSignificantByteFirst();
    void droppingOnAnItemPutsTheNodesFirstAmongItsChildren();
    void aParentAndItsChildStayParentAndChild();
    void dropsThatAreRefused();
    void droppedNodesKeepTheirNumbersAndTakeTheNewParent();
    void aDragInTheViewMovesARow();
    void randomMovesKeepEveryNode();
    void theViewIsSetUpAsItIs();

private:
    TreeItem *addNode(const QString &text, const QModelIndex &parent = QModelIndex());
    QStringList texts(const QModelIndex &parent = QModelIndex()) const;
    bool drop(const QModelIndexList &indexes, int row, const QModelIndex &parent, int column = 0);
    void reopen();

    QString m_path;
    std::unique_ptr<CurveDatabase> m_database;
    CurveTreeModel *m_model = nullptr;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

void TestCurveTreeModel::init()
{
    m_path = CurveSample::newFile();
    reopen();
}

void TestCurveTreeModel::cleanup()
{
    m_tester.reset();
    m_database.reset();
}

void TestCurveTreeModel::reopen()
{
    m_tester.reset();
    m_database.reset();
    m_database = std::make_unique<CurveDatabase>(m_path);
    m_model = m_database->treeModel();
    m_tester = std::make_unique<QAbstractItemModelTester>(
        m_model, QAbstractItemModelTester::FailureReportingMode::QtTest);
}

TreeItem *TestCurveTreeModel::addNode(const QString &text, const QModelIndex &parent)
{
    TreeItem *node = m_model->insertNewRow(parent);
    node->setData(TreeItem::NodeDesc, text);
    return node;
}

QStringList TestCurveTreeModel::texts(const QModelIndex &parent) const
{
    QStringList all;
    for (int row = 0; row < m_model->rowCount(parent); ++row)
        all.append(m_model->index(row, 0, parent).data().toString());
    return all;
}

bool TestCurveTreeModel::drop(const QModelIndexList &indexes, int row, const QModelIndex &parent, int column)
{
    const std::unique_ptr<QMimeData> data(m_model->mimeData(indexes));
    return m_model->dropMimeData(data.get(), Qt::MoveAction, row, column, parent);
}

void TestCurveTreeModel::headersAndColumnsAreThoseOfTheView()
{
    QCOMPARE(m_model->columnCount(), 8);
    QStringList headers;
    for (int column = 0; column < 8; ++column)
        headers.append(m_model->headerData(column, Qt::Horizontal).toString());
    QCOMPARE(headers,
             QStringList({"Item Description", "Tester Index", "Date Tested", "Irr", "Tcell", "FF", " ", ""}));
    QVERIFY(!m_model->headerData(0, Qt::Vertical).isValid());
    QVERIFY(!m_model->headerData(0, Qt::Horizontal, Qt::EditRole).isValid());
    QVERIFY(!m_model->setHeaderData(0, Qt::Horizontal, "x", Qt::DisplayRole));
    QVERIFY(m_model->setHeaderData(0, Qt::Horizontal, "x", Qt::EditRole));
    QCOMPARE(m_model->headerData(0, Qt::Horizontal).toString(), QString("x"));
    QCOMPARE(m_model->supportedDropActions(), Qt::DropActions(Qt::MoveAction));
    QCOMPARE(m_model->mimeTypes(), QStringList("application/vnd.custom.ctmtype"));
}

void TestCurveTreeModel::columnsShowTheirFields()
{
    TreeItem *node = addNode("Roof");
    for (int field = TreeItem::CurveID; field < TreeItem::FieldCount; ++field)
        node->setData(field, 100 + field);
    QStringList shown;
    for (int column = 0; column < 8; ++column)
        shown.append(m_model->index(0, column).data().toString());
    QCOMPARE(shown, QStringList({"Roof", "104", "", "107", "109", "110", "", ""}));
    QCOMPARE(m_model->index(0, 1).data(Qt::TextAlignmentRole).toInt(), 4);
    QVERIFY(!m_model->index(0, 0).data(Qt::TextAlignmentRole).isValid());
    QVERIFY(!m_model->data(QModelIndex()).isValid());
}

void TestCurveTreeModel::onlyThreeColumnsCanBeSet()
{
    TreeItem *node = addNode("Roof");
    QSignalSpy changed(m_model, &QAbstractItemModel::dataChanged);
    QSignalSpy modified(m_model, &CurveTreeModel::modified);
    for (const int column : {1, 2, 5, 6, 7})
        QVERIFY(!m_model->setData(m_model->index(0, column), "x"));
    QVERIFY(!m_model->setData(m_model->index(0, 0), "x", Qt::DisplayRole));
    QVERIFY(changed.isEmpty() && modified.isEmpty());
    QVERIFY(m_model->setData(m_model->index(0, 0), "Carport"));
    QVERIFY(m_model->setData(m_model->index(0, 3), "812"));
    QVERIFY(m_model->setData(m_model->index(0, 4), "41"));
    QCOMPARE(node->data.at(2).toString(), QString("Carport"));
    QCOMPARE(node->data.at(7).toString(), QString("812"));
    QCOMPARE(node->data.at(9).toString(), QString("41"));
    QCOMPARE(changed.size(), 3);
    QCOMPARE(modified.size(), 3);
}

void TestCurveTreeModel::onlyTheFirstColumnIsEditedAndDragged()
{
    addNode("Roof");
    QCOMPARE(m_model->flags(QModelIndex()), Qt::ItemFlags(Qt::ItemIsDropEnabled));
    const Qt::ItemFlags base = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    QCOMPARE(m_model->flags(m_model->index(0, 0)),
             base | Qt::ItemIsEditable | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled);
    QCOMPARE(m_model->flags(m_model->index(0, 3)), base);
}

void TestCurveTreeModel::statusTextsAndColours_data()
{
    QTest::addColumn<QVariant>("status");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QColor>("colour");
    const QString sum =
        "Invalid checksum. Internal error in test instrument or the CSV data has been modified";
    const QString touched = "Checksum ignored. Spreadsheet data modification was detected";
    const QString sun = "Irradiance warning. Greater than 10% variance during test";
    QTest::newRow("none") << QVariant() << "Roof" << QColor();
    QTest::newRow("0") << QVariant("0") << "Roof" << QColor();
    QTest::newRow("the tester's own") << QVariant("4") << "Roof" << QColor();
    QTest::newRow("no number") << QVariant("x") << "Roof" << QColor();
    QTest::newRow("sum") << QVariant("1") << sum << QColor(Qt::red);
    QTest::newRow("spreadsheet") << QVariant("64") << touched << QColor(Qt::darkGreen);
    QTest::newRow("irradiance") << QVariant("128") << sun << QColor(Qt::blue);
    QTest::newRow("0x41") << QVariant(0x41) << sum + touched << QColor(Qt::red);
    QTest::newRow("0xc1") << QVariant(0xc1) << sum + touched + "\n" + sun << QColor(Qt::red);
    QTest::newRow("0xc0") << QVariant(0xc0) << touched + "\n" + sun << QColor(Qt::blue);
}

void TestCurveTreeModel::statusTextsAndColours()
{
    QFETCH(QVariant, status);
    QFETCH(QColor, colour);
    addNode("Roof")->setData(TreeItem::Status, status);
    for (const int column : {0, 3, 7}) {
        const QModelIndex index = m_model->index(0, column);
        QTEST(index.data(Qt::ToolTipRole).toString(), "toolTip");
        QCOMPARE(index.data(Qt::ForegroundRole).value<QColor>(), colour);
        QCOMPARE(index.data(Qt::ForegroundRole).isValid(), colour.isValid());
    }
}

void TestCurveTreeModel::theSwatchHasTheNodesColour()
{
    TreeItem *node = addNode("Roof");
    QVERIFY(!m_model->index(0, 6).data(Qt::BackgroundRole).isValid());
    node->colour = QColor("tomato");
    node->setData(TreeItem::Status, "1");
    QCOMPARE(m_model->index(0, 6).data(Qt::BackgroundRole).value<QColor>(), QColor("tomato"));
    QCOMPARE(m_model->index(0, 6).data(Qt::ForegroundRole).value<QColor>(), QColor("tomato"));
    QVERIFY(!m_model->index(0, 5).data(Qt::BackgroundRole).isValid());
    QCOMPARE(m_model->index(0, 5).data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::red));
}

void TestCurveTreeModel::datesAreShownInTheLocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::newRow("ISO, German") << "de"
                                 << "2016-05-12T10:11:29"
                                 << "12.05.16 10:11:29";
    QTest::newRow("ISO, British") << "en_GB"
                                  << "2016-05-12T10:11:29"
                                  << "12/05/2016 10:11:29";
    QTest::newRow("ISO date alone") << "en_GB"
                                    << "2016-05-12"
                                    << "12/05/2016 00:00:00";
    QTest::newRow("older form, local date") << "de"
                                            << "12.05.16 10:11:29"
                                            << "12.05.16 10:11:29";
    QTest::newRow("older form, dd/MM/yyyy") << "de"
                                            << "12/05/2016 9:1:2"
                                            << "12.05.16 09:01:02";
    QTest::newRow("older form without seconds") << "de"
                                                << "12/05/2016 10:11"
                                                << "";
    QTest::newRow("impossible time") << "de"
                                     << "12/05/2016 25:00:00"
                                     << "";
    QTest::newRow("time alone") << "de"
                                << "T10:11:29"
                                << "";
    QTest::newRow("empty") << "de"
                           << ""
                           << "";
}

void TestCurveTreeModel::datesAreShownInTheLocale()
{
    QFETCH(QString, locale);
    QFETCH(QString, stored);
    const LocaleSwitch spoken(locale);
    QTEST(shownDate(stored), "shown");
}

void TestCurveTreeModel::newRowsComeFirstWithTheNextNumber()
{
    QSignalSpy modified(m_model, &CurveTreeModel::modified);
    TreeItem *first = m_model->insertNewRow(QModelIndex());
    TreeItem *second = m_model->insertNewRow(QModelIndex());
    QCOMPARE(first->data.at(0).toInt(), 1);
    QCOMPARE(second->data.at(0).toInt(), 2);
    QCOMPARE(m_model->index(0, 0).data().toString(), QString("<New Row>"));
    QCOMPARE(m_model->item(m_model->index(0, 0)), second);
    QVERIFY(!first->data.at(1).isValid());
    const TreeItem *child = m_model->insertNewRow(m_model->index(1, 0));
    QCOMPARE(child->data.at(1).toInt(), 1);
    QCOMPARE(modified.size(), 3);
    QVERIFY(modified.first().first().toBool());
}

void TestCurveTreeModel::numbersGoOnAboveTheHighestInTheFile()
{
    addNode("a");
    addNode("b");
    m_model->slotSave();
    reopen();
    // The next number is above the highest, and is raised before it is given.
    QCOMPARE(m_model->insertNewRow(QModelIndex())->data.at(0).toInt(), 4);
}

void TestCurveTreeModel::removingReportsAChange()
{
    addNode("a");
    addNode("b");
    QSignalSpy modified(m_model, &CurveTreeModel::modified);
    m_model->removeNode(m_model->index(0, 0));
    QCOMPARE(texts(), QStringList("a"));
    QCOMPARE(modified.size(), 1);
    m_model->removeNode(QModelIndex());
    QCOMPARE(modified.size(), 1);
}

void TestCurveTreeModel::rowsOutOfRangeAreRefused()
{
    addNode("a");
    QVERIFY(!m_model->insertRows(-1, 1));
    QVERIFY(!m_model->insertRows(2, 1));
    QVERIFY(!m_model->removeRows(0, 2));
    QVERIFY(!m_model->removeRows(-1, 1));
    QVERIFY(!m_model->removeRows(1, 1));
    QVERIFY(!m_model->index(1, 0).isValid());
    QVERIFY(!m_model->index(0, 8).isValid());
    QVERIFY(!m_model->index(0, 0, m_model->index(0, 1)).isValid());
    QCOMPARE(m_model->rowCount(), 1);
}

void TestCurveTreeModel::siblingsKeepTheirOrderOverSavingAndOpening()
{
    for (const char *text : {"c", "b", "a"})
        addNode(text);
    for (const char *text : {"b2", "b1"})
        addNode(text, m_model->index(1, 0));
    m_model->slotSave();
    for (int opening = 0; opening < 2; ++opening) {
        reopen();
        QCOMPARE(texts(), QStringList({"a", "b", "c"}));
        QCOMPARE(texts(m_model->index(1, 0)), QStringList({"b1", "b2"}));
        m_model->slotSave();
    }
}

void TestCurveTreeModel::editedTextColourAndStatusAreSaved()
{
    TreeItem *node = addNode("a");
    node->colour = QColor("tomato");
    node->setData(TreeItem::Status, "65");
    m_model->setData(m_model->index(0, 0), "Roof south");
    addNode("plain");
    QSignalSpy modified(m_model, &CurveTreeModel::modified);
    m_model->slotSave();
    QCOMPARE(modified.size(), 1);
    QVERIFY(!modified.first().first().toBool());
    QVERIFY(CurveSample::value(m_path, "SELECT Colour FROM TreeNodes WHERE NodeDesc = 'plain'").isNull());
    QVERIFY(
        CurveSample::value(m_path, "SELECT ParentNodeID FROM TreeNodes WHERE NodeDesc = 'plain'").isNull());
    reopen();
    QCOMPARE(texts(), QStringList({"plain", "Roof south"}));
    QCOMPARE(m_model->item(m_model->index(1, 0))->colour, QColor("tomato"));
    QCOMPARE(m_model->item(m_model->index(1, 0))->data.at(TreeItem::Status).toInt(), 65);
}

void TestCurveTreeModel::savingDeletesCurvesWithoutANode()
{
    const quint32 kept = m_database->graphModel()->insertString(CurveSample::record());
    m_database->graphModel()->insertString(CurveSample::record());
    addNode("kept")->setData(TreeItem::CurveID, kept);
    m_model->slotSave();
    QCOMPARE(CurveSample::value(m_path, "SELECT group_concat(CurveID) FROM Curves").toUInt(), kept);
}

void TestCurveTreeModel::anEmptyTreeIsNotSaved()
{
    addNode("a")->setData(TreeItem::CurveID, m_database->graphModel()->insertString(CurveSample::record()));
    m_model->slotSave();
    m_model->removeNode(m_model->index(0, 0));
    m_model->slotSave();
    reopen();
    QCOMPARE(texts(), QStringList("a"));
    QVERIFY(m_database->graphModel()->loadString(1) != nullptr);
}

void TestCurveTreeModel::aNodeWhoseCurveIsGoneReadsAsAFolder()
{
    addNode("a")->setData(TreeItem::CurveID, m_database->graphModel()->insertString(CurveSample::record()));
    m_model->slotSave();
    m_database.reset();
    m_tester.reset();
    CurveSample::execute(m_path, {"DELETE FROM Curves"});
    reopen();
    QVERIFY(m_model->item(m_model->index(0, 0))->data.at(TreeItem::CurveID).isNull());
}

void TestCurveTreeModel::savingWithoutATableTellsAndMakesIt()
{
    addNode("a");
    CurveSample::execute(m_path, {"DROP TABLE TreeNodes"});
    BoxWatcher watcher;
    watcher.expect("no such table", QMessageBox::Ok);
    // The table is there again when the curves without a node are looked for.
    m_model->slotSave();
    QCOMPARE(CurveSample::value(m_path, "SELECT count(*) FROM TreeNodes").toInt(), 0);
    m_model->slotSave();
    QCOMPARE(CurveSample::value(m_path, "SELECT count(*) FROM TreeNodes").toInt(), 1);
}

void TestCurveTreeModel::dragDataAreAddressesMostSignificantByteFirst()
{
    const TreeItem *node = addNode("a");
    const std::unique_ptr<QMimeData> data(m_model->mimeData({m_model->index(0, 0), QModelIndex()}));
    QByteArray expected;
    for (int shift = int(sizeof(quintptr)) * 8 - 8; shift >= 0; shift -= 8)
        expected.append(char(reinterpret_cast<quintptr>(node) >> shift));
    QCOMPARE(data->data("application/vnd.custom.ctmtype"), expected);
    QCOMPARE(data->formats(), QStringList("application/vnd.custom.ctmtype"));
}

void TestCurveTreeModel::droppingOnAnItemPutsTheNodesFirstAmongItsChildren()
{
    for (const char *text : {"c", "b", "a"})
        addNode(text);
    addNode("a1", m_model->index(0, 0));
    QVERIFY(drop({m_model->index(1, 0), m_model->index(2, 0)}, -1, m_model->index(0, 0)));
    QCOMPARE(texts(m_model->index(0, 0)), QStringList({"c", "b", "a1"}));
    QVERIFY(drop({m_model->index(1, 0)}, 0, QModelIndex()));
    QCOMPARE(texts(), QStringList({"b", "a", "b", "c"}));
}

void TestCurveTreeModel::aParentAndItsChildStayParentAndChild()
{
    addNode("target");
    addNode("parent");
    addNode("child", m_model->index(0, 0));
    addNode("grandchild", m_model->index(0, 0, m_model->index(0, 0)));
    const QModelIndex parent = m_model->index(0, 0);
    const QModelIndex child = m_model->index(0, 0, parent);
    QVERIFY(drop({parent, child, m_model->index(0, 0, child)}, -1, m_model->index(1, 0)));
    const QModelIndex target = m_model->index(1, 0);
    QCOMPARE(texts(target), QStringList("parent"));
    const QModelIndex moved = m_model->index(0, 0, target);
    QCOMPARE(texts(moved), QStringList("child"));
    QCOMPARE(texts(m_model->index(0, 0, moved)), QStringList("grandchild"));
}

void TestCurveTreeModel::dropsThatAreRefused()
{
    addNode("a");
    addNode("b");
    QSignalSpy modified(m_model, &CurveTreeModel::modified);
    QVERIFY(!drop({m_model->index(0, 0)}, 0, m_model->index(1, 0), 1));
    QVERIFY(!drop({m_model->index(0, 0)}, -1, QModelIndex()));
    QMimeData foreign;
    foreign.setText("a");
    QVERIFY(!m_model->dropMimeData(&foreign, Qt::MoveAction, 0, 0, QModelIndex()));
    QVERIFY(m_model->dropMimeData(&foreign, Qt::IgnoreAction, 0, 5, QModelIndex()));
    // Addresses that stand for nothing, and half an address.
    QMimeData empty;
    empty.setData("application/vnd.custom.ctmtype", QByteArray(8, '\0') + QByteArray(8, '\xff') + "abc");
    QVERIFY(m_model->dropMimeData(&empty, Qt::MoveAction, 0, 0, QModelIndex()));
    QCOMPARE(texts(), QStringList({"b", "a"}));
    QVERIFY(modified.isEmpty());
}

void TestCurveTreeModel::droppedNodesKeepTheirNumbersAndTakeTheNewParent()
{
    TreeItem *target = addNode("target");
    TreeItem *moved = addNode("moved");
    moved->colour = QColor("plum");
    addNode("child", m_model->index(0, 0));
    QSignalSpy modified(m_model, &CurveTreeModel::modified);
    QVERIFY(drop({m_model->index(0, 0)}, -1, m_model->index(1, 0)));
    QCOMPARE(modified.size(), 1);
    const TreeItem *copy = target->children.first();
    QCOMPARE(copy->data.at(0), moved->data.at(0));
    QCOMPARE(copy->data.at(1), target->data.at(0));
    QCOMPARE(copy->colour, moved->colour);
    QCOMPARE(copy->children.first()->data.at(1), copy->data.at(0));
    QVERIFY(drop({m_model->index(0, 0, m_model->index(1, 0))}, 0, QModelIndex()));
    QVERIFY(!m_model->item(m_model->index(0, 0))->data.at(1).isValid());
}

void TestCurveTreeModel::aDragInTheViewMovesARow()
{
    addNode("b");
    addNode("a");
    addNode("a1", m_model->index(0, 0));
    CurveTree view;
    view.setModel(m_model);
    // What the view does with a drop of its own: the model copies, then the view removes the source.
    const QModelIndex source = m_model->index(0, 0);
    QVERIFY(drop({source}, 2, QModelIndex()));
    m_model->removeRow(source.row());
    QCOMPARE(texts(), QStringList({"b", "a"}));
    QCOMPARE(texts(m_model->index(1, 0)), QStringList("a1"));
    m_model->slotSave();
    reopen();
    QCOMPARE(texts(m_model->index(1, 0)), QStringList("a1"));
}

void TestCurveTreeModel::randomMovesKeepEveryNode()
{
    m_tester.reset();
    std::srand(5);
    QVector<QPersistentModelIndex> nodes;
    for (int i = 0; i < 60; ++i) {
        const QModelIndex parent = i % 3 ? QModelIndex(nodes.at(std::rand() % i)) : QModelIndex();
        addNode(QString::number(i), parent);
        nodes.append(m_model->index(0, 0, parent));
    }
    const auto all = [this] {
        QStringList found;
        QModelIndexList waiting{QModelIndex()};
        while (!waiting.isEmpty()) {
            const QModelIndex next = waiting.takeLast();
            found += texts(next);
            for (int row = 0; row < m_model->rowCount(next); ++row)
                waiting.append(m_model->index(row, 0, next));
        }
        found.sort();
        return found;
    };
    const QStringList before = all();
    for (int move = 0; move < 300; ++move) {
        QModelIndexList every = m_model->match(m_model->index(0, 0), Qt::DisplayRole, "*", -1,
                                               Qt::MatchWildcard | Qt::MatchRecursive);
        const QPersistentModelIndex source = every.at(std::rand() % every.size());
        const QModelIndex target = every.at(std::rand() % every.size());
        bool within = false;
        for (QModelIndex up = target; up.isValid(); up = up.parent())
            within = within || up == QModelIndex(source);
        if (within)
            continue;
        QVERIFY(drop({source}, -1, target));
        m_model->removeRow(source.row(), source.parent());
        QCOMPARE(all(), before);
    }
    m_model->slotSave();
    reopen();
    QCOMPARE(all(), before);
}

void TestCurveTreeModel::theViewIsSetUpAsItIs()
{
    addNode("a");
    CurveTree view;
    view.setModel(m_model);
    QCOMPARE(view.selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(view.dragDropMode(), QAbstractItemView::InternalMove);
    QVERIFY(view.dragEnabled() && view.acceptDrops() && view.showDropIndicator());
    QVERIFY(view.alternatingRowColors() && view.isAnimated() && view.wordWrap());
    QVERIFY(view.expandsOnDoubleClick() && view.itemsExpandable());
    QCOMPARE(view.header()->minimumSectionSize(), 10);
    QCOMPARE(view.header()->sectionResizeMode(3), QHeaderView::Interactive);
    view.show();
    QCOMPARE(view.header()->sectionResizeMode(0), QHeaderView::Interactive);
    for (int section = 1; section < 8; ++section)
        QCOMPARE(view.header()->sectionResizeMode(section), QHeaderView::ResizeToContents);
    // Only the first time.
    view.hide();
    view.header()->setSectionResizeMode(2, QHeaderView::Interactive);
    view.show();
    QCOMPARE(view.header()->sectionResizeMode(2), QHeaderView::Interactive);
}

KELMAR_TEST_MAIN(TestCurveTreeModel)
#include "tst_curvetreemodel.moc"
