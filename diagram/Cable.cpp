#include "diagram/Cable.h"

#include "diagram/DiagramItemType.h"

namespace {

constexpr Cable cables[] = {
    {SingleWire, "Single", SingleConnectionType, 0.0, 5.5, false, true},
    {DcCable, "DC", DcConnectionType, 5.0, 5.5, true, false},
    {AcCable, "AC", AcConnectionType, 10.0, 10.0, true, true},
};

} // namespace

const Cable &Cable::ofType(int cableType)
{
    for (const Cable &cable : cables) {
        if (cable.cableType == cableType)
            return cable;
    }
    return cables[0];
}

const Cable &Cable::ofName(const QString &name)
{
    for (const Cable &cable : cables) {
        if (name == QLatin1String(cable.name))
            return cable;
    }
    return cables[0];
}
