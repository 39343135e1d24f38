#pragma once

#include <QString>
#include <QVariant>

/// A small catalogue of modules for tests of the dialogs, and what is stored in it.
namespace ModuleSample {

/// Of the names, "Polaris 230" comes first and "Zenith 400" last.
constexpr unsigned polaris = 7;
/// A favourite.
constexpr unsigned sunrise = 3;
/// The user's own, and a favourite.
constexpr unsigned userModule = 5;
/// Its ratings are zero.
constexpr unsigned zenith = 2;

/// Puts the catalogue in place and opens it.
void write();
/// A value of a stored module, which is read by a connection of its own.
QVariant stored(unsigned id, const QString &column);
/// The names in the order in which they are listed.
QStringList names();

} // namespace ModuleSample
