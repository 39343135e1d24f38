#pragma once

#include <QModelIndex>

#include <optional>

namespace IVCurve {

class CurveDatabase;
class StringRecord;

/// The id of the string that a row of the tree stands for; none for a folder.
std::optional<quint32> stringIdAt(const QModelIndex &index);

/// The loaded string that a row of the tree stands for. Null for a folder, or if the file has lost the
/// string. Throws std::out_of_range if the string is not loaded.
StringRecord *stringAt(const QModelIndex &index, const CurveDatabase &file);

} // namespace IVCurve
