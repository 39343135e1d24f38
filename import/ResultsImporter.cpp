#include "import/ResultsImporter.h"

#include "import/CsvResultsModel.h"
#include "import/ImportStatusMessage.h"
#include "import/ResultsImporterCommand.h"
#include "import/TesterTestType.h"
#include "report/GraphicalReportDocument.h"
#include "report/ReportScene.h"
#include "report/items/ReportTable.h"
#include "report/items/ReportTableCell.h"

#include <QUndoStack>

#include <algorithm>
#include <memory>

namespace {

const QLatin1String commentsId("comments");
const QLatin1String instrumentsId("test_instruments");
const QLatin1String positiveInsulationId("Riso (MOhm)");
const QLatin1String negativeInsulationId("-Riso (MOhm)");
const QLatin1String dateId("DD/MM/YYYY");

/// Columns that tell nothing to the reader of a report.
constexpr const char *technicalColumns[] = {"TestType", "IVCurve", "StatusCode", "Checksum"};

bool isTechnical(const QString &name)
{
    return std::any_of(std::begin(technicalColumns), std::end(technicalColumns),
                       [&name](const char *column) { return name == QLatin1String(column); });
}

bool is(unsigned testType, TesterTestType type)
{
    return testType == static_cast<unsigned>(type);
}

} // namespace

ResultsImporter::ResultsImporter(GraphicalReportDocument *document, CsvResultsModel *model)
    : m_document(document), m_model(model), m_comments(textById(commentsId))
{
    for (int column = 0; column < m_model->columnCount(); ++column)
        mapColumn(column);
    // Files have one insulation column for both signs, so that the second cell is not met above.
    if (!m_negativeCell)
        m_negativeCell = cellById(negativeInsulationId);
    if (!m_positiveCell)
        m_positiveCell = cellById(positiveInsulationId);
}

int ResultsImporter::importRows(const QModelIndexList &rows)
{
    if (m_cellsByColumn.isEmpty())
        return NowhereToInsert;
    if (!rowsAreValid(rows))
        return InvalidRow;

    auto command = std::make_unique<ResultsImporterCommand>();
    for (auto table = m_tables.begin(); table != m_tables.end(); ++table) {
        const int reportColumn = table.key()->firstEmptyColumn(gridRows(table.key()));
        if (reportColumn < 0)
            return NoRoom;
        *table = reportColumn;
        Insulation state;
        for (const QModelIndex &index : rows) {
            const int row = index.row();
            chooseInsulationCell(testType(row));
            recordCells(table.key(), reportColumn, row, state, *command);
            recordInstrument(*command);
            recordTexts(row, *command);
            recordComments(row, *command);
        }
    }
    m_document->scene()->undoStack()->push(command.release());
    return Imported;
}

QString ResultsImporter::columnName(int column) const
{
    return m_model->headerData(column, Qt::Horizontal).toString().trimmed();
}

QString ResultsImporter::value(int row, int column) const
{
    return m_model->data(m_model->index(row, column)).toString();
}

ReportTableCell *ResultsImporter::cellById(const QString &id) const
{
    return qobject_cast<ReportTableCell *>(m_document->scene()->itemById(id));
}

ReportText *ResultsImporter::textById(const QString &id) const
{
    return qobject_cast<ReportText *>(m_document->scene()->itemById(id));
}

void ResultsImporter::mapColumn(int column)
{
    const QString name = columnName(column);
    if (AbstractReportItem *item = m_document->scene()->itemById(name))
        mapColumnToItem(column, name, item);
    else if (m_comments && !isTechnical(name))
        m_commentColumns.append(column);
}

void ResultsImporter::mapColumnToItem(int column, const QString &name, AbstractReportItem *item)
{
    auto *cell = qobject_cast<ReportTableCell *>(item);
    if (name == positiveInsulationId) {
        m_insulationColumn = column;
        m_positiveCell = cell;
    } else if (name == negativeInsulationId) {
        m_negativeCell = cell;
    } else if (name == dateId) {
        // Strings can be tested on different days, and the date's own field holds one only.
        m_commentColumns.append(column);
    }

    if (cell) {
        m_cellsByColumn.insert(column, cell);
        m_tables.insert(ReportTable::of(cell), 0);
    } else if (auto *text = qobject_cast<ReportText *>(item)) {
        m_textsByColumn.insert(column, text);
    }
}

