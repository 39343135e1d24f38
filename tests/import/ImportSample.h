#pragma once

#include "import/CsvResultsModel.h"
#include "report/GraphicalReportDocument.h"

#include <QByteArray>
#include <QModelIndexList>
#include <QString>
#include <QStringList>

class ReportTable;

/// Rows of results as the default locale's tester file, loaded into a model.
class SampleResults
{
public:
    /// A file with these column names and rows, each given with commas and decimal points; the status and
    /// the sum are added to each.
    SampleResults(const QByteArray &names, const QList<QByteArray> &rows,
                  const QByteArray &serialNumber = "4711-0815");

    CsvResultsModel *model() { return &m_model; }
    /// An index for each of these rows.
    QModelIndexList rows(const QList<int> &numbers) const;
    QModelIndexList allRows() const;
    /// A number as the file has it.
    static QString number(const QString &text);

private:
    CsvResultsModel m_model;
};

/// An open array test report, made of one of the program's own forms.
class SampleReport
{
public:
    /// `package` is the form's path below ":res/", `elements` what the user's file holds.
    explicit SampleReport(const QString &package = QStringLiteral("reports_en/kelatr_rev3.pak"),
                          const QByteArray &elements = QByteArray(),
                          const QString &fileName = QStringLiteral("report.kelatr"));
    /// A report made of a form at any path of the resources.
    static QString fileOf(const QString &formPath, const QByteArray &elements, const QString &fileName);

    GraphicalReportDocument *document() { return &m_document; }
    ReportTable *table(const char *id = "test_table") const;
    /// The text of a cell of the test table.
    QString cell(int col, int row) const;
    void setCell(int col, int row, const QString &text);
    /// The texts of a column's rows from "Voc (V)" to the earth continuity.
    QStringList measuredColumn(int col) const;
    QString text(const char *id) const;
    void setText(const char *id, const QString &text);
    /// Every text of the report, to tell whether anything has changed.
    QStringList everything() const;

private:
    GraphicalReportDocument m_document;
};

/// Rows of the test table in the array test report.
enum SampleRow
{
    VocRow = 12,
    IscRow = 13,
    IrradianceRow = 14,
    PolarityRow = 15,
    VoltageRow = 16,
    PositiveRow = 17,
    NegativeRow = 18,
    ContinuityRow = 19
};
