#include "app/core/DocumentType.h"

#include "app/core/Folders.h"
#include "app/core/Language.h"
#include "app/platform/Platform.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>

namespace {

/// A suffix, its meaning, and the icon of such files where the desktop's shell has none.
struct SuffixFacts
{
    const char *suffix;
    DocumentType type;
    const char *icon;
};

constexpr SuffixFacts suffixTable[] = {
    {"kelir", DocumentType::InspectionReport, "varnhold_inspection"},
    {"kelatr", DocumentType::ArrayTestReport, "varnhold_report"},
    {"kelvc", DocumentType::VerificationCertificate, "varnhold_verification_certificate"},
    {"kelreport", DocumentType::Report, "varnhold_report"},
    {"kelid", DocumentType::InstallationDiagram, "varnhold_installation_diagram"},
    {"kelchk", DocumentType::Checklist, "varnhold_checklist"},
    {"png", DocumentType::Image, "image"},
    {"jpg", DocumentType::Image, "image"},
    {"jpeg", DocumentType::Image, "image"},
    {"tif", DocumentType::Image, "image"},
    {"tiff", DocumentType::Image, "image"},
    {"bmp", DocumentType::Image, "image"},
    {"pdf", DocumentType::Pdf, "pdf"},
    {"doc", DocumentType::Word, "word"},
    {"xls", DocumentType::Spreadsheet, "excel"},
    {"csv", DocumentType::Spreadsheet, "excel"},
    {"html", DocumentType::Web, "html"},
    {"htm", DocumentType::Web, "html"},
    {"URL", DocumentType::Web, "html"},
    {"kelcrv", DocumentType::CurveData, "varnhold_chart"},
};

const SuffixFacts *factsOf(const QString &path)
{
    const QString suffix = path.mid(path.lastIndexOf(QLatin1Char('.')) + 1);
    for (const SuffixFacts &facts : suffixTable) {
        if (suffix.compare(QLatin1String(facts.suffix), Qt::CaseInsensitive) == 0)
            return &facts;
    }
    return nullptr;
}

/// The icons that have been read, by path: the tree asks for one for each row at each painting.
QHash<QString, QIcon> &readIcons()
{
    static QHash<QString, QIcon> icons;
    return icons;
}

QIcon fileTypeIcon(const char *name)
{
    QHash<QString, QIcon> &icons = readIcons();
    // Pictures must not outlive the application object.
    if (icons.isEmpty())
        qAddPostRoutine([] { readIcons().clear(); });
    const QString path = QStringLiteral(":res/fileTypes/%1.png").arg(QLatin1String(name));
    const auto known = icons.constFind(path);
    return known != icons.constEnd() ? *known : *icons.insert(path, QIcon(path));
}

QIcon folderIcon(const QString &path)
{
    const QDirIterator checklists(path, {QStringLiteral("*.kelchk")},
                                  QDir::Files | QDir::NoSymLinks | QDir::NoDotAndDotDot);
    return fileTypeIcon(checklists.hasNext() ? "chp_folder" : "folder");
}

} // namespace

DocumentType documentType(const QString &path)
{
    const SuffixFacts *facts = factsOf(path);
    return facts ? facts->type : DocumentType::Unknown;
}

bool isReport(DocumentType type)
{
    switch (type) {
    case DocumentType::InspectionReport:
    case DocumentType::ArrayTestReport:
    case DocumentType::VerificationCertificate:
    case DocumentType::Report:
    case DocumentType::Checklist:
        return true;
    default:
        return false;
    }
}

QIcon documentIcon(const QString &path)
{
    if (QFileInfo(path).isDir())
        return folderIcon(path);
    if (path.endsWith(QLatin1String("Search Results")))
        return fileTypeIcon("search");
    const QIcon icon = Platform::shellIcon(path);
    if (!icon.isNull())
        return icon;
    const SuffixFacts *facts = factsOf(path);
    return facts ? fileTypeIcon(facts->icon) : QIcon();
}

void uniqueFilePath(QString &path)
{
    if (!QFileInfo::exists(path))
        return;
    const QString suffix = QFileInfo(path).suffix();
    const QString base = suffix.isEmpty() ? path : path.left(path.size() - suffix.size() - 1);
    // The dot of the pattern stays when there is no suffix; some file systems drop it.
    for (int count = 2;; ++count) {
        const QString candidate = base + QStringLiteral(" (%1).").arg(count) + suffix;
        if (!QFileInfo::exists(candidate)) {
            path = candidate;
            return;
        }
    }
}

QString favouritePath(const QString &suffix)
{
    return Folders::instance()->dataFolder() + QLatin1String("/default.") + suffix;
}

QString pristinePath(const QString &suffix)
{
    return reportsResource(QLatin1String("default.") + suffix);
}

void makeFavourite(const QString &suffix)
{
    const QString favourite = favouritePath(suffix);
    QFile::copy(pristinePath(suffix), favourite);
    Platform::shareWithAllUsers(favourite);
}
