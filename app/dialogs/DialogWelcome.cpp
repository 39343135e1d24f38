#include "app/dialogs/DialogWelcome.h"

#include "app/core/Identity.h"
#include "ui_DialogWelcome.h"

#include <QDesktopServices>
#include <QSettings>
#include <QUrl>

DialogWelcome::DialogWelcome(QWidget *parent) : QDialog(parent), m_ui(new Ui::DialogWelcome)
{
    m_ui->setupUi(this);
    m_ui->picture->setStyleSheet(QStringLiteral("background-image: url(:/res/images/%1_col_small.jpg);")
                                     .arg(Identity::organisationName()));
    m_ui->thanks->setText(tr("Thank you for choosing %1.").arg(Identity::applicationName()));
    m_ui->continueUsing->setText(tr("Continue using %1").arg(Identity::applicationName()));
    setWindowTitle(tr("Welcome to %1!").arg(Identity::applicationName()));
    connect(m_ui->watchTutorial, &QAbstractButton::pressed, this, &DialogWelcome::radioPressed);
    connect(m_ui->continueUsing, &QAbstractButton::pressed, this, &DialogWelcome::radioPressed);
}

DialogWelcome::~DialogWelcome() = default;

int DialogWelcome::exec()
{
    if (!QSettings().value(QStringLiteral("Welcome/show"), true).toBool())
        return 0;
    return QDialog::exec();
}

void DialogWelcome::accept()
{
    if (m_ui->doNotShow->isChecked())
        QSettings().setValue(QStringLiteral("Welcome/show"), false);
    if (m_ui->watchTutorial->isChecked())
        QDesktopServices::openUrl(QUrl(Identity::tutorialAddress()));
    QDialog::accept();
}

void DialogWelcome::radioPressed()
{
    m_ui->buttonBox->setEnabled(true);
}
