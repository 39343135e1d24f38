#pragma once

#include <QItemDelegate>

/// Draws a column of numbers under each other, whatever the model says about their place.
class RightAlignedDelegate : public QItemDelegate
{
    Q_OBJECT

public:
    using QItemDelegate::QItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};
