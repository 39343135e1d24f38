#include "tools/resources/Databases.h"

#include "tools/resources/ResourceFolder.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariant>

namespace {

/// Columns of the table of modules; the kind of a module, its cells and its power are for the reader only.
constexpr int moduleColumns = 12;
constexpr int firstRating = 4;

QStringList linesWithout(const QString &path, const char *comment)
{
    QStringList kept;
    const QStringList lines = QString::fromUtf8(readSource(path)).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (!line.trimmed().isEmpty() && !line.startsWith(QLatin1String(comment)))
            kept.append(line);
    }
    return kept;
}

/// A database that is made in a temporary file.
class NewDatabase
{
public:
    explicit NewDatabase(const QString &source)
        : m_source(source), m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), source))
    {
        m_database.setDatabaseName(m_folder.filePath(QStringLiteral("new.db")));
        if (!m_database.open())
            stop(m_database.lastError().text());
        const QString sql = linesWithout(source, "--").join(QLatin1Char('\n'));
        for (const QString &statement : sql.split(QLatin1Char(';'))) {
            if (!statement.trimmed().isEmpty())
                run(statement);
        }
    }

    ~NewDatabase()
    {
        m_database.close();
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_source);
    }

    NewDatabase(const NewDatabase &) = delete;
    NewDatabase &operator=(const NewDatabase &) = delete;

    void run(const QString &statement, const QVariantList &values = QVariantList())
    {
        QSqlQuery query(m_database);
        if (!query.prepare(statement))
            stop(query.lastError().text());
        for (const QVariant &value : values)
            query.addBindValue(value);
        if (!query.exec())
            stop(query.lastError().text());
    }

    QByteArray bytes()
    {
        m_database.close();
        return readSource(m_folder.filePath(QStringLiteral("new.db")));
    }

private:
    [[noreturn]] void stop(const QString &why) const
    {
        throw BuildError(QStringLiteral("%1: %2").arg(m_source, why));
    }

    QString m_source;
    QTemporaryDir m_folder;
    QSqlDatabase m_database;
};

QVariantList moduleRow(const QString &line, const QString &path)
{
    const QStringList fields = line.split(QLatin1Char('\t'));
    if (fields.size() != moduleColumns)
        throw BuildError(QStringLiteral("%1: not %2 columns: %3").arg(path).arg(moduleColumns).arg(line));
    QVariantList values{fields.constFirst()};
    for (int column = firstRating; column < moduleColumns; ++column) {
        bool isNumber = false;
        values.append(fields.at(column).toDouble(&isNumber));
        if (!isNumber)
            throw BuildError(
                QStringLiteral("%1: \"%2\" is no number: %3").arg(path, fields.at(column), line));
    }
    return values;
}

QByteArray catalogue(const QString &schema, const QString &table)
{
    NewDatabase database(schema);
    database.run(QStringLiteral("BEGIN"));
    for (const QString &line : linesWithout(table, "#"))
        database.run(
            QStringLiteral("INSERT INTO Modules (Description, Isc, Voc, Imp, Vmp, alpha, beta, delta, "
                           "Rs) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"),
            moduleRow(line, table));
    database.run(QStringLiteral("COMMIT"));
    return database.bytes();
}

} // namespace

void buildDatabases(const QString &sources, ResourceFolder &target)
{
    const QByteArray curveFile = NewDatabase(sources + QStringLiteral("/kelcrv.sql")).bytes();
    for (const QString &folder : target.reportFolders())
        target.store(folder + QStringLiteral("/default.kelcrv"), curveFile);
    target.storeUnlisted(QStringLiteral("modules.db"), catalogue(sources + QStringLiteral("/modules.sql"),
                                                                 sources + QStringLiteral("/modules.tsv")));
}
