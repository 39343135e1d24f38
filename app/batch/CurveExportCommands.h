#pragma once

#include "app/batch/BatchCommands.h"
#include "app/batch/StringSelection.h"
#include "curve/ui/PointExport.h"

/// The kind of points that "meas", "pwr", "stc" or "stcpwr" names; nothing for another text.
std::optional<IVCurve::PointExport::Kind> parsePointKind(const QString &text);

/// Writes the report on strings of a curve file, with their graph, as a PDF.
BatchExit writeCurveReport(const QString &curveFile, const QString &pdf, const StringSelection &strings,
                           bool force);

/// Writes the points of strings of a curve file to one file for each in a folder. Nothing is written unless
/// all of the files may be.
BatchExit exportPoints(const QString &curveFile, IVCurve::PointExport::Kind kind,
                       const StringSelection &strings, const QString &folder, bool force);
