#pragma once

#include <QString>

namespace IVCurve {

/// What the tester told of a string beside its curve. Numbers stay texts of the default locale, so that
/// what the tester left empty stays empty on the screen, in the file and in the report.
struct StringHeader
{
    QString testerSerialNo;
    quint32 fileVersion = 0;
    /// Where the tester keeps the result.
    quint32 memLocation = 0;
    /// ISO date, or ISO date and time.
    QString testDate;
    QString name;
    QString irradiance;
    QString ambientTemp;
    QString cellTemp;
    QString voc;
    QString isc;
    QString riso;
    QString viso;
    QString iclamp;
    QString rpe;
    QString ff;
    QString vmp;
    QString imp;
    QString status;
    QString checksum;
};

} // namespace IVCurve
