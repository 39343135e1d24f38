#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveTreeModel.h"
#include "res/Resources.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <QSqlQuery>

using namespace IVCurve;

namespace {

const QString curvesWith =
    "CREATE TABLE Curves (CurveID INTEGER PRIMARY KEY, CurvePoints TEXT, MemLocation "
    "INTEGER, TestDate INTEGER, TesterSerNo TEXT, Irradiance REAL, AmbientTemp REAL, CellTemp "
    "REAL, Voc REAL, Isc REAL, Riso REAL, Viso REAL, Iclamp REAL, Rpe REAL, FF REAL, Vmp "
    "REAL, Imp REAL, STCAlgorithm INTEGER, STC_alpha REAL, STC_beta REAL, STC_delta REAL, "
    "STC_a REAL, STC_b REAL, STC_K REAL, STC_Rs REAL, ModuleID INTEGER, ModuleSeries "
    "INTEGER, ModuleParallel INTEGER, FileVersion INTEGER%1)";
const QString treeNodes =
    "CREATE TABLE TreeNodes (NodeID INTEGER PRIMARY KEY, ParentNodeID INTEGER, NodeDesc TEXT, "
    "CurveID INTEGER, ParentRow INTEGER, Status INTEGER, Colour TEXT)";

/// Opens the file and stores a string in it; the string as it reads back.
std::unique_ptr<StringRecord> roundTrip(const QString &path, const StringRecord &record)
{
    quint32 id = 0;
    {
        const CurveDatabase database(path);
        id = database.graphModel()->insertString(record);
    }
    const CurveDatabase database(path);
    return database.graphModel()->loadString(id);
}

} // namespace

class TestCurveDatabase : public QObject
{
    Q_OBJECT

private slots:
    void init() { CurveSample::forgetCatalogue(); }

    void thePristineFileHasTheOlderSchema();
    void openingBringsTheFileUpToDateAndLeavesTheRest();
    void aFileOpensAgainAfterClosing();
    void twoFilesAreOpenAtOnce();
    void filesOfOtherProgramsOpen_data();
    void filesOfOtherProgramsOpen();
    void walModeStays();

    void anEmptyCurveIsAnEmptyTextAndLoadsWithoutPoints();
    void aStoredStringReadsBack();
    void emptyReadingsAreEmptyTextsAndNeverNull();
    void noAlgorithmLoadsAsAnderson();
    void datesKeepTheirText();
    void decimalCommasNeverReachTheFile();
    void digitsBeyondTheSixthAreLostAtTheInsert();
    void anyFileVersionButNoneTurnsPerPointIrradianceOn();
    void settingsThatAreNoNumbersKeepTheirDefaults();
    void missingColumnsAreToldAtTheFirstLoad();
    void savedSettingsReadBack();
    void aClosedDatabaseDoesNothing();

    void hostileSchemasAreToldLikeAFailedOpen_data();
    void hostileSchemasAreToldLikeAFailedOpen();
    void harmlessViewsAndTriggersDoNotMatter();
    void aFileThatIsNoDatabaseIsTold();
    void aFolderIsNoFile();
    void aMissingTreeIsToldAndMadeAtOnce();
    void otherDeclaredTypesDoNotMatter();
    void aTextWithTooManyPointsFailsAlone();
    void aTreeThatLeadsBackIntoItselfEnds();
    void aTreeOfAnyDepthOpensAndSaves();
};

