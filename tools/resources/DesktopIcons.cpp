#include "tools/resources/DesktopIcons.h"

#include "tools/resources/Pictures.h"
#include "tools/resources/ResourceFolder.h"

#include <QSvgRenderer>

namespace {

/// An artwork and the name that desktops look for: of the program, or of a type of files.
struct IconFacts
{
    const char *artwork;
    const char *name;
};

constexpr IconFacts icons[] = {
    {"images/Varnhold_logo", "apps/kelmar"},
    {"fileTypes/varnhold_inspection", "mimetypes/application-x-kelmar-inspection-report"},
    {"fileTypes/varnhold_report", "mimetypes/application-x-kelmar-array-test-report"},
    {"fileTypes/varnhold_verification_certificate",
     "mimetypes/application-x-kelmar-verification-certificate"},
    {"fileTypes/varnhold_checklist", "mimetypes/application-x-kelmar-checklist"},
    {"fileTypes/varnhold_installation_diagram", "mimetypes/application-x-kelmar-installation-diagram"},
    {"fileTypes/varnhold_chart", "mimetypes/application-x-kelmar-curve-data"},
};

constexpr int sides[] = {16, 22, 24, 32, 48, 64, 128, 256};

} // namespace

void buildDesktopIcons(const QString &source, ResourceFolder &target)
{
    for (const IconFacts &facts : icons) {
        const QByteArray drawing =
            readSource(source + QLatin1Char('/') + QLatin1String(facts.artwork) + QLatin1String(".svg"));
        QSvgRenderer artwork(drawing);
        if (!artwork.isValid())
            throw BuildError(QStringLiteral("%1.svg is no vector graphic").arg(QLatin1String(facts.artwork)));
        const QString name = QLatin1String(facts.name);
        for (const int side : sides)
            target.storeUnlisted(QStringLiteral("hicolor/%1x%1/%2.png").arg(QString::number(side), name),
                                 picture(artwork, QSize(side, side)));
        target.storeUnlisted(QStringLiteral("hicolor/scalable/%1.svg").arg(name), drawing);
    }
}
