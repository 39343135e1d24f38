#pragma once

#include <QPaintDevice>
#include <QPainter>
#include <qwt_painter.h>

namespace IVCurve {

/// Where a pixel of the plot is several of the screen, rounding to whole ones would make lines into stairs
/// and letters into blots. The library knows only a switch for the whole process.
class FinePainting
{
public:
    explicit FinePainting(const QPainter &painter) : m_before(QwtPainter::roundingAlignment())
    {
        if (painter.device()->devicePixelRatioF() > 1.0)
            QwtPainter::setRoundingAlignment(false);
    }
    ~FinePainting() { QwtPainter::setRoundingAlignment(m_before); }
    FinePainting(const FinePainting &) = delete;
    FinePainting &operator=(const FinePainting &) = delete;

private:
    bool m_before;
};

} // namespace IVCurve
