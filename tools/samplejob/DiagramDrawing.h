#pragma once

#include <QString>

/// Draws an installation diagram from a table, and saves it. Throws SampleError.
///
/// A line of the table is one of
///   a tag of a component, a name, x, y, x and y of the caption, its text in English and German
///   "string", a name, x, y, a count: so many panels in a row, wired, "NAME.1" and so on
///   "Single", "DC" or "AC", and two ends: a wire. An end is a name, a side and, if it is not in the middle,
///   the share of the side at which the wire ends.
void drawDiagram(const QString &path, const QString &table, bool german);
