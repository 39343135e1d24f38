#include "tools/resources/IconFile.h"

#include <QBuffer>
#include <QDataStream>

namespace {

constexpr int directorySize = 6;
constexpr int directoryEntrySize = 16;
constexpr int largestBitmap = 64;

QByteArray asPng(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

/// A bitmap as icons hold it: the header's height counts the colours and the mask, rows run from the
/// bottom up, and the mask, which says what the alpha channel says already, is padded to 32 bits.
QByteArray asBitmap(const QImage &source)
{
    const QImage image = source.convertToFormat(QImage::Format_ARGB32);
    const int side = image.width();
    const int maskBytes = (side + 31) / 32 * 4;

    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << quint32(40) << qint32(side) << qint32(2 * side) << quint16(1) << quint16(32);
    out << quint32(0) << quint32(side * (side * 4 + maskBytes));
    out << qint32(0) << qint32(0) << quint32(0) << quint32(0);
    for (int y = side - 1; y >= 0; --y) {
        for (int x = 0; x < side; ++x)
            out << quint32(image.pixel(x, y));
    }
    for (int y = side - 1; y >= 0; --y) {
        QByteArray row(maskBytes, '\0');
        for (int x = 0; x < side; ++x) {
            if (qAlpha(image.pixel(x, y)) == 0)
                row[x / 8] = char(row.at(x / 8) | 0x80 >> x % 8);
        }
        out.writeRawData(row.constData(), row.size());
    }
    return bytes;
}

} // namespace

QByteArray iconFile(const QVector<QImage> &images)
{
    QByteArray directory;
    QByteArray pictures;
    QDataStream out(&directory, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << quint16(0) << quint16(1) << quint16(images.size());
    for (const QImage &image : images) {
        const QByteArray picture = image.width() > largestBitmap ? asPng(image) : asBitmap(image);
        // A side of 256 does not fit into its byte and is written as 0.
        out << quint8(image.width()) << quint8(image.height()) << quint8(0) << quint8(0);
        out << quint16(1) << quint16(32) << quint32(picture.size());
        out << quint32(directorySize + directoryEntrySize * images.size() + pictures.size());
        pictures += picture;
    }
    return directory + pictures;
}
