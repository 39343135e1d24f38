#include "app/core/TesterChecksum.h"
#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/data/TesterCurveFile.h"
#include "curve/data/TesterCurveImporter.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <QDir>
#include <QSqlQuery>
#include <QTimer>

using namespace IVCurve;

namespace {

/// A line with the sum that belongs to it.
QByteArray summed(const QByteArray &line, char separator = ',')
{
    const QString text = QString::fromLatin1(line) + QLatin1Char(separator);
    const char mark = separator == ';' ? ',' : '.';
    const quint16 sum = testerChecksum(text, QLatin1Char(separator), QLatin1Char(mark));
    return text.toLatin1() + QByteArray::number(sum, 16);
}

const QByteArray heading = "PV Tester,5120-0347,V2.10,2\r\n";
const QByteArray columns = "Index,DD/MM/YYYY,HH:MM:SS,Irr (W/m2),Tpv (C),FF,IVCurve,StatusCode,Checksum\r\n";

/// A file with these tests, each without its sum.
QByteArray fileOf(const QVector<QByteArray> &tests)
{
    QByteArray bytes = heading + columns;
    for (const QByteArray &test : tests)
        bytes += summed(test) + "\r\n";
    return bytes;
}

/// Cells of a curve without those at which the current dips that Anderson's formulas give at standard
/// conditions, with the default coefficients and each point's own irradiance.
QStringList withoutDips(QStringList cells, double G, double T)
{
    for (bool found = true; found;) {
        found = false;
        QVector<double> currents;
        for (const QString &cell : qAsConst(cells)) {
            const QStringList values = cell.split(':');
            const double isc = cells.first().section(':', 1, 1).toDouble();
            const double g = values.at(2).toDouble() > 0 ? values.at(2).toDouble() : G;
            const double share = 0.004 / (1000 / g * isc);
            currents.append(values.at(1).toDouble() / (((T - 25) * share + 1) * g / 1000));
        }
        for (int i = currents.size() - 2; i > 0; --i) {
            if (currents.at(i - 1) >= currents.at(i) && currents.at(i + 1) >= currents.at(i)) {
                cells.removeAt(i);
                found = true;
            }
        }
    }
    return cells;
}

/// What became of a tester's file.
struct Imported
{
    Imported(const QByteArray &bytes, const QString &name = "Roof.csv")
        : path(CurveSample::newFile("imported.kelcrv")), database(std::make_unique<CurveDatabase>(path))
    {
        const QString source = TestHome::instance()->path(name);
        writeFile(source, bytes);
        result = TesterCurveImporter(source, database.get()).run();
    }

    CurveTreeModel *tree() const { return database->treeModel(); }
    QModelIndex folder() const { return tree()->index(0, 0); }
    int count() const { return tree()->rowCount(folder()); }
    const TreeItem *node(int row) const { return tree()->item(tree()->index(row, 0, folder())); }
    quint32 status(int row) const { return node(row)->data.at(TreeItem::Status).toUInt(); }
    std::unique_ptr<StringRecord> record(int row) const
    {
        return database->graphModel()->loadString(node(row)->data.at(TreeItem::CurveID).toUInt());
    }

    QString path;
    std::unique_ptr<CurveDatabase> database;
    bool result = true;
};

const QByteArray goodTest =
    "7,12/5/2016,10:14:58,803,45.5,0.75,0.000:8.123:803.000:1,12.500:8.101:804.000:2,0";

constexpr quint32 noReadings = 0x4000000 | 0x8000000;

} // namespace

