#pragma once

#include <QColor>
#include <QString>
#include <QVariant>

namespace IVCurve {

/// Bits of the status word of a string. The others are the tester's own.
enum StatusBit : quint32
{
    ChecksumFailed = 0x01,
    ChecksumIgnored = 0x40,
    IrradianceVaried = 0x80,
    NoIrradiance = 0x4000000,
    NoCellTemperature = 0x8000000
};

/// What a status word warns of; empty when it warns of nothing or is no number.
QString statusText(const QVariant &status);

/// The colour of the text of a string with this status; invalid for the usual one.
QColor statusColour(const QVariant &status);

/// A stored date, ISO or in the form of older files, as the default locale writes it. Empty if it is none.
QString shownDate(const QString &stored);

} // namespace IVCurve
