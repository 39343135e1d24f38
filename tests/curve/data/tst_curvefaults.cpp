#include "app/core/Messages.h"
#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/data/ModuleDatabase.h"
#include "curve/data/TreeNodeTable.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"
#include "tests/support/WithoutRights.h"

#include <QProcess>
#include <QSqlQuery>

#include <random>

using namespace IVCurve;

namespace {

/// What a statement answers on the open connection of a file.
int valueOf(const CurveDatabase &file, const char *statement)
{
    QSqlQuery query(file.database());
    return query.exec(QLatin1String(statement)) && query.next() ? query.value(0).toInt() : -1;
}

/// The messages of the program are counted and not shown, however many there are.
struct Told
{
    Told()
    {
        setMessageSink([this](const Message &) {
            ++count;
            return MessageAnswer{QMessageBox::Ok, false};
        });
    }
    ~Told() { setMessageSink({}); }
    Told(const Told &) = delete;
    Told &operator=(const Told &) = delete;
    int count = 0;
};

/// A database in which one page has become empty.
QString damagedCopy(QByteArray bytes, int place, const QString &name)
{
    const int pageSize = (uchar(bytes.at(16)) << 8) + uchar(bytes.at(17));
    bytes.replace(place, pageSize, QByteArray(pageSize, '\0'));
    const QString path = TestHome::instance()->path(name);
    writeFile(path, bytes);
    return path;
}

int nodeCount(const CurveTreeModel &tree)
{
    int count = 0;
    QModelIndexList waiting{QModelIndex()};
    while (!waiting.isEmpty()) {
        const QModelIndex next = waiting.takeLast();
        for (int row = 0; row < tree.rowCount(next); ++row)
            waiting.append(tree.index(row, 0, next));
        count += tree.rowCount(next);
    }
    return count;
}

/// The number behind the last of these words that a writer has said; -1 for none.
int lastSaid(const QList<QByteArray> &lines, const QByteArray &word)
{
    int number = -1;
    for (const QByteArray &line : lines) {
        if (line.startsWith(word + ' '))
            number = line.mid(word.size() + 1).toInt();
    }
    return number;
}

} // namespace

/// What goes wrong with disk, file and process while curves are written.
class TestCurveFaults : public QObject
{
    Q_OBJECT

private slots:
    void aFullDiskIsToldAndLeavesTheFileSound();
    void aReadOnlyFileOpensAndTellsAtTheFirstChange();
    void aLockedFileIsToldAndTheTreeCannotBeRead();
    void aFileLockedDuringASaveIsWaitedForOnce();
    void aSaveOfALockedFileIsToldAndCanBeRepeated();
    void aDamagedTreeIsToldAndNotTakenForASmallerOne();
    void aDamagedCatalogueIsToldAndNotTakenForASmallerOne();
    void nothingReportedDoneIsLostByAKill();
    void aTextThatMemoryDoesNotHoldIsToldAndNotTakenForAnEmptyOne();
};

void TestCurveFaults::aFullDiskIsToldAndLeavesTheFileSound()
{
    const QString path = CurveSample::newFile();
    int stored = 0;
    {
        const CurveDatabase database(path);
        const int pages = valueOf(database, "PRAGMA page_count");
        QVERIFY(QSqlQuery(database.database()).exec(QString("PRAGMA max_page_count=%1").arg(pages + 30)));
        BoxWatcher watcher;
        watcher.expect("full", QMessageBox::Ok);
        while (database.graphModel()->insertString(CurveSample::record(100)) != 0)
            ++stored;
        QVERIFY(stored > 2);
        QVERIFY(watcher.boxes().first().icon == QMessageBox::Critical);
    }
    QCOMPARE(CurveSample::value(path, "SELECT count(*) FROM Curves").toInt(), stored);
    QCOMPARE(CurveSample::value(path, "PRAGMA integrity_check").toString(), QString("ok"));
}

void TestCurveFaults::aReadOnlyFileOpensAndTellsAtTheFirstChange()
{
    const QString path = CurveSample::newFile();
    {
        const CurveDatabase database(path);
        TreeItem *node = database.treeModel()->insertNewRow(QModelIndex());
        node->setData(TreeItem::CurveID, database.graphModel()->insertString(CurveSample::record()));
        database.treeModel()->slotSave();
    }
    QFile::setPermissions(path, QFile::Permissions(0x4444));
    QFile::setPermissions(TestHome::instance()->path(), QFile::Permissions(0x7755));
    const QByteArray before = readFile(path);
    {
        const WithoutRights rights;
        const CurveDatabase database(path);
        QVERIFY(database.isOpen());
        QCOMPARE(database.treeModel()->rowCount(), 1);
        QVERIFY(database.graphModel()->loadString(1) != nullptr);
        BoxWatcher watcher;
        watcher.expect("readonly", QMessageBox::Ok);
        QCOMPARE(database.graphModel()->insertString(CurveSample::record()), 0u);
        watcher.expect("readonly", QMessageBox::Ok);
        database.treeModel()->slotSave();
    }
    QCOMPARE(readFile(path), before);
    QFile::setPermissions(path, QFile::Permissions(0x6666));
}

