#pragma once

class QSqlError;
class QSqlQuery;
class QString;

namespace IVCurve {

/// Shows the text of a database's error.
void showSqlError(const QSqlError &error);

/// Prepares a statement; shows the error when that fails.
bool prepareOrTell(QSqlQuery &query, const QString &statement);

/// Executes a prepared statement; shows the error when that fails.
bool execOrTell(QSqlQuery &query);

} // namespace IVCurve