class TestTesterCurveImporter : public QObject
{
    Q_OBJECT

private slots:
    void aTestBecomesARowAndANode();
    void anImportNeverAsksForSaving();
    void testsKeepTheOrderOfTheFile();
    void anUnreadableFileIsToldAndAddsNothing();
    void anEmptyFileGivesTheFolderAlone();
    void aFileOfTwoLinesGivesTheFolderAlone();
    void aBlankLineIsSkippedAndCounted();
    void wrongSumsAreToldFromTheLastLineOn();
    void clearingTheCheckBoxEndsTheMessages();
    void aSpreadsheetMarksAllStringsAndTestsNoSum();
    void separatorsAtTheFirstTwoLinesCountToo();
    void englishFilesAreEmptyStringsWhereTheCommaIsTheMark();
    void statusBitsAddUp_data();
    void statusBitsAddUp();
    void irradianceIsJudgedBeforeTheDipsAreGone();
    void fillFactorsStayTheirText();
    void valuesReadBackCutToSixDigits();
    void shortHeadingsGiveNoVersion_data();
    void shortHeadingsGiveNoVersion();
    void versionsBelow2KeepTheirDips();
    void datesAndTimes_data();
    void datesAndTimes();
    void missingColumnsAndShortLinesLeaveReadingsEmpty();
    void theFirstOfTwoEqualColumnsWins();
    void columnsMayStandInAnyOrderAndWithBlanks();
    void cellsThatAreNoPointsAreLeftOut();
    void theHighestBitOfEachByteIsCleared();
    void lineEndsAreAllTheSame_data();
    void lineEndsAreAllTheSame();
    void everySampleFileIsTakenIn_data();
    void everySampleFileIsTakenIn();
    void aFailedInsertIsToldAndKeepsTheNode();
    void anotherProgramReadsAndWritesTheFileDuringAnImport();
    void theTableMayChangeBetweenTwoInserts();
};

void TestTesterCurveImporter::aTestBecomesARowAndANode()
{
    const Imported file(fileOf({goodTest}));
    QCOMPARE(file.folder().data().toString(), QString("Roof.csv"));
    QCOMPARE(file.count(), 1);
    const QVector<QVariant> &data = file.node(0)->data;
    QCOMPARE(data.at(TreeItem::NodeDesc).toString(), QString("String 7"));
    QCOMPARE(data.at(TreeItem::CurveID).toInt(), 1);
    QCOMPARE(data.at(TreeItem::MemLocation).toInt(), 7);
    QCOMPARE(data.at(TreeItem::TestDate).toString(), QString("2016-05-12T10:14:58"));
    QCOMPARE(data.at(TreeItem::Status).toString(), QString("0"));
    QCOMPARE(data.at(TreeItem::Irradiance).toString(), QString("803"));
    QCOMPARE(data.at(TreeItem::AmbientTemp).toString(), QString());
    QCOMPARE(data.at(TreeItem::CellTemp).toString(), QString("45.5"));
    QCOMPARE(data.at(TreeItem::FF).toString(), QString("0.75"));
    QCOMPARE(CurveSample::value(file.path, "SELECT CurvePoints FROM Curves").toString(),
             QString("0.000:8.123:803.000:1#12.500:8.101:804.000:2"));
    QCOMPARE(CurveSample::value(file.path, "SELECT TesterSerNo FROM Curves").toString(),
             QString("5120-0347"));
    QCOMPARE(CurveSample::value(file.path, "SELECT FileVersion FROM Curves").toInt(), 2);
}

void TestTesterCurveImporter::anImportNeverAsksForSaving()
{
    const Imported file(fileOf({goodTest}));
    QVERIFY(!file.result);
    QCOMPARE(CurveSample::value(file.path, "SELECT count(*) FROM TreeNodes").toInt(), 0);
    QCOMPARE(CurveSample::value(file.path, "SELECT count(*) FROM Curves").toInt(), 1);
    QVERIFY(!QFile::exists(file.path + "-journal"));
}

void TestTesterCurveImporter::testsKeepTheOrderOfTheFile()
{
    const Imported file(fileOf({"3,,,,,,,0", "1,,,,,,,0", "2,,,,,,,0"}));
    QStringList names;
    for (int row = 0; row < file.count(); ++row)
        names.append(file.node(row)->data.at(TreeItem::NodeDesc).toString());
    QCOMPARE(names, QStringList({"String 3", "String 1", "String 2"}));
    // The last line was the first to be stored.
    QCOMPARE(file.node(2)->data.at(TreeItem::CurveID).toInt(), 1);
}

