// Makes the program's resources from their sources:
//   kelmar_resource_builder SOURCE TARGET
//   kelmar_resource_builder --desktop-icons SOURCE TARGET
// SOURCE is the folder res of the source tree. TARGET gets the files and their list, kelmar.qrc,
// and the catalogue modules.db, which is not embedded; or the icons that an installation brings.

#include "tools/resources/Databases.h"
#include "tools/resources/DesktopIcons.h"
#include "tools/resources/FormPackager.h"
#include "tools/resources/HtmlTemplates.h"
#include "tools/resources/Pictures.h"
#include "tools/resources/ResourceFolder.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

void buildResources(const QString &source, ResourceFolder &target)
{
    buildPictures(source + QStringLiteral("/art/icons"), target);
    packForms(source + QStringLiteral("/forms"), source + QStringLiteral("/art/reports"), target);
    buildHtmlTemplates(source + QStringLiteral("/curvereport"), target);
    buildDatabases(source + QStringLiteral("/databases"), target);
    target.writeList(QStringLiteral("kelmar.qrc"));
}

} // namespace

int main(int argc, char **argv)
{
    // The attributes of elements are written in hash order: the same sources are to give the same bytes.
    qSetGlobalQHashSeed(0);
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments();
    const bool desktopIcons = arguments.removeAll(QStringLiteral("--desktop-icons")) == 1;
    if (arguments.size() != 3) {
        std::fputs("usage: kelmar_resource_builder [--desktop-icons] SOURCE TARGET\n", stderr);
        return 2;
    }
    try {
        ResourceFolder target(arguments.at(2));
        if (desktopIcons)
            buildDesktopIcons(arguments.at(1) + QStringLiteral("/art/icons"), target);
        else
            buildResources(arguments.at(1), target);
    } catch (const BuildError &error) {
        std::fprintf(stderr, "kelmar_resource_builder: %s\n", error.what());
        return 1;
    }
    return 0;
}
