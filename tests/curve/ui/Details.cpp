#include "tests/curve/ui/Details.h"

#include "curve/data/ModuleDatabase.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/curve/ui/ModuleSample.h"

using namespace IVCurve;

QString shownNumber(double value)
{
    return QLocale().toString(value, 'g', 6);
}

StringRecord sampleString(unsigned module)
{
    StringRecord record = CurveSample::record();
    StringHeader &header = record.header();
    header.name = "<b>Roof</b> & yard";
    header.ambientTemp = shownNumber(21.5);
    header.isc = shownNumber(8.03);
    header.vmp = shownNumber(482.7);
    header.imp = shownNumber(7.61);
    header.ff = shownNumber(76.2);
    header.iclamp = shownNumber(7.6);
    header.rpe = shownNumber(0.36);
    header.viso = "1000";
    header.riso = ">200";
    record.setCurveId(12);
    record.module() = ModuleDatabase::binding(module, 3, 2);
    return record;
}

StringRecord sampleString()
{
    return sampleString(ModuleSample::sunrise);
}
