#pragma once

#include <QString>
#include <QVector>

/// A piece of text in one style.
struct ManualRun
{
    QString text;
    bool strong = false;
    bool emphasis = false;
    /// A key, a file's name, something to be typed.
    bool literal = false;
    /// Where it leads: a file of the same edition, "#" and a heading, or both.
    QString link;
    /// The file of a small picture that stands in the line in place of the text.
    QString icon;
};

using ManualText = QVector<ManualRun>;

/// The words alone.
QString plainText(const ManualText &text);

/// A heading as links to it spell it: small letters, digits, and "-" for blanks.
QString headingSlug(const QString &heading);
