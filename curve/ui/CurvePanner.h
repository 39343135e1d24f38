#pragma once

#include <qwt_plot_panner.h>

namespace IVCurve {

/// Moves what the graph shows under the mouse.
class CurvePanner : public QwtPlotPanner
{
    Q_OBJECT

public:
    using QwtPlotPanner::QwtPlotPanner;
};

} // namespace IVCurve
