#include "curve/data/ModuleCsv.h"
#include "curve/data/ModuleDatabase.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/support/TestMain.h"

#include <QProcess>

using namespace IVCurve;

namespace {

struct Outcome
{
    int code = -1;
    QString output;
    QString errors;
};

Outcome run(const QStringList &arguments)
{
    QProcess process;
    process.start(KELMAR_BATCH, arguments);
    if (!process.waitForFinished(patience) || process.exitStatus() != QProcess::NormalExit)
        return Outcome();
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()).remove('\r'),
            QString::fromUtf8(process.readAllStandardError()).remove('\r')};
}

const QByteArray names =
    "Name,Manufacturer,Technology,A_c,alpha_sc,beta_oc,I_sc_ref,V_oc_ref,I_mp_ref,V_mp_ref,R_s\n";
const QByteArray units = "Units,,,m2,A/K,V/K,A,V,A,V,Ohm\n[0],,,cec_area,cec_alpha,,,,,,\n";

QByteArray moduleLine(const QByteArray &name, const QByteArray &technology = "Mono-c-Si")
{
    return name + ",Someone," + technology + ",1.6,0.0044,-0.1275,8.8,37.5,8.3,30.5,0.3\n";
}

} // namespace

class TestCurveCommands : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void columnsAreFoundByNameAndUnitsAreNoModules();
    void deltaFollowsTheTechnology_data();
    void deltaFollowsTheTechnology();
    void brokenLinesAreSkippedWithTheirReason_data();
    void brokenLinesAreSkippedWithTheirReason();
    void quotesMayHoldCommas();
    void namesInAnotherEncodingAreRead();
    void negativeCurrentCoefficientsAreValid();

    void modulesGoIntoTheCatalogueInOneGo();
    void modulesThatAreThereAreNotAddedTwice();
    void aMissingColumnOrCatalogueIsBadInput();
    void curvesGoIntoANewFileWithTheirTree();
    void curvesGoBesideThoseOfAnEarlierRun();
    void badInputForCurves();
    void wrongUsageEndsWithTwo();
    void theDataFolderIsPrinted();
};

void TestCurveCommands::init()
{
    TestHome::instance()->reset();
    QFile::remove(ModuleDatabase::defaultPath());
    QVERIFY(QFile::copy(KELMAR_MODULE_CATALOGUE, ModuleDatabase::defaultPath()));
}

void TestCurveCommands::columnsAreFoundByNameAndUnitsAreNoModules()
{
    const ModuleCsv csv = ModuleCsv::parse("\xef\xbb\xbf" + names + units + moduleLine("One"));
    QVERIFY(csv.missingColumns.isEmpty());
    QVERIFY(csv.skipped.isEmpty());
    QCOMPARE(csv.modules.size(), 1);
    const CurveModuleRow &row = csv.modules.first();
    QCOMPARE(row.Description.toString(), QString("One"));
    QCOMPARE(QVector<double>({row.Voc.toDouble(), row.Isc.toDouble(), row.Vmp.toDouble(), row.Imp.toDouble(),
                              row.alpha.toDouble(), row.beta.toDouble(), row.Rs.toDouble()}),
             QVector<double>({37.5, 8.8, 30.5, 8.3, 0.0044, -0.1275, 0.3}));
    QVERIFY(!row.UserModule.toBool());
    QCOMPARE(ModuleCsv::parse(names + moduleLine("One").replace("\n", "\r\n")).modules.size(), 1);
    QCOMPARE(ModuleCsv::parse("Name,V_oc_ref\n").missingColumns,
             QStringList({"Technology", "I_sc_ref", "V_mp_ref", "I_mp_ref", "alpha_sc", "beta_oc", "R_s"}));
    QCOMPARE(ModuleCsv::parse("").missingColumns.size(), 9);
}

void TestCurveCommands::deltaFollowsTheTechnology_data()
{
    QTest::addColumn<QByteArray>("technology");
    QTest::addColumn<double>("delta");
    QTest::newRow("mono") << QByteArray("Mono-c-Si") << 0.085;
    QTest::newRow("multi") << QByteArray("Multi-c-Si") << 0.110;
    QTest::newRow("thin film") << QByteArray("Thin Film") << 0.063;
    QTest::newRow("CdTe") << QByteArray("CdTe") << 0.063;
    QTest::newRow("CIGS") << QByteArray("CIGS") << 0.063;
    QTest::newRow("not told") << QByteArray("") << 0.085;
}

