#pragma once

#include "curve/data/StringHeader.h"

#include <QString>
#include <QStringList>

/// Strings as testers measure them on a roof, the same in every run.
namespace SampleCurves {

constexpr int stringCount = 1000;
constexpr int pointCount = 128;

/// The points of each string as a curve file holds them, without dips, each under an irradiance of its own.
const QStringList &texts();
/// What the tester told beside the points.
IVCurve::StringHeader header();
/// The strings as a tester's results file has them.
QByteArray testerFile();
/// Makes a curve file without strings; an earlier one at the path goes.
void writeEmptyFile(const QString &path);

} // namespace SampleCurves