void TestCurveDatabase::thePristineFileHasTheOlderSchema()
{
    initResources();
    for (const QString &language : {QString("en"), QString("de")}) {
        const QByteArray bytes = readFile(":res/reports_" + language + "/default.kelcrv");
        QVERIFY(bytes.startsWith(QByteArray("SQLite format 3\0", 16)));
    }
    const QString path = CurveSample::newFile();
    QCOMPARE(CurveSample::value(path, "PRAGMA page_size").toInt(), 1024);
    QCOMPARE(CurveSample::value(path, "PRAGMA encoding").toString(), QString("UTF-8"));
    QCOMPARE(CurveSample::value(path, "PRAGMA user_version").toInt(), 0);
    QCOMPARE(CurveSample::value(path, "SELECT count(*) FROM Curves").toInt(), 0);
    QStringList columns;
    QStringList doubles;
    for (const QVariantList &row :
         CurveSample::rows(path, "SELECT name, type FROM pragma_table_info('Curves')")) {
        columns.append(row.at(0).toString());
        if (row.at(1).toString() == "DOUBLE")
            doubles.append(row.at(0).toString());
    }
    QCOMPARE(columns.size(), 28);
    QVERIFY(!columns.contains("FileVersion"));
    QCOMPARE(doubles,
             QStringList({"STC_alpha", "STC_beta", "STC_delta", "STC_a", "STC_b", "STC_K", "STC_Rs"}));
    QStringList indices;
    for (const QVariantList &row :
         CurveSample::rows(path, "SELECT name FROM sqlite_master WHERE type = 'index' ORDER BY rowid"))
        indices.append(row.at(0).toString());
    QCOMPARE(indices, QStringList({"idx_treenode_parent", "idx_TreeNodes_CurveID", "IDX_TREENODE_CURVEID"}));
}

void TestCurveDatabase::openingBringsTheFileUpToDateAndLeavesTheRest()
{
    const QString path = CurveSample::newFile();
    const QString indices = "SELECT name, sql FROM sqlite_master WHERE type = 'index' ORDER BY name";
    const auto before = CurveSample::rows(path, indices);
    const QString types = "SELECT count(*) FROM pragma_table_info('Curves') WHERE type = 'DOUBLE'";
    for (int opening = 0; opening < 2; ++opening) {
        const CurveDatabase database(path);
        QVERIFY(database.isOpen());
    }
    QCOMPARE(CurveSample::rows(path, indices), before);
    QCOMPARE(CurveSample::value(path, types).toInt(), 7);
    QCOMPARE(CurveSample::value(
                 path, "SELECT count(*) FROM pragma_table_info('Curves') WHERE lower(name) = 'fileversion'")
                 .toInt(),
             1);
}

void TestCurveDatabase::aFileOpensAgainAfterClosing()
{
    const QString path = CurveSample::newFile();
    for (int opening = 0; opening < 3; ++opening) {
        const CurveDatabase database(path);
        QVERIFY(database.graphModel()->insertString(CurveSample::record()) != 0);
    }
    QCOMPARE(CurveSample::value(path, "SELECT count(*) FROM Curves").toInt(), 3);
    QVERIFY(!QSqlDatabase::contains(path));
}

void TestCurveDatabase::twoFilesAreOpenAtOnce()
{
    const CurveDatabase first(CurveSample::newFile("first.kelcrv"));
    const CurveDatabase second(CurveSample::newFile("second.kelcrv"));
    first.graphModel()->insertString(CurveSample::record());
    QVERIFY(first.graphModel()->loadString(1) != nullptr);
    QVERIFY(second.graphModel()->loadString(1) == nullptr);
}

void TestCurveDatabase::filesOfOtherProgramsOpen_data()
{
    QTest::addColumn<QStringList>("statements");
    const QString curves = curvesWith.arg("");
    QTest::newRow("large pages") << QStringList{"PRAGMA page_size=8192", curves, treeNodes};
    QTest::newRow("small pages") << QStringList{"PRAGMA page_size=512", curves, treeNodes};
    QTest::newRow("UTF-16") << QStringList{"PRAGMA encoding='UTF-16'", curves, treeNodes};
    QTest::newRow("write-ahead log") << QStringList{"PRAGMA journal_mode=WAL", curves, treeNodes};
    QTest::newRow("auto vacuum") << QStringList{"PRAGMA auto_vacuum=2", curves, treeNodes};
    QTest::newRow("more tables and columns")
        << QStringList{curvesWith.arg(", Remark TEXT DEFAULT 'none'"), treeNodes, "CREATE TABLE Notes (a, b)",
                       "CREATE TABLE android_metadata (locale TEXT)"};
}

void TestCurveDatabase::filesOfOtherProgramsOpen()
{
    QFETCH(QStringList, statements);
    const QString path = CurveSample::fileFromSql(statements);
    const auto record = roundTrip(path, CurveSample::record(5));
    QVERIFY(record != nullptr);
    QCOMPARE(record->measuredCurve().size(), 5);
    QCOMPARE(CurveSample::value(path, "PRAGMA integrity_check").toString(), QString("ok"));
}

