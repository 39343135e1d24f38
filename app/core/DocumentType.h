#pragma once

#include <QIcon>
#include <QString>

/// What the suffix of a file means to the program. The values are stable.
enum class DocumentType
{
    Unknown = 0,
    InspectionReport = 1,
    ArrayTestReport = 2,
    VerificationCertificate = 3,
    Report = 4,
    InstallationDiagram = 5,
    Checklist = 6,
    Image = 7,
    Pdf = 8,
    Word = 9,
    Spreadsheet = 10,
    Web = 12,
    CurveData = 13
};

/// The type of the document at `path` by its suffix, ignoring case. Does not look at the disk.
DocumentType documentType(const QString &path);

/// True if documents of this type are report forms: pages built from a template.
bool isReport(DocumentType type);

/// The icon of a file or folder in the project tree. Folders that directly hold a checklist are
/// client handover packs and look so.
QIcon documentIcon(const QString &path);

/// Changes `path` so that nothing exists there, by a count in parentheses behind its base name.
void uniqueFilePath(QString &path);

/// Path of the favourite for a suffix: the file in the data folder that new documents are copies of.
QString favouritePath(const QString &suffix);

/// Path of the pristine document for a suffix in the resources of the session's language.
QString pristinePath(const QString &suffix);

/// Makes the favourite for a suffix where there is none: a copy of the pristine document that all users
/// may write. Failures are not told: the favourite stays as it was, or absent.
void makeFavourite(const QString &suffix);