void TestCurveCommands::deltaFollowsTheTechnology()
{
    QFETCH(QByteArray, technology);
    const ModuleCsv csv = ModuleCsv::parse(names + moduleLine("One", technology));
    QTEST(csv.modules.first().delta.toDouble(), "delta");
}

void TestCurveCommands::brokenLinesAreSkippedWithTheirReason_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("reason");
    QTest::newRow("current") << moduleLine("X").replace(",8.3,", ",8.9,") << "I_mp_ref";
    QTest::newRow("voltage") << moduleLine("X").replace(",30.5,", ",39,") << "V_mp_ref";
    QTest::newRow("empty coefficient") << moduleLine("X").replace("0.0044", "") << "alpha_sc is no number";
    QTest::newRow("no number") << moduleLine("X").replace("-0.1275", "n/a") << "beta_oc is no number";
    QTest::newRow("infinite") << moduleLine("X").replace("37.5", "inf") << "V_oc_ref is no number";
    QTest::newRow("resistance") << moduleLine("X").replace(",0.3\n", ",-0.3\n") << "R_s";
    QTest::newRow("no name") << moduleLine("") << "no name";
    QTest::newRow("short") << QByteArray("X,Someone\n") << "is no number";
}

void TestCurveCommands::brokenLinesAreSkippedWithTheirReason()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, reason);
    const ModuleCsv csv =
        ModuleCsv::parse(names + units + moduleLine("One") + "\n" + line + moduleLine("Two"));
    QCOMPARE(csv.modules.size(), 2);
    QCOMPARE(csv.skipped.size(), 1);
    QCOMPARE(csv.skipped.first().line, 6);
    QVERIFY2(csv.skipped.first().reason.contains(reason), qPrintable(csv.skipped.first().reason));
}

void TestCurveCommands::quotesMayHoldCommas()
{
    const ModuleCsv csv = ModuleCsv::parse(names + moduleLine("\"One, \"\"black\"\"\""));
    QCOMPARE(csv.modules.first().Description.toString(), QString("One, \"black\""));
}

void TestCurveCommands::namesInAnotherEncodingAreRead()
{
    const ModuleCsv csv = ModuleCsv::parse(names +
                                           moduleLine("S\xfc"
                                                      "d") +
                                           moduleLine("S\xc3\xbc"
                                                      "d 2"));
    QCOMPARE(csv.modules.at(0).Description.toString(), QString::fromUtf8("S\xc3\xbc"
                                                                         "d"));
    QCOMPARE(csv.modules.at(1).Description.toString(), QString::fromUtf8("S\xc3\xbc"
                                                                         "d 2"));
}

void TestCurveCommands::negativeCurrentCoefficientsAreValid()
{
    const ModuleCsv csv = ModuleCsv::parse(names + moduleLine("One").replace("0.0044", "-0.0004"));
    QCOMPARE(csv.modules.first().alpha.toDouble(), -0.0004);
}

void TestCurveCommands::modulesGoIntoTheCatalogueInOneGo()
{
    QByteArray table = names + units;
    for (int i = 0; i < 5000; ++i)
        table += moduleLine("Module " + QByteArray::number(i));
    table += moduleLine("Broken").replace("37.5", "");
    const QString file = TestHome::instance()->path("modules.csv");
    writeFile(file, table);
    const QString count = "SELECT count(*) FROM Modules WHERE UserModule = 0";
    const int before = CurveSample::value(ModuleDatabase::defaultPath(), count).toInt();
    const Outcome outcome = run({"import-modules", file});
    QVERIFY2(outcome.code == 0, qPrintable(outcome.errors));
    QVERIFY(outcome.output.contains("5000 modules added, 1 lines skipped"));
    QVERIFY(outcome.output.contains("line 5004, \"Broken\": skipped, V_oc_ref is no number"));
    QCOMPARE(CurveSample::value(ModuleDatabase::defaultPath(), count).toInt(), before + 5000);
}

void TestCurveCommands::modulesThatAreThereAreNotAddedTwice()
{
    const QString file = TestHome::instance()->path("modules.csv");
    writeFile(file, names + moduleLine("One") + moduleLine("One"));
    QVERIFY(run({"import-modules", file}).output.contains("1 modules added, 1 lines skipped"));
    QVERIFY(run({"import-modules", file}).output.contains("0 modules added, 2 lines skipped"));
    QCOMPARE(CurveSample::value(ModuleDatabase::defaultPath(),
                                "SELECT count(*) FROM Modules WHERE Description = 'One'")
                 .toInt(),
             1);
}

