#pragma once

#include <QString>

/// What a user might fill into a field of a form, by the field's id and the language of the form ("en" or
/// "de"). Empty for a field that needs no words of its own.
QString formEntry(const QString &id, const QString &language);

/// What a user might fill into a row of the array test report's table. Empty beyond its rows.
QString formCellEntry(int row, int column, const QString &language);