void TestTesterCurveImporter::anUnreadableFileIsToldAndAddsNothing()
{
    CurveDatabase database(CurveSample::newFile());
    const QString missing = TestHome::instance()->path("none.csv");
    BoxWatcher watcher;
    watcher.expect("Error opening " + missing + " for reading.", QMessageBox::Ok);
    QVERIFY(!TesterCurveImporter(missing, &database).run());
    QVERIFY(watcher.boxes().first().icon == QMessageBox::Warning);
    QCOMPARE(database.treeModel()->rowCount(), 0);
}

void TestTesterCurveImporter::anEmptyFileGivesTheFolderAlone()
{
    const Imported file("");
    QCOMPARE(file.tree()->rowCount(), 1);
    QCOMPARE(file.folder().data().toString(), QString("Roof.csv"));
    QCOMPARE(file.count(), 0);
}

void TestTesterCurveImporter::aFileOfTwoLinesGivesTheFolderAlone()
{
    const Imported file(heading + columns.trimmed());
    QCOMPARE(file.tree()->rowCount(), 1);
    QCOMPARE(file.count(), 0);
}

void TestTesterCurveImporter::aBlankLineIsSkippedAndCounted()
{
    BoxWatcher watcher;
    watcher.expect("Checksum failed on line number 6", QMessageBox::Ok, true);
    const Imported file(heading + columns + summed("1,,,,,,,0") + "\n\r\n  \n2,,,,,,,0,beef\n");
    QCOMPARE(file.count(), 2);
}

void TestTesterCurveImporter::wrongSumsAreToldFromTheLastLineOn()
{
    BoxWatcher watcher;
    for (const char *line : {"number 6", "number 5", "number 3"})
        watcher.expect(line, QMessageBox::Ok, true);
    const Imported file(heading + columns + "1,,,,,,,0,0\n" + summed("2,,,,,,,0") +
                        "\n3,,,,,,,0,x\nno fields");
    QCOMPARE(watcher.texts(),
             QStringList({"Checksum failed on line number 6", "Checksum failed on line number 5",
                          "Checksum failed on line number 3"}));
    QCOMPARE(watcher.boxes().first().checkBoxText, QString("Continue showing errors during this import"));
    QCOMPARE(file.count(), 4);
    for (int row = 0; row < 4; ++row)
        QCOMPARE(file.status(row) & 1, row == 1 ? 0u : 1u);
}

void TestTesterCurveImporter::clearingTheCheckBoxEndsTheMessages()
{
    BoxWatcher watcher;
    watcher.expectUnticking("number 5", QMessageBox::Ok);
    const Imported file(heading + columns + "1,,,,,,,0,0\n2,,,,,,,0,0\n3,,,,,,,0,0\n");
    QCOMPARE(watcher.boxes().size(), 1);
    for (int row = 0; row < 3; ++row)
        QCOMPARE(file.status(row) & 0x41, 1u);
}

void TestTesterCurveImporter::aSpreadsheetMarksAllStringsAndTestsNoSum()
{
    const BoxWatcher watcher;
    const Imported file(heading + columns + "1,,,,,,,0,wrong\n2,,,,,,,0,wrong,,,\n");
    QCOMPARE(file.count(), 2);
    for (int row = 0; row < 2; ++row)
        QCOMPARE(file.status(row), 0x40u | noReadings);
    QVERIFY(watcher.boxes().isEmpty());
}

void TestTesterCurveImporter::separatorsAtTheFirstTwoLinesCountToo()
{
    const Imported heads("PV Tester,5120-0347,V2.10,2,,,,\n" + columns + "1,,,,,,,0,wrong\n");
    QCOMPARE(heads.status(0) & 0x41, 0x40u);
    QCOMPARE(heads.record(0)->header().fileVersion, 2u);
    const Imported names(heading + columns.trimmed() + ",,\n1,,,,,,,0,wrong\n");
    QCOMPARE(names.status(0) & 0x41, 0x40u);
}

