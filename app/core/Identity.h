#pragma once

#include <QString>

/// Who this program is: the names fixed at build time.
namespace Identity {

QString applicationName();
QString applicationVersion();
QString organisationName();
QString organisationDomain();
/// Last component of the default projects root.
QString projectsFolderName();
/// Name of the external datalogger's executable, without the platform's suffix.
QString dataloggerExecutable();
/// Application name of the settings store that the datalogger writes.
QString dataloggerApplicationName();
/// The web page with the video tutorial.
QString tutorialAddress();

/// Gives the application object its organisation, domain, name and version.
void applyToApplication();

/// Path of a branded image in the resources, for example "splash.png".
QString brandedImage(const QString &name);

} // namespace Identity
