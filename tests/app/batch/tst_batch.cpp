#include "tests/report/ReportSample.h"
#include "tests/support/TestMain.h"

#include <QProcess>

namespace {

/// How a run of the program ended and what it said.
struct Outcome
{
    int code = -1;
    QString output;
    QString errors;
};

QMap<QString, QVariant> allSettings()
{
    const QSettings settings;
    QMap<QString, QVariant> all;
    for (const QString &key : settings.allKeys())
        all.insert(key, settings.value(key));
    return all;
}

// With the drive where there are drives: the program runs elsewhere.
const QString samples = QFileInfo(KELMAR_SAMPLES).absoluteFilePath();
const QString sample = samples + "/Roof south.csv";
const QString germanSample = samples + "/Roof south (German).csv";

} // namespace

/// The program without windows, run from outside.
class TestBatch : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void rowsGoIntoANewReportAndItsPdf();
    void moreRowsGoBehindThoseOfAnEarlierRun();
    void rowsGoInInTheOrderGiven();
    void reportIsPrinted();

    void existingFilesAreOverwrittenOnlyByForce();
    void reportToAddToNeedsNoForce();
    void notEvenForceMakesAnInputAnOutput();
    void outputThatIsALinkToTheInputIsRefused();
    void badInputWritesNothingAndTellsOneLine_data();
    void badInputWritesNothingAndTellsOneLine();
    void fullReportIsLeftAsItIs();
    void pdfThatCannotBeWrittenIsTold();
    void reportThatCannotBeWrittenIsTold();
    void wrongUsageEndsWithTwoAndShowsTheUsage_data();
    void wrongUsageEndsWithTwoAndShowsTheUsage();
    void helpAndVersionGoToTheOutput();

    void languageOnTheCommandLineChoosesFormAndMarks();
    void storedLanguageIsTakenWithoutTheOption();
    void languageOfTheEnvironmentIsTakenLast();
    void anyOtherLanguageTakesTheEnglishForm();
    void optionWinsOverTheStoredLanguage();

private:
    Outcome run(const QStringList &arguments, const QMap<QString, QString> &variables = {}) const;
    Outcome import(const QStringList &more, const QString &results = sample,
                   const QMap<QString, QString> &variables = {}) const;
    QString path(const QString &name) const { return TestHome::instance()->path("batch/" + name); }
    QString report() const { return path("report.kelatr"); }
    QString pdf() const { return path("report.pdf"); }
    QString formOf(const QString &file) const
    {
        return ReportSample::readXml(file).documentElement().attribute("resPak");
    }
    /// The cells of a column from row 12 on, where measured values stand, as "row=text".
    static QStringList measured(const QString &file, int column);
    static void storeLanguage(const QString &name)
    {
        QSettings settings;
        settings.setValue("locale", name);
        settings.sync();
    }
};

void TestBatch::init()
{
    TestHome::instance()->reset();
    QDir(path(QString())).removeRecursively();
    QVERIFY(QDir().mkpath(path(QString())));
    QSettings settings;
    settings.clear();
    settings.sync();
}

Outcome TestBatch::run(const QStringList &arguments, const QMap<QString, QString> &variables) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("DISPLAY");
    environment.remove("QT_QPA_PLATFORM");
    for (auto variable = variables.cbegin(); variable != variables.cend(); ++variable)
        environment.insert(variable.key(), variable.value());
    const auto settings = allSettings();
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(path(QString()));
    process.start(KELMAR_BATCH, arguments);
    Outcome outcome;
    if (process.waitForFinished(patience) && process.exitStatus() == QProcess::NormalExit)
        outcome.code = process.exitCode();
    if (allSettings() != settings)
        QTest::qFail("the program has written settings", __FILE__, __LINE__);
    outcome.output = QString::fromUtf8(process.readAllStandardOutput()).remove('\r');
    outcome.errors = QString::fromUtf8(process.readAllStandardError()).remove('\r');
    return outcome;
}

Outcome TestBatch::import(const QStringList &more, const QString &results,
                          const QMap<QString, QString> &variables) const
{
    return run(QStringList{"import-results", results} + more, variables);
}

QStringList TestBatch::measured(const QString &file, int column)
{
    QMap<int, QString> texts;
    for (const QDomElement &cell : ReportSample::elements(ReportSample::readXml(file), "cell")) {
        const int row = cell.attribute("row").toInt();
        if (cell.attribute("col").toInt() == column && row >= 12 && !cell.text().isEmpty())
            texts.insert(row, QString("%1=%2").arg(row).arg(cell.text()));
    }
    return texts.values();
}

