#pragma once

#include "curve/data/KeptStatement.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStringList>

#include <memory>

namespace IVCurve {

class StringRecord;
struct CurveModuleRow;

/// The table of measured strings in a curve file. Each statement commits by itself; on a closed connection
/// nothing happens.
class CurveTable
{
public:
    /// Reads one row after the other with one statement.
    class Reader
    {
    public:
        explicit Reader(const QSqlDatabase &database) : m_database(database) {}
        std::unique_ptr<StringRecord> load(quint32 id);

    private:
        bool prepare();

        QSqlDatabase m_database;
        std::unique_ptr<QSqlQuery> m_query;
    };

    explicit CurveTable(const QSqlDatabase &database);

    /// What brings older files up to date. Each may be run on any file, whatever comes of it.
    static QStringList upgradeStatements();

    /// The new row's id, or 0.
    quint32 insert(const StringRecord &record);
    /// Null if there is no such row or it cannot be read.
    std::unique_ptr<StringRecord> load(quint32 id) const { return Reader(m_database).load(id); }
    /// Stores settings, module and the conditions of the measurement of a record.
    bool updateSettings(const StringRecord &record);
    /// Stores a module with its coefficients.
    bool assignModule(quint32 id, const CurveModuleRow &module, int series, int parallel);

private:
    QSqlDatabase m_database;
    // An import brings strings by the thousand.
    KeptStatement m_insert;
};

} // namespace IVCurve
