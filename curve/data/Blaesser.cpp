#include "curve/data/Blaesser.h"

#include <cmath>

namespace IVCurve {

namespace {

/// The number of a text in the C locale, whatever the default one is.
std::optional<double> parsed(const QString &text)
{
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    return isNumber ? std::optional<double>(value) : std::nullopt;
}

} // namespace

Blaesser::Blaesser(double isc, double voc, const STCparameters *settings) : m_settings(settings), m_voc(voc)
{
    const double G = usable(parsed(m_settings->G), G0);
    const double T = usable(parsed(m_settings->Tpv), T0);
    const double a = m_settings->a.toDouble();
    const double b = m_settings->b.toDouble();

    m_rs = m_settings->Rs.toDouble();
    const double alphaR = isExactlyZero(isc) ? 0.0 : m_settings->alpha.toDouble() / isc;
    m_currentFactor = ((T0 - T) * alphaR + 1) * G0 / G;
    m_voltageShare = std::log(G0 / G) * a + b * (T0 - T);
}

QPointF Blaesser::correct(const TracePoint &point)
{
    const double V = point.position().x();
    const double I = point.position().y();
    const double I2 = m_currentFactor * I;
    const double V2 = (I - I2) * m_rs + (m_voltageShare * m_voc + V);
    return QPointF(V2, I2);
}

} // namespace IVCurve