void TestCurveFaults::aLockedFileIsToldAndTheTreeCannotBeRead()
{
    const QString path = CurveSample::newFile();
    QProcess other;
    other.start(KELMAR_CURVE_WRITER, {path, "--lock"});
    QVERIFY(other.waitForReadyRead(patience));
    {
        BoxWatcher watcher;
        watcher.expect("locked", QMessageBox::Ok);
        QVERIFY_EXCEPTION_THROWN(CurveDatabase{path}, std::exception);
    }
    other.closeWriteChannel();
    QVERIFY(other.waitForFinished(patience));
    QVERIFY(CurveDatabase(path).isOpen());
}

void TestCurveFaults::aFileLockedDuringASaveIsWaitedForOnce()
{
    const QString path = CurveSample::newFile();
    const CurveDatabase database(path);
    TreeItem root;
    for (int i = 0; i < 50; ++i)
        root.children.append(new TreeItem(&root));
    QVERIFY(QSqlQuery(database.database()).exec("PRAGMA busy_timeout=20"));
    QProcess other;
    other.start(KELMAR_CURVE_WRITER, {path, "--lock"});
    QVERIFY(other.waitForReadyRead(patience));
    const TreeNodeTable nodes(database.database());
    nodes.write(root);
    // The first statement has waited in vain: none of the other fifty waits.
    QCOMPARE(valueOf(database, "PRAGMA busy_timeout"), 0);
    nodes.waitAsUsual();
    QVERIFY(valueOf(database, "PRAGMA busy_timeout") > 0);
    other.closeWriteChannel();
    QVERIFY(other.waitForFinished(patience));
    // Whoever waits for a file that is free then gets it.
    nodes.write(root);
    QVERIFY(valueOf(database, "PRAGMA busy_timeout") > 0);
    QCOMPARE(CurveSample::value(path, "SELECT count(*) FROM TreeNodes").toInt(), 50);
}

void TestCurveFaults::aSaveOfALockedFileIsToldAndCanBeRepeated()
{
    const QString path = CurveSample::newFile();
    const CurveDatabase database(path);
    for (int i = 0; i < 50; ++i)
        database.treeModel()->insertNewRow(QModelIndex());
    QVERIFY(QSqlQuery(database.database()).exec("PRAGMA busy_timeout=20"));
    QProcess other;
    other.start(KELMAR_CURVE_WRITER, {path, "--lock"});
    QVERIFY(other.waitForReadyRead(patience));
    {
        BoxWatcher watcher;
        watcher.expect("locked", QMessageBox::Ok);
        database.treeModel()->slotSave();
    }
    QVERIFY(valueOf(database, "PRAGMA busy_timeout") > 20);
    other.closeWriteChannel();
    QVERIFY(other.waitForFinished(patience));
    database.treeModel()->slotSave();
    QCOMPARE(CurveSample::value(path, "SELECT count(*) FROM TreeNodes").toInt(), 50);
}

void TestCurveFaults::aDamagedTreeIsToldAndNotTakenForASmallerOne()
{
    constexpr int nodes = 900;
    const QString path = CurveSample::newFile();
    // Three hundred at the top, and the others below the first of them.
    CurveSample::execute(path,
                         {QString("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE "
                                  "i < %1) INSERT INTO TreeNodes (NodeID, ParentNodeID, NodeDesc, "
                                  "ParentRow) SELECT i, CASE WHEN i > 300 THEN 1 END, 'a node of some "
                                  "length with the number ' || i, i FROM n")
                              .arg(nodes)});
    const QByteArray sound = readFile(path);
    int damaged = 0;
    for (int place = 1024; place < sound.size(); place += 1024) {
        const QString copy = damagedCopy(sound, place, "damaged.kelcrv");
        const Told told;
        int found = -1;
        try {
            found = nodeCount(*CurveDatabase(copy).treeModel());
        } catch (const std::exception &) {
            QVERIFY(told.count > 0);
        }
        QVERIFY2(found == nodes || told.count > 0,
                 qPrintable(QString("%1 nodes with the page at %2 gone").arg(found).arg(place)));
        damaged += found != nodes;
    }
    QVERIFY2(damaged > 20, qPrintable(QString::number(damaged)));
}

