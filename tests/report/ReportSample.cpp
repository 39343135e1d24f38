#include "tests/report/ReportSample.h"

#include "tests/support/TestHome.h"

#include <QBuffer>
#include <QImage>
#include <QtEndian>
#include <QtTest>

#include <zlib.h>

namespace {

void fail(const char *what)
{
    QTest::qFail(what, __FILE__, __LINE__);
}

void appendLength(QByteArray &bytes, int length)
{
    const quint32 big = qToBigEndian(quint32(length));
    bytes.append(reinterpret_cast<const char *>(&big), 4);
}

/// Takes a counted run of bytes off the front.
QByteArray take(QByteArray &bytes)
{
    if (bytes.size() < 4) {
        fail("an entry is cut");
        return QByteArray();
    }
    const quint32 length = qFromBigEndian<quint32>(bytes.constData());
    bytes.remove(0, 4);
    if (length == 0xffffffff)
        return QByteArray();
    if (length > quint32(bytes.size())) {
        fail("an entry is longer than the stream");
        return QByteArray();
    }
    const QByteArray taken = bytes.left(int(length));
    bytes.remove(0, int(length));
    return taken;
}

QString fromUtf16(const QByteArray &bytes)
{
    QString text;
    for (int i = 0; i + 1 < bytes.size(); i += 2)
        text += QChar(qFromBigEndian<quint16>(bytes.constData() + i));
    return text;
}

void collect(const QDomElement &parent, QVector<QDomElement> &all)
{
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        all.append(child);
        collect(child, all);
    }
}

} // namespace

namespace ReportSample {

QByteArray pack(const Entries &entries)
{
    QByteArray stream;
    for (const auto &entry : entries) {
        appendLength(stream, entry.first.size() * 2);
        for (const QChar character : entry.first) {
            const quint16 big = qToBigEndian(character.unicode());
            stream.append(reinterpret_cast<const char *>(&big), 2);
        }
        appendLength(stream, entry.second.size());
        stream += entry.second;
    }
    uLongf size = compressBound(uLong(stream.size()));
    QByteArray deflated(int(size), '\0');
    if (compress(reinterpret_cast<Bytef *>(deflated.data()), &size,
                 reinterpret_cast<const Bytef *>(stream.constData()), uLong(stream.size())) != Z_OK)
        fail("the sample cannot be compressed");
    deflated.truncate(int(size));
    QByteArray container;
    appendLength(container, stream.size());
    return container + deflated;
}

QByteArray pack(const QByteArray &xml, const Entries &images)
{
    return pack(Entries{{QStringLiteral("xml"), xml}} + images);
}

Entries read(const QString &path)
{
    const QByteArray container = readFile(path);
    Entries entries;
    if (container.size() < 6 || container.mid(4, 2) != QByteArray("\x78\x9c", 2)) {
        fail("no zlib stream of the default level behind the length");
        return entries;
    }
    const quint32 length = qFromBigEndian<quint32>(container.constData());
    QByteArray stream(int(length), '\0');
    uLongf size = length;
    uLong sourceSize = uLong(container.size() - 4);
    if (uncompress2(reinterpret_cast<Bytef *>(stream.data()), &size,
                    reinterpret_cast<const Bytef *>(container.constData() + 4), &sourceSize) != Z_OK ||
        size != length || int(sourceSize) != container.size() - 4) {
        fail("the stream is not of the length told");
        return entries;
    }
    while (!stream.isEmpty() && !QTest::currentTestFailed()) {
        const QString name = fromUtf16(take(stream));
        entries.append({name, take(stream)});
    }
    return entries;
}

QDomDocument readXml(const QString &path)
{
    const Entries entries = read(path);
    QDomDocument document;
    if (entries.isEmpty() || entries.first().first != QLatin1String("xml") ||
        !document.setContent(entries.first().second))
        fail("the first entry is no XML");
    return document;
}

QVector<QDomElement> elements(const QDomDocument &document, const QString &tag)
{
    QVector<QDomElement> all;
    collect(document.documentElement(), all);
    QVector<QDomElement> found;
    for (const QDomElement &element : qAsConst(all)) {
        if (element.tagName() == tag)
            found.append(element);
    }
    return found;
}

QDomElement elementById(const QDomDocument &document, const QString &id)
{
    QVector<QDomElement> all;
    collect(document.documentElement(), all);
    for (const QDomElement &element : qAsConst(all)) {
        if (element.attribute(QStringLiteral("id")) == id)
            return element;
    }
    return QDomElement();
}

QByteArray png(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

} // namespace ReportSample
