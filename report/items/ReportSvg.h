#pragma once

#include "report/items/AbstractReportItem.h"

class QGraphicsSvgItem;

/// The fixed vector background of a page.
class ReportSvg : public AbstractReportItem
{
    Q_OBJECT

public:
    enum
    {
        Type = ReportSvgType
    };

    explicit ReportSvg(QGraphicsItem *parent = nullptr);

    int type() const override;
    const QString &elementName() const override;
    bool writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries) override;
    bool readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries) override;

    QString file() const { return m_file; }
    int dpi() const { return m_dpi; }

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    void showFile();

    QGraphicsSvgItem *m_svgItem = nullptr;
    QString m_file;
    int m_dpi = 96;
    QRectF m_boundingRect;
};
