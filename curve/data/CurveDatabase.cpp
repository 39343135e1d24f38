#include "curve/data/CurveDatabase.h"

#include "app/core/Messages.h"
#include "app/core/Shell.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/data/PlainTables.h"

#include <QSqlError>

namespace IVCurve {

CurveDatabase::CurveDatabase(const QString &path, const QString &driver)
{
    m_open = openFile(path, driver);
    if (!m_open)
        return;
    try {
        m_treeModel = std::make_unique<CurveTreeModel>(m_database, this);
    } catch (...) {
        // There is no destructor to do it.
        closeFile();
        throw;
    }
    m_graphModel = std::make_unique<CurveGraphModel>(m_database, this, m_treeModel.get());
    m_graphModel->upgrade();
    m_treeModel->upgrade();
}

CurveDatabase::~CurveDatabase()
{
    closeFile();
}

bool CurveDatabase::openFile(const QString &path, const QString &driver)
{
    // The path as the connection's name keeps two open documents apart.
    m_database = QSqlDatabase::addDatabase(driver, path);
    m_database.setDatabaseName(path);
    QString failure;
    if (!m_database.open())
        failure = m_database.lastError().text();
    else
        failure = hostileSchema(m_database, {QStringLiteral("Curves"), QStringLiteral("TreeNodes")});
    if (failure.isEmpty())
        return true;
    m_database.close();
    Message message;
    message.parent = Shell::parentWindow();
    message.icon = QMessageBox::Critical;
    message.title = tr("Kelmar");
    message.text = failure;
    showMessage(message);
    return false;
}

void CurveDatabase::closeFile()
{
    const QString name = m_database.connectionName();
    if (m_open)
        m_database.close();
    m_database = QSqlDatabase();
    // The models hold handles of a connection that is closed; they do no more with them.
    m_graphModel.reset();
    m_treeModel.reset();
    QSqlDatabase::removeDatabase(name);
}

} // namespace IVCurve
