#include "curve/ui/CurveGraphSquishHelper.h"

#include "curve/ui/CurveGraph.h"

#include <algorithm>

namespace IVCurve {

namespace {

int count(const CurveLineMap &lines)
{
    return static_cast<int>(lines.size());
}

} // namespace

CurveGraphSquishHelper::CurveGraphSquishHelper(CurveGraph *graph) : QObject(graph), m_graph(graph)
{
    setObjectName(QStringLiteral("SquishGraphHelper"));
}

int CurveGraphSquishHelper::measLineCount() const
{
    return count(m_graph->linesMeasured());
}

int CurveGraphSquishHelper::stcLineCount() const
{
    return count(m_graph->linesStc());
}

int CurveGraphSquishHelper::nomLineCount() const
{
    return count(m_graph->linesNominal());
}

int CurveGraphSquishHelper::measPwrLineCount() const
{
    return count(m_graph->linesMeasuredPower());
}

int CurveGraphSquishHelper::stcPwrLineCount() const
{
    return count(m_graph->linesStcPower());
}

int CurveGraphSquishHelper::nomPwrLineCount() const
{
    return count(m_graph->linesNominalPower());
}

int CurveGraphSquishHelper::visibleLineCount() const
{
    const QwtPlotItemList lines = m_graph->itemList(QwtPlotItem::Rtti_PlotCurve);
    const auto hasPoints = [](const QwtPlotItem *line) {
        return static_cast<const QwtPlotCurve *>(line)->dataSize() > 0;
    };
    return static_cast<int>(std::count_if(lines.begin(), lines.end(), hasPoints));
}

} // namespace IVCurve
