#include "curve/data/StringRecord.h"

#include "curve/data/Anderson.h"
#include "curve/data/Blaesser.h"
#include "curve/data/IEC60891.h"
#include "curve/data/NumberReader.h"

#include <cmath>
#include <utility>

namespace IVCurve {

namespace {

/// Points of the nominal curve before the last one, and the parts that they divide the voltage into.
constexpr int nominalSteps = 127;

void makePowerCurve(const CurveTrace &source, CurveTrace &power)
{
    if (power.size() >= source.size())
        return;
    power.reserve(source.size());
    for (const QPointF &point : source.points)
        power.addPoint(point.x(), point.x() * point.y(), 0, 0);
    power.mppIndex = source.mppIndex;
}

} // namespace

StringRecord::StringRecord(const StringHeader &header, const CurveTrace &measured)
    : m_measured(measured), m_header(header)
{
    m_measured.kind = TraceKind::measured;
}

void StringRecord::takeMeasured(CurveTrace &measured)
{
    m_measured.swap(measured);
    m_measured.kind = TraceKind::measured;
}

const CurveTrace &StringRecord::measuredPowerCurve()
{
    makePowerCurve(m_measured, m_measuredPower);
    return m_measuredPower;
}

const CurveTrace &StringRecord::stcCurve(bool extendToAxes)
{
    if (!m_stc.isEmpty())
        return m_stc;
    const auto algorithm = makeAlgorithm(true, true);
    extendToAxes = extendToAxes && !m_measured.isEmpty();
    m_stc.reserve(m_measured.size() + (extendToAxes ? 2 : 0));
    if (extendToAxes) {
        const TracePoint &first = m_measured.refs.front();
        const QPointF corrected = algorithm->correct(first);
        if (corrected.x() > 0.0)
            m_stc.addPoint(0.0, corrected.y(), first.irradiance, 0);
    }
    m_stc.addPointsOf(m_measured, [&](const TracePoint &point) { return algorithm->correct(point); });
    if (extendToAxes) {
        const TracePoint &last = m_measured.refs.back();
        const QPointF corrected = algorithm->correct(last);
        if (corrected.y() > 0.0)
            m_stc.addPoint(corrected.x(), 0.0, last.irradiance, 0);
    }
    return m_stc;
}

const CurveTrace &StringRecord::stcPowerCurve()
{
    makePowerCurve(stcCurve(true), m_stcPower);
    return m_stcPower;
}

const CurveTrace &StringRecord::nominalCurve()
{
    if (!m_nominal.isEmpty() || !(m_module.voc > 0.0))
        return m_nominal;
    const double voc = m_module.voc;
    const double isc = m_module.isc;
    const double shape = m_module.shape;
    const bool hasShape = !isExactlyZero(shape);
    const double step = voc / double(nominalSteps);
    double V = 0.0;
    bool mppForced = false;
    m_nominal.reserve(nominalSteps + 1);
    m_nominal.maxV = m_module.series * voc;
    m_nominal.maxI = m_module.parallel * isc;
    for (int k = 0; k < nominalSteps; ++k) {
        if (!mppForced && V - m_module.vmp > 0.0) {
            m_nominal.mppIndex = k;
            mppForced = true;
        }
        if (hasShape) {
            // Twice 1 is taken off the exponential: that is how this model is defined.
            const double I = isc - (std::expm1(V / shape) - 1) * (std::exp(-voc / shape) * m_module.iscRef);
            m_nominal.addPoint(m_module.series * V, m_module.parallel * I, 0, 0);
        } else {
            m_nominal.addPoint(V, 0, 0, 0);
        }
        V += step;
    }
    m_nominal.addPoint(m_module.series * voc, 0, 0, 0);
    return m_nominal;
}

const CurveTrace &StringRecord::nominalPowerCurve()
{
    makePowerCurve(nominalCurve(), m_nominalPower);
    return m_nominalPower;
}

void StringRecord::clearDerivedCurves()
{
    // A power curve is made anew only when it is shorter than its source: both go together.
    if (!m_stc.isEmpty()) {
        m_stc.reset();
        m_stcPower.reset();
    }
    if (!m_nominal.isEmpty()) {
        m_nominal.reset();
        m_nominalPower.reset();
    }
}

void StringRecord::removeDips(quint32 fileVersion)
{
    if (fileVersion >= 2) {
        m_settings.perPointIrradiance = true;
        const int count = m_measured.size();
        int passes = 0;
        bool found = false;
        do {
            found = removeOnceFoundDips();
            ++passes;
        } while (found && passes <= count);
    }
    findMaximumPower();
}

bool StringRecord::removeOnceFoundDips()
{
    // Dips are sought in the corrected curve: the measured one dips with every cloud.
    const QVector<QPointF> corrected = stcCurve(false).points;
    std::vector<bool> isDip(static_cast<size_t>(corrected.size()), false);
    int dips = 0;
    double y2 = 0.0;
    double y1 = 0.0;
    for (int i = 0; i < corrected.size(); ++i) {
        const double y0 = corrected.at(i).y();
        if (!isExactlyZero(y2) && y2 >= y1 && y0 >= y1) {
            isDip[static_cast<size_t>(i - 1)] = true;
            ++dips;
        }
        y2 = y1;
        y1 = y0;
    }
    if (dips > 0) {
        CurveTrace kept(TraceKind::measured);
        kept.reserve(m_measured.size() - dips);
        for (const TracePoint &point : m_measured.refs) {
            if (!isDip[static_cast<size_t>(point.index)])
                kept.addPoint(point.position().x(), point.position().y(), point.irradiance, point.tag);
        }
        m_measured.swap(kept);
    }
    m_stc.reset();
    return dips > 0;
}

void StringRecord::findMaximumPower()
{
    m_measured.mppIndex = -1;
    double highest = 0.0;
    for (int i = 0; i < m_measured.size(); ++i) {
        const QPointF &point = m_measured.points.at(i);
        const double power = point.x() * point.y();
        if (power > highest) {
            highest = power;
            m_measured.mppIndex = i;
        }
    }
}

std::unique_ptr<STCAlgorithm> StringRecord::makeAlgorithm(bool useStoredIrradiance, bool useStoredTemperature)
{
    const bool blaesser = m_settings.algorithm == STCparameters::BlaesserAlgorithm;
    const QString &temperature = blaesser ? m_header.ambientTemp : m_header.cellTemp;
    const NumberReader numbers;
    m_settings.G = useStoredIrradiance && numbers.read(m_header.irradiance) ? m_header.irradiance
                                                                            : QStringLiteral("1000");
    m_settings.Tpv = useStoredTemperature && numbers.read(temperature) ? temperature : QStringLiteral("25");

    if (blaesser)
        return std::make_unique<Blaesser>(numbers.read(m_header.isc).value_or(m_measured.maxI),
                                          numbers.read(m_header.voc).value_or(m_measured.maxV), &m_settings);
    const double isc = m_measured.isEmpty() ? m_measured.maxI : m_measured.points.constFirst().y();
    if (m_settings.algorithm == STCparameters::IEC60891Algorithm)
        return std::make_unique<IEC60891>(isc, m_measured.firstIrradiance, &m_settings, &m_module);
    return std::make_unique<Anderson>(isc, m_measured.maxV, &m_settings, &m_module);
}

void StringRecord::swap(StringRecord &other)
{
    m_measured.swap(other.m_measured);
    m_measuredPower.swap(other.m_measuredPower);
    m_stc.swap(other.m_stc);
    m_stcPower.swap(other.m_stcPower);
    m_nominal.swap(other.m_nominal);
    m_nominalPower.swap(other.m_nominalPower);
    std::swap(m_colour, other.m_colour);
    std::swap(m_curveId, other.m_curveId);
    std::swap(m_header, other.m_header);
    std::swap(m_settings, other.m_settings);
    std::swap(m_module, other.m_module);
}

} // namespace IVCurve
