#include "app/dialogs/DialogSettings.h"

#include "app/core/DocumentType.h"
#include "app/core/Folders.h"
#include "ui_DialogSettings.h"

#include <QDateTime>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>

namespace {

/// True if both files can be read and their contents are not the same.
bool contentsDiffer(const QString &a, const QString &b)
{
    QFile first(a);
    QFile second(b);
    if (!first.open(QIODevice::ReadOnly) || !second.open(QIODevice::ReadOnly))
        return false;
    return first.readAll() != second.readAll();
}

void restoreFavourite(const QString &suffix)
{
    QFile::remove(favouritePath(suffix));
    makeFavourite(suffix);
}

} // namespace

DialogSettings::DialogSettings(QWidget *parent) : QDialog(parent), m_ui(new Ui::DialogSettings)
{
    m_ui->setupUi(this);
    m_ui->rootEdit->setText(Folders::instance()->projectsRoot());

    const struct
    {
        QPushButton *button;
        QLabel *label;
        const char *suffix;
        void (DialogSettings::*slot)();
    } rows[] = {
        {m_ui->restoreCHK, m_ui->stateCHK, "kelchk", &DialogSettings::restoreCHK},
        {m_ui->restoreIR, m_ui->stateIR, "kelir", &DialogSettings::restoreIR},
        {m_ui->restoreATR, m_ui->stateATR, "kelatr", &DialogSettings::restoreATR},
        {m_ui->restoreVC, m_ui->stateVC, "kelvc", &DialogSettings::restoreVC},
    };
    for (const auto &row : rows) {
        const QString suffix = QLatin1String(row.suffix);
        row.button->setEnabled(contentsDiffer(favouritePath(suffix), pristinePath(suffix)));
        showFavouriteState(row.button, row.label, suffix);
        // At the press, not at the release: restoring needs no second thought.
        connect(row.button, &QAbstractButton::pressed, this, row.slot);
    }
    connect(m_ui->browse, &QAbstractButton::pressed, this, &DialogSettings::browseProjectsRoot);
}

DialogSettings::~DialogSettings() = default;

void DialogSettings::showFavouriteState(const QPushButton *button, QLabel *label, const QString &suffix)
{
    if (button->isEnabled()) {
        const QDateTime modified = QFileInfo(favouritePath(suffix)).lastModified();
        label->setText(
            tr("File last modified on %1.", "date of modification").arg(modified.toString(Qt::TextDate)));
    } else {
        label->setText(tr("The default report has not been modified.", "Message to user"));
    }
}

void DialogSettings::restore(QPushButton *button, QLabel *label, const QString &suffix)
{
    restoreFavourite(suffix);
    button->setEnabled(false);
    showFavouriteState(button, label, suffix);
}

void DialogSettings::restoreCHK()
{
    restore(m_ui->restoreCHK, m_ui->stateCHK, QStringLiteral("kelchk"));
}

void DialogSettings::restoreIR()
{
    restore(m_ui->restoreIR, m_ui->stateIR, QStringLiteral("kelir"));
}

void DialogSettings::restoreATR()
{
    restore(m_ui->restoreATR, m_ui->stateATR, QStringLiteral("kelatr"));
}

void DialogSettings::restoreVC()
{
    restore(m_ui->restoreVC, m_ui->stateVC, QStringLiteral("kelvc"));
}

void DialogSettings::browseProjectsRoot()
{
    const QString chosen = QFileDialog::getExistingDirectory(
        this, tr("Select Projects Root Directory"), m_ui->rootEdit->text(), QFileDialog::ShowDirsOnly);
    if (!chosen.isEmpty())
        m_ui->rootEdit->setText(chosen);
}

void DialogSettings::accept()
{
    const QString path = m_ui->rootEdit->text();
    if (path == Folders::instance()->projectsRoot() || Folders::instance()->setProjectsRoot(path))
        QDialog::accept();
}
