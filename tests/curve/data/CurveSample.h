#pragma once

#include "curve/data/StringRecord.h"

#include <QString>
#include <QStringList>
#include <QVariant>

/// Curve files and catalogues for tests.
namespace CurveSample {

/// A curve file as it is made from the pristine one, in the home of the test.
QString newFile(const QString &name = QStringLiteral("curves.kelcrv"));

/// An empty SQLite file made by these statements.
QString fileFromSql(const QStringList &statements, const QString &name = QStringLiteral("made.kelcrv"));

/// Runs statements on a file by a connection of its own.
void execute(const QString &path, const QStringList &statements);
/// The rows of a query, each with its values.
QVector<QVariantList> rows(const QString &path, const QString &statement);
/// The first value of a query.
QVariant value(const QString &path, const QString &statement);

/// Puts a catalogue with these rows into the data folder. Each row is what stands between the parentheses of
/// VALUES: _id, Description, Isc, Voc, Imp, Vmp, alpha, beta, delta, Rs, UserModule, Favourite.
QString writeCatalogue(const QStringList &modules);
/// Closes the catalogue of the process and removes its file.
void forgetCatalogue();

/// A record with a plausible curve of this many points.
IVCurve::StringRecord record(int points = 8);

} // namespace CurveSample
