#pragma once

#include "app/batch/BatchCommands.h"

/// Adds the modules of a public module table to the catalogue, all or none, as preloaded ones. Tells of each
/// line that gives no module.
BatchExit importModules(const QString &table);

/// Takes a tester's results file into a curve file and saves its tree. With `makeNew` the curve file is made
/// from the empty one; one that exists is then overwritten by `force` only.
BatchExit importCurves(const QString &resultsFile, const QString &curveFile, bool makeNew, bool force);

/// Prints where catalogue and favourites lie.
BatchExit printDataFolder();
