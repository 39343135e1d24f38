#pragma once

#include "curve/data/ModuleBinding.h"
#include "curve/data/STCAlgorithm.h"
#include "curve/data/STCparameters.h"
#include "curve/data/SettingNumber.h"

namespace IVCurve {

/// Translates measured points to standard test conditions after IEC 60891, procedure 1.
/// Currents in A, voltages in V, irradiance in W/m2, temperatures in degrees Celsius.
/// One object serves one curve: points must be fed in curve order, because a point
/// without irradiance takes that of the point before it.
class IEC60891 final : public STCAlgorithm
{
public:
    /// The current of the first measured point, and the irradiance that the curve began with.
    IEC60891(double isc, double curveIrradiance, const STCparameters *settings, const ModuleBinding *module);

    QPointF correct(const TracePoint &point) override;

private:
    void readSettings();

    const STCparameters *m_settings;
    const ModuleBinding *m_module;
    NumberReader m_numbers;
    double m_isc;
    double m_curveIrradiance;
    double m_irradiance = 1000.0;
    double m_temperature = 25.0;
    double m_lastIrradiance = 1000.0;
    SettingNumber m_alpha;
    SettingNumber m_beta;
    SettingNumber m_rs;
    SettingNumber m_curveFactor;
};

} // namespace IVCurve