void TestCurveDatabase::walModeStays()
{
    const QString path = CurveSample::fileFromSql({"PRAGMA journal_mode=WAL", curvesWith.arg(""), treeNodes});
    {
        const CurveDatabase database(path);
        database.treeModel()->insertNewRow(QModelIndex());
        database.treeModel()->slotSave();
    }
    QCOMPARE(CurveSample::value(path, "PRAGMA journal_mode").toString(), QString("wal"));
}

void TestCurveDatabase::anEmptyCurveIsAnEmptyTextAndLoadsWithoutPoints()
{
    const QString path = CurveSample::newFile();
    const auto record = roundTrip(path, CurveSample::record(0));
    QVERIFY(record->measuredCurve().isEmpty());
    QCOMPARE(record->measuredCurve().mppIndex, -1);
    QCOMPARE(
        CurveSample::value(path, "SELECT typeof(CurvePoints) || length(CurvePoints) FROM Curves").toString(),
        QString("text0"));
}

void TestCurveDatabase::aStoredStringReadsBack()
{
    const auto record = roundTrip(CurveSample::newFile(), CurveSample::record(8));
    const StringRecord original = CurveSample::record(8);
    QCOMPARE(record->measuredCurve().size(), 8);
    QCOMPARE(record->measuredCurve().refs[3].irradiance, 803.0);
    QCOMPARE(record->measuredCurve().refs[3].tag, 0);
    QVERIFY(std::abs(record->measuredCurve().points.at(5).y() - original.measuredCurve().points.at(5).y()) <
            0.0006);
    QCOMPARE(record->header().testerSerialNo, QString("5120-0347"));
    QCOMPARE(record->header().memLocation, 7u);
    QCOMPARE(record->header().fileVersion, 2u);
    QCOMPARE(record->header().voc, QString("600"));
    QCOMPARE(record->header().riso, QString());
    QCOMPARE(record->curveId(), 1u);
    QVERIFY(record->measuredCurve().mppIndex > 0);
    QCOMPARE(record->module().moduleId, 0u);
    QCOMPARE(record->module().series, 1);
}

void TestCurveDatabase::emptyReadingsAreEmptyTextsAndNeverNull()
{
    const QString path = CurveSample::newFile();
    roundTrip(path, StringRecord(StringHeader(), CurveTrace()));
    for (const char *column : {"TestDate", "TesterSerNo", "Irradiance", "AmbientTemp", "CellTemp", "Voc",
                               "Isc", "Riso", "Viso", "Iclamp", "Rpe", "FF", "Vmp", "Imp", "CurvePoints"})
        QCOMPARE(CurveSample::value(path, QString("SELECT typeof(%1) FROM Curves").arg(column)).toString(),
                 QString("text"));
    QCOMPARE(CurveSample::value(path, "SELECT FileVersion FROM Curves").toInt(), 0);
}

void TestCurveDatabase::noAlgorithmLoadsAsAnderson()
{
    const QString path = CurveSample::newFile();
    QCOMPARE(int(roundTrip(path, CurveSample::record())->settings().algorithm), 2);
    QVERIFY(CurveSample::value(path, "SELECT STCAlgorithm FROM Curves").isNull());
    CurveSample::execute(path, {"UPDATE Curves SET STCAlgorithm = 1"});
    QCOMPARE(int(CurveDatabase(path).graphModel()->loadString(1)->settings().algorithm), 1);
}

void TestCurveDatabase::datesKeepTheirText()
{
    const QString path = CurveSample::newFile();
    QCOMPARE(roundTrip(path, CurveSample::record())->header().testDate, QString("2016-05-12T10:11:29"));
    QCOMPARE(CurveSample::value(path, "SELECT typeof(TestDate) FROM Curves").toString(), QString("text"));
}

