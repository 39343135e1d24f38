#pragma once

#include <QString>

namespace IVCurve {

class StringRecord;

/// The points of a string as a table, with what the tester told of the measurement. Numbers and separator are
/// those of the default locale.
namespace PointExport {

/// Which curve of the string.
enum Kind
{
    Measured = 0,
    MeasuredPower = 1,
    Stc = 2,
    StcPower = 3
};

/// What the name of the string and that of the proposed file end in, in the session's language.
QString suffix(Kind kind);

/// Writes a file anew. Tells of one that cannot be written.
bool writeFile(StringRecord &record, Kind kind, const QString &path);

} // namespace PointExport

} // namespace IVCurve
