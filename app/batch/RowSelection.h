#pragma once

#include <QString>
#include <QVector>

#include <optional>

/// The rows that a text such as "1-4" or "2,5-7" names, in its order, counted from 1. Nothing for a text
/// that is no such list, or that names more rows than any file has.
std::optional<QVector<int>> parseRowSelection(const QString &text);