void TestCurveDatabase::decimalCommasNeverReachTheFile()
{
    const LocaleSwitch german("de");
    const QString path = CurveSample::newFile();
    StringRecord record = CurveSample::record();
    record.header().irradiance = "803,5";
    record.header().riso = ">200";
    const auto loaded = roundTrip(path, record);
    QCOMPARE(loaded->header().irradiance, QString("803,5"));
    QCOMPARE(loaded->header().riso, QString(">200"));
    QCOMPARE(CurveSample::value(path, "SELECT Irradiance FROM Curves").toDouble(), 803.5);
    QVERIFY(!CurveSample::value(path, "SELECT CurvePoints FROM Curves").toString().contains(','));
}

void TestCurveDatabase::digitsBeyondTheSixthAreLostAtTheInsert()
{
    StringRecord record = CurveSample::record();
    record.header().voc = "612.34567";
    QCOMPARE(roundTrip(CurveSample::newFile(), record)->header().voc, QString("612.346"));
}

void TestCurveDatabase::anyFileVersionButNoneTurnsPerPointIrradianceOn()
{
    for (const auto &expected : {qMakePair(0u, false), qMakePair(1u, true), qMakePair(2u, true)}) {
        StringRecord record = CurveSample::record();
        record.header().fileVersion = expected.first;
        QCOMPARE(roundTrip(CurveSample::newFile(), record)->settings().perPointIrradiance, expected.second);
    }
    const QString path = CurveSample::newFile();
    roundTrip(path, CurveSample::record());
    CurveSample::execute(path, {"UPDATE Curves SET FileVersion = NULL"});
    QVERIFY(!CurveDatabase(path).graphModel()->loadString(1)->settings().perPointIrradiance);
}

void TestCurveDatabase::settingsThatAreNoNumbersKeepTheirDefaults()
{
    const QString path = CurveSample::newFile();
    roundTrip(path, CurveSample::record());
    CurveSample::execute(path, {"UPDATE Curves SET STC_alpha = '', STC_beta = 'x', STC_delta = 0.1234567, "
                                "STC_Rs = NULL, STC_K = 0"});
    const auto record = CurveDatabase(path).graphModel()->loadString(1);
    QCOMPARE(record->settings().alpha, QString("0.004"));
    QCOMPARE(record->settings().beta, QString("-0.15"));
    QCOMPARE(record->settings().delta, QString("0.123457"));
    QCOMPARE(record->settings().Rs, QString("0.35"));
    QCOMPARE(record->settings().K, QString("0"));
}

void TestCurveDatabase::missingColumnsAreToldAtTheFirstLoad()
{
    const QString path = CurveSample::fileFromSql(
        {"CREATE TABLE Curves (CurveID INTEGER PRIMARY KEY, MemLocation, TestDate, Irradiance, AmbientTemp, "
         "CellTemp, FF)",
         treeNodes});
    const CurveDatabase database(path);
    BoxWatcher watcher;
    watcher.expect("no such column", QMessageBox::Ok);
    QVERIFY(database.graphModel()->loadString(1) == nullptr);
    QVERIFY(watcher.boxes().first().icon == QMessageBox::Critical);
}

void TestCurveDatabase::savedSettingsReadBack()
{
    const LocaleSwitch german("de");
    const QString path = CurveSample::newFile();
    {
        CurveDatabase database(path);
        TreeItem *node = database.treeModel()->insertNewRow(QModelIndex());
        node->setData(TreeItem::CurveID, database.graphModel()->insertString(CurveSample::record()));
        const QModelIndex index = database.treeModel()->index(0, 0);
        database.graphModel()->slotTreeSelectionChanged(QItemSelection(index, index), QItemSelection());
        StringRecord &record = database.graphModel()->record(1);
        record.settings().algorithm = 1;
        record.settings().alpha = "0,0123";
        record.settings().K = "";
        record.header().irradiance = "912,5";
        record.module().series = 18;
        database.graphModel()->saveStringSettings(1);
    }
    QCOMPARE(CurveSample::value(path, "SELECT STC_alpha FROM Curves").toDouble(), 0.0123);
    const auto record = CurveDatabase(path).graphModel()->loadString(1);
    QCOMPARE(int(record->settings().algorithm), 1);
    QCOMPARE(record->settings().alpha, QString("0,0123"));
    QCOMPARE(record->settings().K, QString("0,00125"));
    QCOMPARE(record->header().irradiance, QString("912,5"));
    QCOMPARE(record->module().series, 18);
}

