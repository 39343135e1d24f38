#pragma once

#include <QStringList>

class SourceTree;

/// The rules that hold the house up. Each returns one line for every breach.
namespace StructureRules {

/// Folders that include each other in a circle.
QStringList folderCycles(const SourceTree &tree);
/// Components (X.h + X.cpp) that include each other in a circle.
QStringList componentCycles(const SourceTree &tree);
/// Includes that go up, or sideways to a neighbour who is not to be known, and files on no floor.
QStringList floorBreaches(const SourceTree &tree);
/// Includes of files of the tree that are not written from the source root.
QStringList includesNotFromTheRoot(const SourceTree &tree);
/// connect() by the text of a signal or slot.
QStringList textConnects(const SourceTree &tree);
/// Files that open a message box.
QStringList filesThatOpenABox(const SourceTree &tree);
/// Sources that have outgrown their room.
QStringList longSources(const SourceTree &tree);

/// From how many lines on a .cpp is too long.
constexpr int tooManyLines = 600;

/// The figures of the tree, one line each.
QStringList scoreboard(const SourceTree &tree, const SourceTree &tests);

} // namespace StructureRules