void TestTesterCurveImporter::englishFilesAreEmptyStringsWhereTheCommaIsTheMark()
{
    const LocaleSwitch german("de");
    BoxWatcher watcher;
    watcher.expect("number 4", QMessageBox::Ok, true);
    watcher.expect("number 3", QMessageBox::Ok, true);
    const Imported file(fileOf({goodTest, goodTest}));
    QCOMPARE(file.count(), 2);
    QCOMPARE(file.status(0), 1u | noReadings);
    QVERIFY(file.record(0)->measuredCurve().isEmpty());
    QCOMPARE(file.record(0)->header().testerSerialNo, QString());
    QCOMPARE(file.node(0)->data.at(TreeItem::NodeDesc).toString(), QString("String 0"));
}

void TestTesterCurveImporter::statusBitsAddUp_data()
{
    QTest::addColumn<QByteArray>("test");
    QTest::addColumn<quint32>("status");
    QTest::newRow("none") << goodTest << 0u;
    QTest::newRow("the tester's") << QByteArray("7,,,803,45,,,4") << 4u;
    QTest::newRow("no number") << QByteArray("7,,,803,45,,,x") << 0u;
    QTest::newRow("set already") << QByteArray("7,,,,45,,,67108864") << 0x4000000u;
    QTest::newRow("no irradiance") << QByteArray("7,,,,45,,,0") << 0x4000000u;
    QTest::newRow("no temperature") << QByteArray("7,,,803,,,,0") << 0x8000000u;
    QTest::newRow("cloud") << QByteArray("7,,,803,45,,1:8:900,2:7:800,0") << 0x80u;
    QTest::newRow("just steady") << QByteArray("7,,,803,45,,1:8:1000,2:7:900,0") << 0u;
    QTest::newRow("points without irradiance") << QByteArray("7,,,803,45,,1:8,2:7,0") << 0u;
}

void TestTesterCurveImporter::statusBitsAddUp()
{
    QFETCH(QByteArray, test);
    const Imported file(fileOf({test}));
    QTEST(file.status(0), "status");
}

void TestTesterCurveImporter::irradianceIsJudgedBeforeTheDipsAreGone()
{
    // The point under the cloud is a dip and goes; the warning stays.
    const Imported file(fileOf({"7,,,803,25,,1:8:800,2:1:700,3:8:800,4:1:800,0"}));
    QCOMPARE(file.record(0)->measuredCurve().size(), 3);
    QCOMPARE(file.status(0), 0x80u);
}

void TestTesterCurveImporter::fillFactorsStayTheirText()
{
    const Imported file(fileOf({"7,,,803,45,0.7500000,,0"}));
    QCOMPARE(file.node(0)->data.at(TreeItem::FF).toString(), QString("0.7500000"));
}

void TestTesterCurveImporter::valuesReadBackCutToSixDigits()
{
    const Imported file(fileOf({"7,,,803.12345678,45,,,0"}));
    QCOMPARE(file.node(0)->data.at(TreeItem::Irradiance).toString(), QString("803.12345678"));
    QCOMPARE(file.record(0)->header().irradiance, QString("803.123"));
}

void TestTesterCurveImporter::shortHeadingsGiveNoVersion_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("serialNumber");
    QTest::newRow("one field") << QByteArray("PV Tester") << "";
    QTest::newRow("two fields") << QByteArray("PV Tester, 5120 ") << "5120";
    QTest::newRow("three fields") << QByteArray("PV Tester,5120,V2.10") << "5120";
    QTest::newRow("no number") << QByteArray("PV Tester,5120,V2.10,two") << "5120";
}

