#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// One entry of a report container: the XML ("xml", always entry 0) or an embedded image, whose name is
/// the image's format.
struct ReportFileEntry
{
    QString name;
    QByteArray data;
};

using ReportFileEntries = QList<ReportFileEntry>;

/// Reads a report container and appends its entries. False if the file cannot be opened or gives none.
bool readReportFileEntries(const QString &path, ReportFileEntries &entries);

/// Writes a report container in place. Everything is serialised and compressed before the file is
/// opened, so that nothing that fails earlier harms it. False only if it cannot be opened.
bool writeReportFileEntries(const ReportFileEntries &entries, const QString &path);

/// The entries of a container given as bytes: only complete ones count, whatever the bytes claim. Memory
/// is bounded. Empty for bytes that are no container.
ReportFileEntries unpackReportEntries(const QByteArray &container);

/// The container's bytes for a list of entries.
QByteArray packReportEntries(const ReportFileEntries &entries);
