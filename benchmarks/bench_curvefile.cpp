// Curve files: importing strings into one, and the tree that they are sorted in. Each beside the sqlite3
// shell or a bare tree that does the same.

#include "benchmarks/support/Comparisons.h"
#include "benchmarks/support/SampleCurves.h"
#include "benchmarks/support/TemporaryHome.h"
#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/data/TesterCurveImporter.h"
#include "res/Resources.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QColor>
#include <QFile>
#include <QMimeData>
#include <QProcess>
#include <QSqlQuery>
#include <QVariant>

#include <memory>
#include <vector>

using namespace IVCurve;

namespace {

constexpr int nodeCount = 10000;
/// Nodes below each folder of a tree, and the folder itself.
constexpr int folderSize = 100;

TemporaryHome *home = nullptr;

QString newFile(const char *name)
{
    const QString path = home->path(QString::fromLatin1(name));
    SampleCurves::writeEmptyFile(path);
    return path;
}

bool write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

int countOf(const QSqlDatabase &database, const char *table)
{
    QSqlQuery query(database);
    return query.exec(QStringLiteral("SELECT count(*) FROM %1").arg(QLatin1String(table))) && query.next()
               ? query.value(0).toInt()
               : -1;
}

/// Lets the sqlite3 shell run a script on a file, as it does by default: each statement commits by itself.
void runShell(benchmark::State &state, const QString &path, const QString &script)
{
    QProcess shell;
    shell.setStandardInputFile(script);
    shell.start(QStringLiteral("sqlite3"), {path});
    if (!shell.waitForFinished(-1) || shell.exitCode() != 0 || !shell.readAllStandardError().isEmpty())
        state.SkipWithError("the sqlite3 shell is needed");
}

// Import ----------------------------------------------------------------------------------------------------

void import(benchmark::State &state)
{
    const QString source = home->path(QStringLiteral("strings.csv"));
    if (!write(source, SampleCurves::testerFile()))
        state.SkipWithError("cannot write the tester's file");
    for (auto _ : state) {
        state.PauseTiming();
        CurveDatabase database(newFile("import.kelcrv"));
        state.ResumeTiming();
        TesterCurveImporter(source, &database).run();
        state.PauseTiming();
        if (countOf(database.database(), "Curves") != SampleCurves::stringCount)
            state.SkipWithError("strings are missing");
        state.ResumeTiming();
    }
}

void importByShell(benchmark::State &state)
{
    const QString script = home->path(QStringLiteral("inserts.sql"));
    QByteArray inserts;
    int index = 0;
    for (const QString &points : SampleCurves::texts())
        inserts +=
            "INSERT INTO Curves (MemLocation,TestDate,TesterSerNo,Irradiance,AmbientTemp,CellTemp,Voc,Isc,"
            "Riso,Viso,Iclamp,Rpe,FF,Vmp,Imp,CurvePoints,FileVersion) VALUES (" +
            QByteArray::number(++index) + ",'','4711-0815','896.5','','43.2','','','','','','','','','','" +
            points.toLatin1() + "',2);\n";
    write(script, inserts);
    for (auto _ : state) {
        state.PauseTiming();
        const QString path = newFile("shell.kelcrv");
        {
            const CurveDatabase upgraded(path);
        }
        state.ResumeTiming();
        runShell(state, path, script);
        state.PauseTiming();
        const CurveDatabase database(path);
        if (countOf(database.database(), "Curves") != SampleCurves::stringCount)
            state.SkipWithError("strings are missing");
        state.ResumeTiming();
    }
}

// Tree ------------------------------------------------------------------------------------------------------

QString fileOfNodes(int nodes)
{
    const QString path = newFile("nodes.kelcrv");
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("nodes"));
    database.setDatabaseName(path);
    database.open();
    // Folders of a hundred.
    QSqlQuery(database).exec(
        QStringLiteral(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) INSERT INTO "
            "TreeNodes (NodeID, ParentNodeID, NodeDesc, ParentRow) SELECT i, CASE WHEN i % 100 <> 1 THEN "
            "i - (i - 1) % 100 END, 'String ' || i, i FROM n")
            .arg(nodes));
    database.close();
    database = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("nodes"));
    return path;
}

