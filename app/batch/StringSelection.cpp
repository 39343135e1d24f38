#include "app/batch/StringSelection.h"

#include "app/batch/BatchCommands.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/data/TreeItem.h"

#include <QCoreApplication>
#include <QHash>
#include <QItemSelectionModel>
#include <QStringList>

using namespace IVCurve;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Batch)
};

/// A string's place in the tree.
struct Place
{
    quint32 id = 0;
    QModelIndex index;
};

/// The strings from the top of the tree to its bottom.
QVector<Place> stringsOf(const CurveTreeModel &tree)
{
    QVector<Place> places;
    QModelIndexList waiting{QModelIndex()};
    while (!waiting.isEmpty()) {
        const QModelIndex next = waiting.takeLast();
        const QVariant id = next.isValid() ? tree.item(next)->data.at(TreeItem::CurveID) : QVariant();
        if (!id.isNull())
            places.append({id.toUInt(), next});
        for (int row = tree.rowCount(next) - 1; row >= 0; --row)
            waiting.append(tree.index(row, 0, next));
    }
    return places;
}

/// The places of what is wanted, in its order; empty if something is not there.
QModelIndexList placesOf(const StringSelection &wanted, const QVector<Place> &places)
{
    QModelIndexList chosen;
    QHash<quint32, QModelIndex> byId;
    for (const Place &place : places) {
        byId.insert(place.id, place.index);
        if (wanted.all)
            chosen.append(place.index);
    }
    for (const quint32 id : wanted.ids) {
        if (!byId.contains(id)) {
            tell(Text::tr("There is no string %1.").arg(id));
            return {};
        }
        chosen.append(byId.value(id));
    }
    if (chosen.isEmpty())
        tell(Text::tr("There are no strings in the file."));
    return chosen;
}

} // namespace

std::optional<StringSelection> parseStringSelection(const QString &text)
{
    if (text.trimmed() == QLatin1String("all"))
        return StringSelection();
    StringSelection selection;
    selection.all = false;
    const QStringList parts = text.split(QLatin1Char(','));
    for (const QString &part : parts) {
        bool isNumber = false;
        const quint32 id = part.toUInt(&isNumber);
        if (!isNumber || id == 0)
            return std::nullopt;
        // A string named twice is one string.
        if (!selection.ids.contains(id))
            selection.ids.append(id);
    }
    return selection;
}

bool selectStrings(const StringSelection &wanted, QItemSelectionModel &tree)
{
    const auto *model = qobject_cast<const CurveTreeModel *>(tree.model());
    const QModelIndexList chosen = placesOf(wanted, stringsOf(*model));
    QItemSelection rows;
    for (const QModelIndex &index : chosen)
        rows.append(QItemSelectionRange(index));
    tree.select(rows, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    return !chosen.isEmpty();
}
