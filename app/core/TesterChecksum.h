#pragma once

#include <QChar>
#include <QStringView>

/// The sum that a tester writes at the end of each line of its results file.
///
/// A list separator counts as "," and a decimal mark as ".", so that a line still passes after a
/// spreadsheet has rewritten the file in the manner of another country.

/// The sum over all characters of `text`, which is to end with the line's last separator.
quint16 testerChecksum(QStringView text, QChar separator, QChar decimalMark);

/// True if the hexadecimal number behind the line's last separator is the sum of what stands before.
bool testerChecksumMatches(QStringView line, QChar separator, QChar decimalMark);
