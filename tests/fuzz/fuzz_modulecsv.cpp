// A public table of modules from bytes to rows: every line below the heading is a module, skipped with a
// reason, blank, or one of the lines of units.

#include "curve/data/ModuleCsv.h"

#include <cmath>
#include <cstdlib>

using namespace IVCurve;

namespace {

void require(bool condition)
{
    if (!condition)
        abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    const ModuleCsv csv = ModuleCsv::parse(bytes);
    require(csv.modules.size() + csv.skipped.size() <= bytes.count('\n'));
    require(csv.missingColumns.isEmpty() || (csv.modules.isEmpty() && csv.skipped.isEmpty()));
    for (const CurveModuleRow &row : csv.modules) {
        require(!row.Description.toString().isEmpty());
        require(row.Vmp.toDouble() > 0 && row.Voc.toDouble() > row.Vmp.toDouble());
        require(row.Imp.toDouble() > 0 && row.Isc.toDouble() > row.Imp.toDouble());
        require(std::isfinite(row.alpha.toDouble()) && std::isfinite(row.beta.toDouble()));
        require(row.Rs.toDouble() >= 0);
    }
    int last = 0;
    for (const SkippedModule &skipped : csv.skipped) {
        require(skipped.line > last && !skipped.reason.isEmpty());
        last = skipped.line;
    }
    return 0;
}
