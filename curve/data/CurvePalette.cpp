#include "curve/data/CurvePalette.h"

namespace IVCurve {

namespace {

const QColor &colourAt(int index)
{
    static const QColor colours[] = {QColor(QStringLiteral("tomato")),
                                     QColor(QStringLiteral("lawngreen")),
                                     QColor(QStringLiteral("cadetblue")),
                                     QColor(QStringLiteral("mediumspringgreen")),
                                     QColor(QStringLiteral("plum")),
                                     QColor(QStringLiteral("royalblue")),
                                     QColor(QStringLiteral("sandybrown")),
                                     QColor(QStringLiteral("darkorchid")),
                                     QColor(Qt::red),
                                     QColor(Qt::green),
                                     QColor(Qt::blue),
                                     QColor(Qt::cyan),
                                     QColor(Qt::magenta),
                                     QColor(Qt::darkYellow),
                                     QColor(Qt::gray)};
    return colours[index];
}

constexpr int colourCount = 15;
constexpr int lightest = 100;
constexpr int darkestThatDarkens = 281;
constexpr int darkening = 20;

} // namespace

CurvePalette &CurvePalette::instance()
{
    static CurvePalette palette;
    return palette;
}

QColor CurvePalette::nextColour()
{
    if (m_cursor >= colourCount) {
        m_cursor = 0;
        m_darkness = m_darkness < darkestThatDarkens ? m_darkness + darkening : lightest;
    }
    return colourAt(m_cursor++).darker(m_darkness);
}

} // namespace IVCurve
