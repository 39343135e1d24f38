#pragma once

#include "curve/data/CurveModuleRow.h"

#include <QVector>

class QComboBox;

/// What the dialogs that offer modules of the catalogue have in common.
namespace IVCurve::ModuleList {

/// Whether the lists show the favourites only: one setting for all of them.
bool favouritesOnly();
void setFavouritesOnly(bool on);

/// The modules that a list shows, by name; none where they cannot be read. False if the catalogue is closed.
bool read(bool favouritesOnly, QVector<CurveModuleRow> &rows);

/// Appends a module to a list, with its id as the entry's data.
void append(QComboBox *list, const CurveModuleRow &row);

} // namespace IVCurve::ModuleList