void TestTesterCurveImporter::shortHeadingsGiveNoVersion()
{
    QFETCH(QByteArray, line);
    const Imported file(line + "\n" + columns + summed("7,,,803,25,,1:8:800,2:1:700,3:8:800,4:1:800,0"));
    const auto record = file.record(0);
    QCOMPARE(record->header().fileVersion, 0u);
    QVERIFY(!record->settings().perPointIrradiance);
    QCOMPARE(record->measuredCurve().size(), 4);
    QTEST(record->header().testerSerialNo, "serialNumber");
}

void TestTesterCurveImporter::versionsBelow2KeepTheirDips()
{
    const Imported file("PV Tester,5120,V2.10,1\n" + columns +
                        summed("7,,,803,25,,1:8:800,2:1:700,3:8:800,4:1:800,0"));
    QCOMPARE(file.record(0)->measuredCurve().size(), 4);
    // At loading the threshold is another one.
    QVERIFY(file.record(0)->settings().perPointIrradiance);
}

void TestTesterCurveImporter::datesAndTimes_data()
{
    QTest::addColumn<QByteArray>("date");
    QTest::addColumn<QByteArray>("time");
    QTest::addColumn<QString>("stored");
    QTest::newRow("as testers write")
        << QByteArray("2/5/2016") << QByteArray("9:4:58") << "2016-05-02T09:04:58";
    QTest::newRow("two digits") << QByteArray("02/05/2016") << QByteArray("09:04:58")
                                << "2016-05-02T09:04:58";
    QTest::newRow("points") << QByteArray("02.05.2016") << QByteArray("") << "2016-05-02";
    QTest::newRow("one digit with points") << QByteArray("2.5.2016") << QByteArray("") << "";
    QTest::newRow("time alone") << QByteArray("31/2/2016") << QByteArray("10:14:58") << "T10:14:58";
    QTest::newRow("no time") << QByteArray("2/5/2016") << QByteArray("25:00:00") << "2016-05-02";
    QTest::newRow("nothing") << QByteArray("") << QByteArray("") << "";
}

void TestTesterCurveImporter::datesAndTimes()
{
    QFETCH(QByteArray, date);
    QFETCH(QByteArray, time);
    QFETCH(QString, stored);
    const Imported file(fileOf({"7," + date + "," + time + ",803,45,,,0"}));
    QCOMPARE(file.node(0)->data.at(TreeItem::TestDate).toString(), stored);
    QCOMPARE(file.record(0)->header().testDate, stored);
}

void TestTesterCurveImporter::missingColumnsAndShortLinesLeaveReadingsEmpty()
{
    const Imported file(heading + "Index,Irr (W/m2),Tpv (C)\n" + summed("7") + "\n" + summed("8,803,45,0"));
    QCOMPARE(file.count(), 2);
    // Of two fields none is a status.
    QCOMPARE(file.node(0)->data.at(TreeItem::MemLocation).toInt(), 7);
    QCOMPARE(file.status(0) & noReadings, 0x8000000u);
    QCOMPARE(file.status(1), 0u);
    QVERIFY(file.record(1)->measuredCurve().isEmpty());
    QCOMPARE(file.record(1)->header().voc, QString());
}

void TestTesterCurveImporter::theFirstOfTwoEqualColumnsWins()
{
    const Imported file(heading + "Irr (W/m2),Irr (W/m2),Index,StatusCode,Checksum\n" +
                        summed("801,802,7,0"));
    QCOMPARE(file.record(0)->header().irradiance, QString("801"));
}

void TestTesterCurveImporter::columnsMayStandInAnyOrderAndWithBlanks()
{
    const Imported file(heading + " Tpv (C) , Irr (W/m2),Index , IVCurve,StatusCode,Checksum\n" +
                        summed(" 45 , 801,7 , 1:8:800:2 , 4 "));
    QCOMPARE(file.record(0)->header().cellTemp, QString("45"));
    QCOMPARE(file.record(0)->measuredCurve().size(), 1);
    QCOMPARE(file.status(0), 4u);
}

