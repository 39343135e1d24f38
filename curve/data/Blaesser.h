#pragma once

#include "curve/data/STCAlgorithm.h"
#include "curve/data/STCparameters.h"

namespace IVCurve {

/// Translates measured points to standard test conditions after Blaesser and Rossi, Solar Cells 25 (1988).
/// Its numbers are read without regard to the locale, the module and the points' own irradiance play no
/// part, and the temperature is that of the air.
class Blaesser final : public STCAlgorithm
{
public:
    /// Current in A and voltage in V, short circuit and open circuit, as the tester reported them.
    Blaesser(double isc, double voc, const STCparameters *settings);

    QPointF correct(const TracePoint &point) override;

private:
    const STCparameters *m_settings;
    double m_voc;
    double m_rs = 0.0;
    double m_currentFactor = 1.0;
    double m_voltageShare = 0.0;
};

} // namespace IVCurve
