#pragma once

#include <QByteArray>
#include <QImage>
#include <QVector>

/// The bytes of an .ico file that holds these square images of at most 256 pixels. Small ones are stored
/// as bitmaps, which every reader knows, the larger ones as PNG.
QByteArray iconFile(const QVector<QImage> &images);
