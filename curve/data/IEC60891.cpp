#include "curve/data/IEC60891.h"

namespace IVCurve {

IEC60891::IEC60891(double isc, double curveIrradiance, const STCparameters *settings,
                   const ModuleBinding *module)
    : m_settings(settings), m_module(module), m_isc(isc), m_curveIrradiance(curveIrradiance)
{
    m_irradiance = usable(m_numbers.read(m_settings->G), G0);
    m_temperature = usable(m_numbers.read(m_settings->Tpv), T0);
    m_lastIrradiance = m_irradiance;
    if (isExactlyZero(m_curveIrradiance))
        m_curveIrradiance = m_irradiance;
}

QPointF IEC60891::correct(const TracePoint &point)
{
    if (m_alpha.isOutdated(m_settings->alpha) || m_beta.isOutdated(m_settings->beta) ||
        m_rs.isOutdated(m_settings->Rs) || m_curveFactor.isOutdated(m_settings->K))
        readSettings();
    const double alpha = m_alpha.value();
    const double beta = m_beta.value();
    const double Rs = m_rs.value();
    const double K = m_curveFactor.value();
    const double V = point.position().x();
    const double I = point.position().y();
    const double dT = T0 - m_temperature;

    double I2 = 0.0;
    if (m_settings->perPointIrradiance) {
        double g = point.irradiance;
        if (isExactlyZero(g))
            g = m_lastIrradiance;
        else
            m_lastIrradiance = g;
        // The short-circuit current is that of the curve's irradiance; at the point it is another one.
        I2 = alpha * dT * m_module->parallel + ((g / m_curveIrradiance * m_isc) * (G0 / g - 1) + I);
    } else {
        I2 = alpha * dT * m_module->parallel + ((G0 / m_irradiance - 1) * m_isc + I);
    }
    // Rs, K and beta are those of one module.
    const double V2 = (beta * dT - (Rs * (I2 - I) + K * I2 * dT)) * m_module->series + V;
    return QPointF(V2, I2);
}

void IEC60891::readSettings()
{
    m_alpha.read(m_settings->alpha, m_numbers);
    m_beta.read(m_settings->beta, m_numbers);
    m_rs.read(m_settings->Rs, m_numbers);
    m_curveFactor.read(m_settings->K, m_numbers);
}

} // namespace IVCurve
