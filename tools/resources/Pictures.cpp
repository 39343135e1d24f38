#include "tools/resources/Pictures.h"

#include "tools/resources/IconFile.h"
#include "tools/resources/ResourceFolder.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

namespace {

constexpr const char *folders[] = {"fileTypes", "images", "toolButtons"};

enum class Form
{
    Picture,
    Photo,
    Icon
};

/// Pictures that do not become PNG.
struct PictureFacts
{
    const char *artwork;
    Form form;
    const char *product;
};

constexpr PictureFacts exceptions[] = {
    {"Varnhold_bg", Form::Photo, "Varnhold_bg"},
    {"Varnhold_col_small", Form::Photo, "Varnhold_col_small"},
    {"Varnhold_logo", Form::Icon, "Varnhold_logo"},
    {"Varnhold_logo", Form::Icon, "logo"},
};

constexpr int iconSides[] = {16, 24, 32, 48, 64, 128, 256};
constexpr int photoQuality = 92;

QImage drawn(QSvgRenderer &artwork, const QSize &size, QImage::Format format)
{
    QImage image(size, format);
    image.fill(image.hasAlphaChannel() ? Qt::transparent : Qt::white);
    QPainter painter(&image);
    artwork.render(&painter, QRectF(QPointF(), size));
    return image;
}

QByteArray encoded(const QImage &image, const char *format, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format, quality))
        throw BuildError(QStringLiteral("cannot write pictures of the format %1").arg(QLatin1String(format)));
    return bytes;
}

QByteArray icon(QSvgRenderer &artwork)
{
    QVector<QImage> images;
    for (const int side : iconSides)
        images.append(drawn(artwork, QSize(side, side), QImage::Format_ARGB32));
    return iconFile(images);
}

void store(QSvgRenderer &artwork, Form form, const QString &name, ResourceFolder &target)
{
    const QSize size = artwork.defaultSize();
    if (form == Form::Icon) {
        target.store(name + QStringLiteral(".ico"), icon(artwork));
        return;
    }
    for (const int resolution : {1, 2}) {
        const QString suffix = resolution == 1 ? QString() : QStringLiteral("@2x");
        if (form == Form::Photo) {
            const QImage image = drawn(artwork, size * resolution, QImage::Format_RGB32);
            target.store(name + suffix + QStringLiteral(".jpg"), encoded(image, "JPG", photoQuality));
        } else {
            target.store(name + suffix + QStringLiteral(".png"), picture(artwork, size * resolution));
        }
    }
}

void buildPicture(const QString &path, const QString &folder, ResourceFolder &target)
{
    QSvgRenderer artwork(readSource(path));
    if (!artwork.isValid())
        throw BuildError(QStringLiteral("%1 is no vector graphic").arg(path));
    const QString name = QFileInfo(path).completeBaseName();
    bool isException = false;
    for (const PictureFacts &facts : exceptions) {
        if (name == QLatin1String(facts.artwork)) {
            isException = true;
            store(artwork, facts.form, folder + QLatin1Char('/') + QLatin1String(facts.product), target);
        }
    }
    if (!isException)
        store(artwork, Form::Picture, folder + QLatin1Char('/') + name, target);
}

} // namespace

QByteArray picture(QSvgRenderer &artwork, const QSize &size)
{
    // The lowest quality means the strongest compression: PNG loses nothing by it.
    return encoded(drawn(artwork, size, QImage::Format_ARGB32), "PNG", 0);
}

void buildPictures(const QString &source, ResourceFolder &target)
{
    for (const char *folder : folders) {
        const QDir directory(source + QLatin1Char('/') + QLatin1String(folder));
        const QStringList files = directory.entryList({QStringLiteral("*.svg")}, QDir::Files, QDir::Name);
        if (files.isEmpty())
            throw BuildError(QStringLiteral("no artwork in %1").arg(directory.path()));
        for (const QString &file : files)
            buildPicture(directory.filePath(file), QLatin1String(folder), target);
    }
}
