#pragma once

#include "curve/data/CurveModuleRow.h"

#include <QByteArray>
#include <QString>
#include <QVector>

namespace IVCurve {

/// A line of a module table that gives no module, and why.
struct SkippedModule
{
    /// Counted from 1.
    int line = 0;
    QString name;
    QString reason;
};

/// The public table of modules that tools for modelling solar systems share, as comma-separated text. Columns
/// are found by name; lines of units and of variable names may follow the names.
struct ModuleCsv
{
    static ModuleCsv parse(const QByteArray &bytes);

    /// Names of columns that are missing: without one of them nothing is read.
    QStringList missingColumns;
    /// Preloaded modules, none of them a favourite.
    QVector<CurveModuleRow> modules;
    QVector<SkippedModule> skipped;
};

} // namespace IVCurve
