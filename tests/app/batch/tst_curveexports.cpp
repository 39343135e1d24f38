#include "curve/data/ModuleDatabase.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/curve/ui/CurveDesk.h"
#include "tests/curve/ui/ReportNumbers.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <QProcess>

namespace {

struct Outcome
{
    int code = -1;
    QString output;
    QString errors;
};

Outcome runProgram(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(patience) || process.exitStatus() != QProcess::NormalExit)
        return Outcome();
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

Outcome run(const QStringList &arguments)
{
    return runProgram(KELMAR_BATCH, arguments);
}

QStringList pagesOf(const QString &pdf)
{
    QStringList pages = runProgram("pdftotext", {"-layout", pdf, "-"}).output.split('\f');
    pages.removeLast();
    return pages;
}

} // namespace

/// Reports and points of curves, written without windows.
class TestCurveExports : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void reportHasTheNumbersOfTheFile_data();
    void reportHasTheNumbersOfTheFile();
    void reportOnChosenStringsKeepsTheirOrder();
    void reportThatCannotBeWrittenIsBadInput();
    void pointsOfEachKindGoIntoFilesOfTheirNames_data();
    void pointsOfEachKindGoIntoFilesOfTheirNames();
    void germanPointsHaveSemicolons();
    void namesThatNoFileCanHaveStayInTheFolder();
    void stringsOfOneNameAreCounted();
    void nothingIsWrittenWhenOneFileIsThere();
    void badInputAndWrongUsage();

private:
    QStringList filesIn(const QString &folder) const
    {
        return QDir(folder).entryList(QDir::Files, QDir::Name);
    }

    QString m_curves;
    QString m_out;
};

void TestCurveExports::init()
{
    TestHome::instance()->reset();
    CurveSample::writeCatalogue({"1, 'Poly 36', 8.6, 22.4, 8.1, 18.2, 0.0043, -0.078, 0.11, 0.28, 0, 1"});
    m_curves = CurveDesk::makeFile(4, "batch.kelcrv");
    CurveSample::execute(
        m_curves,
        {"UPDATE Curves SET ModuleID = 1, ModuleSeries = 26, ModuleParallel = 1 WHERE CurveID = 2"});
    m_out = TestHome::instance()->path("out");
    QDir(m_out).removeRecursively();
    QDir().mkpath(m_out);
}

void TestCurveExports::reportHasTheNumbersOfTheFile_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("heading");
    QTest::newRow("English") << "en"
                             << "PV Array - IV Curve Report";
    QTest::newRow("German") << "de"
                            << "PV Generator - Prüfbericht I-U Kennlinie";
}

void TestCurveExports::reportHasTheNumbersOfTheFile()
{
    QFETCH(QString, language);
    QFETCH(QString, heading);
    const LocaleSwitch locale(language);
    const QString pdf = m_out + "/report.pdf";
    const Outcome outcome = run({"curve-report", m_curves, pdf, "--strings", "2", "--language", language});
    QVERIFY2(outcome.code == 0, qPrintable(outcome.errors));
    const QStringList pages = pagesOf(pdf);
    QCOMPARE(pages.size(), 2);
    QVERIFY(pages[0].contains(heading));
    // In the order of the cells.
    const QMap<QString, QString> numbers = reportNumbers(m_curves, 2);
    QStringList row{"String 2"};
    for (const QString &cell : valueCellNames())
        row.append(numbers.value(cell));
    QVERIFY2(pages[0].simplified().contains(row.join(' ')), qPrintable(pages[0] + row.join(' ')));
    QVERIFY(pages[1].contains("String 2 (803)"));
    // Run again it would overwrite.
    QCOMPARE(run({"curve-report", m_curves, pdf}).code, 1);
    QCOMPARE(run({"curve-report", m_curves, pdf, "--force", "--language", language}).code, 0);
    QVERIFY(pagesOf(pdf)[0].contains("String 4"));
}

void TestCurveExports::reportOnChosenStringsKeepsTheirOrder()
{
    const QString pdf = m_out + "/report.pdf";
    QCOMPARE(run({"curve-report", m_curves, pdf, "--strings", "4,1", "--language", "en"}).code, 0);
    const QString page = pagesOf(pdf).value(0);
    QVERIFY(page.indexOf("String 4") >= 0 && page.indexOf("String 4") < page.indexOf("String 1"));
    QVERIFY(!page.contains("String 2"));
}

void TestCurveExports::reportThatCannotBeWrittenIsBadInput()
{
    const Outcome outcome =
        run({"curve-report", m_curves, m_out + "/no such folder/report.pdf", "--language", "en"});
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.errors.contains("report.pdf cannot be written."), qPrintable(outcome.errors));
}

void TestCurveExports::pointsOfEachKindGoIntoFilesOfTheirNames_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<int>("points");
    QTest::newRow("meas") << " MEAS" << QByteArray("V,I") << 20;
    QTest::newRow("pwr") << " PWR" << QByteArray("V,P") << 20;
    QTest::newRow("stc") << " STC" << QByteArray("V,I") << 21;
    QTest::newRow("stcpwr") << " STC PWR" << QByteArray("V,P") << 21;
}

