#include "report/file/ReportFile.h"

#include <QDataStream>
#include <QFile>
#include <QtEndian>

#include <zlib.h>

#include <array>
#include <cstring>
#include <optional>

namespace {

constexpr int streamVersion = QDataStream::Qt_4_0;
static_assert(streamVersion == 7, "the container's stream version");

constexpr int prefixSize = 4;
constexpr quint32 nullLength = 0xffffffff;

/// Longest entry stream that is taken in. A few hundred kilobytes can claim to be gigabytes.
constexpr qint64 maximalStream = qint64(512) * 1024 * 1024;
/// The longest deflated form of such a stream, with room for the headers of stored blocks.
constexpr qint64 maximalContainer = maximalStream + maximalStream / 1000 + 64;
/// What one byte of a deflated stream can become at most.
constexpr qint64 maximalRatio = 1032;
/// Every entry costs memory of its own even when it is empty, so their number has an end, too.
constexpr int maximalEntries = 1 << 20;

/// A zlib stream that is inflated as it is read, straight to where its bytes are wanted.
class InflatedStream
{
public:
    InflatedStream(const char *input, int size) : m_mostLeft(qMin(size * maximalRatio, maximalStream))
    {
        m_zlib.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(input));
        m_zlib.avail_in = uInt(size);
        m_result = inflateInit(&m_zlib);
    }
    ~InflatedStream() { inflateEnd(&m_zlib); }
    InflatedStream(const InflatedStream &) = delete;
    InflatedStream &operator=(const InflatedStream &) = delete;

    /// More bytes than these cannot follow.
    qint64 mostLeft() const { return m_mostLeft; }

    /// False when fewer bytes follow.
    bool read(void *target, int size)
    {
        m_mostLeft -= size;
        auto *to = static_cast<char *>(target);
        while (size > 0) {
            if (m_position == m_filled && size < int(m_buffer.size())) {
                m_filled = inflateTo(m_buffer.data(), int(m_buffer.size()));
                m_position = 0;
                if (m_filled == 0)
                    return false;
            }
            int taken = qMin(size, m_filled - m_position);
            if (taken > 0) {
                memcpy(to, m_buffer.data() + m_position, size_t(taken));
                m_position += taken;
            } else {
                taken = inflateTo(to, size);
                if (taken == 0)
                    return false;
            }
            to += taken;
            size -= taken;
        }
        return true;
    }

    /// Inflates what is left. True when the stream has an end, its check sum holds and it is not too long.
    bool finish()
    {
        while (inflateTo(m_buffer.data(), int(m_buffer.size())) > 0)
            ;
        return m_result == Z_STREAM_END && qint64(m_zlib.total_out) <= maximalStream;
    }

private:
    int inflateTo(char *target, int size)
    {
        const bool runs = m_result == Z_OK || m_result == Z_BUF_ERROR;
        if (!runs || qint64(m_zlib.total_out) > maximalStream)
            return 0;
        m_zlib.next_out = reinterpret_cast<Bytef *>(target);
        m_zlib.avail_out = uInt(size);
        // Told that no more input is to come, zlib spares its window when the room suffices.
        m_result = inflate(&m_zlib, Z_FINISH);
        return size - int(m_zlib.avail_out);
    }

    z_stream m_zlib{};
    int m_result = Z_OK;
    qint64 m_mostLeft;
    std::array<char, 65536> m_buffer;
    int m_position = 0;
    int m_filled = 0;
};

/// A length that counts what follows it, none for null. False when so much cannot follow.
bool readLength(InflatedStream &stream, std::optional<int> &length)
{
    quint32 value = 0;
    if (!stream.read(&value, sizeof value))
        return false;
    value = qFromBigEndian(value);
    length.reset();
    if (value == nullLength)
        return true;
    if (value > stream.mostLeft())
        return false;
    length = int(value);
    return true;
}

bool readName(InflatedStream &stream, QString &name)
{
    std::optional<int> length;
    if (!readLength(stream, length))
        return false;
    name = QString();
    if (!length)
        return true;
    // Half a character: no stream of ours holds that.
    if (*length % int(sizeof(QChar)) != 0)
        return false;
    name = QString(*length / int(sizeof(QChar)), Qt::Uninitialized);
    if (!stream.read(name.data(), *length))
        return false;
    qFromBigEndian<ushort>(name.constData(), name.size(), name.data());
    return true;
}

bool readData(InflatedStream &stream, QByteArray &data)
{
    std::optional<int> length;
    if (!readLength(stream, length))
        return false;
    data = length ? QByteArray(*length, Qt::Uninitialized) : QByteArray();
    return !length || stream.read(data.data(), *length);
}

} // namespace

ReportFileEntries unpackReportEntries(const QByteArray &container)
{
    ReportFileEntries entries;
    if (container.size() <= prefixSize)
        return entries;
    // The length in front is not looked at: it may say anything.
    InflatedStream stream(container.constData() + prefixSize, container.size() - prefixSize);
    ReportFileEntry entry;
    while (readName(stream, entry.name) && readData(stream, entry.data)) {
        entries.append(entry);
        if (entries.size() > maximalEntries)
            break;
    }
    // A list cut short by damage would lose pictures at the next save.
    if (!stream.finish() || entries.size() > maximalEntries)
        entries.clear();
    return entries;
}

QByteArray packReportEntries(const ReportFileEntries &entries)
{
    QByteArray stream;
    QDataStream out(&stream, QIODevice::WriteOnly);
    out.setVersion(streamVersion);
    for (const ReportFileEntry &entry : entries)
        out << entry.name << entry.data;
    return qCompress(stream, -1);
}

bool readReportFileEntries(const QString &path, ReportFileEntries &entries)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    entries += unpackReportEntries(file.read(qMin(file.size(), maximalContainer)));
    return !entries.isEmpty();
}

bool writeReportFileEntries(const ReportFileEntries &entries, const QString &path)
{
    const QByteArray container = packReportEntries(entries);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    // A failure from here on goes unnoticed: only a file that cannot be opened is reported.
    file.write(container);
    return true;
}
