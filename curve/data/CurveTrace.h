#pragma once

#include "curve/data/TracePoint.h"

#include <vector>

namespace IVCurve {

enum class TraceKind : quint8
{
    measured = 0,
    measuredPower = 1,
    stc = 2,
    stcPower = 3,
    nominal = 4,
    nominalPower = 5
};

/// A curve: points of voltage and current (or power) with its maxima.
class CurveTrace
{
public:
    CurveTrace() = default;
    explicit CurveTrace(TraceKind traceKind) : kind(traceKind) {}
    CurveTrace(const CurveTrace &other);
    CurveTrace &operator=(const CurveTrace &other);
    ~CurveTrace() = default;

    /// Exchanges the contents; the points of each belong to their new trace afterwards.
    void swap(CurveTrace &other);

    /// Appends a point and takes it into the maxima. An irradiance of 0 is none.
    void addPoint(double v, double i, double g, int tag);
    /// Appends a point for each one of another curve, where `position` puts it, at the irradiance of that
    /// one.
    template <typename Position> void addPointsOf(const CurveTrace &source, Position position)
    {
        const int first = size();
        points.resize(first + source.size());
        QPointF *place = points.data() + first;
        for (const TracePoint &point : source.refs)
            *place++ = position(point);
        adopt(source.refs);
    }
    /// Makes room for a number of points at once.
    void reserve(int count);
    /// Back to the start values, with the same kind and no points.
    void reset();

    int size() const { return points.size(); }
    bool isEmpty() const { return points.isEmpty(); }

    double maxV = 0.0;
    double maxI = 0.0;
    double firstIrradiance = 1000.0;
    int mppIndex = -1;
    TraceKind kind = TraceKind::measured;
    QVector<QPointF> points;
    std::vector<TracePoint> refs;
    double minIrradiance = 0.0;
    double maxIrradiance = 0.0;

private:
    /// Gives points that have none yet companions like those of another curve, without their tags.
    void adopt(const std::vector<TracePoint> &companions);
    /// Takes the points from a place on into the maxima.
    void takeInFrom(int first);
    void takeInIrradianceFrom(int first);
    void own();
};

} // namespace IVCurve
