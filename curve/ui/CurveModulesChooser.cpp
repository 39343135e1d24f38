#include "curve/ui/CurveModulesChooser.h"

#include "curve/ui/ModuleList.h"
#include "ui_CurveModulesChooser.h"

namespace IVCurve {

CurveModulesChooser::CurveModulesChooser(QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::CurveModulesChooser>())
{
    m_ui->setupUi(this);
    m_ui->comboModule->setDuplicatesEnabled(false);
    connect(m_ui->toggleFavourites, &QAbstractButton::toggled, this,
            &CurveModulesChooser::slotFavouritesToggled);
    connect(m_ui->comboModule, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &CurveModulesChooser::slotModuleSelected);
    connect(m_ui->spinTotalInSeries, QOverload<int>::of(&QSpinBox::valueChanged), this,
            &CurveModulesChooser::slotSeriesChanged);

    const bool favouritesOnly = ModuleList::favouritesOnly();
    if (favouritesOnly == m_ui->toggleFavourites->isChecked())
        slotFavouritesToggled(favouritesOnly);
    else
        m_ui->toggleFavourites->setChecked(favouritesOnly);
    fillModules();
    m_ui->spinTotalInSeries->setValue(m_seriesCount);
}

CurveModulesChooser::~CurveModulesChooser() = default;

void CurveModulesChooser::fillModules()
{
    QVector<CurveModuleRow> rows;
    if (!ModuleList::read(m_ui->toggleFavourites->isChecked(), rows))
        return;
    QComboBox *list = m_ui->comboModule;
    list->clear();
    list->setCurrentIndex(-1);
    // No module comes first here, so that who chooses nothing chooses none.
    list->addItem(QString(), 0);
    for (const CurveModuleRow &row : qAsConst(rows))
        ModuleList::append(list, row);
}

void CurveModulesChooser::slotFavouritesToggled(bool on)
{
    m_ui->toggleFavourites->showStar(on);
    ModuleList::setFavouritesOnly(on);
    fillModules();
}

void CurveModulesChooser::slotModuleSelected(int selected)
{
    m_selectedId = m_ui->comboModule->itemData(selected).toUInt();
}

void CurveModulesChooser::slotSeriesChanged(int count)
{
    m_seriesCount = count;
}

} // namespace IVCurve
