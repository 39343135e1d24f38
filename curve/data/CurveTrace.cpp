#include "curve/data/CurveTrace.h"

#include <utility>

namespace IVCurve {

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
    // In variables that no point's address can be that of, so that they stay in the processor.
    double highestV = maxV;
    double highestI = maxI;
    double lowestG = minIrradiance;
    double highestG = maxIrradiance;
    double firstG = firstIrradiance;
    const QPointF *const all = points.constData();
    int best = mppIndex;
    double highestPower = best >= 0 && best < size() ? all[best].x() * all[best].y() : 0.0;
    for (int place = first; place < size(); ++place) {
        const double v = all[place].x();
        const double i = all[place].y();
        const double g = refs[static_cast<size_t>(place)].irradiance;
        highestG = g > highestG ? g : highestG;
        // qIsNull() takes the smallest numbers for 0, which these comparisons must not.
        if (g < 0.0 || g > 0.0) {
            if (lowestG > g || !(lowestG < 0.0 || lowestG > 0.0))
                lowestG = g;
            // 1000 stands for "none yet" as well: the first irradiance that is another one ends the search.
            if (firstG >= 1000.0 && firstG <= 1000.0)
                firstG = g;
        }
        highestV = v > highestV ? v : highestV;
        highestI = i > highestI ? i : highestI;
        const double power = v * i;
        if (best < 0 || best > place || power > highestPower) {
            best = place;
            highestPower = power;
        }
    }
    maxV = highestV;
    maxI = highestI;
    minIrradiance = lowestG;
    maxIrradiance = highestG;
    firstIrradiance = firstG;
    mppIndex = best;
}

void CurveTrace::reserve(int count)
{
    points.reserve(count);
    refs.reserve(static_cast<size_t>(count));
}

void CurveTrace::reset()
{
    CurveTrace fresh(kind);
    swap(fresh);
}

void CurveTrace::own()
{
    for (TracePoint &point : refs)
        point.owner = &points;
}

} // namespace IVCurve
