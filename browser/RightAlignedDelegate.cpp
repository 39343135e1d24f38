#include "browser/RightAlignedDelegate.h"

void RightAlignedDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const
{
    QStyleOptionViewItem aligned = option;
    aligned.displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
    QItemDelegate::paint(painter, aligned, index);
}
