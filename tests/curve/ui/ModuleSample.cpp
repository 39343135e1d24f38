#include "tests/curve/ui/ModuleSample.h"

#include "curve/data/ModuleDatabase.h"
#include "tests/curve/data/CurveSample.h"

namespace ModuleSample {

void write()
{
    // More digits than the boxes of the dialogs show, as catalogues have them.
    CurveSample::writeCatalogue(
        {"2, 'Zenith 400', 0, 0, 0, 0, 0.004, -0.3, 0.063, 0.5, 0, 0",
         "3, 'Sunrise 300 half-cut, 120 cells', 9.87, 40.1234, 9.4, 33.5, 0.0043219, -0.1187654, 0.085, "
         "0.3123456, 0, 1",
         "5, 'Roof of the neighbour', 8.5, 37.5, 8, 30, 0.00425, -0.12, 0.11, 0.25, 1, 1",
         "7, 'Polaris 230', 8.01, 37.8, 7.54, 30.5, 0.00465, -0.1281, 0.11, 0.181, 0, 0"});
}

QVariant stored(unsigned id, const QString &column)
{
    return CurveSample::value(IVCurve::ModuleDatabase::defaultPath(),
                              QStringLiteral("SELECT %1 FROM Modules WHERE _id = %2").arg(column).arg(id));
}

QStringList names()
{
    return {"Polaris 230", "Roof of the neighbour", "Sunrise 300 half-cut, 120 cells", "Zenith 400"};
}

} // namespace ModuleSample
