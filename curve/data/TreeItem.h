#pragma once

#include <QColor>
#include <QList>
#include <QVariant>
#include <QVector>

namespace IVCurve {

/// A node of the tree of strings: a folder, or a string when it has a curve's id.
class TreeItem
{
public:
    enum Field
    {
        NodeID = 0,
        ParentNodeID = 1,
        NodeDesc = 2,
        CurveID = 3,
        MemLocation = 4,
        TestDate = 5,
        Status = 6,
        Irradiance = 7,
        AmbientTemp = 8,
        CellTemp = 9,
        FF = 10,
        FieldCount = 11
    };

    explicit TreeItem(TreeItem *parentItem = nullptr);
    virtual ~TreeItem();
    TreeItem(const TreeItem &) = delete;
    TreeItem &operator=(const TreeItem &) = delete;

    void setData(int column, const QVariant &value);
    /// Takes over what another node holds, without its place and its children.
    void copyContents(const TreeItem &other);
    /// The place among the parent's children; 0 for the root.
    int row() const;

    QList<TreeItem *> children;
    QVector<QVariant> data;
    /// Null for the root.
    TreeItem *parent = nullptr;
    QColor colour;

private:
    /// Where the node was last seen among its siblings.
    mutable int m_row = 0;
};

} // namespace IVCurve
