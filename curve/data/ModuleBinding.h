#pragma once

#include <QtGlobal>

namespace IVCurve {

/// The module of a string, as many of them as are in series and parallel, and its ratings at standard
/// test conditions.
struct ModuleBinding
{
    ModuleBinding() = default;
    ModuleBinding(quint32 id, qint32 inSeries, qint32 inParallel, double ratedVoc, double ratedIsc,
                  double ratedVmp, double ratedImp);

    /// 0 is no module.
    quint32 moduleId = 0;
    qint32 series = 1;
    qint32 parallel = 1;
    double voc = 0.0;
    double isc = 0.0;
    double vmp = 0.0;
    double imp = 0.0;
    double iscRef = 0.0;
    /// The voltage that gives the nominal curve its shape; 0 where the ratings define none.
    double shape = 0.0;
};

} // namespace IVCurve
