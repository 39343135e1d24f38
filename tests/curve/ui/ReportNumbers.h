#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

/// The numbers of a string's row in the report, by the names of its cells, worked out from the values in the
/// file and in the catalogue by code of the tests alone. The numbers are written in the default locale.
QMap<QString, QString> reportNumbers(const QString &curveFile, unsigned id);

/// The texts of the cells of a report's table, row by row, as they stand in its HTML. Only rows of strings.
QVector<QStringList> reportRows(const QString &html, int cells);

/// The names of the cells, in the order of the row, behind that of the string.
QStringList conditionCellNames();
QStringList valueCellNames();
