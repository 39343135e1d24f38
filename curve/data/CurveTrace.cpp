#include "curve/data/CurveTrace.h"

#include <cmath>
#include <limits>
#include <utility>

namespace IVCurve {

namespace {

/// Compares as false with every number.
constexpr double notYet = std::numeric_limits<double>::quiet_NaN();

/// 0 stands for none. qIsNull() would take the smallest numbers for 0 as well.
bool isIrradiance(double value)
{
    return std::abs(value) > 0.0;
}

} // namespace

CurveTrace::CurveTrace(const CurveTrace &other)
    : maxV(other.maxV)
    , maxI(other.maxI)
    , firstIrradiance(other.firstIrradiance)
    , mppIndex(other.mppIndex)
    , kind(other.kind)
    , points(other.points)
    , refs(other.refs)
    , minIrradiance(other.minIrradiance)
    , maxIrradiance(other.maxIrradiance)
{
    own();
}

CurveTrace &CurveTrace::operator=(const CurveTrace &other)
{
    CurveTrace copy(other);
    swap(copy);
    return *this;
}

void CurveTrace::swap(CurveTrace &other)
{
    std::swap(maxV, other.maxV);
    std::swap(maxI, other.maxI);
    std::swap(firstIrradiance, other.firstIrradiance);
    std::swap(mppIndex, other.mppIndex);
    std::swap(kind, other.kind);
    points.swap(other.points);
    refs.swap(other.refs);
    std::swap(minIrradiance, other.minIrradiance);
    std::swap(maxIrradiance, other.maxIrradiance);
    own();
    other.own();
}

void CurveTrace::addPoint(double v, double i, double g, int tag)
{
    const int last = points.size();
    points.append(QPointF(v, i));
    // Field by field in its place: a point made on the stack and copied from there costs more than the rest.
    refs.emplace_back();
    TracePoint &added = refs.back();
    added.owner = &points;
    added.index = last;
    added.irradiance = g;
    added.tag = tag;
    takeInFrom(last);
}

void CurveTrace::adopt(const std::vector<TracePoint> &companions)
{
    auto place = static_cast<int>(refs.size());
    const int first = place;
    refs.insert(refs.end(), companions.begin(), companions.end());
    for (; place < size(); ++place) {
        TracePoint &point = refs[static_cast<size_t>(place)];
        point.owner = &points;
        point.index = place;
        point.tag = 0;
    }
    takeInFrom(first);
}

void CurveTrace::takeInFrom(int first)
{
    if (first >= size())
        return;
    takeInIrradianceFrom(first);
    // In variables that no point's address can be that of, so that they stay in the processor.
    double highestV = maxV;
    double highestI = maxI;
    const QPointF *const all = points.constData();
    // An index that no point had until now is none: the first new point takes its place.
    int best = mppIndex >= 0 && mppIndex < first ? mppIndex : first;
    double highestPower = all[best].x() * all[best].y();
    for (int place = first; place < size(); ++place) {
        const double v = all[place].x();
        const double i = all[place].y();
        highestV = v > highestV ? v : highestV;
        highestI = i > highestI ? i : highestI;
        const double power = v * i;
        if (power > highestPower) {
            best = place;
            highestPower = power;
        }
    }
    maxV = highestV;
    maxI = highestI;
    mppIndex = best;
}

void CurveTrace::takeInIrradianceFrom(int first)
{
    const auto begin = refs.cbegin() + first;
    // 1000 stands for "none yet" as well: the first irradiance that is another one ends the search.
    for (auto point = begin; point != refs.cend() && firstIrradiance >= 1000.0 && firstIrradiance <= 1000.0;
         ++point) {
        if (isIrradiance(point->irradiance))
            firstIrradiance = point->irradiance;
    }
    double highestG = maxIrradiance;
    double lowestG = isIrradiance(minIrradiance) ? minIrradiance : notYet;
    for (auto point = begin; point != refs.cend(); ++point) {
        const double g = point->irradiance;
        highestG = g > highestG ? g : highestG;
        // True with nothing to compare with, too.
        if (isIrradiance(g) && !(lowestG <= g))
            lowestG = g;
    }
    maxIrradiance = highestG;
    minIrradiance = std::isnan(lowestG) ? 0.0 : lowestG;
}

void CurveTrace::reserve(int count)
{
    points.reserve(count);
    refs.reserve(static_cast<size_t>(count));
}

void CurveTrace::reset()
{
    // First, as swap() would give each of them another owner on its way.
    std::vector<TracePoint>().swap(refs);
    CurveTrace fresh(kind);
    swap(fresh);
}

void CurveTrace::own()
{
    for (TracePoint &point : refs)
        point.owner = &points;
}

} // namespace IVCurve