void TestCurveDatabase::aClosedDatabaseDoesNothing()
{
    const CurveDatabase database(CurveSample::newFile());
    database.database().close();
    const BoxWatcher watcher;
    QCOMPARE(database.graphModel()->insertString(CurveSample::record()), 0u);
    QVERIFY(database.graphModel()->loadString(1) == nullptr);
    database.treeModel()->insertNewRow(QModelIndex());
    database.treeModel()->slotSave();
    QVERIFY(watcher.boxes().isEmpty());
}

void TestCurveDatabase::hostileSchemasAreToldLikeAFailedOpen_data()
{
    QTest::addColumn<QStringList>("statements");
    const QString curves = curvesWith.arg("");
    const QString endless = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) ";
    QTest::newRow("view for the tree") << QStringList{
        curves, "CREATE VIEW TreeNodes AS " + endless +
                    "SELECT i AS NodeID, NULL AS ParentNodeID, 'x' AS NodeDesc, 1 AS CurveID, 0 AS "
                    "ParentRow, 0 AS Status, NULL AS Colour FROM n"};
    QTest::newRow("view for the curves")
        << QStringList{treeNodes, "CREATE VIEW curves AS " + endless + "SELECT i AS CurveID FROM n"};
    QTest::newRow("trigger on the tree") << QStringList{
        curves, treeNodes, "CREATE TRIGGER t AFTER DELETE ON TreeNodes BEGIN DELETE FROM Curves; END"};
    QTest::newRow("trigger on the curves") << QStringList{
        curves, treeNodes, "CREATE TRIGGER t BEFORE INSERT ON CURVES BEGIN SELECT RAISE(IGNORE); END"};
    QTest::newRow("computed column") << QStringList{curvesWith.arg(", Heavy AS (hex(zeroblob(100000000)))"),
                                                    treeNodes};
    QTest::newRow("virtual table") << QStringList{curves,
                                                  "CREATE VIRTUAL TABLE TreeNodes USING fts4(NodeID)"};
}

void TestCurveDatabase::hostileSchemasAreToldLikeAFailedOpen()
{
    QFETCH(QStringList, statements);
    const QString path = CurveSample::fileFromSql(statements);
    const QByteArray before = readFile(path);
    BoxWatcher watcher;
    watcher.expect("", QMessageBox::Ok);
    {
        const CurveDatabase database(path);
        QVERIFY(!database.isOpen());
        QVERIFY(!database.graphModel());
        QVERIFY(!database.treeModel());
    }
    QCOMPARE(watcher.boxes().size(), 1);
    QVERIFY(watcher.boxes().first().icon == QMessageBox::Critical);
    QCOMPARE(watcher.boxes().first().title, QString("Kelmar"));
    QCOMPARE(readFile(path), before);
    QVERIFY(!QSqlDatabase::contains(path));
}

void TestCurveDatabase::harmlessViewsAndTriggersDoNotMatter()
{
    const QString path =
        CurveSample::fileFromSql({curvesWith.arg(""), treeNodes, "CREATE TABLE Notes (a)",
                                  "CREATE VIEW Summary AS SELECT * FROM Curves",
                                  "CREATE TRIGGER t AFTER INSERT ON Notes BEGIN DELETE FROM Notes; END"});
    QVERIFY(roundTrip(path, CurveSample::record()) != nullptr);
}

void TestCurveDatabase::aFileThatIsNoDatabaseIsTold()
{
    const QString path = TestHome::instance()->path("text.kelcrv");
    writeFile(path, QByteArray("PV Tester,5120-0347,V2.10,2\r\n").repeated(100));
    const QByteArray before = readFile(path);
    BoxWatcher watcher;
    watcher.expect("not a database", QMessageBox::Ok);
    QVERIFY_EXCEPTION_THROWN(CurveDatabase{path}, std::exception);
    QVERIFY(watcher.boxes().first().icon == QMessageBox::Critical);
    QCOMPARE(readFile(path), before);
    QVERIFY(!QSqlDatabase::contains(path));
}

