#pragma once

#include <QChar>
#include <QString>

/// How numbers are written in the tables that the program reads and writes. "Locale" is the default
/// locale, which follows the session's language.
namespace NumberText {

/// "," where the locale writes 0.5 with a comma, otherwise ".".
QChar decimalMark();

/// What separates the fields of a table: ";" where the comma is the decimal mark, otherwise ",".
QChar listSeparator();

/// A number as it is shown: six significant digits in the default locale.
QString shown(double value);

/// A text of the default locale as it is stored: in the C locale with six significant digits. A text that
/// is no number stays as it is.
QString toStored(const QString &text);

/// A stored text as it is shown. A text that is no number stays as it is.
QString toShown(const QString &text);

} // namespace NumberText
