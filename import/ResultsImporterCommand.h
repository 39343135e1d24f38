#pragma once

#include <QMap>
#include <QPair>
#include <QString>
#include <QUndoCommand>

class ReportTableCell;
class ReportText;

/// One import of results as a step that can be undone. It holds items of a scene that outlives it.
class ResultsImporterCommand : public QUndoCommand
{
public:
    /// The cell, which is empty now, gets a value. A later value for the same cell replaces it.
    void setCellValue(ReportTableCell *cell, const QString &value);
    /// The item's text changes from `before` to `after`. A later change of the same item replaces it.
    void setTextChange(ReportText *item, const QString &before, const QString &after);

    void undo() override;
    void redo() override;

private:
    QMap<ReportTableCell *, QString> m_cellValues;
    /// The old and the new text of each item.
    QMap<ReportText *, QPair<QString, QString>> m_textChanges;
};
