#include "curve/data/CurveTree.h"

#include <QHeaderView>

namespace IVCurve {

namespace {

constexpr int smallestSection = 10;
/// Sections at these positions are as wide as what they show.
constexpr int firstFitting = 1;
constexpr int lastFitting = 7;

} // namespace

CurveTree::CurveTree(QWidget *parent) : QTreeView(parent)
{
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(true);
    setDragDropMode(QAbstractItemView::InternalMove);
    setAlternatingRowColors(true);
    setAnimated(true);
    setExpandsOnDoubleClick(true);
    setItemsExpandable(true);
    setWordWrap(true);
    header()->setSectionResizeMode(QHeaderView::Interactive);
    header()->setMinimumSectionSize(smallestSection);
}

void CurveTree::showEvent(QShowEvent *event)
{
    QTreeView::showEvent(event);
    if (m_shown)
        return;
    m_shown = true;
    for (int position = firstFitting; position <= lastFitting && position < header()->count(); ++position)
        header()->setSectionResizeMode(header()->logicalIndex(position), QHeaderView::ResizeToContents);
}

} // namespace IVCurve
