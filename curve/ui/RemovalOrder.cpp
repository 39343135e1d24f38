#include "curve/ui/RemovalOrder.h"

#include <algorithm>

namespace IVCurve {

namespace {

/// A row and the way to it from the root, by the rows of the nodes.
struct Place
{
    QModelIndex index;
    QVector<int> path;
};

Place placeOf(const QModelIndex &index)
{
    Place place{index, {}};
    for (QModelIndex step = index; step.isValid(); step = step.parent())
        place.path.prepend(step.row());
    return place;
}

bool goesBefore(const Place &left, const Place &right)
{
    if (left.path.size() != right.path.size())
        return left.path.size() > right.path.size();
    return std::lexicographical_compare(right.path.begin(), right.path.end(), left.path.begin(),
                                        left.path.end());
}

} // namespace

QVector<QPersistentModelIndex> inOrderOfRemoval(const QModelIndexList &rows)
{
    QVector<Place> places;
    for (const QModelIndex &row : rows)
        places.append(placeOf(row));
    std::sort(places.begin(), places.end(), goesBefore);
    QVector<QPersistentModelIndex> ordered;
    for (const Place &place : qAsConst(places))
        ordered.append(place.index);
    return ordered;
}

} // namespace IVCurve
