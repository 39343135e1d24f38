#pragma once

#include "curve/data/ModuleBinding.h"
#include "curve/data/STCAlgorithm.h"
#include "curve/data/STCparameters.h"
#include "curve/data/SettingNumber.h"

namespace IVCurve {

/// Translates measured points to standard test conditions after Anderson, NREL/TP-411-20279 (1996).
/// Currents in A, voltages in V, irradiance in W/m2, temperatures in degrees Celsius.
/// One object serves one curve: points must be fed in curve order, because a point
/// without irradiance takes that of the point before it.
class Anderson final : public STCAlgorithm
{
public:
    /// The current of the first measured point, and the highest measured voltage.
    Anderson(double isc, double voc, const STCparameters *settings, const ModuleBinding *module);

    QPointF correct(const TracePoint &point) override;

private:
    /// Current and voltage, short circuit and open circuit, at standard test conditions, as shares of the
    /// measured ones.
    struct Ratios
    {
        double current;
        double voltage;
    };

    /// The ratios for the irradiance in force. One that cannot be had stays as it was.
    Ratios recomputed();
    /// What does not change with the irradiance.
    void readSettings();
    bool settingsHaveChanged() const;
    QPointF scaled(const QPointF &point, Ratios ratios) const;

    const STCparameters *m_settings;
    const ModuleBinding *m_module;
    NumberReader m_numbers;
    double m_isc;
    double m_voc;
    /// False if one of them is 0.
    bool m_hasReferences;
    /// At the measurement, or at the last point that had one of its own.
    double m_irradiance = 1000.0;
    double m_temperature = 25.0;
    SettingNumber m_alpha;
    SettingNumber m_beta;
    SettingNumber m_delta;
    /// Coefficients per degree, as a share.
    double m_alphaR = 0.0;
    double m_betaR = 0.0;
    double m_betaFactor = 1.0;
    /// What m_alphaR would be at the reference irradiance; without a module's rating it follows the measured
    /// current, and so the irradiance.
    double m_alphaRAtG0 = 0.0;
    bool m_alphaFollowsIrradiance = false;
    Ratios m_ratios{0.0, 0.0};
};

} // namespace IVCurve
