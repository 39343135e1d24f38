#pragma once

#include <QString>

namespace IVCurve {

/// How a string is translated to standard test conditions. The numbers are texts as the user wrote them
/// in the default locale, so that an empty or a half entry survives.
struct STCparameters
{
    enum Algorithm : quint8
    {
        BlaesserAlgorithm = 0,
        IEC60891Algorithm = 1,
        AndersonAlgorithm = 2
    };

    STCparameters();
    STCparameters(const STCparameters &) = default;
    STCparameters &operator=(const STCparameters &) = default;
    virtual ~STCparameters();

    /// Any other number than those above means Anderson, too.
    quint8 algorithm = AndersonAlgorithm;
    /// Blaesser's weight of the logarithm of the irradiance, and his coefficient per degree.
    QString a;
    QString b;
    /// Goes with the others, though no formula reads it.
    QString c;
    /// Coefficients of one module in A and V per degree.
    QString alpha;
    QString beta;
    /// Anderson's coefficient of the irradiance.
    QString delta;
    /// The curve correction factor of IEC 60891.
    QString K;
    /// Series resistance in ohms.
    QString Rs;
    /// Temperature in degrees Celsius and irradiance in W/m2 of the measurement.
    QString Tpv;
    QString G;
    /// Each point is corrected with its own irradiance.
    bool perPointIrradiance = false;
};

} // namespace IVCurve
