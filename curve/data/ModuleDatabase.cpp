#include "curve/data/ModuleDatabase.h"

#include "app/core/Folders.h"
#include "app/core/Messages.h"
#include "app/core/Shell.h"
#include "curve/data/PlainTables.h"

#include <QDir>
#include <QFile>
#include <QSqlError>

namespace IVCurve {

namespace {

std::unique_ptr<ModuleDatabase> &singleton()
{
    static std::unique_ptr<ModuleDatabase> database;
    return database;
}

void removeSingleton()
{
    singleton().reset();
}

void tellOpenFailure(const QString &text)
{
    Message message;
    message.parent = Shell::parentWindow();
    message.icon = QMessageBox::Warning;
    message.text = text;
    showMessage(message);
}

} // namespace

ModuleDatabase &ModuleDatabase::instance()
{
    if (!singleton()) {
        singleton() = std::make_unique<ModuleDatabase>();
        // Database drivers go with the application object: the connection has to be closed before.
        qAddPostRoutine(removeSingleton);
    }
    if (!singleton()->isOpen())
        singleton()->open();
    return *singleton();
}

ModuleDatabase::~ModuleDatabase()
{
    close();
}

bool ModuleDatabase::open(const QString &path, const QString &driver)
{
    close();
    m_path = path.isEmpty() ? defaultPath() : path;
    m_driver = driver;
    m_open = connectTo(m_path, m_driver);
    if (m_open)
        m_table = std::make_unique<ModuleTable>(m_database);
    return m_open;
}

void ModuleDatabase::close()
{
    m_table.reset();
    if (!m_open)
        return;
    m_open = false;
    const QString name = m_database.connectionName();
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(name);
}

bool ModuleDatabase::connectTo(const QString &path, const QString &driver)
{
    if (QSqlDatabase::contains(path)) {
        m_database = QSqlDatabase::database(path);
        return true;
    }
    if (!QFile::exists(path)) {
        Message message;
        message.parent = Shell::parentWindow();
        message.icon = QMessageBox::Critical;
        message.title = tr("Kelmar");
        message.text = tr("File is missing:\n %1").arg(path);
        showMessage(message);
        return false;
    }
    m_database = QSqlDatabase::addDatabase(driver, path);
    m_database.setDatabaseName(path);
    QString failure;
    if (!m_database.open())
        failure = m_database.lastError().text();
    else
        failure = hostileSchema(m_database, {QStringLiteral("Modules")});
    if (failure.isEmpty())
        return true;
    // A connection that stayed would be taken for an open one the next time.
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(path);
    tellOpenFailure(failure);
    return false;
}

QString ModuleDatabase::defaultPath()
{
    const QString folder = QDir(Folders::instance()->dataFolder()).canonicalPath();
    return QDir::toNativeSeparators(folder) + QDir::separator() + QLatin1String("modules.db");
}

ModuleBinding ModuleDatabase::binding(quint32 id, qint32 series, qint32 parallel)
{
    if (id == 0)
        return ModuleBinding(0, series, parallel, 0, 0, 0, 0);
    const ModuleTable *table = instance().table();
    const auto row = table ? table->row(id) : nullptr;
    return row ? binding(*row, series, parallel) : ModuleBinding();
}

ModuleBinding ModuleDatabase::binding(const CurveModuleRow &row, qint32 series, qint32 parallel)
{
    return ModuleBinding(row.id, series, parallel, row.Voc.toDouble(), row.Isc.toDouble(), row.Vmp.toDouble(),
                         row.Imp.toDouble());
}

} // namespace IVCurve
