#pragma once

#include "report/items/ReportText.h"

class ReportTableGrid;

/// A cell of a table. It can span columns and rows.
class ReportTableCell : public ReportText
{
    Q_OBJECT

public:
    enum
    {
        Type = ReportTableCellType
    };

    /// A cell of `grid`, which is the table that `parent` points to.
    ReportTableCell(ReportTableGrid *grid, QGraphicsItem *parent);

    int type() const override;
    const QString &elementName() const override;
    bool writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries) override;
    bool readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries) override;
    AbstractReportItem *parentReportItem() const override;

    /// Makes the cell one that no element described: it fills a position of the grid.
    void readFiller(int col, int row);

    int col() const { return m_col; }
    int row() const { return m_row; }
    int colspan() const { return m_colspan; }
    int rowspan() const { return m_rowspan; }
    bool isFiller() const { return m_filler; }

    /// Edits the cell in place, if it is editable: with a text for the content, or with all selected.
    void startEditing(const QString &initial);

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

public slots:
    void requestMove(int columns, int rows);

protected:
    void updateBounds() override;
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;

private:
    bool readFromSets(const QDomElement &element, const ReportFileEntries &entries);
    void layOut();

    ReportTableGrid *m_grid;
    int m_col = 0;
    int m_row = 0;
    QRectF m_drawnRect;
    QRectF m_boundingRect;
    int m_colspan = 1;
    int m_rowspan = 1;
    bool m_filler = false;
};
