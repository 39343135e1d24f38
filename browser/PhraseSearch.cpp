#include "browser/PhraseSearch.h"

#include "app/core/DocumentType.h"
#include "browser/XmlSearchHandler.h"
#include "report/file/ReportFile.h"
#include "report/file/ReportXml.h"

#include <QRegExp>

namespace {

bool isSearched(DocumentType type)
{
    return type == DocumentType::InspectionReport || type == DocumentType::ArrayTestReport ||
           type == DocumentType::VerificationCertificate;
}

} // namespace

bool fileContainsPhrase(const QString &phrase, Qt::CaseSensitivity cs, const QString &path)
{
    ReportFileEntries entries;
    if (!isSearched(documentType(path)) || !readReportFileEntries(path, entries))
        return false;
    QRegExp regExp(phrase, cs, QRegExp::Wildcard);
    if (!regExp.isValid())
        return false;
    XmlSearchHandler handler(&regExp);
    ReportXml::read(entries.first().data, handler);
    return handler.found;
}
