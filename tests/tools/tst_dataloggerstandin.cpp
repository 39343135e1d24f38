#include "app/core/Datalogger.h"
#include "app/core/Identity.h"
#include "app/core/TesterChecksum.h"
#include "tests/support/TestMain.h"

#include <QProcess>
#include <QSettings>
#include <QtTest>

class TestDataloggerStandIn : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void savesAFileWhereItIsTold();
    void savesAFileAmongTheDocumentsOtherwise();
    void leavesThePathWhereTheProgramLooksForIt();
    void endsWithAFailureWhenTheFileCannotBeWritten();
    void waitsForAClickWhenSomebodyIsThere();

private:
    /// Runs the stand-in with these variables; its exit code, or -1 when it did not end.
    static int run(const QMap<QString, QString> &variables, int milliSeconds = 20000);
    static QString savedPath();
};

void TestDataloggerStandIn::init()
{
    QSettings(Identity::organisationName(), Identity::dataloggerApplicationName()).clear();
}

int TestDataloggerStandIn::run(const QMap<QString, QString> &variables, int milliSeconds)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (auto variable = variables.cbegin(); variable != variables.cend(); ++variable)
        environment.insert(variable.key(), variable.value());
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(KELMAR_DATALOGGER), QStringList());
    if (!process.waitForFinished(milliSeconds)) {
        process.kill();
        process.waitForFinished(patience);
        return -1;
    }
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

QString TestDataloggerStandIn::savedPath()
{
    QSettings store(Identity::organisationName(), Identity::dataloggerApplicationName());
    store.sync();
    return store.value(QStringLiteral("Device/LastSavedFilePath")).toString();
}

void TestDataloggerStandIn::savesAFileWhereItIsTold()
{
    const QString path = TestHome::instance()->path(QStringLiteral("fetched.csv"));
    QCOMPARE(run({{"KELMAR_STANDIN_AUTO", "1"}, {"KELMAR_STANDIN_FILE", path}}), 0);
    QCOMPARE(savedPath(), path);
    const QStringList lines = QString::fromUtf8(readFile(path)).split(QStringLiteral("\r\n"));
    QCOMPARE(lines.size(), 8);
    for (const QString &line : lines.mid(2, 5))
        QVERIFY2(testerChecksumMatches(line, QLatin1Char(','), QLatin1Char('.')), qPrintable(line));
}

void TestDataloggerStandIn::savesAFileAmongTheDocumentsOtherwise()
{
    QCOMPARE(run({{"KELMAR_STANDIN_AUTO", "1"}}), 0);
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QVERIFY2(savedPath().startsWith(documents + QLatin1Char('/')), qPrintable(savedPath()));
    QVERIFY(savedPath().endsWith(QStringLiteral(".csv")));
    QVERIFY(readFile(savedPath()).startsWith("PV Tester,"));
    QVERIFY(QFile::remove(savedPath()));
}

void TestDataloggerStandIn::leavesThePathWhereTheProgramLooksForIt()
{
    const QDateTime started = QDateTime::currentDateTime().addSecs(-2);
    QCOMPARE(Datalogger::fileSavedSince(started), QString());
    const QString path = TestHome::instance()->path(QStringLiteral("offered.csv"));
    QCOMPARE(run({{"KELMAR_STANDIN_AUTO", "1"}, {"KELMAR_STANDIN_FILE", path}}), 0);
    QCOMPARE(Datalogger::fileSavedSince(started), path);
}

void TestDataloggerStandIn::endsWithAFailureWhenTheFileCannotBeWritten()
{
    const QString path = TestHome::instance()->path(QStringLiteral("no such folder/fetched.csv"));
    QCOMPARE(run({{"KELMAR_STANDIN_AUTO", "1"}, {"KELMAR_STANDIN_FILE", path}}), 1);
    QCOMPARE(savedPath(), QString());
}

void TestDataloggerStandIn::waitsForAClickWhenSomebodyIsThere()
{
    const QString path = TestHome::instance()->path(QStringLiteral("unwanted.csv"));
    QCOMPARE(run({{"KELMAR_STANDIN_FILE", path}}, 1500), -1);
    QVERIFY(!QFile::exists(path));
}

KELMAR_TEST_MAIN(TestDataloggerStandIn)
#include "tst_dataloggerstandin.moc"
