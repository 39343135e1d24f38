#pragma once

#include "curve/data/CurveTrace.h"
#include "curve/data/ModuleBinding.h"
#include "curve/data/STCparameters.h"
#include "curve/data/StringHeader.h"

#include <QColor>

#include <memory>

namespace IVCurve {

class STCAlgorithm;

/// A measured string of modules: what the tester told of it, its curve, and the curves that follow from it,
/// which are made when they are first asked for.
class StringRecord
{
public:
    StringRecord(const StringHeader &header, const CurveTrace &measured);

    /// Exchanges the measured curve for another one, without copying its points.
    void takeMeasured(CurveTrace &measured);

    const CurveTrace &measuredCurve() const { return m_measured; }
    const CurveTrace &measuredPowerCurve();
    /// The curve at standard test conditions, on request led on to both axes. Once made it is given as it
    /// is, whatever is requested.
    const CurveTrace &stcCurve(bool extendToAxes);
    const CurveTrace &stcPowerCurve();
    /// What the module's ratings promise; empty without a module.
    const CurveTrace &nominalCurve();
    const CurveTrace &nominalPowerCurve();
    /// Forgets corrected and nominal curves, after the settings or the module have changed.
    void clearDerivedCurves();

    QColor colour() const { return m_colour; }
    void setColour(const QColor &colour) { m_colour = colour; }
    quint32 curveId() const { return m_curveId; }
    void setCurveId(quint32 id) { m_curveId = id; }
    StringHeader &header() { return m_header; }
    const StringHeader &header() const { return m_header; }
    STCparameters &settings() { return m_settings; }
    const STCparameters &settings() const { return m_settings; }
    ModuleBinding &module() { return m_module; }
    const ModuleBinding &module() const { return m_module; }

    /// Drops points at which the corrected current dips, as tester files from version 2 on have them, and
    /// finds the point of highest power.
    void removeDips(quint32 fileVersion);
    /// Lets the measured curve's highest power be that of the first point with the highest above 0.
    void findMaximumPower();
    /// The algorithm that the settings name, at the conditions of the measurement.
    std::unique_ptr<STCAlgorithm> makeAlgorithm(bool useStoredIrradiance, bool useStoredTemperature);

    void swap(StringRecord &other);

private:
    bool removeOnceFoundDips();

    CurveTrace m_measured;
    CurveTrace m_measuredPower{TraceKind::measuredPower};
    CurveTrace m_stc{TraceKind::stc};
    CurveTrace m_stcPower{TraceKind::stcPower};
    CurveTrace m_nominal{TraceKind::nominal};
    CurveTrace m_nominalPower{TraceKind::nominalPower};
    QColor m_colour;
    quint32 m_curveId = 0;
    StringHeader m_header;
    STCparameters m_settings;
    ModuleBinding m_module;
};

} // namespace IVCurve
