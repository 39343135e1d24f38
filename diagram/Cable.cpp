#include "diagram/Cable.h"

#include "diagram/DiagramItemType.h"

namespace {

constexpr Cable cables[] = {
    {SingleWire, "Single", SingleConnectionType, 0.0, 5.5, false, true},
    {DcCable, "DC", DcConnectionType, 5.0, 5.5, true, false},
    {AcCable, "AC", AcConnectionType, 10.0, 10.0, true, true},
};

/// What a number that no kind has is drawn and stored as.
constexpr Cable unknown{NoCable, "Single", ConnectionType, 0.0, 5.5, false, true};

} // namespace

const Cable &Cable::ofType(int cableType)
{
    for (const Cable &cable : cables) {
        if (cable.cableType == cableType)
            return cable;
    }
    return unknown;
}

const Cable &Cable::ofName(const QString &name)
{
    for (const Cable &cable : cables) {
        if (name == QLatin1String(cable.name))
            return cable;
    }
    return cables[0];
}
