#pragma once

#include <QList>
#include <QMap>
#include <QModelIndexList>
#include <QString>

class AbstractReportItem;
class CsvResultsModel;
class GraphicalReportDocument;
class ReportScene;
class ReportTable;
class ReportTableCell;
class ReportText;
class ResultsImporterCommand;

/// Writes rows of a results file into a report. The report's form says where each value goes: a cell or
/// text whose id is the name of a column takes that column. Made anew for each import.
class ResultsImporter
{
public:
    /// Finds the places in the report for the columns of the file.
    ResultsImporter(GraphicalReportDocument *document, CsvResultsModel *model);

    /// Writes rows, one index each, into the first free column of the report's table as one step that can
    /// be undone. Returns an ImportStatus; nothing has changed unless it is Imported.
    int importRows(const QModelIndexList &rows);

private:
    /// Which of the two insulation values of a report column may still be written.
    struct Insulation
    {
        bool positiveFree = true;
        bool negativeFree = true;
    };

    QString columnName(int column) const;
    QString value(int row, int column) const;
    ReportTableCell *cellById(const QString &id) const;
    ReportText *textById(const QString &id) const;
    void mapColumn(int column);
    void mapColumnToItem(int column, const QString &name, AbstractReportItem *item);

    bool rowsAreValid(const QModelIndexList &rows) const;
    QList<int> gridRows(const ReportTable *table) const;
    void chooseInsulationCell(unsigned testType);
    void recordCells(ReportTable *table, int reportColumn, int row, Insulation &state,
                     ResultsImporterCommand &command) const;
    void recordInsulation(ReportTableCell *target, const QString &value, unsigned testType, Insulation &state,
                          ResultsImporterCommand &command) const;
    void recordInstrument(ResultsImporterCommand &command) const;
    void recordTexts(int row, ResultsImporterCommand &command) const;
    void recordComments(int row, ResultsImporterCommand &command) const;
    unsigned testType(int row) const;

    GraphicalReportDocument *m_document;
    CsvResultsModel *m_model;
    /// For each column of the file the heading of the report row that takes it.
    QMap<int, ReportTableCell *> m_cellsByColumn;
    QMap<int, ReportText *> m_textsByColumn;
    /// Every table met, with the column being filled.
    QMap<ReportTable *, int> m_tables;
    QList<int> m_commentColumns;
    ReportText *m_comments = nullptr;
    int m_insulationColumn = -1;
    ReportTableCell *m_positiveCell = nullptr;
    ReportTableCell *m_negativeCell = nullptr;
};
