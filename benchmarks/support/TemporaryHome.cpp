#include "benchmarks/support/TemporaryHome.h"

#include <QDir>

TemporaryHome::TemporaryHome()
{
    // The caches stay the user's: a program that has to find the fonts anew does not start as it usually
    // does.
    for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "KELMAR_DATA_FOLDER"}) {
        const QString folder = path(QString::fromLatin1(variable).toLower());
        QDir().mkpath(folder);
        qputenv(variable, folder.toLocal8Bit());
    }
}
