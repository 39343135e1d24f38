// A tester's results file as curves are taken from it: bytes to lines, fields, points and status words. Input
// that opens with a semicolon is read in the German way.

#include "curve/data/StringRecord.h"
#include "curve/data/TesterCurveFile.h"

#include <QRegExp>

#include <cstdlib>

using namespace IVCurve;

namespace {

void require(bool condition)
{
    if (!condition)
        abort();
}

void requireSameLines(const TesterCurveFile &file, const QByteArray &bytes, QChar separator)
{
    QByteArray stripped = bytes;
    for (char &byte : stripped)
        byte = char(byte & 0x7f);
    QStringList lines = QString(stripped).split(QRegExp(QStringLiteral("\r*\n")));
    bool touched = false;
    for (QString &line : lines) {
        while (line.endsWith(separator)) {
            line.chop(1);
            touched = true;
        }
    }
    require(file.lines() == lines && file.isSpreadsheetTouched() == touched);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    const bool german = bytes.startsWith(';');
    const TesterCurveFile file(bytes, QLocale(german ? QLocale::German : QLocale::English));
    requireSameLines(file, bytes, QLatin1Char(german ? ';' : ','));
    for (int line = 2; line < file.lines().size(); ++line) {
        if (file.isBlank(line))
            continue;
        StringHeader header;
        CurveTrace measured;
        file.readString(line, header, measured);
        const quint32 word = file.statusWord(header, measured, !file.checksumHolds(line));
        require(((word & 0x40) != 0) >= file.isSpreadsheetTouched());
        require(measured.points.size() == int(measured.refs.size()));
        // What is imported is corrected and searched for dips.
        if (measured.size() < 200) {
            StringRecord record(header, measured);
            record.removeDips(2);
            require(record.measuredCurve().size() <= measured.size());
        }
    }
    return 0;
}