void TestCurveDatabase::aFolderIsNoFile()
{
    const QString path = TestHome::instance()->path("folder.kelcrv");
    QDir().mkpath(path);
    BoxWatcher watcher;
    watcher.expect("unable to open", QMessageBox::Ok);
    const CurveDatabase database(path);
    QVERIFY(!database.isOpen());
    QCOMPARE(watcher.boxes().first().title, QString("Kelmar"));
}

void TestCurveDatabase::aMissingTreeIsToldAndMadeAtOnce()
{
    const QString path = CurveSample::fileFromSql({curvesWith.arg("")});
    {
        BoxWatcher watcher;
        watcher.expect("no such table", QMessageBox::Ok);
        QVERIFY_EXCEPTION_THROWN(CurveDatabase{path}, std::exception);
        QVERIFY(!QSqlDatabase::contains(path));
    }
    // The second time the table is there.
    QVERIFY(CurveDatabase(path).isOpen());
}

void TestCurveDatabase::otherDeclaredTypesDoNotMatter()
{
    const QString path = CurveSample::fileFromSql(
        {curvesWith.arg("").replace("REAL", "TEXT").replace("MemLocation INTEGER", "MemLocation BLOB"),
         "CREATE TABLE TreeNodes (NodeID TEXT, ParentNodeID TEXT, NodeDesc BLOB, CurveID TEXT, ParentRow "
         "TEXT, "
         "Status TEXT, Colour TEXT)"});
    const auto record = roundTrip(path, CurveSample::record());
    QVERIFY(record != nullptr);
    QCOMPARE(record->header().irradiance, QString("803"));
}

void TestCurveDatabase::aTextWithTooManyPointsFailsAlone()
{
    const QString path = CurveSample::newFile();
    roundTrip(path, CurveSample::record());
    CurveSample::execute(
        path, {"INSERT INTO Curves (CurvePoints) VALUES (replace(hex(zeroblob(20000000)), '0', '#'))"});
    const CurveDatabase database(path);
    BoxWatcher watcher;
    watcher.expect("1000000 points", QMessageBox::Ok);
    QVERIFY(database.graphModel()->loadString(2) == nullptr);
    QVERIFY(database.graphModel()->loadString(1) != nullptr);
}

void TestCurveDatabase::aTreeThatLeadsBackIntoItselfEnds()
{
    QStringList statements{
        curvesWith.arg(""),
        "CREATE TABLE TreeNodes (NodeID INTEGER, ParentNodeID INTEGER, NodeDesc TEXT, CurveID "
        "INTEGER, ParentRow INTEGER, Status INTEGER, Colour TEXT)",
        "INSERT INTO TreeNodes (NodeID, ParentNodeID) VALUES (1, NULL), (1, 1), (2147483647, 1)"};
    for (int depth = 2; depth < 60; ++depth)
        statements.append(QString("INSERT INTO TreeNodes (NodeID, ParentNodeID) VALUES (%1, %2), (%1, %2)")
                              .arg(depth)
                              .arg(depth - 1));
    const CurveDatabase database(CurveSample::fileFromSql(statements));
    QVERIFY(database.isOpen());
    QVERIFY(database.treeModel()->insertNewRow(QModelIndex()) != nullptr);
}

void TestCurveDatabase::aTreeOfAnyDepthOpensAndSaves()
{
    const QString path = CurveSample::newFile();
    CurveSample::execute(path,
                         {"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000) "
                          "INSERT INTO TreeNodes (NodeID, ParentNodeID, NodeDesc, ParentRow) SELECT i, "
                          "CASE WHEN i > 1 THEN i - 1 END, 'n', 0 FROM n"});
    const CurveDatabase database(path);
    int depth = 0;
    const TreeItem *item = database.treeModel()->item(QModelIndex());
    for (; !item->children.isEmpty(); item = item->children.constFirst())
        ++depth;
    QCOMPARE(depth, 100000);
    const QModelIndex top = database.treeModel()->index(0, 0);
    database.graphModel()->slotTreeSelectionChanged(QItemSelection(top, top), QItemSelection());
    database.treeModel()->removeNode(top);
    QCOMPARE(database.treeModel()->rowCount(), 0);
}

KELMAR_TEST_MAIN(TestCurveDatabase)
#include "tst_curvedatabase.moc"
