#include "import/ResultsCsv.h"

#include <cstring>

namespace {

/// Position of a character in a part of `bytes`, or its end.
int find(const QByteArray &bytes, char character, int begin, int end)
{
    const char *data = bytes.constData();
    const void *found = std::memchr(data + begin, character, static_cast<size_t>(end - begin));
    return found ? static_cast<int>(static_cast<const char *>(found) - data) : end;
}

/// Walks over the lines of a file. Carriage returns before a line feed belong to the end of the line,
/// however many there are.
class LineWalk
{
public:
    explicit LineWalk(const QByteArray &bytes) : m_bytes(bytes) {}

    /// Goes to the next line. What follows the last line feed is a line too, even when empty.
    bool next()
    {
        if (m_next > m_bytes.size())
            return false;
        m_begin = m_next;
        m_end = find(m_bytes, '\n', m_begin, m_bytes.size());
        m_next = m_end + 1;
        if (m_end < m_bytes.size()) {
            while (m_end > m_begin && m_bytes.at(m_end - 1) == '\r')
                --m_end;
        }
        return true;
    }
    int begin() const { return m_begin; }
    int length() const { return m_end - m_begin; }

private:
    const QByteArray &m_bytes;
    int m_next = 0;
    int m_begin = 0;
    int m_end = 0;
};

} // namespace

ResultsCsv ResultsCsv::parse(const QByteArray &bytes, QChar separator)
{
    ResultsCsv result;
    // A text made of bytes ends at the first zero byte.
    result.m_bytes =
        bytes.left(static_cast<int>(qstrnlen(bytes.constData(), static_cast<uint>(bytes.size()))));

    LineWalk line(result.m_bytes);
    line.next();
    const Span heading = {line.begin(), line.length()};
    if (!line.next())
        return result;

    const char mark = separator.toLatin1();
    Spans fields;
    result.appendFields(heading, mark, fields);
    result.readHeading(fields);
    fields.clear();
    result.appendFields({line.begin(), line.length()}, mark, fields);
    result.readColumnNames(fields);

    const auto needed = static_cast<size_t>(result.m_headers.size());
    while (line.next()) {
        const size_t before = result.m_fields.size();
        result.appendFields({line.begin(), line.length()}, mark, result.m_fields);
        if (result.m_fields.size() - before < needed)
            result.m_fields.resize(before);
        else
            result.m_rowEnds.push_back(static_cast<int>(result.m_fields.size()));
    }
    return result;
}

QString ResultsCsv::field(int row, int column) const
{
    return textAt(m_fields[size_t(rowBegin(row)) + size_t(column)]);
}

void ResultsCsv::appendFields(Span line, char separator, Spans &fields) const
{
    const int end = line.begin + line.length;
    for (int begin = line.begin; begin <= end;) {
        const int next = find(m_bytes, separator, begin, end);
        fields.push_back({begin, next - begin});
        begin = next + 1;
    }
}

QString ResultsCsv::textAt(const Span &span) const
{
    return QString::fromUtf8(m_bytes.constData() + span.begin, span.length).trimmed();
}

void ResultsCsv::readHeading(const Spans &fields)
{
    if (fields.size() >= 2)
        m_serialNumber = textAt(fields[1]);
}

void ResultsCsv::readColumnNames(const Spans &fields)
{
    for (size_t position = 0; position < fields.size(); ++position) {
        const QString name = textAt(fields[position]);
        if (name == QLatin1String("TestType"))
            m_testTypeColumn = static_cast<int>(position);
        // The position counts the curve's column, the list of names does not: so the names behind it
        // stand one field off from the values.
        if (name != QLatin1String("IVCurve"))
            m_headers.append(name);
    }
}
