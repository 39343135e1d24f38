#include "app/batch/PlotCommand.h"

#include "app/batch/BatchFiles.h"
#include "app/batch/CurveSheet.h"
#include "curve/ui/GraphExport.h"

#include <QCoreApplication>

#include <algorithm>

using namespace IVCurve;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Batch)
};

struct View
{
    const char *name;
    bool (GraphLines::*isShown)() const;
    void (CurveGraph::*show)(bool on);
};

constexpr View views[] = {{"MEAS", &GraphLines::showMEAS, &CurveGraph::displayMEASToggled},
                          {"STC", &GraphLines::showSTC, &CurveGraph::displaySTCToggled},
                          {"NOM", &GraphLines::showNOM, &CurveGraph::displayNOMToggled},
                          {"IV", &GraphLines::showIV, &CurveGraph::displayIVToggled},
                          {"PWR", &GraphLines::showPWR, &CurveGraph::displayPWRToggled}};

bool canBePlotted(const PlotOrder &order)
{
    if (!isReadableFile(order.curveFile))
        return false;
    if (!GraphExport::canWrite(order.output))
        return refuse(Text::tr("%1 names no format for a graph.").arg(order.output));
    return isApart(order.output, order.curveFile) && isFree(order.output, order.force);
}

void showViews(CurveGraph &graph, const QStringList &wanted)
{
    for (const View &view : views) {
        const bool on = wanted.contains(QLatin1String(view.name));
        if (on != (graph.*view.isShown)())
            (graph.*view.show)(on);
    }
}

bool plot(const PlotOrder &order)
{
    CurveSheet sheet(order.curveFile);
    if (!sheet.file().isOpen())
        return false;
    if (!order.views.isEmpty())
        showViews(sheet.graph(), order.views);
    return sheet.select(order.strings) && GraphExport::writeFile(sheet.graph(), order.output);
}

} // namespace

std::optional<QStringList> parseViews(const QString &text)
{
    QStringList names;
    const QStringList parts = text.split(QLatin1Char(','));
    for (const QString &part : parts) {
        const auto isNamed = [&part](const View &view) { return part == QLatin1String(view.name); };
        if (std::none_of(std::begin(views), std::end(views), isNamed))
            return std::nullopt;
        names.append(part);
    }
    return names;
}

BatchExit plotCurves(const PlotOrder &order)
{
    try {
        return batchOutcome(canBePlotted(order) && plot(order));
    } catch (const std::exception &error) {
        return batchOutcome(refuse(QString::fromUtf8(error.what())));
    }
}
