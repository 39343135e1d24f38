// A tester's results file from bytes to fields, held against the plain way of dividing a text. Input that
// opens with a semicolon is divided at semicolons.

#include "app/core/TesterChecksum.h"
#include "import/ResultsCsv.h"

#include <QStringList>
#include <QtGlobal>

#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        abort();
}

QStringList plainLines(const QString &text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size() - 1; ++i) {
        while (lines.at(i).endsWith(QLatin1Char('\r')))
            lines[i].chop(1);
    }
    return lines;
}

QStringList plainFields(const QString &line, QChar separator)
{
    QStringList fields = line.split(separator);
    for (QString &field : fields)
        field = field.trimmed();
    return fields;
}

void requireSame(const ResultsCsv &csv, const QStringList &lines, QChar separator)
{
    if (lines.size() < 2) {
        require(csv.rowCount() == 0 && csv.headers().isEmpty() && csv.testTypeColumn() == -1);
        return;
    }
    require(csv.serialNumber() == plainFields(lines.at(0), separator).value(1));
    QStringList names = plainFields(lines.at(1), separator);
    require(csv.testTypeColumn() == names.lastIndexOf(QStringLiteral("TestType")));
    names.removeAll(QStringLiteral("IVCurve"));
    require(csv.headers() == names.toVector());

    int row = 0;
    for (int i = 2; i < lines.size(); ++i) {
        const QStringList fields = plainFields(lines.at(i), separator);
        if (fields.size() < names.size())
            continue;
        require(row < csv.rowCount() && csv.fieldCount(row) == fields.size());
        for (int column = 0; column < fields.size(); ++column)
            require(csv.field(row, column) == fields.at(column));
        ++row;
    }
    require(row == csv.rowCount());
}

void requireSumThatIsToldApart(const QString &line, QChar separator)
{
    const QChar decimalMark = QLatin1Char(separator == QLatin1Char(';') ? ',' : '.');
    testerChecksumMatches(line, separator, decimalMark);
    const QString summed = line + separator;
    const quint16 sum = testerChecksum(summed, separator, decimalMark);
    require(testerChecksumMatches(summed + QString::number(sum, 16), separator, decimalMark));
    require(!testerChecksumMatches(summed + QString::number(quint16(sum + 1), 16), separator, decimalMark));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    const QChar separator = QLatin1Char(bytes.startsWith(';') ? ';' : ',');
    const ResultsCsv csv = ResultsCsv::parse(bytes, separator);

    // A byte order mark is dropped before any field, not only at the start of the file.
    if (bytes.indexOf("\xef\xbb\xbf", 1) >= 0)
        return 0;
    const QStringList lines = plainLines(QString(bytes));
    requireSame(csv, lines, separator);
    for (const QString &line : lines)
        requireSumThatIsToldApart(line, separator);
    return 0;
}
