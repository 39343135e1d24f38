#pragma once

#include <QUndoCommand>

class GraphicsTextItem;

/// One step of a text document's own undo history.
class ReportTextCommand : public QUndoCommand
{
public:
    explicit ReportTextCommand(GraphicsTextItem *item);

    void undo() override;
    void redo() override;

private:
    GraphicsTextItem *m_item;
};
