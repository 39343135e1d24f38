#include "app/dialogs/DialogLanguageChooser.h"

#include "app/core/Language.h"
#include "ui_DialogLanguageChooser.h"

#include <QSettings>

DialogLanguageChooser::DialogLanguageChooser(QWidget *parent)
    : QDialog(parent), m_ui(new Ui::DialogLanguageChooser)
{
    m_ui->setupUi(this);
    const QStringList files = offeredCatalogues();
    for (const QString &file : files) {
        const QLocale locale = localeOfCatalogue(file);
        m_ui->comboBox->addItem(QLocale::languageToString(locale.language()), locale);
    }
    connect(m_ui->comboBox, qOverload<int>(&QComboBox::activated), this, &DialogLanguageChooser::setLocale);
}

DialogLanguageChooser::~DialogLanguageChooser() = default;

void DialogLanguageChooser::setLocale(int index)
{
    m_locale = m_ui->comboBox->itemData(index).toLocale();
}

void DialogLanguageChooser::accept()
{
    QSettings().setValue(QStringLiteral("locale"), m_locale.name());
    QDialog::accept();
}

void DialogLanguageChooser::reject()
{
    QSettings().setValue(QStringLiteral("locale"), QStringLiteral("en"));
    QDialog::reject();
}