void TestTesterCurveImporter::cellsThatAreNoPointsAreLeftOut()
{
    const Imported file(fileOf({"7,,,803,45,,1:8,x,,2:7:800:z,3:6:800:1,4,0"}));
    QCOMPARE(CurveSample::value(file.path, "SELECT CurvePoints FROM Curves").toString(),
             QString("1.000:8.000:0.000:0#3.000:6.000:800.000:1"));
}

void TestTesterCurveImporter::theHighestBitOfEachByteIsCleared()
{
    QByteArray bytes = fileOf({goodTest});
    for (int i = 0; i < bytes.size(); i += 3)
        bytes[i] = char(bytes.at(i) | 0x80);
    const Imported file(bytes);
    QCOMPARE(file.count(), 1);
    QCOMPARE(file.status(0), 0u);
    QCOMPARE(file.record(0)->measuredCurve().size(), 2);
}

void TestTesterCurveImporter::lineEndsAreAllTheSame_data()
{
    QTest::addColumn<QByteArray>("lineEnd");
    QTest::newRow("LF") << QByteArray("\n");
    QTest::newRow("CR LF") << QByteArray("\r\n");
    QTest::newRow("CR CR LF") << QByteArray("\r\r\n");
}

void TestTesterCurveImporter::lineEndsAreAllTheSame()
{
    QFETCH(QByteArray, lineEnd);
    const Imported file(fileOf({goodTest, goodTest}).replace("\r\n", lineEnd));
    QCOMPARE(file.count(), 2);
    QCOMPARE(file.status(0), 0u);
    QCOMPARE(file.status(1), 0u);
}

void TestTesterCurveImporter::everySampleFileIsTakenIn_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QByteArray>("lineEnd");
    for (const QByteArray &lineEnd : {QByteArray("\n"), QByteArray("\r\n"), QByteArray("\r\r\n")}) {
        for (const char *name : {"Roof south.csv", "Earthing.csv", "Passing clouds.csv"})
            QTest::addRow("%s, %d", name, lineEnd.size()) << name << "en" << lineEnd;
        QTest::addRow("German, %d", lineEnd.size()) << "Roof south (German).csv"
                                                    << "de" << lineEnd;
    }
}

void TestTesterCurveImporter::everySampleFileIsTakenIn()
{
    QFETCH(QString, name);
    QFETCH(QString, locale);
    QFETCH(QByteArray, lineEnd);
    const LocaleSwitch spoken(locale);
    const BoxWatcher watcher;
    QByteArray bytes = readFile(QString(KELMAR_SAMPLES) + "/" + name);
    bytes.replace("\r\n", lineEnd);
    const Imported file(bytes, name);
    const char separator = locale == "de" ? ';' : ',';

    // The file once more, by lists of bytes.
    const QList<QByteArray> lines = bytes.replace("\r", "").trimmed().split('\n');
    QCOMPARE(file.folder().data().toString(), name);
    QCOMPARE(file.count(), lines.size() - 2);
    const QList<QByteArray> names = lines.at(1).split(separator);
    const int curve = names.indexOf("IVCurve");
    const quint32 version = lines.first().split(separator).at(3).toUInt();
    for (int row = 0; row < file.count(); ++row) {
        const QList<QByteArray> fields = lines.at(row + 2).split(separator);
        const TreeItem *node = file.node(row);
        const QByteArray index = fields.at(names.indexOf("Index"));
        QCOMPARE(node->data.at(TreeItem::NodeDesc).toString(), "String " + QString(index));
        QCOMPARE(node->data.at(TreeItem::Irradiance).toString(),
                 QString(fields.at(names.indexOf("Irr (W/m2)"))));
        QCOMPARE(file.status(row) & 0x41, 0u);
        QCOMPARE(file.status(row) & 0x3f, fields.at(fields.size() - 2).toUInt() & 0x3f);
        const quint32 id = node->data.at(TreeItem::CurveID).toUInt();
        const QString stored =
            CurveSample::value(file.path,
                               QString("SELECT CurvePoints FROM Curves WHERE CurveID = %1").arg(id))
                .toString();
        QStringList cells;
        for (int field = curve; curve >= 0 && field < fields.size() - 2; ++field) {
            if (!fields.at(field).isEmpty())
                cells.append(QString(fields.at(field)).replace(',', '.'));
        }
        const double G = fields.at(names.indexOf("Irr (W/m2)")).toDouble();
        const double T = fields.value(names.indexOf("Tpv (C)")).replace(',', '.').toDouble();
        QCOMPARE(stored, version < 2 ? cells.join('#') : withoutDips(cells, G, T).join('#'));
        QCOMPARE(file.record(row)->header().fileVersion, version);
    }
}

