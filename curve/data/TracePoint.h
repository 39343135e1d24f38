#pragma once

#include <QPointF>
#include <QVector>

namespace IVCurve {

/// What belongs to one point of a curve beside voltage and current.
struct TracePoint
{
    /// The points of the curve that this one belongs to, and its place among them.
    const QVector<QPointF> *owner = nullptr;
    int index = 0;
    /// In W/m2; 0 where the tester gave none.
    double irradiance = 0.0;
    /// Carried along as the tester gave it.
    int tag = 0;

    /// Voltage in x, current in y.
    const QPointF &position() const { return owner->at(index); }
};

} // namespace IVCurve
