#include "curve/ui/CurveDetailsDialog.h"

#include "app/core/HideableMessage.h"
#include "app/core/NumberText.h"
#include "curve/data/ModuleDatabase.h"
#include "curve/data/StringRecord.h"
#include "curve/ui/ModuleList.h"
#include "curve/ui/PercentEntry.h"
#include "curve/ui/TestDate.h"
#include "ui_CurveDetailsDialog.h"

#include <QDoubleValidator>

namespace IVCurve {

namespace {

const QString warningKey = QStringLiteral("Curves/HideAutomaticSaveWarning");

/// True if the user has written a number into the field.
bool holdsNewNumber(const QLineEdit *edit)
{
    bool isNumber = false;
    QLocale().toDouble(edit->text(), &isNumber);
    return edit->isModified() && isNumber;
}

QString ratingText(double value)
{
    return value > 0 ? NumberText::shown(value) : QString();
}

void setModified(QLineEdit *edit, const QString &text)
{
    edit->setText(text);
    edit->setModified(true);
}

/// What the user has counted; nothing where the user has not touched the box. A count of 0 leaves the count
/// as it is.
void takeCount(const CurveQSpinBox *box, qint32 &count)
{
    bool isNumber = false;
    const int value = box->text().toInt(&isNumber);
    if (box->userChanged && isNumber && value != 0)
        count = value;
}

} // namespace

CurveDetailsDialog::CurveDetailsDialog(StringRecord *record, QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::CurveDetailsDialog>())
    , m_record(record)
    , m_curveId(record->curveId())
{
    m_ui->setupUi(this);
    // Known from files that have it, but not offered any more.
    m_ui->radioBlaesser->hide();
    m_ui->buttonBox->button(QDialogButtonBox::Cancel)->setDefault(true);
    connectAll();
    fillTest();
    fillModule();
    fillSettings();
}

CurveDetailsDialog::~CurveDetailsDialog() = default;

void CurveDetailsDialog::connectAll()
{
    connect(m_ui->radioAnderson, &QAbstractButton::toggled, this, &CurveDetailsDialog::slotAndersonToggled);
    connect(m_ui->radioBlaesser, &QAbstractButton::toggled, this, &CurveDetailsDialog::slotBlaesserToggled);
    connect(m_ui->comboModule, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &CurveDetailsDialog::slotModulesComboSelected);
    connect(m_ui->toggleFavourites, &QAbstractButton::toggled, this,
            &CurveDetailsDialog::slotFavouritesToggled);
    connect(m_ui->btnAlphaPercent, &QAbstractButton::clicked, this,
            &CurveDetailsDialog::slotAlphaPercentClicked);
    connect(m_ui->btnBetaPercent, &QAbstractButton::clicked, this,
            &CurveDetailsDialog::slotBetaPercentClicked);
}

void CurveDetailsDialog::fillTest()
{
    const StringHeader &header = m_record->header();
    m_ui->titleLabel->setText(header.name);
    const struct
    {
        QLineEdit *edit;
        QString text;
    } rows[] = {
        {m_ui->TesterSerNo, header.testerSerialNo},
        {m_ui->MemoryLoc, QString::number(header.memLocation)},
        {m_ui->TestDate, formatTestDate(header.testDate)},
        {m_ui->G, header.irradiance},
        {m_ui->Tpv, header.cellTemp},
        {m_ui->Ta, header.ambientTemp},
        {m_ui->Voc, header.voc},
        {m_ui->Isc, header.isc},
        {m_ui->Vmp, header.vmp},
        {m_ui->Imp, header.imp},
        {m_ui->FF, header.ff},
        {m_ui->Iclamp, header.iclamp},
        {m_ui->Rpe, header.rpe},
        {m_ui->Viso, header.viso},
        {m_ui->Riso, header.riso},
    };
    for (const auto &row : rows)
        row.edit->setText(row.text);
    for (QLineEdit *edit : {m_ui->G, m_ui->Tpv, m_ui->Ta, m_ui->input_delta, m_ui->input_K})
        edit->setValidator(new QDoubleValidator(edit));
}

void CurveDetailsDialog::fillModule()
{
    m_ui->comboModule->setDuplicatesEnabled(false);
    const bool favouritesOnly = ModuleList::favouritesOnly();
    if (favouritesOnly == m_ui->toggleFavourites->isChecked())
        slotFavouritesToggled(favouritesOnly);
    else
        m_ui->toggleFavourites->setChecked(favouritesOnly);

    const ModuleBinding &module = m_record->module();
    m_ui->spinTotalInSeries->setValue(module.series);
    m_ui->spinTotalInParallel->setValue(module.parallel);
    m_ui->spinTotalInSeries->userChanged = false;
    m_ui->spinTotalInParallel->userChanged = false;
    showRatings(module.voc, module.isc, module.vmp, module.imp);
}

void CurveDetailsDialog::fillModules()
{
    const ModuleTable *modules = ModuleDatabase::instance().table();
    if (!modules)
        return;
    QComboBox *list = m_ui->comboModule;
    list->clear();
    list->setCurrentIndex(-1);
    QVector<CurveModuleRow> rows;
    ModuleList::read(m_ui->toggleFavourites->isChecked(), rows);
    const quint32 own = m_record->module().moduleId;
    int current = -1;
    for (const CurveModuleRow &row : qAsConst(rows)) {
        if (row.id == own)
            current = list->count();
        ModuleList::append(list, row);
    }
    // A string keeps its module in view, favourite or not.
    const auto missing = current < 0 && own != 0 ? modules->row(own) : nullptr;
    if (missing) {
        current = list->count();
        ModuleList::append(list, *missing);
    }
    list->addItem(QString());
    list->setCurrentIndex(current);
}

void CurveDetailsDialog::fillSettings()
{
    const STCparameters &settings = m_record->settings();
    const QLocale locale;
    m_ui->input_alpha->setValue(locale.toDouble(settings.alpha));
    m_ui->input_beta->setValue(locale.toDouble(settings.beta));
    m_ui->input_Rs->setValue(locale.toDouble(settings.Rs));
    m_ui->input_delta->setText(settings.delta);
    m_ui->input_a->setText(settings.a);
    m_ui->input_b->setText(settings.b);
    m_ui->input_K->setText(settings.K);
    switch (settings.algorithm) {
    case STCparameters::BlaesserAlgorithm:
        m_ui->radioBlaesser->setChecked(true);
        m_ui->stackSTCPages->setCurrentWidget(m_ui->pageBlaesser);
        break;
    case STCparameters::IEC60891Algorithm:
        m_ui->radioIEC->setChecked(true);
        m_ui->stackSTCPages->setCurrentWidget(m_ui->pageIEC);
        break;
    default:
        m_ui->radioAnderson->setChecked(true);
        m_ui->stackSTCPages->setCurrentWidget(m_ui->pageAnderson);
    }
}

void CurveDetailsDialog::showRatings(double voc, double isc, double vmp, double imp)
{
    m_ui->lblVoc->setText(ratingText(voc));
    m_ui->lblIsc->setText(ratingText(isc));
    m_ui->lblVmpp->setText(ratingText(vmp));
    m_ui->lblImpp->setText(ratingText(imp));
}

void CurveDetailsDialog::showNoModule()
{
    m_ui->input_alpha->setValue(0);
    m_ui->input_beta->setValue(0);
    m_ui->input_Rs->setValue(0);
    setModified(m_ui->input_delta, QString());
    showRatings(0, 0, 0, 0);
}

void CurveDetailsDialog::showModule(const CurveModuleRow &row)
{
    m_ui->input_alpha->setValue(row.alpha.toDouble());
    m_ui->input_beta->setValue(row.beta.toDouble());
    m_ui->input_Rs->setValue(row.Rs.toDouble());
    setModified(m_ui->input_delta, NumberText::shown(row.delta.toDouble()));
    showRatings(row.Voc.toDouble(), row.Isc.toDouble(), row.Vmp.toDouble(), row.Imp.toDouble());
}

void CurveDetailsDialog::slotModulesComboSelected(int selected)
{
    const QVariant id = m_ui->comboModule->itemData(selected);
    if (id.isNull()) {
        showNoModule();
        return;
    }
    const ModuleTable *modules = ModuleDatabase::instance().table();
    const auto row = modules ? modules->row(id.toUInt()) : nullptr;
    if (row)
        showModule(*row);
}

void CurveDetailsDialog::slotFavouritesToggled(bool on)
{
    m_ui->toggleFavourites->showStar(on);
    ModuleList::setFavouritesOnly(on);
    fillModules();
}

void CurveDetailsDialog::slotAndersonToggled(bool on)
{
    m_ui->stackSTCPages->setCurrentWidget(on ? m_ui->pageAnderson : m_ui->pageIEC);
}

void CurveDetailsDialog::slotBlaesserToggled(bool on)
{
    m_ui->stackSTCPages->setCurrentWidget(on ? m_ui->pageBlaesser : m_ui->pageIEC);
}

void CurveDetailsDialog::slotIECToggled(bool on)
{
    m_ui->stackSTCPages->setCurrentWidget(on ? m_ui->pageIEC : m_ui->pageAnderson);
}

void CurveDetailsDialog::slotAlphaPercentClicked()
{
    PercentEntry::enterAlpha(this, m_ui->lblIsc->text(), m_ui->input_alpha);
}

void CurveDetailsDialog::slotBetaPercentClicked()
{
    PercentEntry::enterBeta(this, m_ui->lblVoc->text(), m_ui->input_beta);
}

void CurveDetailsDialog::accept()
{
    if (!HideableMessage::isHidden(warningKey)) {
        Message warning;
        warning.parent = this;
        warning.text = tr("Changes to the PV string data are automatically saved when OK is pressed.\n");
        if (HideableMessage::show(warning, warningKey) != QMessageBox::Ok)
            return;
    }
    takeSettings();
    takeModule();
    QDialog::accept();
}

quint8 CurveDetailsDialog::chosenAlgorithm() const
{
    if (m_ui->radioIEC->isChecked())
        return STCparameters::IEC60891Algorithm;
    if (m_ui->radioBlaesser->isChecked())
        return STCparameters::BlaesserAlgorithm;
    return STCparameters::AndersonAlgorithm;
}

void CurveDetailsDialog::takeSettings()
{
    STCparameters settings = m_record->settings();
    StringHeader &header = m_record->header();
    settings.alpha = NumberText::shown(m_ui->input_alpha->value());
    settings.beta = NumberText::shown(m_ui->input_beta->value());
    settings.Rs = NumberText::shown(m_ui->input_Rs->value());
    const struct
    {
        const QLineEdit *edit;
        QString &text;
    } rows[] = {
        {m_ui->input_delta, settings.delta}, {m_ui->input_a, settings.a},    {m_ui->input_b, settings.b},
        {m_ui->input_K, settings.K},         {m_ui->G, settings.G},          {m_ui->G, header.irradiance},
        {m_ui->Tpv, header.cellTemp},        {m_ui->Ta, header.ambientTemp},
    };
    for (const auto &row : rows) {
        if (holdsNewNumber(row.edit))
            row.text = row.edit->text();
    }
    settings.algorithm = chosenAlgorithm();
    const bool ambient = settings.algorithm == STCparameters::BlaesserAlgorithm;
    settings.Tpv = (ambient ? m_ui->Ta : m_ui->Tpv)->text();
    m_record->settings() = settings;
}

void CurveDetailsDialog::takeModule()
{
    ModuleBinding module = m_record->module();
    const quint32 chosen = m_ui->comboModule->currentData().toUInt();
    if (chosen != module.moduleId)
        module = ModuleDatabase::binding(chosen, module.series, module.parallel);
    takeCount(m_ui->spinTotalInSeries, module.series);
    takeCount(m_ui->spinTotalInParallel, module.parallel);
    m_record->module() = module;
}

} // namespace IVCurve
