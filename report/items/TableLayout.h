#pragma once

#include <QVector>

#include <optional>

/// Sizes and places of a grid's columns, or of its rows.
namespace TableLayout {

/// One column or row.
struct Track
{
    double size = 0.0;
    double position = 0.0;
};

/// Lays out the columns of a table of the width `extent`, or its rows, from the sizes that are described;
/// the others, and those of size 0, share what remains equally.
QVector<Track> tracks(const QVector<std::optional<double>> &described, double extent);

/// One cell as the choice of a column for new values sees it.
struct Entry
{
    int col = 0;
    int row = 0;
    bool isEmpty = true;
};

/// The column behind the last one that has text in one of `rows`; -1 if there is none. With no cells at
/// all it is 0.
int firstEmptyColumn(const QVector<Entry> &entries, const QVector<int> &rows, int columnCount);

/// True for a grid that a table is made for. Forms have a few hundred positions; each costs memory.
bool isAcceptableGrid(int columnCount, int rowCount);

} // namespace TableLayout
