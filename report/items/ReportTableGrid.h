#pragma once

class ReportTableCell;
class ReportTableSet;

/// What a cell needs of its table. The table implements it, so that cells do not know it.
class ReportTableGrid
{
public:
    virtual ~ReportTableGrid() = default;

    virtual int columnCount() const = 0;
    virtual int rowCount() const = 0;
    /// The set of a column; at or past the end the one that marks the table's right edge.
    virtual ReportTableSet *columnSet(int col) const = 0;
    /// The set of a row; at or past the end the one that marks the table's lower edge.
    virtual ReportTableSet *rowSet(int row) const = 0;
    virtual void setCurrentCell(ReportTableCell *cell) = 0;
    /// Moves the editing from a cell to the one so many columns and rows away, if there is one.
    virtual void moveCurrentCell(ReportTableCell *cell, int columns, int rows) = 0;
};
