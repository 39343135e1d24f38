#pragma once

#include "curve/data/StringRecord.h"

#include <QPointF>

#include <vector>

/// A curve as a plain program keeps it: points, and beside each its companion.
struct PlainCurve
{
    struct Companion
    {
        const void *owner;
        int index;
        double irradiance;
        int tag;
    };

    void add(double v, double i, double g)
    {
        companions.push_back({&points, static_cast<int>(points.size()), g, 0});
        points.push_back({v, i});
    }

    std::vector<QPointF> points;
    std::vector<Companion> companions;
};

/// The least that a correction of curves can cost: the texts of a string parsed once, the published formula
/// in a loop over its points, each stored with its companion. No highest values are sought, and what may go
/// wrong is not looked at.
namespace PlainCorrection {

PlainCurve byBlaesser(const IVCurve::StringRecord &record);
PlainCurve byIEC60891(const IVCurve::StringRecord &record);
PlainCurve byAnderson(const IVCurve::StringRecord &record);

} // namespace PlainCorrection
