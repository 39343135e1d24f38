#pragma once

#include <QString>

/// Leaves of the tests that were imported into a curve file those with curves, names them and their folder,
/// and gives them their modules of the catalogue. Throws SampleError.
///
/// The first line of the table is "folder" and its name, each further one "string", the number of modules in
/// series, the module's name in the catalogue, and the name of the string in English and German.
void sortCurves(const QString &path, const QString &table, bool german);
