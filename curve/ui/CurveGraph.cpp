#include "curve/ui/CurveGraph.h"

#include "app/core/WaitCursor.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/ui/CurvePanner.h"
#include "curve/ui/CurveTracker.h"
#include "curve/ui/CurveTypeLegend.h"
#include "curve/ui/CurveZoomer.h"
#include "curve/ui/ExceptionBox.h"
#include "curve/ui/FinePainting.h"
#include "curve/ui/GraphExport.h"

#include <qwt_legend.h>
#include <qwt_picker_machine.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_textlabel.h>
#include <qwt_scale_widget.h>

namespace IVCurve {

namespace {

/// The scales reach so far beyond the largest values.
constexpr double headroom = 1.1;
constexpr int titleWeight = 75;
/// Of a ground that black can be read on.
constexpr int leastLight = 128;

/// Power has an axis of its own.
int axisOf(TraceKind kind)
{
    const bool isPower =
        kind == TraceKind::measuredPower || kind == TraceKind::stcPower || kind == TraceKind::nominalPower;
    return isPower ? QwtPlot::yRight : QwtPlot::yLeft;
}

const CurveTrace &traceOf(StringRecord &record, TraceKind kind)
{
    switch (kind) {
    case TraceKind::measured:
        return record.measuredCurve();
    case TraceKind::measuredPower:
        return record.measuredPowerCurve();
    case TraceKind::stc:
        return record.stcCurve(true);
    case TraceKind::stcPower:
        return record.stcPowerCurve();
    case TraceKind::nominal:
        return record.nominalCurve();
    case TraceKind::nominalPower:
        break;
    }
    return record.nominalPowerCurve();
}

} // namespace

CurveGraph::CurveGraph(CurveGraphModel *model, QWidget *parent) : QwtPlot(parent), GraphLines(model)
{
    buildCanvas();
    buildAxes();
    buildItems();
    buildTools();
}

CurveGraph::~CurveGraph() = default;

void CurveGraph::buildCanvas()
{
    // All writing on the plot is black, as on paper: a dark window showing through would swallow it.
    setAutoFillBackground(QGuiApplication::palette().color(QPalette::Window).lightness() < leastLight);
    setPalette(QPalette(Qt::white));
    plotLayout()->setAlignCanvasToScales(true);
    auto *canvas = new QwtPlotCanvas;
    canvas->setAutoFillBackground(false);
    canvas->setFrameStyle(0);
    setCanvas(canvas);
}

void CurveGraph::buildAxes()
{
    setAxisTitle(xBottom, tr("Voltage (V)"));
    setAxisTitle(yLeft, tr("Current (A)"));
    setAxisTitle(yRight, tr("Power (W)"));
    enableAxis(yLeft, true);
    for (int axis = 0; axis < axisCnt; ++axis)
        axisWidget(axis)->setMargin(0);
}

void CurveGraph::buildItems()
{
    m_titleLabel = std::make_unique<QwtPlotTextLabel>();
    QFont font;
    font.setWeight(titleWeight);
    QwtText title(tr("IV Curve"), QwtText::PlainText);
    title.setColor(Qt::black);
    title.setRenderFlags(Qt::AlignTop | Qt::AlignHCenter);
    title.setFont(font);
    m_titleLabel->setText(title);
    m_titleLabel->attach(this);

    auto *grid = new QwtPlotGrid;
    grid->setMajorPen(Qt::black, 0.0, Qt::DotLine);
    grid->setMinorPen(Qt::gray, 0.0, Qt::DotLine);
    grid->attach(this);

    auto *legend = new QwtLegend;
    legend->setFrameStyle(QFrame::Box | QFrame::Sunken);
    insertLegend(legend, QwtPlot::BottomLegend, -1.0);

    m_typeKey = std::make_unique<CurveTypeLegend>();
    m_typeKey->attach(this);
}

void CurveGraph::buildTools()
{
    m_tracker = std::make_unique<CurveTracker>(this, canvas());
    m_tracker->setStateMachine(new QwtPickerTrackerMachine);
    m_tracker->setRubberBandPen(QColor(QStringLiteral("MediumOrchid")));

    m_zoomer = std::make_unique<CurveZoomer>(canvas(), true);
    m_zoomer->setKeyPattern(QwtEventPattern::KeyRedo, Qt::Key_I, Qt::ShiftModifier);
    m_zoomer->setKeyPattern(QwtEventPattern::KeyUndo, Qt::Key_O, Qt::ShiftModifier);
    m_zoomer->setKeyPattern(QwtEventPattern::KeyHome, Qt::Key_Home);

    m_panner = std::make_unique<CurvePanner>(canvas());
    m_panner->setMouseButton(Qt::LeftButton, Qt::ShiftModifier);
    m_panner->setCursor(Qt::OpenHandCursor);
}

void CurveGraph::follow()
{
    connect(model(), &CurveGraphModel::signalStringSelected, this, &CurveGraph::slotInsertCurves);
    connect(model(), &CurveGraphModel::signalStringDeselected, this, &CurveGraph::slotRemoveCurves);
    connect(model(), &CurveGraphModel::signalUpdateLegend, this, &CurveGraph::updateLegend);
}

QString CurveGraph::titleText() const
{
    return m_titleLabel->text().text();
}

void CurveGraph::print()
{
    GraphExport::print(*this);
}

void CurveGraph::exportpdf()
{
    GraphExport::exportPdf(*this);
}

void CurveGraph::exportimg()
{
    GraphExport::exportImage(*this);
}

void CurveGraph::slotInsertCurves(unsigned StringID)
{
    guarded([this, StringID] { insertCurves(StringID); });
}

void CurveGraph::insertCurves(quint32 id)
{
    const auto found = model()->records().find(id);
    if (found == model()->records().end() || !found->second)
        return;
    bool made = false;
    for (const LineSource &source : lineSources) {
        if (!(this->*source.isShown)())
            continue;
        if (showIV())
            made |= insertLine(id, *found->second, source.iv, source.lowestMarkedIndex);
        if (showPWR())
            made |= insertLine(id, *found->second, source.power, source.lowestMarkedIndex);
    }
    if (made)
        renewZoomBase();
}

bool CurveGraph::insertLine(quint32 id, StringRecord &record, TraceKind kind, int lowestMarkedIndex)
{
    if (line(kind, id))
        return false;
    const CurveTrace &trace = traceOf(record, kind);
    const StringHeader &header = record.header();
    const QString inLegend = QStringLiteral("%1 (%2)").arg(header.name, header.irradiance);
    auto made = std::make_unique<CurveLine>(record.colour(), trace, axisOf(kind), header.name, inLegend,
                                            kind == kindInLegend(), this);
    takeIntoMaxima(*made);
    setScales();
    if (!made->isPower() && trace.mppIndex >= lowestMarkedIndex && trace.mppIndex < trace.size())
        made->addMarker(trace.mppIndex);
    mapOf(kind)[id] = std::move(made);
    return true;
}

void CurveGraph::slotRemoveCurves(unsigned StringID)
{
    guarded([this, StringID] { removeCurves(StringID); });
}

void CurveGraph::removeCurves(quint32 id)
{
    for (const TraceKind kind : allTraceKinds)
        mapOf(kind).erase(id);
    recomputeMaxima();
    setScales();
    renewZoomBase();
}

void CurveGraph::displayIVToggled(bool on)
{
    switchView(m_showIV, on, yLeft, {TraceKind::measured, TraceKind::stc, TraceKind::nominal});
}

void CurveGraph::displayMEASToggled(bool on)
{
    switchView(m_showMEAS, on, yLeft, {TraceKind::measured, TraceKind::measuredPower});
}

void CurveGraph::displayPWRToggled(bool on)
{
    switchView(m_showPWR, on, yRight,
               {TraceKind::measuredPower, TraceKind::stcPower, TraceKind::nominalPower});
}

void CurveGraph::displaySTCToggled(bool on)
{
    switchView(m_showSTC, on, yLeft, {TraceKind::stc, TraceKind::stcPower});
}

void CurveGraph::displayNOMToggled(bool on)
{
    switchView(m_showNOM, on, yLeft, {TraceKind::nominal, TraceKind::nominalPower});
}

void CurveGraph::switchView(bool &shown, bool on, int axis, std::initializer_list<TraceKind> kinds)
{
    shown = on;
    const WaitCursor wait;
    enableAxis(axis, axis == yRight ? showPWR() : showIV());
    if (on) {
        for (const auto &entry : model()->records())
            slotInsertCurves(entry.first);
    } else {
        removeLines(kinds);
    }
    updateLegend(titleText());
}

void CurveGraph::removeLines(std::initializer_list<TraceKind> kinds)
{
    bool scaled = false;
    for (const TraceKind kind : kinds)
        scaled |= clearLines(kind);
    if (scaled)
        renewZoomBase();
    else
        replot();
}

bool CurveGraph::clearLines(TraceKind kind)
{
    CurveLineMap &lines = mapOf(kind);
    bool reached = false;
    for (const auto &entry : lines)
        reached |= reachesMaximum(*entry.second);
    lines.clear();
    if (!reached)
        return false;
    recomputeMaxima();
    setScale(xBottom);
    setScale(axisOf(kind));
    return true;
}

void CurveGraph::setScale(int axis)
{
    const double maximum = axis == xBottom ? maxVoltage() : axis == yLeft ? maxCurrent() : maxPower();
    setAxisScale(axis, 0.0, maximum * headroom);
}

void CurveGraph::setScales()
{
    for (const int axis : {xBottom, yLeft, yRight})
        setScale(axis);
}

void CurveGraph::renewZoomBase()
{
    // Strings come and go by hundreds, and each time the plot would be laid out and its scales be made anew:
    // once is enough, before anything is painted.
    if (m_zoomBaseIsDue)
        return;
    m_zoomBaseIsDue = true;
    QMetaObject::invokeMethod(this, &CurveGraph::settle, Qt::QueuedConnection);
}

bool CurveGraph::settle()
{
    if (!m_zoomBaseIsDue)
        return false;
    m_zoomBaseIsDue = false;
    m_zoomer->setZoomBase(true);
    return true;
}

void CurveGraph::drawItems(QPainter *painter, const QRectF &canvasRect, const QwtScaleMap maps[axisCnt]) const
{
    const FinePainting fine(*painter);
    QwtPlot::drawItems(painter, canvasRect, maps);
}

void CurveGraph::updateLegend(QString newTitle)
{
    for (const auto &entry : model()->records())
        chooseLegendEntry(entry.first);
    QwtText title = m_titleLabel->text();
    title.setText(newTitle, QwtText::PlainText);
    m_titleLabel->setText(title);
    // Title and key of line styles may have changed without any line.
    if (!settle())
        replot();
}

} // namespace IVCurve
