#pragma once

#include <QColor>

namespace IVCurve {

/// Hands out colours for curves, one after the other and darker each time round.
class CurvePalette
{
public:
    CurvePalette() = default;

    /// The one that all documents share.
    static CurvePalette &instance();

    QColor nextColour();

private:
    int m_cursor = 0;
    int m_darkness = 100;
};

} // namespace IVCurve
