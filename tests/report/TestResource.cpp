#include "tests/report/TestResource.h"

#include <QResource>
#include <QStringList>
#include <QtEndian>
#include <QtTest>

namespace {

constexpr int headerSize = 20;
constexpr quint32 formatVersion = 1;
constexpr quint16 directoryFlag = 2;

template <typename Number> void append(QByteArray &bytes, Number number)
{
    const Number big = qToBigEndian(number);
    bytes.append(reinterpret_cast<const char *>(&big), int(sizeof big));
}

/// The hash by which the toolkit looks names up in a collection.
quint32 nameHash(const QString &name)
{
    quint32 hash = 0;
    for (const QChar character : name) {
        hash = (hash << 4) + character.unicode();
        hash ^= (hash & 0xf0000000) >> 23;
        hash &= 0x0fffffff;
    }
    return hash;
}

/// A resource collection in the toolkit's binary format that holds one file.
QByteArray collection(const QStringList &steps, const QByteArray &content)
{
    QByteArray tree;
    QByteArray names;
    append<quint32>(tree, 0);
    append<quint16>(tree, directoryFlag);
    append<quint32>(tree, 1);
    append<quint32>(tree, 1);
    for (int i = 0; i < steps.size(); ++i) {
        const QString &step = steps.at(i);
        append<quint32>(tree, quint32(names.size()));
        if (i + 1 < steps.size()) {
            append<quint16>(tree, directoryFlag);
            append<quint32>(tree, 1);
            append<quint32>(tree, quint32(i + 2));
        } else {
            append<quint16>(tree, 0);
            append<quint16>(tree, 0);
            append<quint16>(tree, 1);
            append<quint32>(tree, 0);
        }
        append<quint16>(names, quint16(step.size()));
        append<quint32>(names, nameHash(step));
        for (const QChar character : step)
            append<quint16>(names, character.unicode());
    }
    QByteArray bytes("qres");
    append<quint32>(bytes, formatVersion);
    append<quint32>(bytes, quint32(headerSize));
    append<quint32>(bytes, quint32(headerSize + tree.size()));
    append<quint32>(bytes, quint32(headerSize + tree.size() + 4 + content.size()));
    bytes += tree;
    append<quint32>(bytes, quint32(content.size()));
    return bytes + content + names;
}

} // namespace

TestResource::TestResource(const QString &path, const QByteArray &content)
    : m_collection(collection(path.mid(1).split(QLatin1Char('/'), Qt::SkipEmptyParts), content))
    , m_registered(QResource::registerResource(reinterpret_cast<const uchar *>(m_collection.constData())))
{
    if (!m_registered || QResource(path).size() != content.size())
        QTest::qFail("the test resource cannot be registered", __FILE__, __LINE__);
}

TestResource::~TestResource()
{
    if (m_registered)
        QResource::unregisterResource(reinterpret_cast<const uchar *>(m_collection.constData()));
}
