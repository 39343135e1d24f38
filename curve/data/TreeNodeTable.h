#pragma once

#include <QSqlDatabase>
#include <QStringList>

class QSqlError;

namespace IVCurve {

class TreeItem;

/// The table of tree nodes in a curve file.
class TreeNodeTable
{
public:
    explicit TreeNodeTable(const QSqlDatabase &database) : m_database(database) {}

    /// What brings older files up to date. Each may be run on any file, whatever comes of it.
    static QStringList upgradeStatements();
    void upgrade() const;

    /// Reads all nodes below the root, and raises `nextNodeId` above their numbers. False, after the error
    /// has been told, if not even the first statement ran.
    bool read(TreeItem &root, int &nextNodeId) const;
    /// Rewrites the table. A root without children leaves it as it is. Each statement waits for a file that
    /// another program has locked; after the first that waited in vain the others do not, until
    /// waitAsUsual().
    void write(const TreeItem &root) const;
    void waitAsUsual() const;
    /// Deletes the curves that no node shows.
    void removeOrphans() const;

private:
    void hurryIfLocked(const QSqlError &error) const;

    QSqlDatabase m_database;
};

} // namespace IVCurve