void TestCurveExports::pointsOfEachKindGoIntoFilesOfTheirNames()
{
    QFETCH(QString, suffix);
    QFETCH(QByteArray, head);
    QFETCH(int, points);
    const Outcome outcome = run({"export-points", m_curves, "--kind", QTest::currentDataTag(), "--strings",
                                 "3,1", "--into", m_out, "--language", "en"});
    QVERIFY2(outcome.code == 0, qPrintable(outcome.errors));
    QCOMPARE(filesIn(m_out), (QStringList{"String 1" + suffix + ".csv", "String 3" + suffix + ".csv"}));
    const QList<QByteArray> lines = readFile(m_out + "/String 3" + suffix + ".csv").split('\n');
    QCOMPARE(lines[0], ("String 3" + suffix).toUtf8());
    QCOMPARE(lines[5], head);
    QCOMPARE(lines.size(), 6 + points + 1);
}

void TestCurveExports::germanPointsHaveSemicolons()
{
    QCOMPARE(run({"export-points", m_curves, "--kind", "meas", "--into", m_out, "--language", "de"}).code, 0);
    const QStringList files = filesIn(m_out);
    QCOMPARE(files.size(), 4);
    const QList<QByteArray> lines = readFile(m_out + '/' + files[1]).split('\n');
    QCOMPARE(lines[5], QByteArray("V;I"));
    QCOMPARE(lines[7].count(';'), 1);
    QVERIFY(!lines[7].contains('.'));
}

void TestCurveExports::namesThatNoFileCanHaveStayInTheFolder()
{
    CurveSample::execute(m_curves,
                         {"UPDATE TreeNodes SET NodeDesc = '../../escaped' WHERE CurveID = 1",
                          "UPDATE TreeNodes SET NodeDesc = 'a/b\\c:d*' WHERE CurveID = 2",
                          "UPDATE TreeNodes SET NodeDesc = '' WHERE CurveID = 3",
                          "UPDATE TreeNodes SET NodeDesc = '" + QString(3000, 'x') + "' WHERE CurveID = 4"});
    const Outcome outcome =
        run({"export-points", m_curves, "--kind", "meas", "--into", m_out, "--language", "en"});
    QVERIFY2(outcome.code == 0, qPrintable(outcome.errors));
    QCOMPARE(filesIn(m_out), (QStringList{"_ MEAS.csv", "_.._.._escaped MEAS.csv", "a_b_c_d_ MEAS.csv",
                                          QString(100, 'x') + " MEAS.csv"}));
}

void TestCurveExports::stringsOfOneNameAreCounted()
{
    CurveSample::execute(m_curves, {"UPDATE TreeNodes SET NodeDesc = 'East' WHERE CurveID < 4",
                                    "UPDATE TreeNodes SET NodeDesc = 'EAST' WHERE CurveID = 4"});
    QCOMPARE(run({"export-points", m_curves, "--kind", "stc", "--into", m_out, "--language", "en"}).code, 0);
    QCOMPARE(filesIn(m_out),
             (QStringList{"EAST STC (4).csv", "East STC (2).csv", "East STC (3).csv", "East STC.csv"}));
}

void TestCurveExports::nothingIsWrittenWhenOneFileIsThere()
{
    writeFile(m_out + "/String 3 MEAS.csv", "mine");
    const QStringList order{"export-points", m_curves, "--kind", "meas", "--into", m_out, "--language", "en"};
    const Outcome outcome = run(order);
    QCOMPARE(outcome.code, 1);
    QVERIFY(outcome.errors.contains("String 3 MEAS.csv exists already; --force overwrites it."));
    QCOMPARE(filesIn(m_out).size(), 1);
    QCOMPARE(readFile(m_out + "/String 3 MEAS.csv"), QByteArray("mine"));
    QCOMPARE(run(order + QStringList{"--force"}).code, 0);
    QCOMPARE(filesIn(m_out).size(), 4);
    QVERIFY(readFile(m_out + "/String 3 MEAS.csv").startsWith("String 3 MEAS"));
}

void TestCurveExports::badInputAndWrongUsage()
{
    const QByteArray before = readFile(m_curves);
    const QString pdf = m_out + "/report.pdf";
    QCOMPARE(run({"curve-report", m_out + "/none.kelcrv", pdf}).code, 1);
    QVERIFY(!QFile::exists(m_out + "/none.kelcrv"));
    QCOMPARE(run({"curve-report", m_curves, m_curves, "--force"}).code, 1);
    QCOMPARE(readFile(m_curves), before);
    QCOMPARE(run({"curve-report", m_curves, pdf, "--strings", "1,99"}).code, 1);
    QVERIFY(!QFile::exists(pdf));
    writeFile(m_out + "/bad.kelcrv", QByteArray(4000, 'x'));
    const Outcome damaged = run({"curve-report", m_out + "/bad.kelcrv", pdf});
    QCOMPARE(damaged.code, 1);
    QVERIFY(damaged.errors.contains("not a database"));
    QCOMPARE(run({"export-points", m_curves, "--kind", "meas", "--into", m_out + "/none"}).code, 1);
    QVERIFY(QFile::remove(m_out + "/bad.kelcrv"));
    QVERIFY(filesIn(m_out).isEmpty());

    QCOMPARE(run({"curve-report", m_curves}).code, 2);
    QCOMPARE(run({"curve-report", m_curves, pdf, "--strings", "one"}).code, 2);
    QCOMPARE(run({"export-points", m_curves, "--kind", "meas"}).code, 2);
    QCOMPARE(run({"export-points", m_curves, "--into", m_out}).code, 2);
    QCOMPARE(run({"export-points", m_curves, "--kind", "nominal", "--into", m_out}).code, 2);
    QCOMPARE(run({"export-points", m_curves, "--kind", "meas", "--into", m_out, "--strings", "x"}).code, 2);
}

KELMAR_TEST_MAIN(TestCurveExports)
#include "tst_curveexports.moc"
