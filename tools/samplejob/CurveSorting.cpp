#include "tools/samplejob/CurveSorting.h"

#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/data/ModuleDatabase.h"
#include "curve/data/TreeItem.h"
#include "tools/samplejob/SampleError.h"
#include "tools/samplejob/SampleTable.h"

using namespace IVCurve;

namespace {

CurveModuleRow moduleOfTheCatalogue(const QString &name)
{
    const ModuleTable *table = ModuleDatabase::instance().table();
    QVector<CurveModuleRow> rows;
    if (!table || !table->allRows(rows))
        throw SampleError(QStringLiteral("there is no catalogue of modules"));
    for (const CurveModuleRow &row : qAsConst(rows)) {
        if (row.Description.toString() == name)
            return row;
    }
    throw SampleError(QStringLiteral("the catalogue has no module \"%1\"").arg(name));
}

void name(CurveTreeModel *tree, const QModelIndex &node, const QString &text)
{
    if (!tree->setData(node, text))
        throw SampleError(QStringLiteral("no node of the curve file can be called \"%1\"").arg(text));
}

/// A tester's file holds other tests than curves, too. They are told by what only a curve has.
void removeWhatIsNoCurve(CurveTreeModel *tree, const QModelIndex &folder)
{
    for (int row = tree->rowCount(folder) - 1; row >= 0; --row) {
        const QModelIndex string = tree->index(row, 0, folder);
        if (tree->item(string)->data.at(TreeItem::FF).toString().isEmpty())
            tree->removeNode(string);
    }
}

} // namespace

void sortCurves(const QString &path, const QString &table, bool german)
{
    CurveDatabase database(path);
    if (!database.isOpen())
        throw SampleError(path + QLatin1String(" cannot be opened"));
    CurveTreeModel *tree = database.treeModel();
    const QVector<QStringList> rows = SampleTable::read(table);
    const QModelIndex folder = tree->index(0, 0);
    name(tree, folder, SampleTable::text(rows.value(0), 1, german));
    removeWhatIsNoCurve(tree, folder);
    if (tree->rowCount(folder) != rows.size() - 1)
        throw SampleError(path + QLatin1String(" has other strings than ") + table);
    for (int i = 1; i < rows.size(); ++i) {
        const QModelIndex string = tree->index(i - 1, 0, folder);
        name(tree, string, SampleTable::text(rows.at(i), 3, german));
        const quint32 id = tree->item(string)->data.at(TreeItem::CurveID).toUInt();
        database.graphModel()->assignModule(id, moduleOfTheCatalogue(rows.at(i).value(2)),
                                            rows.at(i).value(1).toInt());
    }
    tree->slotSave();
}
