#include "curve/data/PlainTables.h"

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariant>

namespace IVCurve {

namespace {

/// What SQLite may take of memory, in bytes, for all connections: a text of hundreds of megabytes fails as a
/// statement does and not as the program.
constexpr int heapLimit = 512 * 1024 * 1024;

void makeCareful(const QSqlDatabase &database)
{
    QSqlQuery query(database);
    query.exec(QStringLiteral("PRAGMA trusted_schema=OFF;"));
    query.exec(QStringLiteral("PRAGMA cell_size_check=ON;"));
    query.exec(QStringLiteral("PRAGMA hard_heap_limit=%1;").arg(heapLimit));
}

/// The translation context of these messages.
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(IVCurve::PlainTables)
};

/// True if a table has a column that is computed or hidden, as virtual tables have them, too.
bool hasComputedColumns(const QSqlDatabase &database, const QString &table)
{
    QSqlQuery query(database);
    query.exec(QStringLiteral("PRAGMA table_xinfo(\"%1\");").arg(table));
    while (query.next()) {
        if (query.value(QStringLiteral("hidden")).toInt() != 0)
            return true;
    }
    return false;
}

} // namespace

QString hostileSchema(const QSqlDatabase &database, const QStringList &tables)
{
    makeCareful(database);
    QSqlQuery query(database);
    query.setForwardOnly(true);
    query.exec(QStringLiteral("SELECT type, name, tbl_name, rootpage FROM sqlite_master WHERE type IN "
                              "('table', 'view', 'trigger');"));
    QStringList present;
    while (query.next()) {
        const QString type = query.value(0).toString().toLower();
        const QString name = query.value(type == QLatin1String("trigger") ? 2 : 1).toString();
        if (!tables.contains(name, Qt::CaseInsensitive))
            continue;
        if (type == QLatin1String("view"))
            return Text::tr("\"%1\" is a view and not a table.", "Error Message").arg(name);
        if (type == QLatin1String("trigger"))
            return Text::tr("A trigger is set on the table \"%1\".", "Error Message").arg(name);
        // A virtual table stands on no page of the file.
        if (query.value(3).toInt() == 0)
            return Text::tr("The table \"%1\" is a virtual one.", "Error Message").arg(name);
        present.append(name);
    }
    for (const QString &table : qAsConst(present)) {
        if (hasComputedColumns(database, table))
            return Text::tr("The table \"%1\" has computed columns.", "Error Message").arg(table);
    }
    return QString();
}

} // namespace IVCurve
