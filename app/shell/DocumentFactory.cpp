#include "app/shell/DocumentFactory.h"

#include "app/core/DocumentType.h"
#include "app/core/Identity.h"
#include "app/core/Language.h"
#include "app/core/Messages.h"
#include "app/core/Shell.h"
#include "app/document/AbstractDocument.h"
#include "browser/SearchResultsDocument.h"
#include "curve/ui/CurveDocument.h"
#include "diagram/InstallationDiagramDocument.h"
#include "report/GraphicalReportDocument.h"
#include "report/file/ReportFile.h"
#include "report/file/ReportXml.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QUrl>

namespace {

/// The translation context of the factory.
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(DocumentFactory)
};

/// The document class for a path, or null for files that the program does not show itself.
AbstractDocument *makeDocument(const QString &path, QWidget *parent)
{
    const DocumentType type = documentType(path);
    if (isReport(type))
        return new GraphicalReportDocument(path, parent);
    if (type == DocumentType::InstallationDiagram)
        return new InstallationDiagramDocument(path, parent);
    if (type == DocumentType::CurveData)
        return new IVCurve::CurveDocument(path, parent);
    if (path.mid(path.lastIndexOf(QLatin1Char('/')) + 1) == SearchResultsDocument::pathName()) {
        auto *results = new SearchResultsDocument(path, parent);
        // There is no file that could fail to load.
        results->setValid(true);
        return results;
    }
    return nullptr;
}

void handToDesktop(const QString &path)
{
    const bool opened = QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    QGuiApplication::restoreOverrideCursor();
    if (opened)
        return;
    Message message;
    message.parent = Shell::parentWindow();
    message.icon = QMessageBox::Warning;
    message.text = Text::tr("There was an problem trying to open %1", "Error Message").arg(path);
    message.informativeText = Text::tr("Please make sure a program is associated with this file type.",
                                       "Error message informative text");
    showMessage(message);
}

/// True for a favourite of the array test report that names another template than the current one of
/// the session's language. A favourite that cannot be read counts as current.
bool isOldTestReport(const QString &favourite)
{
    ReportFileEntries entries;
    if (!readReportFileEntries(favourite, entries))
        return false;
    QDomDocument document;
    if (!ReportXml::parse(entries.first().data, document))
        return false;
    const QString template_ =
        document.documentElement().attribute(QLatin1String(ReportXml::Attribute::resPak));
    return template_ != reportsResource(QStringLiteral("kelatr_rev3.pak"));
}

bool askToReplaceOldFavourite()
{
    Message question;
    question.parent = Shell::parentWindow();
    question.icon = QMessageBox::Warning;
    question.text = Text::tr("You are creating an Array Test Report from a favourite that was created in an "
                             "older version of %1. If you use this version then you will not be able to "
                             "import data into it.",
                             "Error Message")
                        .arg(Identity::applicationName());
    question.informativeText =
        Text::tr("Would you like to replace the favourite with the new version of the report?",
                 "Error message informative text");
    question.buttons = QMessageBox::Yes | QMessageBox::No;
    return askYesNo(question);
}

} // namespace

AbstractDocument *createDocument(const QString &path, QWidget *parent)
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        if (AbstractDocument *document = makeDocument(path, parent)) {
            QGuiApplication::restoreOverrideCursor();
            return document;
        }
        handToDesktop(path);
    } catch (const std::exception &) {
        QGuiApplication::restoreOverrideCursor();
        Message message;
        message.parent = Shell::parentWindow();
        message.icon = QMessageBox::Critical;
        message.text = Text::tr("Failed to create document", "Error Message");
        showMessage(message);
    }
    return nullptr;
}

QString createDocumentFile(const QString &folder, const QString &name)
{
    QString target = folder + QLatin1Char('/') + name;
    const QString suffix = QFileInfo(target).suffix();
    const QString favourite = favouritePath(suffix);
    if (QFileInfo::exists(favourite) && suffix == QLatin1String("kelatr") && isOldTestReport(favourite) &&
        askToReplaceOldFavourite())
        QFile::remove(favourite);
    if (!QFileInfo::exists(favourite))
        makeFavourite(suffix);
    uniqueFilePath(target);
    QFile::copy(favourite, target);
    return target;
}
