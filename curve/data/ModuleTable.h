#pragma once

#include "curve/data/CurveModuleRow.h"

#include <QSqlDatabase>
#include <QVector>

#include <memory>

namespace IVCurve {

/// The table of the catalogue of modules. Nothing happens on a closed connection, which is a failure.
class ModuleTable
{
public:
    explicit ModuleTable(const QSqlDatabase &database) : m_database(database) {}

    /// The rows that a condition holds for, by name. `rows` stays as it is when the query fails.
    bool query(const QString &whereClause, QVector<CurveModuleRow> &rows) const;
    bool allRows(QVector<CurveModuleRow> &rows) const;
    bool favouriteRows(QVector<CurveModuleRow> &rows) const;
    /// Null if there is no such row.
    std::unique_ptr<CurveModuleRow> row(quint32 id) const;

    /// The new row's id, or 0.
    quint32 insert(const CurveModuleRow &row);
    bool update(const CurveModuleRow &row);
    bool remove(quint32 id);

private:
    QSqlDatabase m_database;
};

} // namespace IVCurve
