#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

class QSvgRenderer;
class ResourceFolder;

/// The artwork as a PNG file of this size, on a transparent ground.
QByteArray picture(QSvgRenderer &artwork, const QSize &size);

/// Draws the artwork below `source` (folders of SVG files) and stores it: PNG and JPEG at single and double
/// resolution, icons in all their sizes.
void buildPictures(const QString &source, ResourceFolder &target);