bool ResultsImporter::rowsAreValid(const QModelIndexList &rows) const
{
    const int count = m_model->rowCount();
    return std::all_of(rows.cbegin(), rows.cend(),
                       [count](const QModelIndex &index) { return index.row() >= 0 && index.row() < count; });
}

QList<int> ResultsImporter::gridRows(const ReportTable *table) const
{
    QList<int> rows;
    for (const ReportTableCell *cell : m_cellsByColumn) {
        if (cell && ReportTable::of(cell) == table)
            rows.append(cell->row());
    }
    return rows;
}

void ResultsImporter::chooseInsulationCell(unsigned testType)
{
    const auto entry = m_cellsByColumn.find(m_insulationColumn);
    // An older form has no row for the negative sign: then the entry holds no cell for a while.
    if (entry != m_cellsByColumn.end())
        *entry = is(testType, TesterTestType::NegativeEarthInsulation) ? m_negativeCell : m_positiveCell;
}

void ResultsImporter::recordCells(ReportTable *table, int reportColumn, int row, Insulation &state,
                                  ResultsImporterCommand &command) const
{
    for (auto entry = m_cellsByColumn.cbegin(); entry != m_cellsByColumn.cend(); ++entry) {
        const ReportTableCell *heading = entry.value();
        if (!heading || ReportTable::of(heading) != table)
            continue;
        const QString text = value(row, entry.key());
        ReportTableCell *target = text.isEmpty() ? nullptr : table->cellAt(reportColumn, heading->row());
        if (!target)
            continue;
        if (entry.key() == m_insulationColumn)
            recordInsulation(target, text, testType(row), state, command);
        else
            command.setCellValue(target, text);
    }
}

void ResultsImporter::recordInsulation(ReportTableCell *target, const QString &value, unsigned testType,
                                       Insulation &state, ResultsImporterCommand &command) const
{
    // The first test made for a sign settles its value; what came along with other tests gives way to it.
    if (m_positiveCell && target->row() == m_positiveCell->row() && state.positiveFree) {
        command.setCellValue(target, value);
        state.positiveFree = !is(testType, TesterTestType::PositiveEarthInsulation);
    }
    if (m_negativeCell && target->row() == m_negativeCell->row() && state.negativeFree) {
        command.setCellValue(target, value);
        state.negativeFree = !is(testType, TesterTestType::NegativeEarthInsulation);
    }
}

void ResultsImporter::recordInstrument(ResultsImporterCommand &command) const
{
    ReportText *instruments = textById(instrumentsId);
    if (!instruments)
        return;
    const QString before = instruments->plainText();
    const QString serialNumber = m_model->serialNumber();
    if (before.contains(serialNumber))
        return;
    const QString separator = before.isEmpty() ? QString() : QStringLiteral(", ");
    command.setTextChange(instruments, before, before + separator + serialNumber);
}

void ResultsImporter::recordTexts(int row, ResultsImporterCommand &command) const
{
    for (auto entry = m_textsByColumn.cbegin(); entry != m_textsByColumn.cend(); ++entry)
        command.setTextChange(entry.value(), entry.value()->plainText(), value(row, entry.key()));
}

void ResultsImporter::recordComments(int row, ResultsImporterCommand &command) const
{
    if (!m_comments)
        return;
    QString line;
    for (const int column : m_commentColumns) {
        const QString text = value(row, column);
        if (!text.isEmpty())
            line += QStringLiteral("%1=%2; ").arg(columnName(column), text);
    }
    // Each row starts from the text as it stands, so that of several rows the last one's line is added.
    const QString before = m_comments->plainText();
    if (!line.isEmpty())
        command.setTextChange(m_comments, before, before + line + QLatin1Char('\n'));
}

unsigned ResultsImporter::testType(int row) const
{
    return m_model->testTypeColumn() < 0 ? 0 : m_model->testType(m_model->index(row, 0));
}
