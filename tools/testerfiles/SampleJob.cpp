#include "tools/testerfiles/SampleJob.h"

#include "tools/testerfiles/SimulatedTester.h"

namespace {

QDateTime firstVisit()
{
    return QDateTime(QDate(2016, 5, 12), QTime(10, 4, 30), Qt::UTC);
}

QDateTime secondVisit()
{
    return QDateTime(QDate(2016, 9, 3), QTime(13, 41, 10), Qt::UTC);
}

void allTestsOfAString(SimulatedTester &tester, int modules)
{
    tester.connectString(modules);
    tester.testContinuity();
    tester.autoTest();
    tester.testInsulation(true);
    tester.testInsulation(false);
    tester.measureCurve();
}

QByteArray roofSouth(unsigned seed, const TesterFileFormat &format)
{
    SimulatedTester tester(seed, format, firstVisit());
    tester.beginFile(2);
    for (const int modules : {18, 18, 16})
        allTestsOfAString(tester, modules);
    return tester.file();
}

QByteArray earthing(unsigned seed)
{
    SimulatedTester tester(seed, TesterFileFormat::english(), firstVisit());
    tester.beginFile(2, true);
    const struct
    {
        const char *location;
        int modules;
    } rows[] = {{"Row 1", 18}, {"Row 2", 18}, {"Row 3", 16}};
    for (const auto &row : rows) {
        tester.connectString(row.modules, QString::fromLatin1(row.location));
        tester.testContinuity();
        tester.autoTest();
    }
    return tester.file();
}

QByteArray passingClouds(unsigned seed)
{
    SimulatedTester tester(seed, TesterFileFormat::english(), secondVisit());
    tester.beginFile(3);
    tester.connectString(18);
    tester.measureCurve();
    tester.measureCurve(SimulatedTester::Sky::PassingCloud);
    tester.connectString(16);
    tester.measureCurve(SimulatedTester::Sky::PassingCloud);
    // A test that the tester itself found fault with.
    tester.measureCurve(SimulatedTester::Sky::Clear, 4);
    return tester.file();
}

} // namespace

QVector<SampleFile> sampleJob(unsigned seed)
{
    return {{QStringLiteral("Roof south.csv"), roofSouth(seed, TesterFileFormat::english())},
            {QStringLiteral("Roof south (German).csv"), roofSouth(seed, TesterFileFormat::german())},
            {QStringLiteral("Earthing.csv"), earthing(seed + 1)},
            {QStringLiteral("Passing clouds.csv"), passingClouds(seed + 2)}};
}

QByteArray downloadedFile(unsigned seed)
{
    SimulatedTester tester(seed, TesterFileFormat::ofLocale(), QDateTime::currentDateTime().addSecs(-1800));
    tester.beginFile(2);
    allTestsOfAString(tester, 18);
    return tester.file();
}
