#pragma once

#include <QDialog>
#include <QModelIndexList>

#include <memory>

class CsvResultsModel;
class CsvResultsTestTypeDelegate;
class QItemSelectionModel;

namespace Ui {
class DialogImportResults;
}

/// Shows the rows of a tester's results file and sends those that the user picks on their way. It stays
/// open beside the main window while the user changes from one report to another.
class DialogImportResults : public QDialog
{
    Q_OBJECT

public:
    explicit DialogImportResults(QWidget *parent = nullptr);
    ~DialogImportResults() override;

    /// Shows the contents of another file. Tells the user and returns false when it cannot be read; what
    /// was shown before then stays.
    bool setFile(const QString &path);

    /// The rows shown; the dialog keeps the model for its life.
    CsvResultsModel *model() const { return m_model; }

signals:
    /// The user wants these rows in the active report: one index for each row.
    void importRow(QModelIndexList rows);

private:
    void sendSelectedRows();
    void sendRow(const QModelIndex &index);
    void showTestTypes();

    std::unique_ptr<Ui::DialogImportResults> m_ui;
    CsvResultsModel *m_model;
    QItemSelectionModel *m_selection;
    CsvResultsTestTypeDelegate *m_testTypeDelegate;
    /// The column that the view has the delegate on; -1 if none.
    int m_delegateColumn = -1;
};