void TestCurveCommands::aMissingColumnOrCatalogueIsBadInput()
{
    const QString file = TestHome::instance()->path("modules.csv");
    writeFile(file, QByteArray(names).replace("R_s", "R_x"));
    Outcome outcome = run({"import-modules", file});
    QCOMPARE(outcome.code, 1);
    QVERIFY(outcome.errors.contains("R_s"));
    QCOMPARE(run({"import-modules", file + ".none"}).code, 1);
    writeFile(file, names + moduleLine("One"));
    QVERIFY(QFile::remove(ModuleDatabase::defaultPath()));
    outcome = run({"import-modules", file});
    QCOMPARE(outcome.code, 1);
    QVERIFY(outcome.errors.contains("File is missing"));
}

void TestCurveCommands::curvesGoIntoANewFileWithTheirTree()
{
    for (const auto &sample : {qMakePair(QString("en"), QString("Roof south.csv")),
                               qMakePair(QString("de"), QString("Roof south (German).csv"))}) {
        const QString file = TestHome::instance()->path(sample.first + ".kelcrv");
        const Outcome outcome = run({"import-curves", QString(KELMAR_SAMPLES) + "/" + sample.second, "--into",
                                     file, "--new", "--language", sample.first});
        QVERIFY2(outcome.code == 0, qPrintable(outcome.errors));
        QVERIFY(outcome.output.contains("15 "));
        QCOMPARE(CurveSample::value(file, "SELECT count(*) FROM Curves").toInt(), 15);
        QCOMPARE(CurveSample::value(file, "SELECT count(*) FROM TreeNodes").toInt(), 16);
        QCOMPARE(
            CurveSample::value(file, "SELECT NodeDesc FROM TreeNodes WHERE ParentNodeID IS NULL").toString(),
            sample.second);
    }
    const QString texts = "SELECT group_concat(CurvePoints) FROM Curves";
    QCOMPARE(CurveSample::value(TestHome::instance()->path("de.kelcrv"), texts),
             CurveSample::value(TestHome::instance()->path("en.kelcrv"), texts));
}

void TestCurveCommands::curvesGoBesideThoseOfAnEarlierRun()
{
    const QString file = TestHome::instance()->path("twice.kelcrv");
    const QString sample = QString(KELMAR_SAMPLES) + "/Passing clouds.csv";
    QCOMPARE(run({"import-curves", sample, "--into", file, "--new", "--language", "en"}).code, 0);
    QCOMPARE(run({"import-curves", sample, "--into", file, "--language", "en"}).code, 0);
    QCOMPARE(CurveSample::value(file, "SELECT count(*) FROM TreeNodes WHERE ParentNodeID IS NULL").toInt(),
             2);
    QCOMPARE(CurveSample::value(file, "SELECT count(*) FROM Curves").toInt(), 8);
    QCOMPARE(run({"import-curves", sample, "--into", file, "--new"}).code, 1);
    QCOMPARE(run({"import-curves", sample, "--into", file, "--new", "--force", "--language", "en"}).code, 0);
    QCOMPARE(CurveSample::value(file, "SELECT count(*) FROM Curves").toInt(), 4);
    QFile::remove(file);
}

void TestCurveCommands::badInputForCurves()
{
    const QString sample = QString(KELMAR_SAMPLES) + "/Passing clouds.csv";
    const QString file = TestHome::instance()->path("bad.kelcrv");
    QCOMPARE(run({"import-curves", sample, "--into", file}).code, 1);
    QVERIFY(!QFile::exists(file));
    QCOMPARE(run({"import-curves", sample + ".none", "--into", file, "--new"}).code, 1);
    QVERIFY(!QFile::exists(file));
    writeFile(file,
              "no database, but long enough to be taken for one by its size alone, which it is not at all");
    const Outcome outcome = run({"import-curves", sample, "--into", file});
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.errors.contains("not a database"), qPrintable(outcome.errors));
    const QByteArray before = readFile(file);
    QCOMPARE(run({"import-curves", file, "--into", file, "--new", "--force"}).code, 1);
    QCOMPARE(readFile(file), before);
}

void TestCurveCommands::wrongUsageEndsWithTwo()
{
    QCOMPARE(run({"import-curves", "a.csv"}).code, 2);
    QCOMPARE(run({"import-modules"}).code, 2);
    QCOMPARE(run({"import-modules", "a", "b"}).code, 2);
}

void TestCurveCommands::theDataFolderIsPrinted()
{
    QCOMPARE(run({"data-folder"}).output.trimmed(), TestHome::instance()->dataFolder());
}

KELMAR_TEST_MAIN(TestCurveCommands)
#include "tst_curvecommands.moc"
