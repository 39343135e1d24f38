#pragma once

#include "curve/data/CurveTrace.h"
#include "curve/ui/CurveLine.h"

#include <array>
#include <memory>
#include <optional>
#include <unordered_map>

namespace IVCurve {

class CurveGraphModel;

/// The lines of one kind, by the ids of their strings. A line that leaves the map leaves the plot.
using CurveLineMap = std::unordered_map<quint32, std::unique_ptr<CurveLine>>;

inline constexpr std::array<TraceKind, 6> allTraceKinds{TraceKind::measured, TraceKind::measuredPower,
                                                        TraceKind::stc,      TraceKind::stcPower,
                                                        TraceKind::nominal,  TraceKind::nominalPower};

/// What a graph shows: its lines, one map for each kind, and the switches that decide which lines there are.
/// The graph fills it; the tracker and the key of line styles read it.
class GraphLines
{
public:
    explicit GraphLines(CurveGraphModel *model) : m_model(model) {}
    virtual ~GraphLines();
    GraphLines(const GraphLines &) = delete;
    GraphLines &operator=(const GraphLines &) = delete;

    const CurveLineMap &linesMeasured() const { return linesOf(TraceKind::measured); }
    const CurveLineMap &linesMeasuredPower() const { return linesOf(TraceKind::measuredPower); }
    const CurveLineMap &linesStc() const { return linesOf(TraceKind::stc); }
    const CurveLineMap &linesStcPower() const { return linesOf(TraceKind::stcPower); }
    const CurveLineMap &linesNominal() const { return linesOf(TraceKind::nominal); }
    const CurveLineMap &linesNominalPower() const { return linesOf(TraceKind::nominalPower); }
    const CurveLineMap &linesOf(TraceKind kind) const { return m_lines[static_cast<size_t>(kind)]; }
    /// Null if the string has no line of that kind.
    CurveLine *line(TraceKind kind, quint32 id) const;

    CurveGraphModel *model() const { return m_model; }

    /// The largest values of all lines.
    double maxVoltage() const { return m_maxVoltage; }
    double maxCurrent() const { return m_maxCurrent; }
    double maxPower() const { return m_maxPower; }

    bool showIV() const { return m_showIV; }
    bool showPWR() const { return m_showPWR; }
    bool showSTC() const { return m_showSTC; }
    bool showNOM() const { return m_showNOM; }
    bool showMEAS() const { return m_showMEAS; }

    /// The kind of line that stands for its string in the legend; none if no line is to be shown.
    std::optional<TraceKind> kindInLegend() const;

protected:
    CurveLineMap &mapOf(TraceKind kind) { return m_lines[static_cast<size_t>(kind)]; }
    /// Gives the string's chosen line, and no other one, an entry in the legend.
    void chooseLegendEntry(quint32 id);
    /// Lets a line raise the maxima.
    void takeIntoMaxima(const CurveLine &line);
    /// Finds the maxima of the lines that there are.
    void recomputeMaxima();
    /// Does a line reach the largest voltage, or the largest value of its own axis?
    bool reachesMaximum(const CurveLine &line) const;

    double m_maxVoltage = 0.0;
    double m_maxCurrent = 0.0;
    double m_maxPower = 0.0;
    bool m_showIV = true;
    bool m_showPWR = false;
    bool m_showSTC = true;
    bool m_showNOM = false;
    bool m_showMEAS = false;

private:
    CurveGraphModel *m_model;
    std::array<CurveLineMap, 6> m_lines;
};

/// Where lines come from, in the order in which they are drawn and told.
struct LineSource
{
    bool (GraphLines::*isShown)() const;
    TraceKind iv;
    TraceKind power;
    /// From which point on the one of maximum power is marked.
    int lowestMarkedIndex;
    /// What the tracker puts behind the units.
    const char *suffix;
};

inline constexpr std::array<LineSource, 3> lineSources{{
    {&GraphLines::showMEAS, TraceKind::measured, TraceKind::measuredPower, 0, ""},
    {&GraphLines::showSTC, TraceKind::stc, TraceKind::stcPower, 1, "<sub>STC</sub>"},
    {&GraphLines::showNOM, TraceKind::nominal, TraceKind::nominalPower, 1, "<sub>nom</sub>"},
}};

} // namespace IVCurve
