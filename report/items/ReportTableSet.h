#pragma once

#include "report/items/AbstractReportItem.h"

/// A whole column or row of a table: its size, and the style that its cells inherit.
class ReportTableSet : public AbstractReportItem
{
    Q_OBJECT

public:
    enum
    {
        Type = ReportTableSetType
    };

    explicit ReportTableSet(QGraphicsItem *parent);

    int type() const override;
    const QString &elementName() const override;
    bool writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries) override;
    bool readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries) override;

    int col() const { return m_col; }
    void setCol(int col) { m_col = col; }
    int row() const { return m_row; }
    void setRow(int row) { m_row = row; }
    double size() const { return m_size; }
    void setSize(double size) { m_size = size; }
    /// Offset of the column or row in its table.
    double position() const { return m_position; }
    void setPosition(double position) { m_position = position; }
    /// True for a set that no element described. It has no style of its own and is not written.
    bool isImplicit() const { return m_implicit; }

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    int m_col = -1;
    int m_row = -1;
    double m_size = 0.0;
    double m_position = 0.0;
    bool m_implicit = true;
};
