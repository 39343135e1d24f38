#include "curve/ui/GraphLines.h"

#include "curve/ui/ExceptionBox.h"

#include <algorithm>

namespace IVCurve {

GraphLines::~GraphLines() = default;

CurveLine *GraphLines::line(TraceKind kind, quint32 id) const
{
    const CurveLineMap &lines = linesOf(kind);
    const auto found = lines.find(id);
    return found == lines.end() ? nullptr : found->second.get();
}

std::optional<TraceKind> GraphLines::kindInLegend() const
{
    if (!showIV() && !showPWR())
        return std::nullopt;
    for (const LineSource &source : lineSources) {
        if ((this->*source.isShown)())
            return showIV() ? source.iv : source.power;
    }
    return std::nullopt;
}

void GraphLines::chooseLegendEntry(quint32 id)
{
    const std::optional<TraceKind> chosen = kindInLegend();
    const bool anyShown = showIV() || showPWR();
    // Without a line to choose, all stay as they were.
    if (anyShown && (!chosen || !line(*chosen, id)))
        return;
    for (const TraceKind kind : allTraceKinds) {
        if (CurveLine *candidate = line(kind, id))
            candidate->setInLegend(kind == chosen);
    }
}

void GraphLines::takeIntoMaxima(const CurveLine &line)
{
    const CurveTrace &trace = line.trace();
    double &maximum = line.isPower() ? m_maxPower : m_maxCurrent;
    m_maxVoltage = std::max(m_maxVoltage, trace.maxV);
    maximum = std::max(maximum, trace.maxI);
}

void GraphLines::recomputeMaxima()
{
    guarded([this] {
        m_maxVoltage = m_maxCurrent = m_maxPower = 0.0;
        for (const CurveLineMap &lines : m_lines) {
            for (const auto &entry : lines)
                takeIntoMaxima(*entry.second);
        }
    });
}

bool GraphLines::reachesMaximum(const CurveLine &line) const
{
    const CurveTrace &trace = line.trace();
    const double maximum = line.isPower() ? m_maxPower : m_maxCurrent;
    // The maxima are copies of such values: equal ones are exactly equal.
    return !(trace.maxV < m_maxVoltage || trace.maxV > m_maxVoltage) ||
           !(trace.maxI < maximum || trace.maxI > maximum);
}

} // namespace IVCurve