void TestBatch::rowsGoIntoANewReportAndItsPdf()
{
    const Outcome outcome = import({"--rows", "1-4", "--report", report(), "--new", "--pdf", pdf()});
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.code, 0);
    QCOMPARE(formOf(report()), QString(":res/reports_en/kelatr_rev3.pak"));
    QVERIFY(!measured(report(), 2).isEmpty());
    QVERIFY(measured(report(), 3).isEmpty());
    QVERIFY(readFile(pdf()).startsWith("%PDF-"));
    // The favourite is the main program's business.
    QVERIFY(QDir(TestHome::instance()->dataFolder()).isEmpty());
}

void TestBatch::moreRowsGoBehindThoseOfAnEarlierRun()
{
    QCOMPARE(import({"--rows", "1-3", "--report", report(), "--new"}).code, 0);
    const QStringList first = measured(report(), 2);
    QCOMPARE(import({"--rows", "1-3", "--report", report()}).code, 0);
    QCOMPARE(measured(report(), 2), first);
    QCOMPARE(measured(report(), 3), first);
}

void TestBatch::rowsGoInInTheOrderGiven()
{
    QCOMPARE(import({"--rows", "1,2", "--report", path("a.kelatr"), "--new"}).code, 0);
    QCOMPARE(import({"--rows", "1-2", "--report", path("b.kelatr"), "--new"}).code, 0);
    QCOMPARE(readFile(path("a.kelatr")), readFile(path("b.kelatr")));
}

void TestBatch::reportIsPrinted()
{
    QCOMPARE(import({"--rows", "1", "--report", report(), "--new"}).code, 0);
    const QByteArray before = readFile(report());
    const Outcome outcome = run({"pdf", report(), pdf()});
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.code, 0);
    QVERIFY(readFile(pdf()).startsWith("%PDF-"));
    QCOMPARE(readFile(report()), before);
}

void TestBatch::existingFilesAreOverwrittenOnlyByForce()
{
    writeFile(report(), "mine");
    writeFile(pdf(), "mine");
    Outcome outcome = import({"--rows", "1", "--report", report(), "--new"});
    QCOMPARE(outcome.code, 1);
    QCOMPARE(outcome.errors, "Kelmar: " + report() + " exists already; --force overwrites it.\n");
    outcome = import({"--rows", "1", "--report", path("free.kelatr"), "--new", "--pdf", pdf()});
    QCOMPARE(outcome.code, 1);
    QCOMPARE(outcome.errors, "Kelmar: " + pdf() + " exists already; --force overwrites it.\n");
    QVERIFY(!QFileInfo::exists(path("free.kelatr")));
    QCOMPARE(run({"pdf", report(), pdf()}).code, 1);
    QCOMPARE(readFile(report()), QByteArray("mine"));
    QCOMPARE(readFile(pdf()), QByteArray("mine"));
    QCOMPARE(import({"--rows", "1", "--report", report(), "--new", "--pdf", pdf(), "--force"}).code, 0);
    QVERIFY(!measured(report(), 2).isEmpty() || !formOf(report()).isEmpty());
    QVERIFY(readFile(pdf()).startsWith("%PDF-"));
    writeFile(pdf(), "mine");
    QCOMPARE(run({"pdf", report(), pdf(), "--force"}).code, 0);
    QVERIFY(readFile(pdf()).startsWith("%PDF-"));
}

void TestBatch::reportToAddToNeedsNoForce()
{
    QCOMPARE(import({"--rows", "1", "--report", report(), "--new"}).code, 0);
    const QByteArray before = readFile(report());
    QCOMPARE(import({"--rows", "1-2", "--report", report()}).code, 0);
    QVERIFY(readFile(report()) != before);
}

void TestBatch::notEvenForceMakesAnInputAnOutput()
{
    const QString results = path("results.csv");
    writeFile(results, readFile(sample));
    QCOMPARE(import({"--rows", "1", "--report", report(), "--new"}).code, 0);
    const QByteArray before = readFile(report());
    const Outcome outcome = run({"pdf", report(), "report.kelatr", "--force"});
    QCOMPARE(outcome.code, 1);
    QCOMPARE(outcome.errors, QString("Kelmar: report.kelatr cannot be input and output at once.\n"));
    QCOMPARE(import({"--rows", "1", "--report", report(), "--pdf", report(), "--force"}, results).code, 1);
    QCOMPARE(import({"--rows", "1", "--report", report(), "--pdf", results, "--force"}, results).code, 1);
    QCOMPARE(import({"--rows", "1", "--report", results, "--new", "--force"}, results).code, 1);
    QCOMPARE(readFile(report()), before);
    QCOMPARE(readFile(results), readFile(sample));
}

