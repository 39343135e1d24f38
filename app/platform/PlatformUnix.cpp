#include "app/platform/Platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>
#include <QStorageInfo>

#include <algorithm>

#include <unistd.h>

namespace Platform {

namespace {

/// The trash folders that the toolkit may use for a file on the file system of `folder`.
QStringList trashFoldersFor(const QString &folder)
{
    const QStorageInfo storage(folder);
    if (storage == QStorageInfo(QDir::home()))
        return {QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                QLatin1String("/Trash")};
    const QString user = QString::number(getuid());
    return {storage.rootPath() + QLatin1String("/.Trash/") + user,
            storage.rootPath() + QLatin1String("/.Trash-") + user};
}

/// True if the trash can record a file of this name. Where it cannot, the toolkit would try other names
/// for ever.
bool trashCanRecord(const QFileInfo &file)
{
    constexpr int longestName = 255;
    // Room for the record's suffix and a count before it.
    if (QFile::encodeName(file.fileName() + QStringLiteral("-1000.trashinfo")).size() > longestName)
        return false;
    const QStringList folders = trashFoldersFor(file.absolutePath());
    return std::none_of(folders.cbegin(), folders.cend(), [](const QString &trash) {
        const QFileInfo records(trash + QLatin1String("/info"));
        return records.exists() && !(records.isDir() && records.isWritable());
    });
}

bool removeForGood(const QFileInfo &file)
{
    return file.isDir() && !file.isSymLink() ? QDir(file.filePath()).removeRecursively()
                                             : QFile::remove(file.filePath());
}

} // namespace

QString publicDocumentsFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

QString programDataFolder(const QString &subfolder)
{
    const QString machineWide = QStringLiteral("/var/lib");
    const QFileInfo installed(machineWide + QLatin1Char('/') + subfolder);
    if (installed.isDir() && installed.isWritable())
        return machineWide;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

QStringList moveToRecycleBin(const QStringList &paths, bool allowUndo)
{
    QStringList refused;
    for (const QString &path : paths) {
        const QFileInfo file(path);
        // A child goes with its folder when both are selected.
        if (!file.exists() && !file.isSymLink())
            continue;
        const bool gone = allowUndo ? trashCanRecord(file) && QFile::moveToTrash(path) : removeForGood(file);
        if (!gone)
            refused.append(path);
    }
    return refused;
}

bool recycleBinAsks()
{
    return false;
}

QIcon shellIcon(const QString &)
{
    return QIcon();
}

void shareWithAllUsers(const QString &path)
{
    QFile::setPermissions(path, QFile::Permissions(0x6666));
}

QString executableSuffix()
{
    return QString();
}

QString listSeparator()
{
    // No setting tells it. A comma beside a decimal comma would be read wrongly.
    return QLocale::system().decimalPoint() == QLatin1Char(',') ? QStringLiteral(";") : QString();
}

void doWithoutDisplay()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

} // namespace Platform
