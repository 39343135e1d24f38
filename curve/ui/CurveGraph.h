#pragma once

#include "curve/ui/GraphLines.h"

#include <qwt_plot.h>

#include <memory>

class QwtPlotTextLabel;

namespace IVCurve {

class CurvePanner;
class CurveTracker;
class CurveTypeLegend;
class CurveZoomer;
class StringRecord;

/// The plot of the strings that are selected: for each up to six lines, as current and as power over voltage,
/// measured, corrected to standard test conditions and nominal.
class CurveGraph : public QwtPlot, public GraphLines
{
    Q_OBJECT

public:
    explicit CurveGraph(CurveGraphModel *model, QWidget *parent = nullptr);
    ~CurveGraph() override;

    CurveTracker *tracker() const { return m_tracker.get(); }
    CurveZoomer *zoomer() const { return m_zoomer.get(); }
    CurvePanner *panner() const { return m_panner.get(); }
    /// Lets the lines come and go with the strings of the model.
    void follow();
    /// What the title on the canvas says.
    QString titleText() const;

public slots:
    void print();
    void exportpdf();
    void exportimg();
    void slotInsertCurves(unsigned StringID);
    void slotRemoveCurves(unsigned StringID);
    void displayIVToggled(bool on);
    void displayMEASToggled(bool on);
    void displayPWRToggled(bool on);
    void displaySTCToggled(bool on);
    void displayNOMToggled(bool on);
    void updateLegend(QString newTitle);

protected:
    void drawItems(QPainter *painter, const QRectF &canvasRect,
                   const QwtScaleMap maps[axisCnt]) const override;

private:
    void buildCanvas();
    void buildAxes();
    void buildItems();
    void buildTools();
    void insertCurves(quint32 id);
    bool insertLine(quint32 id, StringRecord &record, TraceKind kind, int lowestMarkedIndex);
    void removeCurves(quint32 id);
    void switchView(bool &shown, bool on, int axis, std::initializer_list<TraceKind> kinds);
    void removeLines(std::initializer_list<TraceKind> kinds);
    bool clearLines(TraceKind kind);
    void setScale(int axis);
    void setScales();
    void renewZoomBase();
    bool settle();

    std::unique_ptr<CurveTracker> m_tracker;
    std::unique_ptr<CurveZoomer> m_zoomer;
    std::unique_ptr<CurvePanner> m_panner;
    std::unique_ptr<QwtPlotTextLabel> m_titleLabel;
    std::unique_ptr<CurveTypeLegend> m_typeKey;
    bool m_zoomBaseIsDue = false;
};

} // namespace IVCurve
