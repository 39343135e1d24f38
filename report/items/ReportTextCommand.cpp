#include "report/items/ReportTextCommand.h"

#include "report/items/GraphicsTextItem.h"

ReportTextCommand::ReportTextCommand(GraphicsTextItem *item) : m_item(item) {}

void ReportTextCommand::undo()
{
    m_item->undoStep();
}

void ReportTextCommand::redo()
{
    // When the command is pushed there is nothing to redo in the document, so this does nothing then.
    m_item->redoStep();
}
