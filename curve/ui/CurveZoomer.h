#pragma once

#include <qwt_plot_zoomer.h>

namespace IVCurve {

/// Zooms the graph by mouse and keys.
class CurveZoomer : public QwtPlotZoomer
{
    Q_OBJECT

public:
    using QwtPlotZoomer::QwtPlotZoomer;
};

} // namespace IVCurve
