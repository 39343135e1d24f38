#pragma once

#include "tools/manual/ManualText.h"

#include <QStringList>

/// What a chapter consists of, from top to bottom.
struct ManualBlock
{
    enum Kind
    {
        Heading,
        Paragraph,
        Item,
        Note,
        Listing,
        Picture,
        Table
    };

    Kind kind = Paragraph;
    /// Of a heading: 1 for the chapter's own, 2 and 3 below it. Of an item: its depth, from 1.
    int level = 0;
    /// What stands before an item.
    QString marker;
    ManualText text;
    /// Of a picture: its file, and the share of the text's width that it takes at most, in percent.
    QString file;
    int percent = 100;
    /// Of a table: the first row has the headings.
    QVector<QVector<ManualText>> rows;
};

/// One file of the manual.
struct ManualChapter
{
    QString fileName;
    QVector<ManualBlock> blocks;

    QString title() const;
    QStringList headings(int deepestLevel) const;
};

/// Reads a chapter in Markdown. Throws ManualError for what the manual has no form for.
ManualChapter readManualChapter(const QString &path);
