#include "tests/support/OwnPlaces.h"

#include <QDir>
#include <QSettings>

OwnPlaces::OwnPlaces(const QString &folder)
{
    const auto set = [&folder](const char *variable, const char *name) {
        const QString path = folder + QLatin1Char('/') + QLatin1String(name);
        QDir().mkpath(path);
        qputenv(variable, path.toLocal8Bit());
    };
    set("HOME", "home");
    set("XDG_CONFIG_HOME", "config");
    set("XDG_DATA_HOME", "share");
    set("XDG_CACHE_HOME", "cache");
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder + QLatin1String("/config"));
}

OwnPlaces::~OwnPlaces() = default;
