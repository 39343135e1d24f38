#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include <vector>

/// The contents of a tester's results file, divided into fields.
///
/// A file can hold a thousand curves of more than a hundred points, each a field of its own, of which
/// hardly any is ever looked at. So the bytes are kept as they came, and a field is no more than its
/// place in them until somebody asks for it.
class ResultsCsv
{
public:
    /// Nothing at all: no columns, no rows.
    ResultsCsv() = default;

    /// Divides a file whose fields stand between separators, which must be an ASCII character. Never
    /// fails: what is missing stays empty.
    static ResultsCsv parse(const QByteArray &bytes, QChar separator);

    /// Serial number of the tester that wrote the file.
    const QString &serialNumber() const { return m_serialNumber; }
    /// The names of all columns but that of the curve, which has no single field in a row.
    const QVector<QString> &headers() const { return m_headers; }
    /// Position of the column with the kind of test among the names in the file; -1 if absent.
    int testTypeColumn() const { return m_testTypeColumn; }

    int rowCount() const { return static_cast<int>(m_rowEnds.size()); }
    /// The number of fields in a row, which has more of them than there are headers when it holds a curve.
    int fieldCount(int row) const { return m_rowEnds[static_cast<size_t>(row)] - rowBegin(row); }
    /// A field of a row without the blanks around it.
    QString field(int row, int column) const;

private:
    /// A field's place in the bytes.
    struct Span
    {
        int begin;
        int length;
    };
    using Spans = std::vector<Span>;

    int rowBegin(int row) const { return row == 0 ? 0 : m_rowEnds[static_cast<size_t>(row) - 1]; }
    void appendFields(Span line, char separator, Spans &fields) const;
    QString textAt(const Span &span) const;
    void readHeading(const Spans &fields);
    void readColumnNames(const Spans &fields);

    QByteArray m_bytes;
    QString m_serialNumber;
    QVector<QString> m_headers;
    int m_testTypeColumn = -1;
    /// The fields of all rows, one row after the other.
    Spans m_fields;
    /// For each row the number of fields up to its end.
    std::vector<int> m_rowEnds;
};
