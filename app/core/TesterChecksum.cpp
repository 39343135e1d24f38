#include "app/core/TesterChecksum.h"

#include <QString>

quint16 testerChecksum(QStringView text, QChar separator, QChar decimalMark)
{
    quint16 sum = 1;
    for (const QChar character : text) {
        ushort code = character.unicode() & 0xffu;
        if (character == decimalMark)
            code = '.';
        else if (character == separator)
            code = ',';
        sum = static_cast<quint16>(sum + code);
    }
    return sum;
}

bool testerChecksumMatches(QStringView line, QChar separator, QChar decimalMark)
{
    const qsizetype last = line.lastIndexOf(separator);
    if (last < 0)
        return false;
    bool isNumber = false;
    const quint16 stored = line.mid(last + 1).toString().toUShort(&isNumber, 16);
    return isNumber && stored == testerChecksum(line.left(last + 1), separator, decimalMark);
}
