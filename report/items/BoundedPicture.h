#pragma once

#include <QImage>

class QByteArray;

/// Decodes a bitmap, unless it would take more memory than any picture on a page has use for: a few
/// kilobytes can claim gigabytes. Null then, and for what is no bitmap.
QImage decodeBoundedPicture(const QByteArray &data);

/// The same for a drawing that safeSvg() has made.
QImage decodeBoundedDrawing(const QByteArray &safeSvg);
