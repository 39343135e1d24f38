#include "curve/data/ModuleTable.h"

#include "curve/data/SqlMessages.h"

#include <QSqlError>
#include <QSqlQuery>

namespace IVCurve {

namespace {

/// The values that insert and update share, under the names that they have in either.
void bindRatings(QSqlQuery &query, const CurveModuleRow &row)
{
    query.bindValue(QStringLiteral(":Isc"), row.Isc);
    query.bindValue(QStringLiteral(":Voc"), row.Voc);
    query.bindValue(QStringLiteral(":Imp"), row.Imp);
    query.bindValue(QStringLiteral(":Vmp"), row.Vmp);
    query.bindValue(QStringLiteral(":alpha"), row.alpha);
    query.bindValue(QStringLiteral(":beta"), row.beta);
    query.bindValue(QStringLiteral(":delta"), row.delta);
    query.bindValue(QStringLiteral(":Rs"), row.Rs);
}

CurveModuleRow currentRow(const QSqlQuery &query)
{
    CurveModuleRow row;
    row.id = query.value(0).toUInt();
    row.Description = query.value(1);
    row.Isc = query.value(2);
    row.Voc = query.value(3);
    row.Imp = query.value(4);
    row.Vmp = query.value(5);
    row.alpha = query.value(6);
    row.beta = query.value(7);
    row.delta = query.value(8);
    row.Rs = query.value(9);
    row.UserModule = query.value(10);
    row.Favourite = query.value(11);
    return row;
}

} // namespace

bool ModuleTable::query(const QString &whereClause, QVector<CurveModuleRow> &rows) const
{
    if (!m_database.isOpen())
        return false;
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    query.setNumericalPrecisionPolicy(QSql::HighPrecision);
    const QString statement =
        QLatin1String("SELECT _id, Description , Isc, Voc, Imp, Vmp, alpha, beta, delta, Rs, UserModule, "
                      "Favourite FROM Modules WHERE (") +
        whereClause + QLatin1String(") ORDER BY Description ;");
    if (!prepareOrTell(query, statement) || !execOrTell(query))
        return false;
    QVector<CurveModuleRow> read;
    while (query.next())
        read.append(currentRow(query));
    // A damaged file may fail at any row: what was read until then must not pass for the whole.
    if (query.lastError().isValid()) {
        showSqlError(query.lastError());
        return false;
    }
    rows = read;
    return true;
}

bool ModuleTable::allRows(QVector<CurveModuleRow> &rows) const
{
    return query(QStringLiteral("1=1"), rows);
}

bool ModuleTable::favouriteRows(QVector<CurveModuleRow> &rows) const
{
    return query(QStringLiteral("Favourite=1"), rows);
}

std::unique_ptr<CurveModuleRow> ModuleTable::row(quint32 id) const
{
    QVector<CurveModuleRow> rows;
    if (!query(QStringLiteral("_id=") + QString::number(id), rows) || rows.size() != 1)
        return nullptr;
    return std::make_unique<CurveModuleRow>(rows.constFirst());
}

quint32 ModuleTable::insert(const CurveModuleRow &row)
{
    if (!m_database.isOpen())
        return 0;
    QSqlQuery query(m_database);
    if (!query.prepare(QStringLiteral(
            "INSERT INTO Modules (Description , Isc, Voc, Imp, Vmp, alpha, beta, delta, Rs, UserModule, "
            "Favourite) VALUES (:desc , :Isc, :Voc, :Imp, :Vmp, :alpha, :beta, :delta, :Rs, :UserModule, "
            ":Favourite);")))
        return 0;
    query.bindValue(QStringLiteral(":desc"), row.Description);
    bindRatings(query, row);
    query.bindValue(QStringLiteral(":UserModule"), row.UserModule);
    query.bindValue(QStringLiteral(":Favourite"), row.Favourite);
    return execOrTell(query) ? query.lastInsertId().toUInt() : 0;
}

bool ModuleTable::update(const CurveModuleRow &row)
{
    if (!m_database.isOpen())
        return false;
    QSqlQuery query(m_database);
    if (row.id == 0) {
        showSqlError(query.lastError());
        return false;
    }
    if (!prepareOrTell(query,
                       QStringLiteral("UPDATE Modules SET Description = :Desc,Isc = :Isc,Voc = :Voc,Imp = "
                                      ":Imp,Vmp = :Vmp,alpha = :alpha,beta = :beta,delta = :delta,Rs = "
                                      ":Rs,UserModule = :Usr,Favourite = :Fav WHERE _id = :id;")))
        return false;
    query.bindValue(QStringLiteral(":Desc"), row.Description);
    bindRatings(query, row);
    query.bindValue(QStringLiteral(":Usr"), row.UserModule);
    query.bindValue(QStringLiteral(":Fav"), row.Favourite);
    query.bindValue(QStringLiteral(":id"), row.id);
    return execOrTell(query);
}

bool ModuleTable::remove(quint32 id)
{
    if (!m_database.isOpen())
        return false;
    QSqlQuery query(m_database);
    if (!query.prepare(QStringLiteral("DELETE FROM Modules WHERE _id = :id;")))
        return false;
    query.bindValue(QStringLiteral(":id"), id);
    return execOrTell(query);
}

} // namespace IVCurve
