#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVector>

/// A place in a PDF file.
struct PdfPlace
{
    /// Counted from 0.
    int page = 0;
    /// From the upper edge of the page, in points.
    double y = 0;
};

/// An entry of the outline that a reader shows beside the pages.
struct PdfBookmark
{
    QString title;
    /// 1 for the outermost ones; an entry belongs to the last one before it with a lower level.
    int level = 1;
    PdfPlace place;
};

/// Gives a file of the toolkit's PDF writer what that writer has no means for: an outline, and links within
/// the file. It is appended as an update, the way editors do it, and what was there stays as it is. Links
/// whose address is "#name" come to lead to the place of that name. Throws std::runtime_error for a file that
/// is built otherwise.
QByteArray withNavigation(const QByteArray &pdf, const QVector<PdfBookmark> &bookmarks,
                          const QMap<QString, PdfPlace> &places);
