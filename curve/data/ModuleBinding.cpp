#include "curve/data/ModuleBinding.h"

#include <cmath>

namespace IVCurve {

namespace {

bool isZero(double value)
{
    return !(value < 0.0 || value > 0.0);
}

double shapeOf(double voc, double isc, double vmp, double imp)
{
    if (isZero(imp) || isZero(isc) || isZero(imp - isc))
        return 0.0;
    return (vmp - voc) / std::log(1 - imp / isc);
}

} // namespace

ModuleBinding::ModuleBinding(quint32 id, qint32 inSeries, qint32 inParallel, double ratedVoc, double ratedIsc,
                             double ratedVmp, double ratedImp)
    : moduleId(id)
    , series(inSeries)
    , parallel(inParallel)
    , voc(ratedVoc)
    , isc(ratedIsc)
    , vmp(ratedVmp)
    , imp(ratedImp)
    , iscRef(ratedIsc)
    , shape(shapeOf(ratedVoc, ratedIsc, ratedVmp, ratedImp))
{
}

} // namespace IVCurve
