#include "report/items/ReportItemHost.h"

#include <QGraphicsItem>
#include <QGraphicsScene>

ReportItemHost *ReportItemHost::of(const QGraphicsItem *item)
{
    return dynamic_cast<ReportItemHost *>(item->scene());
}
