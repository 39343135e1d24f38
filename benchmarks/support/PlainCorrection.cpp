#include "benchmarks/support/PlainCorrection.h"

#include <QLocale>

#include <cmath>

namespace PlainCorrection {

namespace {

double parsed(const QString &text)
{
    return QLocale().toDouble(text);
}

/// Room for a curve of as many points as were measured.
PlainCurve emptyCurve(const IVCurve::StringRecord &record)
{
    PlainCurve curve;
    curve.points.reserve(record.measuredCurve().refs.size());
    curve.companions.reserve(record.measuredCurve().refs.size());
    return curve;
}

} // namespace

PlainCurve byBlaesser(const IVCurve::StringRecord &record)
{
    const IVCurve::CurveTrace &measured = record.measuredCurve();
    PlainCurve curve = emptyCurve(record);
    const double dT = 25 - parsed(record.header().ambientTemp);
    const double G = parsed(record.header().irradiance);
    const double Voc = parsed(record.header().voc);
    const double cI = (dT * parsed(record.settings().alpha) / parsed(record.header().isc) + 1) * 1000 / G;
    const double cV = std::log(1000 / G) * parsed(record.settings().a) + parsed(record.settings().b) * dT;
    const double Rs = parsed(record.settings().Rs);
    for (const IVCurve::TracePoint &point : measured.refs) {
        const QPointF &position = measured.points.at(point.index);
        const double I = cI * position.y();
        curve.add((position.y() - I) * Rs + cV * Voc + position.x(), I, point.irradiance);
    }
    return curve;
}

PlainCurve byIEC60891(const IVCurve::StringRecord &record)
{
    const IVCurve::CurveTrace &measured = record.measuredCurve();
    PlainCurve curve = emptyCurve(record);
    const double dT = 25 - parsed(record.header().cellTemp);
    double G = parsed(record.header().irradiance);
    const double alpha = parsed(record.settings().alpha);
    const double beta = parsed(record.settings().beta);
    const double Rs = parsed(record.settings().Rs);
    const double K = parsed(record.settings().K);
    const double isc = measured.points.constFirst().y();
    for (const IVCurve::TracePoint &point : measured.refs) {
        if (point.irradiance > 0)
            G = point.irradiance;
        const QPointF &position = measured.points.at(point.index);
        const double I = position.y() + alpha * dT + G / measured.firstIrradiance * isc * (1000 / G - 1);
        const double V = position.x() + beta * dT - Rs * (I - position.y()) - K * I * dT;
        curve.add(V, I, point.irradiance);
    }
    return curve;
}

PlainCurve byAnderson(const IVCurve::StringRecord &record)
{
    const IVCurve::CurveTrace &measured = record.measuredCurve();
    PlainCurve curve = emptyCurve(record);
    const double dT = parsed(record.header().cellTemp) - 25;
    double G = parsed(record.header().irradiance);
    const double alpha = parsed(record.settings().alpha);
    const double beta = parsed(record.settings().beta);
    const double delta = parsed(record.settings().delta);
    const double isc = measured.points.constFirst().y();
    for (const IVCurve::TracePoint &point : measured.refs) {
        if (point.irradiance > 0)
            G = point.irradiance;
        const double f = (dT * alpha / (1000 / G * isc) + 1) * G / 1000;
        const double h = (delta * std::log(G / 1000) + 1) * (dT * beta / measured.maxV + 1);
        const QPointF &position = measured.points.at(point.index);
        curve.add(position.x() / h, position.y() / f, point.irradiance);
    }
    return curve;
}

} // namespace PlainCorrection
