#pragma once

#include "report/items/AbstractReportItem.h"

class QGraphicsRectItem;

/// One sheet of a report. Pages stand one below the other.
class ReportPage : public AbstractReportItem
{
    Q_OBJECT

public:
    enum
    {
        Type = ReportPageType
    };

    explicit ReportPage(QGraphicsItem *parent = nullptr);

    int type() const override;
    const QString &elementName() const override;
    bool writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries) override;
    bool readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries) override;

    /// Counts from 1.
    int pageNumber() const { return m_pageNumber; }

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

protected:
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;

private:
    void addImage(const QPointF &scenePosition);

    QGraphicsRectItem *m_sheet;
    int m_pageNumber = 1;
};
