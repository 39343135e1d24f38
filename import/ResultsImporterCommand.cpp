#include "import/ResultsImporterCommand.h"

#include "report/items/ReportTableCell.h"

void ResultsImporterCommand::setCellValue(ReportTableCell *cell, const QString &value)
{
    m_cellValues.insert(cell, value);
}

void ResultsImporterCommand::setTextChange(ReportText *item, const QString &before, const QString &after)
{
    m_textChanges.insert(item, {before, after});
}

void ResultsImporterCommand::undo()
{
    // Only empty cells are ever filled.
    for (auto cell = m_cellValues.cbegin(); cell != m_cellValues.cend(); ++cell)
        cell.key()->setPlainText(QString());
    for (auto item = m_textChanges.cbegin(); item != m_textChanges.cend(); ++item)
        item.key()->setPlainText(item.value().first);
}

void ResultsImporterCommand::redo()
{
    for (auto cell = m_cellValues.cbegin(); cell != m_cellValues.cend(); ++cell)
        cell.key()->setPlainText(cell.value());
    for (auto item = m_textChanges.cbegin(); item != m_textChanges.cend(); ++item)
        item.key()->setPlainText(item.value().second);
}
