#pragma once

class AbstractReportItem;
class QGraphicsItem;
class QString;

/// Makes the item of a tag that stands on a page or is one. Null for other tags; cells and sets are made
/// by their table.
AbstractReportItem *createReportItem(const QString &tag, QGraphicsItem *parent);
