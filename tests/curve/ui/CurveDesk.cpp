#include "tests/curve/ui/CurveDesk.h"

#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveTree.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/ui/CurveGraph.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/support/MenuWatcher.h"
#include "tests/support/Patience.h"

#include <QAction>
#include <QtTest>

using namespace IVCurve;

QString CurveDesk::makeFile(int strings, const QString &name)
{
    const QString path = CurveSample::newFile(name);
    CurveDatabase file(path);
    CurveTreeModel *tree = file.treeModel();
    tree->insertNewRow(QModelIndex())->setData(TreeItem::NodeDesc, "Wall");
    tree->insertNewRow(QModelIndex())->setData(TreeItem::NodeDesc, "Roof");
    QVector<TreeItem *> nodes;
    for (int i = strings; i > 0; --i) {
        nodes.prepend(tree->insertNewRow(tree->index(0, 0)));
        nodes.first()->setData(TreeItem::NodeDesc, QString("String %1").arg(i));
        nodes.first()->setData(TreeItem::MemLocation, i);
    }
    for (TreeItem *node : nodes)
        node->setData(TreeItem::CurveID, file.graphModel()->insertString(CurveSample::record(20)));
    tree->slotSave();
    return path;
}

CurveDesk::CurveDesk(const QString &path)
    : document(path)
    , tree(document.findChild<CurveTree *>())
    , model(tree ? qobject_cast<CurveTreeModel *>(tree->model()) : nullptr)
    , graph(document.findChild<CurveGraph *>())
{
    if (tree)
        tree->expandAll();
}

CurveDesk::~CurveDesk() = default;

void CurveDesk::show()
{
    document.resize(900, 600);
    document.show();
    document.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&document, patience));
    tree->setFocus();
    QTRY_VERIFY(tree->hasFocus());
}

QModelIndex CurveDesk::at(const QStringList &names, int column) const
{
    QModelIndex index;
    for (const QString &name : names) {
        QModelIndex found;
        for (int row = 0; row < model->rowCount(index) && !found.isValid(); ++row) {
            if (model->index(row, 0, index).data().toString() == name)
                found = model->index(row, 0, index);
        }
        if (!found.isValid())
            return found;
        index = found;
    }
    return index.sibling(index.row(), column);
}

QModelIndex CurveDesk::string(int number, int column) const
{
    return at({"Roof", QString("String %1").arg(number)}, column);
}

void CurveDesk::select(const QList<QModelIndex> &indexes) const
{
    tree->selectionModel()->clearSelection();
    for (const QModelIndex &index : indexes)
        tree->selectionModel()->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void CurveDesk::selectStrings(const QVector<int> &numbers) const
{
    QList<QModelIndex> indexes;
    for (const int number : numbers)
        indexes.append(string(number));
    select(indexes);
}

void CurveDesk::rightClick(const QModelIndex &index, const QString &choice) const
{
    QPoint place(20, tree->viewport()->height() - 5);
    if (index.isValid()) {
        tree->scrollTo(index);
        place = tree->visualRect(index).center();
    }
    QVERIFY(tree->indexAt(place) == index);
    const MenuWatcher menu(choice);
    emit tree->customContextMenuRequested(place);
    QVERIFY(menu.menus() > 0);
}

QAction *CurveDesk::action(const char *name) const
{
    auto *found = document.findChild<QAction *>(name);
    if (!found)
        QTest::qFail(name, __FILE__, __LINE__);
    return found;
}

bool CurveDesk::isEnabled(const char *name) const
{
    return action(name)->isEnabled();
}

QStringList CurveDesk::namesBelow(const QModelIndex &parent) const
{
    QStringList names;
    for (int row = 0; row < model->rowCount(parent); ++row)
        names.append(model->index(row, 0, parent).data().toString());
    return names;
}

int CurveDesk::lines(const char *property) const
{
    return graph->findChild<QObject *>("SquishGraphHelper")->property(property).toInt();
}
