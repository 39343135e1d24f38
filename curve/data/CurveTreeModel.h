#pragma once

#include "curve/data/TreeItem.h"
#include "curve/data/TreeNodeTable.h"

#include <QAbstractItemModel>

namespace IVCurve {

class CurveDatabase;

/// The tree in which measured strings are sorted into folders. It is read whole from the file when it is
/// made, and written whole by slotSave(); what happens in between happens in memory.
class CurveTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column
    {
        DescriptionColumn = 0,
        TesterIndexColumn = 1,
        DateColumn = 2,
        IrradianceColumn = 3,
        CellTempColumn = 4,
        FillFactorColumn = 5,
        ColourColumn = 6,
        LastColumn = 7,
        ColumnCount = 8
    };

    /// Throws std::runtime_error, after a message, when the tree cannot be read.
    CurveTreeModel(const QSqlDatabase &database, CurveDatabase *curveDatabase);
    ~CurveTreeModel() override;

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool setHeaderData(int section, Qt::Orientation orientation, const QVariant &value,
                       int role = Qt::EditRole) override;
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;
    Qt::DropActions supportedDropActions() const override;
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /// The node of an index, or the root.
    TreeItem *item(const QModelIndex &index) const;
    /// Makes a node in front of the children of another one; null if that is not possible.
    TreeItem *insertNewRow(const QModelIndex &parentIndex);
    /// Removes a node with all below it.
    void removeNode(const QModelIndex &index);
    CurveDatabase *curveDatabase() const { return m_curveDatabase; }
    /// Brings the table of nodes up to date.
    void upgrade() const { m_nodes.upgrade(); }

signals:
    void modified(bool dirty);

public slots:
    /// Writes the tree and deletes the curves that it does not show.
    void slotSave();

private:
    QModelIndex indexOf(TreeItem *item) const;
    QVariant shownText(const TreeItem &item, int column) const;
    QVariant foreground(const TreeItem &item, int column) const;
    /// Copies what lies below `source` below the copy of it; `moved` takes the nodes' numbers.
    void copySubtree(const TreeItem *source, TreeItem *copy, QSet<int> &moved);

    QSqlDatabase m_database;
    CurveDatabase *m_curveDatabase;
    TreeNodeTable m_nodes;
    TreeItem m_root;
    int m_nextNodeId = 0;
};

} // namespace IVCurve
