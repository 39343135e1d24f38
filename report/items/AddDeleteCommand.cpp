#include "report/items/AddDeleteCommand.h"

#include "report/items/AbstractReportItem.h"

AddDeleteCommand::AddDeleteCommand(AbstractReportItem *item, bool isAdd) : m_item(item), m_isAdd(isAdd) {}

AddDeleteCommand::~AddDeleteCommand()
{
    if (m_isAdd)
        delete m_item;
}

void AddDeleteCommand::undo()
{
    if (m_item)
        m_item->setVisible(!m_isAdd);
}

void AddDeleteCommand::redo()
{
    if (m_item)
        m_item->setVisible(m_isAdd);
}

AbstractReportItem *AddDeleteCommand::item() const
{
    return m_item;
}
