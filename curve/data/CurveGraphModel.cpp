#include "curve/data/CurveGraphModel.h"

#include "app/core/Messages.h"
#include "app/core/NumberText.h"
#include "app/core/Shell.h"
#include "app/core/WaitCursor.h"
#include "curve/data/CurveModuleRow.h"
#include "curve/data/CurvePalette.h"
#include "curve/data/ModuleDatabase.h"
#include "curve/data/TreeItem.h"

#include <QSqlQuery>
#include <QStringList>

#include <stdexcept>

namespace IVCurve {

namespace {

TreeItem *nodeOf(const QModelIndex &index)
{
    return static_cast<TreeItem *>(index.internalPointer());
}

/// A folder has no curve.
bool hasCurve(const TreeItem *node)
{
    return node && !node->data.at(TreeItem::CurveID).isNull();
}

quint32 curveOf(const TreeItem *node)
{
    return node->data.at(TreeItem::CurveID).toUInt();
}

} // namespace

CurveGraphModel::CurveGraphModel(const QSqlDatabase &database, CurveDatabase *curveDatabase,
                                 QAbstractItemModel *tree)
    : m_database(database), m_curveDatabase(curveDatabase), m_table(database), m_tree(tree)
{
}

CurveGraphModel::~CurveGraphModel() = default;

StringRecord &CurveGraphModel::record(quint32 id) const
{
    const auto found = m_records.find(id);
    if (found == m_records.end())
        throw std::out_of_range("invalid unordered_map<K, T> key");
    if (!found->second)
        throw std::runtime_error(tr("Internal error: no data associated with string").toStdString());
    return *found->second;
}

quint32 CurveGraphModel::insertString(const StringRecord &record)
{
    return m_table.insert(record);
}

std::unique_ptr<StringRecord> CurveGraphModel::loadString(quint32 id) const
{
    return m_table.load(id);
}

void CurveGraphModel::saveStringSettings(quint32 id)
{
    const auto found = m_records.find(id);
    if (found != m_records.end() && found->second) {
        m_table.updateSettings(*found->second);
        return;
    }
    Message message;
    message.parent = Shell::parentWindow();
    message.icon = QMessageBox::Critical;
    message.text = tr("IV curve data not found in collection", "Error Message");
    showMessage(message);
}

void CurveGraphModel::applyDetails(const StringRecord &editedCopy, const QModelIndex &treeIndex)
{
    const quint32 id = editedCopy.curveId();
    StringRecord &stored = record(id);
    StringRecord edited(editedCopy);
    stored.swap(edited);
    stored.clearDerivedCurves();
    redraw(id);
    emit signalUpdateLegend(selectedNames());
    TreeItem *node = nodeOf(treeIndex);
    if (!treeIndex.isValid() || !node)
        return;
    node->setData(TreeItem::Irradiance, stored.header().irradiance);
    node->setData(TreeItem::AmbientTemp, stored.header().ambientTemp);
    node->setData(TreeItem::CellTemp, stored.header().cellTemp);
    emit m_tree->dataChanged(m_tree->sibling(treeIndex.row(), 0, treeIndex),
                             m_tree->sibling(treeIndex.row(), m_tree->columnCount() - 1, treeIndex));
}

void CurveGraphModel::assignModule(quint32 id, const CurveModuleRow &moduleRow, int seriesCount)
{
    // As in a failed statement the record stays as it is.
    if (!m_table.assignModule(id, moduleRow, seriesCount, 1))
        return;
    const auto found = m_records.find(id);
    if (found == m_records.end() || !found->second)
        return;
    StringRecord &loaded = *found->second;
    loaded.module() = ModuleDatabase::binding(moduleRow, seriesCount, 1);
    // The module's delta is taken up with the next load only.
    loaded.settings().alpha = NumberText::shown(moduleRow.alpha.toDouble());
    loaded.settings().beta = NumberText::shown(moduleRow.beta.toDouble());
    loaded.settings().Rs = NumberText::shown(moduleRow.Rs.toDouble());
    loaded.clearDerivedCurves();
    redraw(id);
}

QString CurveGraphModel::selectedNames() const
{
    QStringList names;
    const QModelIndexList indexes = m_selection.indexes();
    for (const QModelIndex &index : indexes) {
        if (index.column() == 0)
            names.append(index.data().toString());
    }
    return names.join(QLatin1String(", "));
}

void CurveGraphModel::upgrade() const
{
    for (const QString &statement : CurveTable::upgradeStatements())
        QSqlQuery(m_database).exec(statement);
}

void CurveGraphModel::slotTreeSelectionChanged(QItemSelection selected, QItemSelection deselected)
{
    const WaitCursor wait;
    const QModelIndexList gone = deselected.indexes();
    m_selection.merge(deselected, QItemSelectionModel::Deselect);
    if (gone.size() == 1) {
        // A single cell names its row, unless it is the first one, which then stays loaded.
        const QModelIndex &only = gone.constFirst();
        if (only.column() != 0)
            unload(only.sibling(only.row(), 0));
    } else {
        for (const QModelIndex &index : gone)
            unload(index);
    }
    m_selection.merge(selected, QItemSelectionModel::Select);
    // What cannot be read is told in boxes, and rows may go while one is open.
    QVector<QPersistentModelIndex> added;
    for (const QModelIndex &index : selected.indexes()) {
        if (index.column() == 0)
            added.append(index);
    }
    CurveTable::Reader reader(m_database);
    for (const QPersistentModelIndex &index : qAsConst(added))
        load(index, reader);
    emit signalUpdateLegend(selectedNames());
}

void CurveGraphModel::slotRowRemoved(QModelIndex parent, int first, int last)
{
    for (int row = first; row <= last; ++row)
        unload(m_tree->index(row, 0, parent));
}

void CurveGraphModel::load(const QPersistentModelIndex &index, CurveTable::Reader &reader)
{
    // A node with all below it, from the top to the bottom; the depth of a file's tree has no limit.
    QVector<QPersistentModelIndex> waiting{index};
    while (!waiting.isEmpty()) {
        const QPersistentModelIndex next = waiting.takeLast();
        if (next.isValid())
            loadNode(next, reader);
        if (!next.isValid())
            continue;
        for (int row = m_tree->rowCount(next) - 1; row >= 0; --row)
            waiting.append(m_tree->index(row, 0, next));
    }
}

void CurveGraphModel::loadNode(const QPersistentModelIndex &index, CurveTable::Reader &reader)
{
    TreeItem *node = nodeOf(index);
    if (!hasCurve(node) || isLoaded(curveOf(node)))
        return;
    const quint32 id = curveOf(node);
    m_records[id] = nullptr;
    std::unique_ptr<StringRecord> loaded = reader.load(id);
    // While the load told of a failure the string may have been deselected, or selected anew.
    const auto entry = m_records.find(id);
    if (!loaded || !index.isValid() || entry == m_records.end() || entry->second)
        return;
    if (!node->colour.isValid())
        node->colour = CurvePalette::instance().nextColour();
    loaded->setColour(node->colour);
    loaded->header().name = node->data.at(TreeItem::NodeDesc).toString();
    entry->second = std::move(loaded);
    emit signalStringSelected(id);
}

void CurveGraphModel::unload(const QModelIndex &index)
{
    if (!index.isValid() || index.column() != 0)
        return;
    QModelIndexList waiting{index};
    while (!waiting.isEmpty()) {
        const QModelIndex next = waiting.takeLast();
        unloadNode(next);
        for (int row = m_tree->rowCount(next) - 1; row >= 0; --row) {
            const QModelIndex child = m_tree->index(row, 0, next);
            // What is still selected by itself stays.
            if (child.isValid() && !m_selection.contains(child))
                waiting.append(child);
        }
    }
}

void CurveGraphModel::unloadNode(const QModelIndex &index)
{
    const TreeItem *node = nodeOf(index);
    if (!hasCurve(node) || !isLoaded(curveOf(node)))
        return;
    const quint32 id = curveOf(node);
    emit signalStringDeselected(id);
    m_records.erase(id);
}

void CurveGraphModel::redraw(quint32 id)
{
    emit signalStringDeselected(id);
    emit signalStringSelected(id);
}

} // namespace IVCurve
