#include "curve/data/TreeNodeTable.h"

#include "curve/data/SqlMessages.h"
#include "curve/data/TreeItem.h"

#include <QSet>
#include <QSqlError>
#include <QSqlQuery>

#include <limits>

namespace IVCurve {

namespace {

/// Columns of the statement that reads nodes.
enum Column
{
    NodeIDColumn,
    ParentNodeIDColumn,
    NodeDescColumn,
    StatusColumn,
    CurveIDColumn,
    MemLocationColumn,
    TestDateColumn,
    ColourColumn,
    IrradianceColumn,
    AmbientTempColumn,
    CellTempColumn,
    FFColumn
};

QString readStatement(const char *condition)
{
    return QLatin1String("SELECT t.NodeID, t.ParentNodeID, t.NodeDesc, t.Status, c.CurveID, c.MemLocation, "
                         "c.TestDate, t.Colour, c.Irradiance, c.AmbientTemp, c.CellTemp, c.FF "
                         "FROM TreeNodes t LEFT JOIN Curves c ON t.CurveID = c.CurveID WHERE ") +
           QLatin1String(condition) + QLatin1String(" ORDER BY ParentNodeID ASC, ParentRow DESC");
}

TreeItem *newChild(const QSqlQuery &row, TreeItem &parent)
{
    auto *item = new TreeItem(&parent);
    item->data[TreeItem::NodeID] = row.value(NodeIDColumn);
    item->data[TreeItem::ParentNodeID] = row.value(ParentNodeIDColumn);
    item->data[TreeItem::NodeDesc] = row.value(NodeDescColumn);
    item->data[TreeItem::CurveID] = row.value(CurveIDColumn);
    item->data[TreeItem::MemLocation] = row.value(MemLocationColumn);
    item->data[TreeItem::TestDate] = row.value(TestDateColumn);
    item->data[TreeItem::Status] = row.value(StatusColumn);
    item->data[TreeItem::Irradiance] = row.value(IrradianceColumn);
    item->data[TreeItem::AmbientTemp] = row.value(AmbientTempColumn);
    item->data[TreeItem::CellTemp] = row.value(CellTempColumn);
    item->data[TreeItem::FF] = row.value(FFColumn);
    const QVariant colour = row.value(ColourColumn);
    if (!colour.isNull())
        item->colour = QColor(colour.toString());
    return item;
}

/// Makes the children of one item. Rows come in descending order, so each goes to the front. False, after the
/// error has been told, if not all rows could be had: a damaged file may fail at any of them, and what was
/// read until then must not pass for the whole.
bool readChildren(QSqlQuery &rows, TreeItem &parent, int &nextNodeId)
{
    while (rows.next()) {
        TreeItem *item = newChild(rows, parent);
        parent.children.prepend(item);
        const int id = item->data.at(TreeItem::NodeID).toInt();
        if (id >= nextNodeId && id < std::numeric_limits<int>::max())
            nextNodeId = id + 1;
    }
    const QSqlError error = rows.lastError();
    rows.finish();
    if (!error.isValid())
        return true;
    showSqlError(error);
    return false;
}

/// What SQLite calls a file that another program has locked.
const QString lockedCode = QStringLiteral("5");

/// How long statements wait for a file that another program has locked, in milliseconds.
void setPatience(const QSqlDatabase &database, int milliseconds)
{
    QSqlQuery(database).exec(QStringLiteral("PRAGMA busy_timeout=%1;").arg(milliseconds));
}

constexpr int usualPatience = 5000;

} // namespace

QStringList TreeNodeTable::upgradeStatements()
{
    return {QStringLiteral("CREATE TABLE if not exists TreeNodes (NodeID INTEGER PRIMARY KEY, ParentNodeID "
                           "INTEGER, NodeDesc TEXT, CurveID INTEGER, ParentRow INTEGER, Status "
                           "INTEGER,Colour TEXT);"),
            QStringLiteral("CREATE INDEX IDX_TREENODE_CURVEID ON TreeNodes(CurveID);"),
            QStringLiteral("CREATE INDEX idx_treenode_parent ON TreeNodes(ParentNodeID, ParentRow);")};
}

void TreeNodeTable::upgrade() const
{
    for (const QString &statement : upgradeStatements())
        QSqlQuery(m_database).exec(statement);
}

bool TreeNodeTable::read(TreeItem &root, int &nextNodeId) const
{
    QSqlQuery roots(m_database);
    QSqlQuery below(m_database);
    roots.setForwardOnly(true);
    below.setForwardOnly(true);
    if (!prepareOrTell(roots, readStatement("ParentNodeID IS NULL")) || !execOrTell(roots) ||
        !readChildren(roots, root, nextNodeId)) {
        upgrade();
        return false;
    }
    if (!prepareOrTell(below, readStatement("ParentNodeID = ?")))
        return true;

    // A damaged table may hold a number twice. Reading what is below a number only once lets the reading
    // end whatever the table holds.
    QSet<qlonglong> seen;
    QList<TreeItem *> waiting = root.children;
    while (!waiting.isEmpty()) {
        TreeItem *item = waiting.takeLast();
        const QVariant id = item->data.at(TreeItem::NodeID);
        if (seen.contains(id.toLongLong()))
            continue;
        seen.insert(id.toLongLong());
        below.bindValue(0, id);
        if (!execOrTell(below) || !readChildren(below, *item, nextNodeId)) {
            upgrade();
            return true;
        }
        waiting += item->children;
    }
    return true;
}

void TreeNodeTable::write(const TreeItem &root) const
{
    if (root.children.isEmpty() || !m_database.isOpen())
        return;
    QSqlQuery empty(m_database);
    if (!empty.exec(QStringLiteral("DELETE FROM TreeNodes;")))
        hurryIfLocked(empty.lastError());
    QSqlQuery insert(m_database);
    if (!prepareOrTell(insert, QStringLiteral("INSERT OR REPLACE INTO TreeNodes(NodeID, ParentNodeID, "
                                              "ParentRow, NodeDesc, CurveID, Status, Colour) "
                                              "VALUES(?,?,?,?,?,?,?);"))) {
        upgrade();
        return;
    }
    QList<const TreeItem *> waiting{&root};
    while (!waiting.isEmpty()) {
        const TreeItem *item = waiting.takeLast();
        if (item != &root) {
            insert.bindValue(0, item->data.at(TreeItem::NodeID));
            insert.bindValue(1, item->data.at(TreeItem::ParentNodeID));
            insert.bindValue(2, item->row());
            insert.bindValue(3, item->data.at(TreeItem::NodeDesc));
            insert.bindValue(4, item->data.at(TreeItem::CurveID));
            insert.bindValue(5, item->data.at(TreeItem::Status));
            insert.bindValue(6, item->colour.isValid() ? QVariant(item->colour.name())
                                                       : QVariant(QVariant::String));
            if (!insert.exec())
                hurryIfLocked(insert.lastError());
        }
        for (auto child = item->children.crbegin(); child != item->children.crend(); ++child)
            waiting.append(*child);
    }
}

void TreeNodeTable::hurryIfLocked(const QSqlError &error) const
{
    if (error.nativeErrorCode() == lockedCode)
        setPatience(m_database, 0);
}

void TreeNodeTable::waitAsUsual() const
{
    setPatience(m_database, usualPatience);
}

void TreeNodeTable::removeOrphans() const
{
    if (!m_database.isOpen())
        return;
    QSqlQuery query(m_database);
    if (prepareOrTell(query, QStringLiteral("DELETE FROM curves WHERE CurveId IN (SELECT curves.curveid FROM "
                                            "curves LEFT OUTER JOIN treenodes ON curves.curveid = "
                                            "treenodes.curveid WHERE nodeid IS NULL);")))
        execOrTell(query);
}

} // namespace IVCurve
