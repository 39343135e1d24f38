#pragma once

#include "tools/manual/ManualChapter.h"

/// The manual in one language: the chapters of a folder in the order of their names, and the words that
/// stand around them.
struct ManualEdition
{
    QString language;
    QString title;
    QString subtitle;
    QString contents;
    /// "page", as a reference has it before the number.
    QString page;
    /// "Figure", as it stands before a picture's number.
    QString figure;
    QString version;
    QVector<ManualChapter> chapters;

    const ManualChapter *chapter(const QString &fileName) const;
};

/// Reads the edition in `folder`, whose name is the language. Throws ManualError for what is missing, and for
/// a link that leads nowhere.
ManualEdition readManualEdition(const QString &folder);

/// Where a link leads, written as "file#heading", both filled in. Empty if there is no such place.
QString resolvedLink(const ManualEdition &edition, const QString &fromFile, const QString &link);
