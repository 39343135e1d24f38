#include "diagram/DialogComponentSettings.h"

#include "app/core/Shell.h"
#include "ui_DialogComponentSettings.h"

DialogComponentSettings::DialogComponentSettings(const QString &text, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::DialogComponentSettings>())
{
    m_ui->setupUi(this);
    m_ui->plainTextEdit->setPlainText(text);
    m_ui->plainTextEdit->selectAll();
    m_ui->plainTextEdit->setFocus();
}

DialogComponentSettings::~DialogComponentSettings() = default;

QString DialogComponentSettings::text() const
{
    return m_ui->plainTextEdit->toPlainText();
}

std::optional<QString> DialogComponentSettings::ask(const QString &text)
{
    DialogComponentSettings dialog(text, Shell::parentWindow());
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.text();
}
