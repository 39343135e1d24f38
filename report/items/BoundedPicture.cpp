#include "report/items/BoundedPicture.h"

#include "report/items/DrawingCost.h"

#include <QBuffer>
#include <QImageReader>
#include <QSvgRenderer>

namespace {

constexpr qint64 maxBytes = 256LL * 1024 * 1024;
/// For formats that are slow to decode or seldom met.
constexpr qint64 maxBytesOfOthers = 16LL * 1024 * 1024;
/// A picture may be stored in many layers, each of which is decoded for all of its pixels.
constexpr qint64 maxLayeredPixels = 1LL << 30;

const char *const quickFormats[] = {"png", "jpeg", "bmp", "tiff", "gif"};

bool isQuick(const QByteArray &format)
{
    return std::any_of(std::begin(quickFormats), std::end(quickFormats),
                       [&format](const char *quick) { return format == quick; });
}

int layers(const QByteArray &data, const QByteArray &format)
{
    return format == "jpeg" ? data.count("\xff\xda") : 1;
}

bool isDrawing(const QImageReader &reader)
{
    return reader.format().startsWith("svg");
}

bool isBounded(const QImageReader &reader, qint64 limit)
{
    const QSize size = reader.size();
    const qint64 bytesPerPixel = qMax(4, QImage::toPixelFormat(reader.imageFormat()).bitsPerPixel() / 8);
    return size.isValid() && qint64(size.width()) * size.height() * bytesPerPixel <= limit;
}

} // namespace

QImage decodeBoundedPicture(const QByteArray &data)
{
    QBuffer buffer;
    buffer.setData(data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const QByteArray format = reader.format();
    // The toolkit reads drawings as pictures too, and then whatever files they name.
    if (isDrawing(reader) || !isBounded(reader, isQuick(format) ? maxBytes : maxBytesOfOthers))
        return {};
    const qint64 pixels = qint64(reader.size().width()) * reader.size().height();
    return pixels * layers(data, format) <= maxLayeredPixels ? reader.read() : QImage();
}

QImage decodeBoundedDrawing(const QByteArray &safeSvg)
{
    QBuffer buffer;
    buffer.setData(safeSvg);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    if (!isDrawing(reader) || !isBounded(reader, maxBytes))
        return {};
    QSvgRenderer renderer(safeSvg);
    return isDrawnQuickly(renderer, reader.size()) ? reader.read() : QImage();
}
