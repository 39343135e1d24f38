#pragma once

#include <QIcon>
#include <QString>
#include <QStringList>

/// Everything that the operating systems do differently. Each function has a Windows and a Unix source.
namespace Platform {

/// The documents folder that all users of the machine share; on Unix the user's documents folder.
QString publicDocumentsFolder();

/// The machine-wide folder for the data of programs in which `subfolder` ("organisation/application")
/// is to stand. On Unix /var/lib, if an installed package has made a writable `subfolder` there,
/// otherwise the user's own data folder.
QString programDataFolder(const QString &subfolder);

/// Moves files and folders to the system's trash, all in one operation. On Windows the shell asks and
/// tells by itself. Returns the paths that could not be moved, where the system does not tell them.
QStringList moveToRecycleBin(const QStringList &paths, bool allowUndo);

/// True where moveToRecycleBin() asks the user for confirmation by itself.
bool recycleBinAsks();

/// The icon that the desktop's shell shows for a file; null where there is no such service.
QIcon shellIcon(const QString &path);

/// Makes a file readable and writable for everybody, because the data folder is shared by all users.
void shareWithAllUsers(const QString &path);

/// What the name of an executable file ends with: ".exe", or nothing on Unix.
QString executableSuffix();

/// What separates the items of a list in the locale of the user's system; empty where none is known.
QString listSeparator();

/// Lets a program without windows start where there is no display. To be called before the application
/// object is made.
void doWithoutDisplay();

} // namespace Platform
