#pragma once

#include "report/items/AbstractReportItem.h"
#include "report/items/ReportTableGrid.h"

#include <QMap>
#include <QVector>

/// A grid on a page. Columns and rows are sized and styled by its sets; the user moves through its cells
/// with the keyboard, as in a spreadsheet.
class ReportTable : public AbstractReportItem, public ReportTableGrid
{
    Q_OBJECT

public:
    enum
    {
        Type = ReportTableType
    };

    explicit ReportTable(QGraphicsItem *parent = nullptr);

    /// The table that a cell stands in.
    static ReportTable *of(const ReportTableCell *cell);

    int type() const override;
    const QString &elementName() const override;
    bool writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries) override;
    bool readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries) override;

    /// The cell that begins at a position of the grid, or null.
    ReportTableCell *cellAt(int col, int row) const;
    QList<ReportTableCell *> cells() const { return m_cells.values(); }
    /// Each cell by its id. All cells without one share the empty id; the last of them stands there.
    QMap<QString, ReportTableCell *> cellsById() const;
    /// The column behind the last one with text in one of `rows`; -1 if there is none left.
    int firstEmptyColumn(const QList<int> &rows) const;
    ReportTableCell *currentCell() const { return m_currentCell; }

    int columnCount() const override { return m_columnSets.size(); }
    int rowCount() const override { return m_rowSets.size(); }
    ReportTableSet *columnSet(int col) const override;
    ReportTableSet *rowSet(int row) const override;
    void setCurrentCell(ReportTableCell *cell) override;
    void moveCurrentCell(ReportTableCell *cell, int columns, int rows) override;

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;

private:
    static quint32 keyOf(int col, int row);
    void readSets(const QDomElement &element);
    void completeSets(QVector<ReportTableSet *> &sets, void (ReportTableSet::*setIndex)(int), double extent);
    void readCells(const QDomElement &element, const ReportFileEntries &entries);
    void addCell(ReportTableCell *cell);
    void overlayCells(const QDomElement &element, const ReportFileEntries &entries);
    bool focusCell(int col, int row);
    bool focusCellUnder(const QPointF &scenePosition);

    QRectF m_boundingRect;
    QRectF m_drawnRect;
    QVector<ReportTableSet *> m_columnSets;
    QVector<ReportTableSet *> m_rowSets;
    ReportTableSet *m_endColumnSet = nullptr;
    ReportTableSet *m_endRowSet = nullptr;
    ReportTableCell *m_currentCell = nullptr;
    /// By row and column, see keyOf().
    QMap<quint32, ReportTableCell *> m_cells;
};
