#pragma once

#include "tools/manual/ManualEdition.h"

/// A heading that stands in the contents and among the bookmarks.
struct ContentsEntry
{
    /// The name of the place in the file.
    QString anchor;
    /// With its number.
    QString title;
    /// 1 for a chapter, 2 for a section.
    int level = 1;
};

QVector<ContentsEntry> contentsOf(const ManualEdition &edition);

/// The name in the file of a place that resolvedLink() gave.
QString anchorName(const ManualEdition &edition, const QString &resolvedLink);

/// The name of the place where the edition begins.
QString editionAnchor(const ManualEdition &edition);

/// A heading of a chapter or section with its number before it.
QString numberedTitle(const QString &number, const QString &title);
