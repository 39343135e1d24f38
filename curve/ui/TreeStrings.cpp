#include "curve/ui/TreeStrings.h"

#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/TreeItem.h"

namespace IVCurve {

std::optional<quint32> stringIdAt(const QModelIndex &index)
{
    const auto *node = static_cast<const TreeItem *>(index.internalPointer());
    if (!index.isValid() || !node || node->data.at(TreeItem::CurveID).isNull())
        return std::nullopt;
    bool isNumber = false;
    const quint32 id = node->data.at(TreeItem::CurveID).toUInt(&isNumber);
    return isNumber ? std::make_optional(id) : std::nullopt;
}

StringRecord *stringAt(const QModelIndex &index, const CurveDatabase &file)
{
    const std::optional<quint32> id = stringIdAt(index);
    if (!id)
        return nullptr;
    const CurveGraphModel &model = *file.graphModel();
    const auto found = model.records().find(*id);
    return found == model.records().end() ? &model.record(*id) : found->second.get();
}

} // namespace IVCurve
