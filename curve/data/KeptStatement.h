#pragma once

#include <QSqlQuery>
#include <QString>

#include <optional>

class QSqlDatabase;

namespace IVCurve {

/// A statement that returns no rows, prepared when it is first wanted and kept for the next times, as
/// preparing an insert is nearly as much work as running it.
class KeptStatement
{
public:
    explicit KeptStatement(const QString &text) : m_text(text) {}

    /// The statement, to be bound and run; null, after the error has been told, if it cannot be prepared.
    QSqlQuery *prepared(const QSqlDatabase &database);

private:
    QString m_text;
    std::optional<QSqlQuery> m_query;
};

} // namespace IVCurve
