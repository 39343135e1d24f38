// The points of a curve file, and the point cells of a tester's file, from text to numbers: held against the
// toolkit's own reading of each number.

#include "curve/data/CurveTrace.h"
#include "curve/data/PointText.h"

#include <QStringList>

#include <cmath>
#include <cstdlib>

using namespace IVCurve;

namespace {

void require(bool condition)
{
    if (!condition)
        abort();
}

bool same(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || (a >= b && a <= b);
}

void requireNear(double again, double before)
{
    if (std::abs(before) < 1e9)
        require(std::abs(again - before) < 0.00050001);
}

void requirePoints(const QString &text)
{
    CurveTrace trace;
    require(appendPoints(text, trace));
    const QStringList parts = text.isEmpty() ? QStringList() : text.split(QLatin1Char('#'));
    require(trace.size() == parts.size());
    const QLocale c = QLocale::c();
    for (int i = 0; i < parts.size(); ++i) {
        const QStringList values = parts.at(i).split(QLatin1Char(':'));
        double current = 0.0;
        double irradiance = 1000.0;
        bool ok = false;
        const double voltage = c.toDouble(values.at(0), &ok);
        if (ok && values.size() > 1) {
            current = c.toDouble(values.at(1), &ok);
            if (ok && values.size() > 2)
                irradiance = c.toDouble(values.at(2));
        }
        require(same(trace.points.at(i).x(), voltage) && same(trace.points.at(i).y(), current));
        require(same(trace.refs[size_t(i)].irradiance, irradiance));
    }
    // What has been written reads back to within half of its last digit.
    CurveTrace again;
    require(appendPoints(pointText(trace), again) && again.size() == trace.size());
    for (int i = 0; i < trace.size(); ++i) {
        requireNear(again.points.at(i).x(), trace.points.at(i).x());
        requireNear(again.points.at(i).y(), trace.points.at(i).y());
    }
}

void requireCell(const QString &cell, const QLocale &locale)
{
    const auto point = PointCellReader(locale).read(cell);
    const QStringList values = cell.split(QLatin1Char(':'));
    bool good = values.size() >= 2;
    double numbers[3] = {};
    for (int i = 0; good && i < values.size() && i < 3; ++i)
        numbers[i] = locale.toDouble(values.at(i), &good);
    int tag = 0;
    if (good && values.size() > 3)
        tag = locale.toInt(values.at(3), &good);
    require(good == point.has_value());
    if (good)
        require(same(point->voltage, numbers[0]) && same(point->current, numbers[1]) &&
                same(point->irradiance, numbers[2]) && point->tag == tag);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    requirePoints(text);
    for (const char *name : {"en", "de", "C"})
        requireCell(text, QLocale(QLatin1String(name)));
    return 0;
}