void readTree(benchmark::State &state, int nodes)
{
    const QString path = fileOfNodes(nodes);
    for (auto _ : state) {
        const CurveDatabase database(path);
        if (database.treeModel()->rowCount() != nodes / folderSize)
            state.SkipWithError("nodes are missing");
    }
}

/// The statements of such a reading, one for each node.
void readTreePlainly(benchmark::State &state, int nodes)
{
    const CurveDatabase database(fileOfNodes(nodes));
    QSqlQuery query(database.database());
    query.setForwardOnly(true);
    for (auto _ : state) {
        query.prepare(QStringLiteral(
            "SELECT t.*, c.MemLocation, c.TestDate, c.Irradiance, c.AmbientTemp, c.CellTemp, c.FF FROM "
            "TreeNodes t "
            "LEFT JOIN Curves c ON t.CurveID = c.CurveID WHERE ParentNodeID = ? ORDER BY ParentRow"));
        int rows = 0;
        for (int id = 1; id <= nodes; ++id) {
            query.bindValue(0, id);
            query.exec();
            while (query.next())
                ++rows;
        }
        if (rows != nodes - nodes / folderSize)
            state.SkipWithError("nodes are missing");
    }
}

/// Moves each folder to the end, as the view does it.
void moveInTree(benchmark::State &state)
{
    const CurveDatabase database(fileOfNodes(nodeCount));
    CurveTreeModel *tree = database.treeModel();
    for (auto _ : state) {
        for (int i = 0; i < nodeCount / folderSize; ++i) {
            const std::unique_ptr<QMimeData> data(tree->mimeData({tree->index(0, 0)}));
            tree->dropMimeData(data.get(), Qt::MoveAction, tree->rowCount(), 0, QModelIndex());
            tree->removeRow(0);
        }
    }
}

/// A node as a tree without a model keeps it.
struct PlainNode
{
    QVector<QVariant> data;
    QColor colour;
    std::vector<std::unique_ptr<PlainNode>> children;
};

std::unique_ptr<PlainNode> copyOf(const PlainNode &node)
{
    auto copy = std::make_unique<PlainNode>();
    copy->data = node.data;
    copy->colour = node.colour;
    for (const auto &child : node.children)
        copy->children.push_back(copyOf(*child));
    return copy;
}

/// A tree of folders like that of fileOfNodes().
PlainNode plainTree()
{
    PlainNode root;
    for (int id = 1; id <= nodeCount; ++id) {
        const bool isFolder = (id - 1) % folderSize == 0;
        PlainNode &parent = isFolder ? root : *root.children.back();
        parent.children.push_back(std::make_unique<PlainNode>());
        QVector<QVariant> &data = parent.children.back()->data;
        data.resize(TreeItem::FieldCount);
        data[TreeItem::NodeID] = id;
        data[TreeItem::NodeDesc] = QStringLiteral("String %1").arg(id);
    }
    return root;
}

/// A drag copies what it moves and removes it where it was.
void moveInPlainTree(benchmark::State &state)
{
    PlainNode root = plainTree();
    for (auto _ : state) {
        for (int i = 0; i < nodeCount / folderSize; ++i) {
            root.children.push_back(copyOf(*root.children.front()));
            root.children.erase(root.children.begin());
        }
    }
}

void saveTree(benchmark::State &state, int nodes)
{
    const CurveDatabase database(fileOfNodes(nodes));
    for (auto _ : state)
        database.treeModel()->slotSave();
    if (countOf(database.database(), "TreeNodes") != nodes)
        state.SkipWithError("nodes are missing");
}

