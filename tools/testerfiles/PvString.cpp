#include "tools/testerfiles/PvString.h"

#include <cmath>

PvString::PvString(const PvModule &module, int modules) : m_module(module), m_modules(modules) {}

void PvString::setConditions(double irradiance, double cellTemperature)
{
    m_irradiance = irradiance;
    m_cellTemperature = cellTemperature;
}

double PvString::openCircuitVoltage() const
{
    return m_modules * openJunctionVoltage();
}

double PvString::shortCircuitCurrent() const
{
    // Almost the photocurrent: the shunt takes the small rest.
    const double current = photoCurrent(m_irradiance);
    return current / (1 + m_module.seriesResistance / m_module.shuntResistance);
}

PvString::Point PvString::maximumPowerPoint() const
{
    Point best = {0.0, 0.0};
    constexpr int steps = 2000;
    for (int step = 0; step <= steps; ++step) {
        const Point candidate = point(double(step) / steps, m_irradiance);
        if (candidate.voltage * candidate.current > best.voltage * best.current)
            best = candidate;
    }
    return best;
}

PvString::Point PvString::point(double share, double irradiance) const
{
    // With the junction voltage given, the model needs no solving.
    const double junction = share * openJunctionVoltage();
    const double current = photoCurrent(irradiance) -
                           saturationCurrent() * std::expm1(junction / thermalVoltage()) -
                           junction / m_module.shuntResistance;
    return {m_modules * (junction - current * m_module.seriesResistance), current};
}

double PvString::photoCurrent(double irradiance) const
{
    return irradiance / 1000.0 * m_module.isc * (1 + m_module.alpha * (m_cellTemperature - 25.0));
}

double PvString::saturationCurrent() const
{
    const double voc = m_module.voc * (1 + m_module.beta * (m_cellTemperature - 25.0));
    return (photoCurrent(1000.0) - voc / m_module.shuntResistance) / std::expm1(voc / thermalVoltage());
}

double PvString::openJunctionVoltage() const
{
    // The shunt's current is found in a few rounds, as it hardly matters.
    const double photo = photoCurrent(m_irradiance);
    double voltage = m_module.voc;
    for (int round = 0; round < 8; ++round)
        voltage =
            thermalVoltage() * std::log1p((photo - voltage / m_module.shuntResistance) / saturationCurrent());
    return voltage;
}

double PvString::thermalVoltage() const
{
    return m_module.thermalVoltage * (m_cellTemperature + 273.15) / 298.15;
}
