#pragma once

#include <QModelIndex>
#include <QVector>

namespace IVCurve {

/// Rows of a tree in an order in which none is removed with another before its turn, nor moved by one: what
/// lies deeper comes first, and at one depth what stands later.
QVector<QPersistentModelIndex> inOrderOfRemoval(const QModelIndexList &rows);

} // namespace IVCurve
