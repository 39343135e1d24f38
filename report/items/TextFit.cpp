#include "report/items/TextFit.h"

#include <QFontMetrics>
#include <QRect>
#include <QSizeF>
#include <QString>

namespace {

constexpr int rounds = 10;
constexpr int wrapFlags = int(Qt::TextWordWrap) | int(Qt::AlignTop) | int(Qt::AlignLeft);

} // namespace

double textFitScale(const QString &text, const QFont &font, const QSizeF &box)
{
    // The margins that a text document keeps around its text.
    const double width = box.width() - 10.0;
    const double height = box.height() - 4.0;
    if (text.isEmpty() || width <= 0.0 || height <= 0.0)
        return 1.0;

    const QFontMetrics metrics(font);
    double scale = 1.0;
    for (int i = 0; i < rounds; ++i) {
        const QRect available(0, 0, int(width / scale), int(height / scale));
        const int needed = metrics.boundingRect(available, wrapFlags, text).height();
        if (needed <= available.height())
            break;
        double next = scale * available.height() / needed;
        // Smaller letters need fewer lines, so the full ratio would go too far: halfway approaches from
        // above, and the last round makes sure.
        if (i < rounds - 1)
            next = (next + scale) / 2.0;
        if (next <= 0.0)
            break;
        scale = next;
    }
    return qMin(scale, 1.0);
}