void TestCurveFaults::aDamagedCatalogueIsToldAndNotTakenForASmallerOne()
{
    constexpr int modules = 500;
    CurveSample::forgetCatalogue();
    const QString path = CurveSample::writeCatalogue({});
    CurveSample::execute(path,
                         {QString("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
                                  "%1) INSERT INTO Modules (Description, Isc, UserModule) SELECT 'a module "
                                  "of some length with the number ' || i, 9.5, 0 FROM n")
                              .arg(modules),
                          // Somebody's index, by which the rows come one by one instead of sorted at once.
                          "CREATE INDEX byName ON Modules (Description)"});
    const QByteArray sound = readFile(path);
    int damaged = 0;
    for (int place = 4096; place < sound.size(); place += 4096) {
        ModuleDatabase catalogue;
        const Told told;
        QVERIFY(catalogue.open(damagedCopy(sound, place, "damaged.db")));
        QVector<CurveModuleRow> rows(7);
        const bool read = catalogue.table()->allRows(rows);
        QCOMPARE(rows.size(), read ? modules : 7);
        QVERIFY(read || told.count > 0);
        damaged += !read;
    }
    QVERIFY2(damaged > 2, qPrintable(QString::number(damaged)));
    CurveSample::forgetCatalogue();
}

void TestCurveFaults::nothingReportedDoneIsLostByAKill()
{
    std::mt19937 random(200);
    QString path;
    QSet<quint32> inserted;
    int kills = 0;
    int savedTrees = 0;
    for (; kills < 200; ++kills) {
        // Ten kills for each file, so that it has grown and been repaired before.
        if (kills % 10 == 0) {
            path = CurveSample::newFile("killed.kelcrv");
            QFile::remove(path + "-journal");
        }
        // What an earlier writer had stored without a saved node goes with the next save, as it should.
        inserted.clear();
        QProcess writer;
        writer.start(KELMAR_CURVE_WRITER, {path});
        QVERIFY(writer.waitForStarted(patience));
        QByteArray output;
        // Some die before they have written, most while they write, and every fifth after its first save,
        // however slow the disk is.
        if (kills % 5 == 4) {
            while (!output.contains("saved")) {
                QVERIFY(writer.waitForReadyRead(patience));
                output += writer.readAllStandardOutput();
            }
        } else if (random() % 4 != 0) {
            QVERIFY(writer.waitForReadyRead(patience));
        }
        QTest::qSleep(1 + int(random() % 25));
        writer.kill();
        QVERIFY(writer.waitForFinished(patience));
        output += writer.readAllStandardOutput();
        QList<QByteArray> lines = output.split('\n');
        // The last line may be half of one.
        lines.removeLast();
        for (const QByteArray &line : qAsConst(lines)) {
            if (line.startsWith("inserted "))
                inserted.insert(line.mid(9).toUInt());
        }
        {
            const CurveDatabase database(path);
            QVERIFY(database.isOpen());
            for (const quint32 id : qAsConst(inserted)) {
                const auto record = database.graphModel()->loadString(id);
                QVERIFY2(record != nullptr,
                         qPrintable(QString("string %1 after %2 kills").arg(id).arg(kills)));
                QCOMPARE(record->measuredCurve().size(), 40);
            }
        }
        QCOMPARE(CurveSample::value(path, "PRAGMA integrity_check").toString(), QString("ok"));
        // A save that was done, with no other one begun, has left the whole tree.
        const int nodes = lastSaid(lines, "saved");
        if (nodes < 0 || nodes != lastSaid(lines, "saving"))
            continue;
        QCOMPARE(CurveSample::value(path, "SELECT count(*) FROM TreeNodes").toInt(), nodes);
        ++savedTrees;
    }
    QVERIFY2(savedTrees > 0, "no writer was killed between two saves");
    QCOMPARE(kills, 200);
}

// The last one, as the bound on memory holds for the rest of the process.
void TestCurveFaults::aTextThatMemoryDoesNotHoldIsToldAndNotTakenForAnEmptyOne()
{
    const QString path = CurveSample::newFile();
    const CurveDatabase database(path);
    QCOMPARE(database.graphModel()->insertString(CurveSample::record(5)), 1u);
    CurveSample::execute(path, {"INSERT INTO Curves (CurvePoints) VALUES (hex(zeroblob(10000000)))"});
    QVERIFY(database.graphModel()->loadString(2) != nullptr);
    QVERIFY(valueOf(database, "PRAGMA hard_heap_limit=50000000") > 0);
    BoxWatcher watcher;
    watcher.expect("memory", QMessageBox::Ok);
    QVERIFY(database.graphModel()->loadString(2) == nullptr);
    QCOMPARE(database.graphModel()->loadString(1)->measuredCurve().size(), 5);
}

KELMAR_TEST_MAIN(TestCurveFaults)
#include "tst_curvefaults.moc"
