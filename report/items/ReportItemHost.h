#pragma once

class AbstractReportItem;
class QGraphicsItem;
class QUndoStack;

/// What an item needs of the scene it stands in. The scene implements it, so that items do not know it.
class ReportItemHost
{
public:
    virtual ~ReportItemHost() = default;

    /// The scene of an item as host, or null when the item stands in none.
    static ReportItemHost *of(const QGraphicsItem *item);

    /// The undo stack that all edits of the report share.
    virtual QUndoStack *undoStack() const = 0;
    /// Connects the signals of an item that came into being after loading. Connecting twice does no harm.
    virtual void adopt(AbstractReportItem *item) = 0;
};
