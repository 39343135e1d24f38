#pragma once

#include <QGraphicsItem>

/// Type numbers of the graphics items of a report, as QGraphicsItem::type() returns them.
enum ReportItemType
{
    ReportPageType = 0x10001,
    ReportTextType = 0x10002,
    ReportCheckBoxType = 0x10003,
    ReportSvgType = 0x10004,
    ReportTableType = 0x10005,
    ReportTableSetType = 0x10006,
    ReportTableCellType = 0x10007,
    ReportResizableImageType = 0x10008
};

/// True for items that stand in a report file, false for helper children such as text editors.
inline bool isReportItem(const QGraphicsItem *item)
{
    return item && item->type() > 0x10000;
}
