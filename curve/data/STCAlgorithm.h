#pragma once

#include "curve/data/TracePoint.h"

#include <QPointF>

#include <optional>

namespace IVCurve {

/// Translates measured points to standard test conditions. One object serves one curve: points must be fed
/// in the order in which they were measured.
class STCAlgorithm
{
public:
    STCAlgorithm() = default;
    STCAlgorithm(const STCAlgorithm &) = delete;
    STCAlgorithm &operator=(const STCAlgorithm &) = delete;

    /// The corrected voltage and current of a point.
    virtual QPointF correct(const TracePoint &point) = 0;
    virtual ~STCAlgorithm();

protected:
    /// The number, or `otherwise` where it is missing or 0.
    static double usable(const std::optional<double> &value, double otherwise);

    /// Standard test conditions: irradiance in W/m2 and temperature in degrees Celsius.
    double G0 = 1000.0;
    double T0 = 25.0;
};

/// True for 0 of either sign alone; what is no number is not zero.
inline bool isExactlyZero(double value)
{
    return value == 0.0;
}

} // namespace IVCurve