void TestTesterCurveImporter::aFailedInsertIsToldAndKeepsTheNode()
{
    CurveDatabase database(CurveSample::newFile());
    QVERIFY(database.database().exec("PRAGMA query_only=ON").isActive());
    const QString source = TestHome::instance()->path("Roof.csv");
    writeFile(source, fileOf({goodTest}));
    BoxWatcher watcher;
    watcher.expect("readonly", QMessageBox::Ok);
    TesterCurveImporter(source, &database).run();
    CurveTreeModel *tree = database.treeModel();
    const TreeItem *node = tree->item(tree->index(0, 0, tree->index(0, 0)));
    QCOMPARE(node->data.at(TreeItem::CurveID).toInt(), 0);
    QCOMPARE(node->data.at(TreeItem::NodeDesc).toString(), QString("String 7"));
    QCOMPARE(node->data.at(TreeItem::FF).toString(), QString("0.75"));
}

void TestTesterCurveImporter::anotherProgramReadsAndWritesTheFileDuringAnImport()
{
    const QString path = CurveSample::newFile("imported.kelcrv");
    CurveDatabase database(path);
    const QString source = TestHome::instance()->path("Roof.csv");
    writeFile(source, heading + columns + "1,,,,,,,0,wrong\n" + summed(goodTest) + "\n");
    // The last line has been taken in when the message of the one before it waits for its answer.
    int storedThen = -1;
    QTimer::singleShot(0, [&] {
        storedThen = CurveSample::value(path, "SELECT count(*) FROM Curves").toInt();
        CurveSample::execute(path, {"INSERT INTO Curves (TesterSerNo) VALUES ('other')"});
    });
    BoxWatcher watcher;
    watcher.expect("number 3", QMessageBox::Ok, true);
    TesterCurveImporter(source, &database).run();
    QCOMPARE(storedThen, 1);
    QCOMPARE(CurveSample::value(path, "SELECT group_concat(TesterSerNo) FROM Curves").toString(),
             QString("5120-0347,other,5120-0347"));
    QVERIFY(!QFile::exists(path + "-journal"));
}

void TestTesterCurveImporter::theTableMayChangeBetweenTwoInserts()
{
    const QString path = CurveSample::newFile("changed.kelcrv");
    const CurveDatabase database(path);
    QCOMPARE(database.graphModel()->insertString(CurveSample::record()), 1u);
    CurveSample::execute(path, {"ALTER TABLE Curves ADD COLUMN Remarks TEXT"});
    QCOMPARE(database.graphModel()->insertString(CurveSample::record()), 2u);
    CurveSample::execute(path, {"ALTER TABLE Curves RENAME TO Kept"});
    BoxWatcher watcher;
    watcher.expect("no such table", QMessageBox::Ok);
    QCOMPARE(database.graphModel()->insertString(CurveSample::record()), 0u);
    CurveSample::execute(path, {"ALTER TABLE Kept RENAME TO Curves"});
    QCOMPARE(database.graphModel()->insertString(CurveSample::record()), 3u);
    QCOMPARE(CurveSample::value(path, "SELECT count(*) FROM Curves WHERE CurvePoints <> ''").toInt(), 3);
}

KELMAR_TEST_MAIN(TestTesterCurveImporter)
#include "tst_testercurveimporter.moc"
