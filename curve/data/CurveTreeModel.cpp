#include "curve/data/CurveTreeModel.h"

#include "curve/data/RollbackJournal.h"
#include "curve/data/TreeItemText.h"

#include <QMimeData>
#include <QSet>
#include <QtEndian>

#include <stdexcept>

namespace IVCurve {

namespace {

const QString dragFormat = QStringLiteral("application/vnd.custom.ctmtype");

/// The field of a node that a column shows; -1 for none.
constexpr int shownFields[CurveTreeModel::ColumnCount] = {TreeItem::NodeDesc,
                                                          TreeItem::MemLocation,
                                                          TreeItem::TestDate,
                                                          TreeItem::Irradiance,
                                                          TreeItem::CellTemp,
                                                          TreeItem::FF,
                                                          -1,
                                                          -1};

bool isEditable(int column)
{
    return column == CurveTreeModel::DescriptionColumn || column == CurveTreeModel::IrradianceColumn ||
           column == CurveTreeModel::CellTempColumn;
}

/// The nodes whose addresses a drag carries, without those that stand for none.
QList<TreeItem *> draggedItems(const QByteArray &payload)
{
    QList<TreeItem *> items;
    constexpr int wordSize = sizeof(quintptr);
    for (int at = 0; at + wordSize <= payload.size(); at += wordSize) {
        const auto address = qFromBigEndian<quintptr>(payload.constData() + at);
        if (address != 0 && address != ~quintptr(0))
            items.append(reinterpret_cast<TreeItem *>(address)); // NOLINT(performance-no-int-to-ptr)
    }
    return items;
}

int nodeId(const TreeItem *item)
{
    return item->data.at(TreeItem::NodeID).toInt();
}

} // namespace

CurveTreeModel::CurveTreeModel(const QSqlDatabase &database, CurveDatabase *curveDatabase)
    : m_database(database), m_curveDatabase(curveDatabase), m_nodes(database)
{
    // The root's fields are the column headers.
    m_root.data = {tr("Item Description", "Tree Control Header"),
                   tr("Tester Index", "Tree Control Header"),
                   tr("Date Tested", "Tree Control Header"),
                   tr("Irr", "Tree Control Header"),
                   tr("Tcell", "Tree Control Header"),
                   tr("FF", "Tree Control Header"),
                   tr(" ", "Tree Control Header"),
                   QString()};
    if (!m_nodes.read(m_root, m_nextNodeId))
        throw std::runtime_error(tr("The tree of curves cannot be read.", "Error Message").toStdString());
}

CurveTreeModel::~CurveTreeModel() = default;

QModelIndex CurveTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (parent.isValid() && parent.column() != 0)
        return QModelIndex();
    TreeItem *child = item(parent)->children.value(row);
    if (!child || row < 0 || column < 0 || column >= columnCount())
        return QModelIndex();
    return createIndex(row, column, child);
}

QModelIndex CurveTreeModel::parent(const QModelIndex &child) const
{
    return child.isValid() ? indexOf(item(child)->parent) : QModelIndex();
}

int CurveTreeModel::rowCount(const QModelIndex &parent) const
{
    return parent.column() > 0 ? 0 : item(parent)->children.size();
}

int CurveTreeModel::columnCount(const QModelIndex &) const
{
    return m_root.data.size();
}

bool CurveTreeModel::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0;
}

QVariant CurveTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const TreeItem &node = *item(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return shownText(node, index.column());
    case Qt::ToolTipRole: {
        const QString warning = statusText(node.data.at(TreeItem::Status));
        return warning.isEmpty() ? node.data.at(TreeItem::NodeDesc) : QVariant(warning);
    }
    case Qt::TextAlignmentRole:
        return index.column() == TesterIndexColumn ? QVariant(int(Qt::AlignHCenter)) : QVariant();
    case Qt::BackgroundRole:
        return index.column() == ColourColumn && node.colour.isValid() ? QVariant(node.colour) : QVariant();
    case Qt::ForegroundRole:
        return foreground(node, index.column());
    default:
        return QVariant();
    }
}

QVariant CurveTreeModel::shownText(const TreeItem &item, int column) const
{
    const int field = shownFields[column];
    if (field < 0)
        return QVariant();
    if (field == TreeItem::TestDate)
        return shownDate(item.data.at(field).toString());
    return item.data.at(field);
}

QVariant CurveTreeModel::foreground(const TreeItem &item, int column) const
{
    if (column == ColourColumn && item.colour.isValid())
        return item.colour;
    const QColor colour = statusColour(item.data.at(TreeItem::Status));
    return colour.isValid() ? QVariant(colour) : QVariant();
}

bool CurveTreeModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole || !isEditable(index.column()))
        return false;
    item(index)->setData(shownFields[index.column()], value);
    emit modified(true);
    emit dataChanged(index, index);
    return true;
}

QVariant CurveTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    return m_root.data.value(section);
}

bool CurveTreeModel::setHeaderData(int section, Qt::Orientation orientation, const QVariant &value, int role)
{
    if (orientation != Qt::Horizontal || role != Qt::EditRole || section < 0 || section >= columnCount())
        return false;
    m_root.setData(section, value);
    emit headerDataChanged(orientation, section, section);
    return true;
}

