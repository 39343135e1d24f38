#include "curve/ui/CurveModulesEditDlg.h"

#include "curve/data/ModuleDatabase.h"
#include "curve/ui/PercentEntry.h"
#include "ui_CurveModulesEditDlg.h"

namespace IVCurve {

CurveModulesEditDlg::CurveModulesEditDlg(unsigned moduleId, int mode, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::CurveModulesEditDlg>()), m_mode(mode)
{
    m_ui->setupUi(this);
    connect(m_ui->toggleFavourite, &QAbstractButton::toggled, this,
            &CurveModulesEditDlg::slotFavouriteToggled);
    connect(m_ui->btnAlphaPercent, &QAbstractButton::clicked, this,
            &CurveModulesEditDlg::slotAlphaPercentClicked);
    connect(m_ui->btnBetaPercent, &QAbstractButton::clicked, this,
            &CurveModulesEditDlg::slotBetaPercentClicked);

    if (m_mode == NewModule) {
        m_row = std::make_unique<CurveModuleRow>();
    } else if (moduleId != 0) {
        const ModuleTable *modules = ModuleDatabase::instance().table();
        m_row = modules ? modules->row(moduleId) : nullptr;
        if (m_row)
            showRow();
    }
}

CurveModulesEditDlg::~CurveModulesEditDlg() = default;

QVector<CurveModulesEditDlg::Field> CurveModulesEditDlg::fields() const
{
    return {{m_ui->editVoc, &CurveModuleRow::Voc},     {m_ui->editIsc, &CurveModuleRow::Isc},
            {m_ui->editVmpp, &CurveModuleRow::Vmp},    {m_ui->editImpp, &CurveModuleRow::Imp},
            {m_ui->editAlpha, &CurveModuleRow::alpha}, {m_ui->editBeta, &CurveModuleRow::beta},
            {m_ui->editDelta, &CurveModuleRow::delta}, {m_ui->editRs, &CurveModuleRow::Rs}};
}

bool CurveModulesEditDlg::canEdit() const
{
    return m_mode == NewModule || m_row->UserModule.toBool();
}

void CurveModulesEditDlg::showRow()
{
    const bool editable = canEdit();
    m_ui->btnAlphaPercent->setEnabled(editable);
    m_ui->btnBetaPercent->setEnabled(editable);
    m_ui->editDescription->setReadOnly(!editable);
    m_ui->editDescription->setText(m_row->Description.toString());
    const QVector<Field> all = fields();
    for (const Field &field : all) {
        field.box->setReadOnly(!editable);
        bool isNumber = false;
        const double value = ((*m_row).*field.value).toDouble(&isNumber);
        if (isNumber)
            field.box->setValue(value);
    }
    m_ui->toggleFavourite->setChecked(m_row->Favourite.toBool());
}

void CurveModulesEditDlg::accept()
{
    if (!m_row || !ModuleDatabase::instance().table())
        return;
    CurveModuleRow edited = *m_row;
    // The boxes round: what cannot be edited is left as it is stored.
    if (canEdit()) {
        edited.Description = m_ui->editDescription->text();
        const QVector<Field> all = fields();
        for (const Field &field : all)
            edited.*field.value = QString::number(field.box->value(), 'g', 6);
    }
    edited.Favourite = m_ui->toggleFavourite->isChecked();
    if (!store(edited)) {
        reject();
        return;
    }
    *m_row = edited;
    QDialog::accept();
}

bool CurveModulesEditDlg::store(CurveModuleRow &row) const
{
    ModuleTable *modules = ModuleDatabase::instance().table();
    if (m_mode != NewModule)
        return modules->update(row);
    row.UserModule = 1;
    row.id = modules->insert(row);
    return row.id > 0;
}

void CurveModulesEditDlg::reject()
{
    QDialog::reject();
}

void CurveModulesEditDlg::slotFavouriteToggled(bool on)
{
    m_ui->toggleFavourite->showStar(on);
}

void CurveModulesEditDlg::slotAlphaPercentClicked()
{
    PercentEntry::enterAlpha(this, m_ui->editIsc->text(), m_ui->editAlpha);
}

void CurveModulesEditDlg::slotBetaPercentClicked()
{
    PercentEntry::enterBeta(this, m_ui->editVoc->text(), m_ui->editBeta);
}

} // namespace IVCurve
