#include "curve/ui/CurveModulesDlg.h"

#include "app/core/Messages.h"
#include "app/core/WaitCursor.h"
#include "curve/data/ModuleDatabase.h"
#include "curve/ui/CurveModulesEditDlg.h"
#include "ui_CurveModulesDlg.h"

#include <optional>

namespace IVCurve {

namespace {

QTableWidgetItem *itemOf(const CurveModuleRow &row)
{
    auto *item = new QTableWidgetItem(row.Description.toString());
    item->setData(Qt::UserRole, row.id);
    return item;
}

/// The id of the module that an item stands for; nothing if it stands for none.
std::optional<quint32> idOf(const QTableWidgetItem *item)
{
    bool isNumber = false;
    const quint32 id = item ? item->data(Qt::UserRole).toUInt(&isNumber) : 0;
    return isNumber ? std::make_optional(id) : std::nullopt;
}

} // namespace

CurveModulesDlg::CurveModulesDlg(QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::CurveModulesDlg>())
{
    m_ui->setupUi(this);
    connect(m_ui->btnAdd, &QAbstractButton::clicked, this, &CurveModulesDlg::clickAdd);
    connect(m_ui->btnEdit, &QAbstractButton::clicked, this, &CurveModulesDlg::clickEdit);
    connect(m_ui->btnCopy, &QAbstractButton::clicked, this, &CurveModulesDlg::clickCopy);
    connect(m_ui->btnDelete, &QAbstractButton::clicked, this, &CurveModulesDlg::clickDelete);
    connect(m_ui->tableModules, &QTableWidget::cellDoubleClicked, this, &CurveModulesDlg::dblclickModules);
    connect(m_ui->btnClose, &QAbstractButton::clicked, this, &QDialog::reject);
    fillTable();
}

CurveModulesDlg::~CurveModulesDlg() = default;

void CurveModulesDlg::fillTable()
{
    const ModuleTable *modules = ModuleDatabase::instance().table();
    if (!modules)
        return;
    const WaitCursor cursor;
    QVector<CurveModuleRow> rows;
    if (!modules->allRows(rows))
        return;
    QTableWidget *table = m_ui->tableModules;
    table->clear();
    table->setRowCount(rows.size());
    table->setColumnCount(1);
    for (int i = 0; i < rows.size(); ++i)
        table->setItem(i, 0, itemOf(rows.at(i)));
}

void CurveModulesDlg::insertTableRow(int tableRow, const CurveModuleRow &row)
{
    QTableWidget *table = m_ui->tableModules;
    QTableWidgetItem *item = itemOf(row);
    table->setColumnCount(1);
    table->insertRow(tableRow);
    table->setItem(tableRow, 0, item);
    table->scrollToItem(item);
}

void CurveModulesDlg::clickAdd()
{
    CurveModulesEditDlg editor(0, CurveModulesEditDlg::NewModule, this);
    if (editor.exec() == QDialog::Accepted)
        insertTableRow(m_ui->tableModules->rowCount(), *editor.row());
}

void CurveModulesDlg::clickEdit()
{
    QTableWidgetItem *item = m_ui->tableModules->currentItem();
    const auto id = idOf(item);
    if (!id)
        return;
    CurveModulesEditDlg editor(*id, CurveModulesEditDlg::StoredModule, this);
    editor.exec();
    if (editor.row())
        item->setText(editor.row()->Description.toString());
}

void CurveModulesDlg::clickCopy()
{
    const QTableWidgetItem *item = m_ui->tableModules->currentItem();
    const auto id = idOf(item);
    ModuleTable *modules = id ? ModuleDatabase::instance().table() : nullptr;
    const auto row = modules ? modules->row(*id) : nullptr;
    if (!row)
        return;
    row->Description = row->Description.toString() + tr(" (Copy)");
    row->UserModule = 1;
    row->id = modules->insert(*row);
    insertTableRow(item->row() + 1, *row);
}

void CurveModulesDlg::clickDelete()
{
    const QList<QTableWidgetItem *> items = m_ui->tableModules->selectedItems();
    for (QTableWidgetItem *item : items)
        deleteModule(item);
}

void CurveModulesDlg::deleteModule(QTableWidgetItem *item)
{
    const auto id = idOf(item);
    ModuleTable *modules = id ? ModuleDatabase::instance().table() : nullptr;
    const auto row = modules ? modules->row(*id) : nullptr;
    if (!row)
        return;
    if (!row->UserModule.toBool()) {
        Message question;
        question.parent = this;
        question.icon = QMessageBox::Information;
        question.title = tr("Kelmar");
        question.text =
            tr("Deleting a preloaded module.\n%1\nDo you wish to continue?").arg(row->Description.toString());
        question.buttons = QMessageBox::Ok | QMessageBox::Cancel;
        if (showMessage(question).button != QMessageBox::Ok)
            return;
    }
    if (modules->remove(*id))
        m_ui->tableModules->removeRow(item->row());
}

void CurveModulesDlg::dblclickModules(int row, int column)
{
    Q_UNUSED(row)
    Q_UNUSED(column)
    clickEdit();
}

} // namespace IVCurve
