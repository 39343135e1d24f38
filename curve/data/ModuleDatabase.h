#pragma once

#include "curve/data/ModuleBinding.h"
#include "curve/data/ModuleTable.h"

#include <QCoreApplication>
#include <QSqlDatabase>

#include <memory>

namespace IVCurve {

/// The catalogue of modules, one for the machine: "modules.db" in the data folder. It is open from its first
/// use to the end of the program.
class ModuleDatabase
{
    Q_DECLARE_TR_FUNCTIONS(IVCurve::ModuleDatabase)

public:
    /// The one of the process, opened unless it is open. A failure is told each time.
    static ModuleDatabase &instance();

    ModuleDatabase() = default;
    ~ModuleDatabase();
    ModuleDatabase(const ModuleDatabase &) = delete;
    ModuleDatabase &operator=(const ModuleDatabase &) = delete;

    /// Opens the database at a path, or where the installation has put it.
    bool open(const QString &path = QString(), const QString &driver = QStringLiteral("QSQLITE"));
    void close();

    bool isOpen() const { return m_open; }
    /// Null while the database is closed.
    ModuleTable *table() const { return m_table.get(); }

    static QString defaultPath();

    /// A module of the catalogue in series and parallel; no module if it cannot be had. Id 0 is none from
    /// the start, and leaves the catalogue alone.
    static ModuleBinding binding(quint32 id, qint32 series, qint32 parallel);
    /// A row of the catalogue in series and parallel.
    static ModuleBinding binding(const CurveModuleRow &row, qint32 series, qint32 parallel);

private:
    bool connectTo(const QString &path, const QString &driver);

    QSqlDatabase m_database;
    bool m_open = false;
    QString m_path;
    QString m_driver;
    std::unique_ptr<ModuleTable> m_table;
};

} // namespace IVCurve
