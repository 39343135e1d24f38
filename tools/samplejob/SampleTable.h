#pragma once

#include <QStringList>
#include <QVector>

/// What goes into the sample documents: a text file of lines with fields between tabs. "\n" in a field is a
/// line break; lines that begin with # are remarks.
struct SampleTable
{
    /// Throws SampleError if the file cannot be read.
    static QVector<QStringList> read(const QString &path);
    /// The text of a language: the field after `column` is the German one. Where there is none, the English
    /// one is for both.
    static QString text(const QStringList &row, int column, bool german);
};
