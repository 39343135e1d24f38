#include "app/core/Folders.h"

#include "app/core/Identity.h"
#include "app/core/Messages.h"
#include "app/core/Shell.h"
#include "app/platform/Platform.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QSettings>

namespace {

/// Names another data folder, for tests and for installations that keep it elsewhere.
const char dataFolderVariable[] = "KELMAR_DATA_FOLDER";

QString madeDataFolder()
{
    QString folder = QDir::fromNativeSeparators(qEnvironmentVariable(dataFolderVariable));
    if (folder.isEmpty()) {
        const QString own = Identity::organisationName() + QLatin1Char('/') + Identity::applicationName();
        folder = Platform::programDataFolder(own) + QLatin1Char('/') + own;
    }
    QDir().mkpath(folder);
    return folder;
}

} // namespace

Folders *Folders::instance(bool recreate)
{
    static Folders *singleton = nullptr;
    if (recreate) {
        delete singleton;
        singleton = nullptr;
    }
    if (!singleton)
        singleton = new Folders;
    return singleton;
}

QString Folders::dataFolder()
{
    if (m_dataFolder.isEmpty())
        m_dataFolder = madeDataFolder();
    return m_dataFolder;
}

QString Folders::searchFolder()
{
    if (m_searchFolder.isEmpty())
        m_searchFolder = madeDataFolder();
    return m_searchFolder;
}

QString Folders::defaultProjectsRoot()
{
    if (m_defaultProjectsRoot.isEmpty())
        m_defaultProjectsRoot =
            Platform::publicDocumentsFolder() + QLatin1Char('/') + Identity::projectsFolderName();
    return m_defaultProjectsRoot;
}

QString Folders::projectsRoot()
{
    if (!m_projectsRoot.isEmpty())
        return m_projectsRoot;
    QString stored = QSettings().value(QStringLiteral("Directories/RootDir")).toString();
    if (stored.isEmpty())
        stored = defaultProjectsRoot();
    if (QFileInfo(stored).isDir()) {
        setProjectsRoot(stored);
    } else {
        Message message;
        message.parent = Shell::parentWindow();
        message.icon = QMessageBox::Critical;
        message.text = tr("Could not find the projects root directory: %1", "Warning Message").arg(stored);
        message.informativeText =
            tr("Please select a new projects root directory.", "Warning message informative text");
        showMessage(message);
        chooseProjectsRoot();
    }
    return m_projectsRoot;
}

bool Folders::setProjectsRoot(const QString &path)
{
    if (!QFileInfo::exists(path)) {
        Message question;
        question.parent = Shell::parentWindow();
        question.icon = QMessageBox::Question;
        question.text =
            tr("The path \"%1\" does not exist. Would you like to create it?", "Warning Message").arg(path);
        question.buttons = QMessageBox::Yes | QMessageBox::No;
        if (!askYesNo(question))
            return false;
        if (!QDir().mkpath(path)) {
            Message failure;
            failure.parent = Shell::parentWindow();
            failure.icon = QMessageBox::Critical;
            failure.text = tr("Error creating \"%1\"", "Error Message").arg(path);
            showMessage(failure);
            return false;
        }
    }
    QSettings().setValue(QStringLiteral("Directories/RootDir"), path);
    m_projectsRoot = path;
    emit projectsFolderChanged(m_projectsRoot);
    return true;
}

void Folders::chooseProjectsRoot()
{
    const QString chosen = QFileDialog::getExistingDirectory(
        Shell::parentWindow(), tr("Select Projects Root Directory", "Caption"), defaultProjectsRoot(),
        QFileDialog::ShowDirsOnly);
    if (!chosen.isEmpty()) {
        setProjectsRoot(chosen);
        return;
    }
    Message message;
    message.parent = Shell::parentWindow();
    message.icon = QMessageBox::Information;
    message.text = tr("No projects directory was set. Defaulting to the public documents directory",
                      "Informative message");
    showMessage(message);
    QDir().mkpath(defaultProjectsRoot());
    setProjectsRoot(defaultProjectsRoot());
}
