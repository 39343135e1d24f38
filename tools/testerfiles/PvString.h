#pragma once

/// Ratings of a module at standard test conditions, and what shapes its curve.
struct PvModule
{
    /// Short-circuit current in A and open-circuit voltage in V.
    double isc;
    double voc;
    /// Change of the two per degree, as a fraction.
    double alpha;
    double beta;
    /// Resistances in ohms in series with and across the module.
    double seriesResistance;
    double shuntResistance;
    /// Thermal voltage of all cells together, with the ideality of the junctions, in V at 25 degrees.
    double thermalVoltage;
};

/// Modules in series under sunshine: the single-diode model with resistances.
class PvString
{
public:
    struct Point
    {
        double voltage;
        double current;
    };

    PvString(const PvModule &module, int modules);

    /// Irradiance in W/m2, cell temperature in degrees Celsius.
    void setConditions(double irradiance, double cellTemperature);

    double openCircuitVoltage() const;
    double shortCircuitCurrent() const;
    Point maximumPowerPoint() const;
    /// The point where the junctions take `share` (0 to 1) of what they have in open circuit, under
    /// another irradiance than the one set.
    Point point(double share, double irradiance) const;

private:
    double photoCurrent(double irradiance) const;
    /// Saturation current of the junctions at the temperature set.
    double saturationCurrent() const;
    /// Voltage across the junctions of one module in open circuit.
    double openJunctionVoltage() const;
    double thermalVoltage() const;

    PvModule m_module;
    int m_modules;
    double m_irradiance = 1000.0;
    double m_cellTemperature = 25.0;
};
