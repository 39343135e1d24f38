#pragma once

#include <QSqlDatabase>

namespace IVCurve {

/// Spares many statements that each commit by themselves the making and removing of a journal file: for
/// the life of the object the journal is kept and overwritten, which is as safe. Files in another journal
/// mode stay in it, as that is the choice of who set it.
class RollbackJournal
{
public:
    explicit RollbackJournal(const QSqlDatabase &database);
    /// Removes the journal file.
    ~RollbackJournal();
    RollbackJournal(const RollbackJournal &) = delete;
    RollbackJournal &operator=(const RollbackJournal &) = delete;

private:
    QSqlDatabase m_database;
    bool m_kept = false;
};

} // namespace IVCurve
