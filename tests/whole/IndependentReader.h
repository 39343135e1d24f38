#pragma once

#include <QByteArray>
#include <QPair>
#include <QString>
#include <QVector>

/// The entries of a report file, read without the program's own code: zlib and the entry stream by hand.
/// Empty when anything about the file is not as it must be.
QVector<QPair<QString, QByteArray>> independentEntries(const QString &path);
