#pragma once

#include <QString>

/// Writes a report as it is made from the form that the path's suffix stands for.
void writePristineReport(const QString &path);

/// Writes such a report in which every field and every cell of a table that can be filled in is.
void writeFilledReport(const QString &path);
