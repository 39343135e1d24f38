#pragma once

#include "app/batch/BatchMessages.h"

#include <QString>
#include <QVector>

/// What to import and where to.
struct ImportOrder
{
    QString resultsFile;
    /// Counted from 1.
    QVector<int> rows;
    QString report;
    /// Make the report anew from the pristine form.
    bool makeNew = false;
    /// Empty when no PDF is wanted.
    QString pdf;
    /// Existing files may be overwritten.
    bool force = false;
};

/// Writes rows of a tester's results file into a report. Nothing is written before all input has been
/// found good.
BatchExit importResults(const ImportOrder &order);

/// Prints a document to a PDF file.
BatchExit printDocument(const QString &document, const QString &pdf, bool force);
