#pragma once

#include <QStringList>

/// What the trash of the test's user holds.
namespace Trash {

/// What is there now does not count any more.
void startEmpty();
/// The names of files and folders that can be taken out again, sorted.
QStringList names();

} // namespace Trash
