#include "import/DialogImportResults.h"

#include "app/core/Messages.h"
#include "import/CsvResultsModel.h"
#include "import/CsvResultsTestTypeDelegate.h"
#include "import/TesterTestType.h"
#include "ui_DialogImportResults.h"

#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QItemSelectionModel>

DialogImportResults::DialogImportResults(QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::DialogImportResults>())
    , m_model(new CsvResultsModel(this))
    , m_selection(new QItemSelectionModel(m_model, this))
    , m_testTypeDelegate(new CsvResultsTestTypeDelegate(this))
{
    m_ui->setupUi(this);
    m_ui->tableView->setModel(m_model);
    // The rows are told by the model; the table itself is called as its window is.
    m_ui->tableView->setAccessibleName(tr("Import Results"));
    m_ui->tableView->setSelectionModel(m_selection);
    // A file can have thousands of rows; those in sight are enough to find a good width.
    m_ui->tableView->horizontalHeader()->setResizeContentsPrecision(0);

    connect(m_ui->commandLinkButton, &QAbstractButton::clicked, this, &DialogImportResults::sendSelectedRows);
    connect(m_ui->tableView, &QAbstractItemView::doubleClicked, this, &DialogImportResults::sendRow);
}

DialogImportResults::~DialogImportResults() = default;

bool DialogImportResults::setFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Message message;
        message.parent = this;
        message.icon = QMessageBox::Warning;
        message.text = tr("Error opening %1 for reading.").arg(path);
        showMessage(message);
        return false;
    }
    setWindowTitle(tr("Import Results - %1").arg(QFileInfo(path).fileName()));
    const bool loaded = m_model->load(&file);
    showTestTypes();
    m_ui->tableView->resizeColumnsToContents();
    return loaded;
}

void DialogImportResults::sendSelectedRows()
{
    const QModelIndexList rows = m_selection->selectedRows(0);
    if (!rows.isEmpty())
        emit importRow(rows);
}

void DialogImportResults::sendRow(const QModelIndex &index)
{
    if (index.isValid())
        emit importRow({index});
}

void DialogImportResults::showTestTypes()
{
    QTableView *view = m_ui->tableView;
    const int column = m_model->testTypeColumn();
    if (m_delegateColumn >= 0)
        view->setItemDelegateForColumn(m_delegateColumn, nullptr);
    m_delegateColumn = column;
    if (column < 0)
        return;

    view->setItemDelegateForColumn(column, m_testTypeDelegate);
    // Every row of the positive sign shows at once that it can be turned into the other.
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QModelIndex index = m_model->index(row, column);
        const auto type = static_cast<TesterTestType>(m_model->testType(index));
        if (index.isValid() && type == TesterTestType::PositiveEarthInsulation)
            view->openPersistentEditor(index);
    }
}
