#include "curve/data/RollbackJournal.h"

#include <QSqlQuery>
#include <QVariant>

namespace IVCurve {

namespace {

QString journalMode(const QSqlDatabase &database, const QString &statement)
{
    QSqlQuery query(database);
    return query.exec(statement) && query.next() ? query.value(0).toString() : QString();
}

} // namespace

RollbackJournal::RollbackJournal(const QSqlDatabase &database) : m_database(database)
{
    if (!m_database.isOpen() ||
        journalMode(m_database, QStringLiteral("PRAGMA journal_mode;")) != QLatin1String("delete"))
        return;
    m_kept =
        journalMode(m_database, QStringLiteral("PRAGMA journal_mode=PERSIST;")) == QLatin1String("persist");
}

RollbackJournal::~RollbackJournal()
{
    if (m_kept && m_database.isOpen())
        journalMode(m_database, QStringLiteral("PRAGMA journal_mode=DELETE;"));
}

} // namespace IVCurve
