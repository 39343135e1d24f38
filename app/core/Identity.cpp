#include "app/core/Identity.h"

#include <QCoreApplication>

namespace Identity {

QString applicationName()
{
    return QStringLiteral("Kelmar");
}

QString applicationVersion()
{
    return QStringLiteral("V2.2.0.0");
}

QString organisationName()
{
    return QStringLiteral("Varnhold");
}

QString organisationDomain()
{
    return QStringLiteral("varnhold.example");
}

QString projectsFolderName()
{
    return QStringLiteral("Kelmar Projects");
}

QString dataloggerExecutable()
{
    return QStringLiteral("VarnholdDatalogger");
}

QString dataloggerApplicationName()
{
    return QStringLiteral("Varnhold Solar Datalogger");
}

QString tutorialAddress()
{
    return QStringLiteral("https://www.varnhold.example/kelmar/tutorial");
}

void applyToApplication()
{
    QCoreApplication::setOrganizationName(organisationName());
    QCoreApplication::setOrganizationDomain(organisationDomain());
    QCoreApplication::setApplicationName(applicationName());
    QCoreApplication::setApplicationVersion(applicationVersion());
}

QString brandedImage(const QString &name)
{
    return QStringLiteral(":res/images/%1_%2").arg(organisationName(), name);
}

} // namespace Identity