void TestBatch::outputThatIsALinkToTheInputIsRefused()
{
    QCOMPARE(import({"--rows", "1", "--report", report(), "--new"}).code, 0);
    const QByteArray before = readFile(report());
    QVERIFY(QFile::link(report(), path("link.pdf")));
    QCOMPARE(run({"pdf", report(), path("link.pdf"), "--force"}).code, 1);
    QCOMPARE(readFile(report()), before);
}

void TestBatch::badInputWritesNothingAndTellsOneLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("told");
    const QStringList import{"import-results", sample, "--rows"};
    QTest::newRow("no such row") << import + QStringList{"99", "--report", "new.kelatr", "--new"}
                                 << "has no row 99";
    QTest::newRow("no such report") << import + QStringList{"1", "--report", "new.kelatr"}
                                    << "new.kelatr does not exist; --new makes it.";
    QTest::newRow("no such results") << QStringList{"import-results", "absent.csv", "--rows", "1",
                                                    "--report",       "new.kelatr", "--new"}
                                     << "absent.csv cannot be read.";
    QTest::newRow("no form for the suffix")
        << import + QStringList{"1", "--report", "new.txt", "--new"} << "no form for the suffix of new.txt";
    QTest::newRow("form without places")
        << import + QStringList{"1", "--report", "new.kelir", "--new", "--pdf", "new.pdf"}
        << "Unable to find where to insert data.";
    QTest::newRow("damaged report") << import + QStringList{"1", "--report", "damaged.kelatr"} << "damaged";
    QTest::newRow("folder as results")
        << QStringList{"import-results", ".", "--rows", "1", "--report", "new.kelatr", "--new"}
        << "cannot be read.";
    QTest::newRow("nothing to print") << QStringList{"pdf", "absent.kelatr", "new.pdf"} << "absent.kelatr";
    QTest::newRow("damaged report to print")
        << QStringList{"pdf", "damaged.kelatr", "new.pdf"} << "damaged.kelatr";
    QTest::newRow("no document") << QStringList{"pdf", "notes.txt", "new.pdf"}
                                 << "notes.txt is no document that can be printed.";
}

void TestBatch::badInputWritesNothingAndTellsOneLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, told);
    writeFile(path("damaged.kelatr"), "damaged");
    writeFile(path("notes.txt"), "notes");
    const QStringList before = QDir(path(QString())).entryList(QDir::Files);
    const Outcome outcome = run(arguments);
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.errors.startsWith("Kelmar: ") && outcome.errors.endsWith('\n'),
             qPrintable(outcome.errors));
    QCOMPARE(outcome.errors.count('\n'), 1);
    QVERIFY2(outcome.errors.contains(told), qPrintable(outcome.errors));
    QCOMPARE(QDir(path(QString())).entryList(QDir::Files), before);
    QCOMPARE(readFile(path("damaged.kelatr")), QByteArray("damaged"));
}

void TestBatch::fullReportIsLeftAsItIs()
{
    QCOMPARE(import({"--rows", "1-3", "--report", report(), "--new"}).code, 0);
    Outcome outcome;
    QByteArray before;
    for (int times = 0; times < 60 && outcome.code != 1; ++times) {
        before = readFile(report());
        outcome = import({"--rows", "1-3", "--report", report(), "--pdf", pdf(), "--force"});
    }
    QCOMPARE(outcome.code, 1);
    QCOMPARE(
        outcome.errors,
        QString("Kelmar: No more room left in the report table. Please use another Array Test Report.\n"));
    QCOMPARE(readFile(report()), before);
}

void TestBatch::pdfThatCannotBeWrittenIsTold()
{
    QCOMPARE(import({"--rows", "1", "--report", report(), "--new"}).code, 0);
    const Outcome outcome = run({"pdf", report(), path("absent/report.pdf")});
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.errors.contains(path("absent/report.pdf")), qPrintable(outcome.errors));
    QCOMPARE(outcome.errors.count('\n'), 1);
}

void TestBatch::reportThatCannotBeWrittenIsTold()
{
    const Outcome outcome = import({"--rows", "1", "--report", path("absent/report.kelatr"), "--new"});
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.errors.contains(path("absent/report.kelatr")), qPrintable(outcome.errors));
    QCOMPARE(outcome.errors.count('\n'), 1);
}

