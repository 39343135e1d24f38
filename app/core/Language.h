#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>

/// Default file names of the six kinds of new documents, in the session's language.
struct NewDocumentNames
{
    QString inspectionReport;
    QString testReport;
    QString verificationCertificate;
    QString installationDiagram;
    QString checklist;
    QString curveData;
};

/// Name of the resource folder of the session's language, for example "reports_en". Before a
/// catalogue was found it is "reports_de".
const QString &reportsFolder();

/// Default file names of new documents. Before a catalogue was found they are German.
const NewDocumentNames &newDocumentNames();

/// Path of a file in the resource folder of the session's language.
QString reportsResource(const QString &fileName);

/// Installs the catalogues of the stored language and sets the default locale. Stores "en" when no
/// language is stored. The catalogues lie in "Translations" beside the executable; where none fits,
/// reportsFolder() and newDocumentNames() keep what they hold.
void loadTranslations();

/// Makes a language ("de") that of the session, with its catalogues, forms and file names, and `locale` the
/// default locale. Stores nothing.
void useLanguage(const QString &code, const QLocale &locale);

/// The locale that a catalogue's file name ("kelmar_de.qm") stands for.
QLocale localeOfCatalogue(const QString &fileName);

/// Catalogue file names in the folder "Translations" of the working directory: the languages offered.
QStringList offeredCatalogues();

/// True while the main window closes in order to come back in another language.
bool restartRequested();
void setRestartRequested(bool requested);