QStringList CurveTreeModel::mimeTypes() const
{
    return {dragFormat};
}

QMimeData *CurveTreeModel::mimeData(const QModelIndexList &indexes) const
{
    // Addresses mean something in this process only, and only until an item is freed: the view takes no
    // drops but its own.
    QByteArray payload;
    for (const QModelIndex &index : indexes) {
        if (!index.isValid())
            continue;
        char word[sizeof(quintptr)];
        qToBigEndian(reinterpret_cast<quintptr>(item(index)), word);
        payload.append(word, sizeof word);
    }
    auto *data = new QMimeData;
    data->setData(dragFormat, payload);
    return data;
}

bool CurveTreeModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                  const QModelIndex &parent)
{
    if (action == Qt::IgnoreAction)
        return true;
    if (!data || !data->hasFormat(dragFormat) || column > 0)
        return false;
    TreeItem *target = item(parent);
    QSet<int> moved;
    for (const TreeItem *source : draggedItems(data->data(dragFormat))) {
        if (moved.contains(nodeId(source)))
            continue;
        if (!parent.isValid() && row < 0)
            return false;
        const int place = qMax(row, 0);
        if (!insertRows(place, 1, parent))
            return false;
        TreeItem *copy = target->children.at(place);
        copy->copyContents(*source);
        copy->data[TreeItem::ParentNodeID] =
            parent.isValid() ? target->data.at(TreeItem::NodeID) : QVariant();
        copySubtree(source, copy, moved);
        moved.insert(nodeId(source));
        emit modified(true);
    }
    return true;
}

void CurveTreeModel::copySubtree(const TreeItem *source, TreeItem *copy, QSet<int> &moved)
{
    QList<QPair<const TreeItem *, TreeItem *>> waiting{{source, copy}};
    while (!waiting.isEmpty()) {
        const auto [from, to] = waiting.takeLast();
        const QModelIndex toIndex = indexOf(to);
        const QList<TreeItem *> children = from->children;
        for (const TreeItem *child : children) {
            if (moved.contains(nodeId(child)))
                continue;
            const int place = to->children.size();
            insertRows(place, 1, toIndex);
            to->children.at(place)->copyContents(*child);
            moved.insert(nodeId(child));
            waiting.append({child, to->children.at(place)});
        }
    }
}

Qt::DropActions CurveTreeModel::supportedDropActions() const
{
    return Qt::MoveAction;
}

bool CurveTreeModel::insertRows(int row, int count, const QModelIndex &parent)
{
    TreeItem *target = item(parent);
    if (row < 0 || row > target->children.size() || count < 1 || parent.column() > 0)
        return false;
    beginInsertRows(parent, row, row + count - 1);
    for (int i = 0; i < count; ++i)
        target->children.insert(row, new TreeItem(target));
    endInsertRows();
    return true;
}

bool CurveTreeModel::removeRows(int row, int count, const QModelIndex &parent)
{
    TreeItem *target = item(parent);
    if (row < 0 || count < 1 || count > target->children.size() - row || parent.column() > 0)
        return false;
    beginRemoveRows(parent, row, row + count - 1);
    QList<TreeItem *> removed = target->children.mid(row, count);
    target->children.erase(target->children.begin() + row, target->children.begin() + row + count);
    endRemoveRows();
    qDeleteAll(removed);
    return true;
}

Qt::ItemFlags CurveTreeModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    const Qt::ItemFlags base = QAbstractItemModel::flags(index);
    if (index.column() != 0)
        return base;
    return base | Qt::ItemIsEditable | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
}

TreeItem *CurveTreeModel::item(const QModelIndex &index) const
{
    if (index.isValid() && index.internalPointer())
        return static_cast<TreeItem *>(index.internalPointer());
    return const_cast<TreeItem *>(&m_root);
}

TreeItem *CurveTreeModel::insertNewRow(const QModelIndex &parentIndex)
{
    if (!insertRows(0, 1, parentIndex))
        return nullptr;
    TreeItem *parent = item(parentIndex);
    TreeItem *created = parent->children.constFirst();
    // A file may hold the highest number there is: counting on begins anew below zero.
    m_nextNodeId = static_cast<int>(static_cast<unsigned>(m_nextNodeId) + 1U);
    created->setData(TreeItem::NodeID, m_nextNodeId);
    if (parent != &m_root)
        created->setData(TreeItem::ParentNodeID, parent->data.at(TreeItem::NodeID));
    created->setData(TreeItem::NodeDesc, tr("<New Row>"));
    emit modified(true);
    return created;
}

void CurveTreeModel::removeNode(const QModelIndex &index)
{
    if (removeRow(index.row(), index.parent()))
        emit modified(true);
}

void CurveTreeModel::slotSave()
{
    {
        const RollbackJournal journal(m_database);
        m_nodes.write(m_root);
        m_nodes.removeOrphans();
    }
    m_nodes.waitAsUsual();
    emit modified(false);
}

QModelIndex CurveTreeModel::indexOf(TreeItem *item) const
{
    return item && item != &m_root ? createIndex(item->row(), 0, item) : QModelIndex();
}

} // namespace IVCurve
