#include "tests/whole/IndependentReader.h"

#include <QFile>
#include <QtEndian>

#include <zlib.h>

namespace {

/// Takes a length and as many bytes from the front of the stream; false when it is cut.
bool takeBytes(const QByteArray &stream, int &position, QByteArray &bytes)
{
    if (stream.size() - position < 4)
        return false;
    const auto length = qFromBigEndian<quint32>(stream.constData() + position);
    position += 4;
    if (length == 0xFFFFFFFF) {
        bytes = QByteArray();
        return true;
    }
    if (length > quint32(stream.size() - position))
        return false;
    bytes = stream.mid(position, int(length));
    position += int(length);
    return true;
}

} // namespace

QVector<QPair<QString, QByteArray>> independentEntries(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray container = file.readAll();
    if (container.size() < 6 || container.mid(4, 2) != QByteArray("\x78\x9c", 2))
        return {};
    QByteArray stream(int(qFromBigEndian<quint32>(container.constData())), Qt::Uninitialized);
    uLongf size = uLongf(stream.size());
    if (uncompress(reinterpret_cast<Bytef *>(stream.data()), &size,
                   reinterpret_cast<const Bytef *>(container.constData() + 4),
                   uLong(container.size() - 4)) != Z_OK ||
        int(size) != stream.size())
        return {};

    QVector<QPair<QString, QByteArray>> entries;
    int position = 0;
    while (position < stream.size()) {
        QByteArray name;
        QByteArray data;
        if (!takeBytes(stream, position, name) || !takeBytes(stream, position, data))
            return {};
        QString text;
        for (int i = 0; i + 1 < name.size(); i += 2)
            text.append(QChar(qFromBigEndian<quint16>(name.constData() + i)));
        entries.append({text, data});
    }
    return entries;
}
