#include "app/core/Datalogger.h"

#include "app/core/Identity.h"
#include "app/core/Messages.h"
#include "app/platform/Platform.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QSettings>

namespace Datalogger {

namespace {

/// The translation context of this service.
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Datalogger)
};

QString programName()
{
    return Identity::dataloggerExecutable() + Platform::executableSuffix();
}

} // namespace

QString programPath()
{
    return QCoreApplication::applicationDirPath() + QLatin1Char('/') + programName();
}

bool start(QProcess *process, QWidget *parent)
{
    const QString path = programPath();
    if (!QFileInfo::exists(path)) {
        Message message;
        message.parent = parent;
        message.icon = QMessageBox::Warning;
        message.text = Text::tr("Could not find:\n%1.\nPlease try re-installing %2 again", "Error Message")
                           .arg(path, Identity::applicationName());
        showMessage(message);
        return false;
    }
    process->start(path, QStringList(), QIODevice::ReadWrite);
    return true;
}

void showStartFailure(QWidget *parent)
{
    Message message;
    message.parent = parent;
    message.icon = QMessageBox::Critical;
    message.text =
        Text::tr("%1.exe failed to start. A file may be missing or corrupted. Please install %2 again.",
                 "Missing file error message")
            .arg(Identity::dataloggerExecutable(), Identity::applicationName());
    // Elsewhere the program's file has no such suffix.
    message.text.replace(Identity::dataloggerExecutable() + QLatin1String(".exe"), programName());
    showMessage(message);
}

QString fileSavedSince(const QDateTime &started)
{
    const QSettings store(Identity::organisationName(), Identity::dataloggerApplicationName());
    const QString path = store.value(QStringLiteral("Device/LastSavedFilePath")).toString();
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists() || !(info.lastModified() > started))
        return QString();
    return path;
}

bool askToImport(const QString &path, QWidget *parent)
{
    Message question;
    question.parent = parent;
    question.icon = QMessageBox::Question;
    question.buttons = QMessageBox::Yes | QMessageBox::No;
    question.text = Text::tr("Would you like to import the last file you just downloaded?", "User prompt");
    question.informativeText =
        Text::tr("File: %1 was saved %2.", "time since saved")
            .arg(path, ageText(QFileInfo(path).lastModified(), QDateTime::currentDateTime()));
    return askYesNo(question);
}

QString ageText(const QDateTime &modified, const QDateTime &now)
{
    const qint64 seconds = modified.msecsTo(now) / 1000;
    if (seconds < 120)
        return Text::tr("%1 seconds ago", "time since saved").arg(seconds);
    if (seconds < 7200)
        return Text::tr("%1 minutes ago", "time since saved").arg(seconds / 60);
    if (seconds < 86400)
        return Text::tr("%1 hours ago", "time since saved").arg(seconds / 3600);
    return Text::tr("%1 days ago", "time since saved").arg(modified.daysTo(now));
}

} // namespace Datalogger