void TestBatch::wrongUsageEndsWithTwoAndShowsTheUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("no command") << QStringList{"print"};
    QTest::newRow("unknown option") << QStringList{"pdf", "a", "b", "--quick"};
    QTest::newRow("option without value") << QStringList{"pdf", "a", "b", "--language"};
    QTest::newRow("no output") << QStringList{"pdf", "a"};
    QTest::newRow("too much") << QStringList{"pdf", "a", "b", "c"};
    QTest::newRow("no rows") << QStringList{"import-results", "a", "--report", "b"};
    QTest::newRow("no report") << QStringList{"import-results", "a", "--rows", "1"};
    QTest::newRow("no results") << QStringList{"import-results", "--rows", "1", "--report", "b"};
    QTest::newRow("no list of rows") << QStringList{"import-results", "a", "--rows", "one", "--report", "b"};
    QTest::newRow("row before the first")
        << QStringList{"import-results", "a", "--rows", "0", "--report", "b"};
}

void TestBatch::wrongUsageEndsWithTwoAndShowsTheUsage()
{
    QFETCH(QStringList, arguments);
    const Outcome outcome = run(arguments);
    QCOMPARE(outcome.code, 2);
    QVERIFY(outcome.errors.contains("usage: kelmar-batch import-results"));
    QVERIFY(outcome.output.isEmpty());
    QVERIFY(QDir(path(QString())).isEmpty());
}

void TestBatch::helpAndVersionGoToTheOutput()
{
    const Outcome help = run({"--help"});
    QCOMPARE(help.code, 0);
    QVERIFY(help.output.startsWith("usage: kelmar-batch import-results"));
    QVERIFY(help.errors.isEmpty());
    const Outcome version = run({"--version"});
    QCOMPARE(version.code, 0);
    QCOMPARE(version.output, QString("Kelmar V2.2.0.0\n"));
}

void TestBatch::languageOnTheCommandLineChoosesFormAndMarks()
{
    const Outcome outcome =
        import({"--rows", "1-4", "--report", report(), "--new", "--language", "de"}, germanSample);
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.code, 0);
    QCOMPARE(formOf(report()), QString(":res/reports_de/kelatr_rev3.pak"));
    QVERIFY2(measured(report(), 2).join(' ').contains(','), qPrintable(measured(report(), 2).join(' ')));
    // The same file has no columns in a session with a decimal point.
    QCOMPARE(import({"--rows", "1", "--report", path("en.kelatr"), "--new", "--language", "en"}, germanSample)
                 .code,
             1);
    QVERIFY(!QFileInfo::exists(path("en.kelatr")));
}

void TestBatch::storedLanguageIsTakenWithoutTheOption()
{
    storeLanguage("de_DE");
    QCOMPARE(import({"--rows", "1", "--report", report(), "--new"}, germanSample).code, 0);
    QCOMPARE(formOf(report()), QString(":res/reports_de/kelatr_rev3.pak"));
    QCOMPARE(QSettings().value("locale").toString(), QString("de_DE"));
}

void TestBatch::languageOfTheEnvironmentIsTakenLast()
{
    QCOMPARE(import({"--rows", "1", "--report", report(), "--new"}, germanSample,
                    {{"LC_ALL", "de_DE.UTF-8"}, {"LANG", "de_DE.UTF-8"}})
                 .code,
             0);
    QCOMPARE(formOf(report()), QString(":res/reports_de/kelatr_rev3.pak"));
    storeLanguage("en_GB");
    QCOMPARE(import({"--rows", "1", "--report", path("stored.kelatr"), "--new"}, sample,
                    {{"LC_ALL", "de_DE.UTF-8"}, {"LANG", "de_DE.UTF-8"}})
                 .code,
             0);
    QCOMPARE(formOf(path("stored.kelatr")), QString(":res/reports_en/kelatr_rev3.pak"));
}

void TestBatch::anyOtherLanguageTakesTheEnglishForm()
{
    // French numbers have a decimal comma, too.
    QCOMPARE(import({"--rows", "1", "--report", report(), "--new", "--language", "fr"}, germanSample).code,
             0);
    QCOMPARE(formOf(report()), QString(":res/reports_en/kelatr_rev3.pak"));
}

void TestBatch::optionWinsOverTheStoredLanguage()
{
    storeLanguage("de_DE");
    QCOMPARE(import({"--rows", "1", "--report", report(), "--new", "--language", "en_GB"}).code, 0);
    QCOMPARE(formOf(report()), QString(":res/reports_en/kelatr_rev3.pak"));
}

KELMAR_TEST_MAIN(TestBatch)
#include "tst_batch.moc"
