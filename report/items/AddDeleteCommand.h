#pragma once

#include <QPointer>
#include <QUndoCommand>

class AbstractReportItem;

/// The adding of an item to a page, or its deletion. The item is only shown and hidden; it leaves the
/// scene when the report is saved. The command that added an item owns it.
class AddDeleteCommand : public QUndoCommand
{
public:
    AddDeleteCommand(AbstractReportItem *item, bool isAdd);
    ~AddDeleteCommand() override;

    void undo() override;
    void redo() override;

    /// Null once the item is gone.
    AbstractReportItem *item() const;
    bool isAdd() const { return m_isAdd; }

private:
    QPointer<AbstractReportItem> m_item;
    bool m_isAdd;
};