/// The same without waiting for the disk, which takes another time at each run: so the growth of the work
/// shows.
void saveTreeUnwaited(benchmark::State &state, int nodes)
{
    const CurveDatabase database(fileOfNodes(nodes));
    QSqlQuery(database.database()).exec(QStringLiteral("PRAGMA synchronous=OFF"));
    for (auto _ : state)
        database.treeModel()->slotSave();
    if (countOf(database.database(), "TreeNodes") != nodes)
        state.SkipWithError("nodes are missing");
}

void saveTreeByShell(benchmark::State &state, int nodes)
{
    const QString path = fileOfNodes(nodes);
    QByteArray statements = "DELETE FROM TreeNodes;\n";
    for (int i = 1; i <= nodes; ++i) {
        const int place = (i - 1) % folderSize;
        statements +=
            "INSERT OR REPLACE INTO TreeNodes(NodeID, ParentNodeID, ParentRow, NodeDesc, CurveID, Status, "
            "Colour) VALUES(" +
            QByteArray::number(i) + ',' + (place ? QByteArray::number(i - place) : "NULL") + ',' +
            QByteArray::number(place ? place - 1 : i / folderSize) + ",'String " + QByteArray::number(i) +
            "',NULL,NULL,NULL);\n";
    }
    statements += "DELETE FROM curves WHERE CurveId IN (SELECT curves.curveid FROM curves LEFT OUTER JOIN "
                  "treenodes ON curves.curveid = treenodes.curveid WHERE nodeid IS NULL);\n";
    const QString script = home->path(QStringLiteral("save.sql"));
    write(script, statements);
    for (auto _ : state)
        runShell(state, path, script);
}

#define MILLISECONDS ->Unit(benchmark::kMillisecond)
// What waits for the disk takes seconds.
#define ON_DISK MILLISECONDS->Iterations(1)->UseRealTime()->Repetitions(7)
BENCHMARK(import) ON_DISK;
BENCHMARK(importByShell) ON_DISK;
BENCHMARK_CAPTURE(saveTree, 1000, 1000) ON_DISK;
BENCHMARK_CAPTURE(saveTreeByShell, 1000, 1000) ON_DISK;
BENCHMARK_CAPTURE(saveTreeUnwaited, 1000, nodeCount / 10) MILLISECONDS;
BENCHMARK_CAPTURE(saveTreeUnwaited, 10000, nodeCount) MILLISECONDS;
BENCHMARK_CAPTURE(readTree, 1000, nodeCount / 10) MILLISECONDS;
BENCHMARK_CAPTURE(readTree, 10000, nodeCount) MILLISECONDS;
BENCHMARK_CAPTURE(readTreePlainly, 10000, nodeCount) MILLISECONDS;
BENCHMARK(moveInTree) MILLISECONDS;
BENCHMARK(moveInPlainTree) MILLISECONDS;

} // namespace

int main(int argc, char **argv)
{
    TemporaryHome temporary;
    home = &temporary;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    initResources();
    QLocale::setDefault(QLocale(QLocale::English));
    return Comparisons()
        .ratio("importing 1,000 strings / the same inserts by the sqlite3 shell", "import", "importByShell",
               1)
        .ratio("saving 1,000 nodes / the same statements by the sqlite3 shell", "saveTree/1000",
               "saveTreeByShell/1000", 1)
        .each("  a node", "saveTree/1000", 1000)
        .ratio("  10,000 nodes / 1,000 nodes without waiting for the disk, where 10 is linear growth",
               "saveTreeUnwaited/10000", "saveTreeUnwaited/1000", 12)
        .ratio("reading a tree of 10,000 nodes / its statements alone", "readTree/10000",
               "readTreePlainly/10000", 2)
        .ratio("  / 1,000 nodes, where 10 is linear growth", "readTree/10000", "readTree/1000", 12)
        .limit("moving 10,000 nodes, folder by folder", "moveInTree", 16)
        .ratio("  / in a tree that nobody looks at", "moveInTree", "moveInPlainTree")
        .run(argc, argv);
}
