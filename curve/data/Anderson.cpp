#include "curve/data/Anderson.h"

#include <cmath>

namespace IVCurve {

Anderson::Anderson(double isc, double voc, const STCparameters *settings, const ModuleBinding *module)
    : m_settings(settings)
    , m_module(module)
    , m_isc(isc)
    , m_voc(voc)
    , m_hasReferences(!isExactlyZero(isc) && !isExactlyZero(voc))
{
    m_irradiance = usable(m_numbers.read(m_settings->G), G0);
    m_temperature = usable(m_numbers.read(m_settings->Tpv), T0);
    readSettings();
    m_ratios = recomputed();
}

bool Anderson::settingsHaveChanged() const
{
    return m_alpha.isOutdated(m_settings->alpha) || m_beta.isOutdated(m_settings->beta) ||
           m_delta.isOutdated(m_settings->delta);
}

void Anderson::readSettings()
{
    m_alpha.read(m_settings->alpha, m_numbers);
    m_beta.read(m_settings->beta, m_numbers);
    m_delta.read(m_settings->delta, m_numbers);
    const double alpha = m_alpha.value();
    const double beta = m_beta.value();
    const double series = m_module->series;
    const bool hasModule = m_module->moduleId != 0;

    const bool moduleHasIsc = hasModule && m_module->isc > 0.0;
    m_alphaFollowsIrradiance = !moduleHasIsc && !isExactlyZero(m_isc);
    if (moduleHasIsc)
        m_alphaR = alpha / m_module->isc;
    else if (m_alphaFollowsIrradiance)
        m_alphaRAtG0 = alpha * m_module->parallel / m_isc;

    // With a module the reference is the mean of the string's rated and measured voltage.
    if (hasModule && m_module->voc > 0.0)
        m_betaR = beta * series / ((series * m_module->voc + m_voc) * 0.5);
    else if (!isExactlyZero(m_voc))
        m_betaR = beta * series / m_voc;
    m_betaFactor = (m_temperature - T0) * m_betaR + 1;
}

Anderson::Ratios Anderson::recomputed()
{
    const double irradianceShare = m_irradiance / G0;
    // alpha / ((G0 / G) * Isc) with one division less: this is done at every point.
    if (m_alphaFollowsIrradiance)
        m_alphaR = m_alphaRAtG0 * irradianceShare;

    const double f = ((m_temperature - T0) * m_alphaR + 1) * irradianceShare;
    const double h = (m_delta.value() * std::log(irradianceShare) + 1) * m_betaFactor;
    // IscSTC = Isc / f and VocSTC = Voc / h: as shares of Isc and Voc, which go out, 1 / f and 1 / h.
    return {isExactlyZero(f) ? m_ratios.current : 1 / f, isExactlyZero(h) ? m_ratios.voltage : 1 / h};
}

QPointF Anderson::correct(const TracePoint &point)
{
    if (!m_settings->perPointIrradiance)
        return scaled(point.position(), m_ratios);
    if (!isExactlyZero(point.irradiance))
        m_irradiance = point.irradiance;
    if (settingsHaveChanged())
        readSettings();
    const Ratios ratios = recomputed();
    m_ratios = ratios;
    return scaled(point.position(), ratios);
}

QPointF Anderson::scaled(const QPointF &point, Ratios ratios) const
{
    if (!m_hasReferences)
        return QPointF(0.0, 0.0);
    return QPointF(ratios.voltage * point.x(), ratios.current * point.y());
}

} // namespace IVCurve
