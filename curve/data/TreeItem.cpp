#include "curve/data/TreeItem.h"

namespace IVCurve {

TreeItem::TreeItem(TreeItem *parentItem) : data(FieldCount), parent(parentItem) {}

TreeItem::~TreeItem()
{
    // A file may hold a tree of any depth, which is more than the stack has: the nodes go one by one.
    QList<TreeItem *> doomed;
    doomed.swap(children);
    while (!doomed.isEmpty()) {
        TreeItem *item = doomed.takeLast();
        doomed += item->children;
        item->children.clear();
        delete item;
    }
}

void TreeItem::setData(int column, const QVariant &value)
{
    if (column >= 0 && column < data.size())
        data[column] = value;
}

void TreeItem::copyContents(const TreeItem &other)
{
    data = other.data;
    colour = other.colour;
}

int TreeItem::row() const
{
    if (!parent)
        return 0;
    // One walk tells all siblings their places, so that asking each of them costs no more than asking one.
    if (parent->children.value(m_row) != this) {
        for (int place = 0; place < parent->children.size(); ++place)
            parent->children.at(place)->m_row = place;
    }
    return m_row;
}

} // namespace IVCurve
