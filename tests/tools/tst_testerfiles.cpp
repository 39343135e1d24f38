#include "app/core/TesterChecksum.h"
#include "import/CsvResultsModel.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"
#include "tools/testerfiles/PvString.h"
#include "tools/testerfiles/SampleJob.h"

#include <QBuffer>
#include <QDir>
#include <QProcess>
#include <QSet>
#include <QtTest>

class TestTesterFiles : public QObject
{
    Q_OBJECT

private slots:
    void committedSamplesAreWhatTheGeneratorMakes();
    void programWritesTheSameFilesForTheSameSeed();
    void programRefusesWrongArguments_data();
    void programRefusesWrongArguments();
    void everyLineHasItsSum_data();
    void everyLineHasItsSum();
    void linesEndWithCarriageReturnAndLineFeed();
    void germanFileDiffersInMarksAndDatesAlone();
    void allKindsOfTestOccur();
    void filesLoadWithAllTheirTests_data();
    void filesLoadWithAllTheirTests();
    void curvesLookLikeThoseOfModules();
    void onlyAPassingCloudChangesTheIrradianceByATenth();
    void stringObeysItsRatings();
};

namespace {

struct Point
{
    double voltage;
    double current;
    double irradiance;
};

const QString roofSouth = QStringLiteral("Roof south.csv");
const QString roofSouthGerman = QStringLiteral("Roof south (German).csv");
const QString passingClouds = QStringLiteral("Passing clouds.csv");

QByteArray sample(const QString &name)
{
    for (const SampleFile &file : sampleJob(sampleSeed)) {
        if (file.name == name)
            return file.bytes;
    }
    QTest::qFail(qPrintable(name), __FILE__, __LINE__);
    return QByteArray();
}

QStringList lines(const QByteArray &bytes)
{
    QStringList result = QString::fromUtf8(bytes).split(QStringLiteral("\r\n"));
    result.removeLast();
    return result;
}

/// The lines of tests with a curve, cut into fields.
QVector<QStringList> curveRows(const QByteArray &bytes)
{
    QVector<QStringList> rows;
    for (const QString &line : lines(bytes).mid(2)) {
        if (line.startsWith(QStringLiteral("16,")))
            rows << line.split(QLatin1Char(','));
    }
    return rows;
}

QVector<Point> points(const QStringList &row)
{
    QVector<Point> result;
    for (const QString &field : row.mid(16, row.size() - 18)) {
        const QStringList parts = field.split(QLatin1Char(':'));
        result.append({parts.at(0).toDouble(), parts.at(1).toDouble(), parts.at(2).toDouble()});
    }
    return result;
}

int runGenerator(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral(KELMAR_TESTER_FILES), arguments);
    if (!process.waitForFinished(patience) || process.exitStatus() != QProcess::NormalExit)
        return -1;
    return process.exitCode();
}

} // namespace

void TestTesterFiles::committedSamplesAreWhatTheGeneratorMakes()
{
    const QVector<SampleFile> files = sampleJob(sampleSeed);
    const QDir folder(QStringLiteral(KELMAR_SAMPLES));
    QCOMPARE(folder.entryList({QStringLiteral("*.csv")}, QDir::Files).size(), files.size());
    for (const SampleFile &file : files)
        QVERIFY2(readFile(folder.filePath(file.name)) == file.bytes, qPrintable(file.name));
}

void TestTesterFiles::programWritesTheSameFilesForTheSameSeed()
{
    const QString target = TestHome::instance()->path(QStringLiteral("generated/new"));
    QCOMPARE(runGenerator({target}), 0);
    const QByteArray bySeed = readFile(target + QLatin1Char('/') + roofSouth);
    QCOMPARE(bySeed, sample(roofSouth));
    QCOMPARE(QDir(target).entryList(QDir::Files).size(), sampleJob(sampleSeed).size());

    QCOMPARE(runGenerator({target, QStringLiteral("--seed"), QStringLiteral("13")}), 0);
    QVERIFY(readFile(target + QLatin1Char('/') + roofSouth) != bySeed);
    QCOMPARE(runGenerator({target, QStringLiteral("--seed"), QString::number(sampleSeed)}), 0);
    QCOMPARE(readFile(target + QLatin1Char('/') + roofSouth), bySeed);
}

void TestTesterFiles::programRefusesWrongArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");

    QTest::newRow("none") << QStringList() << 2;
    QTest::newRow("seed that is no number") << QStringList{"somewhere", "--seed", "x"} << 2;
    QTest::newRow("folder below a file") << QStringList{QStringLiteral(KELMAR_TESTER_FILES) + "/below"} << 1;
}

void TestTesterFiles::programRefusesWrongArguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QCOMPARE(runGenerator(arguments), exitCode);
    QVERIFY(!QFile::exists(QStringLiteral("somewhere")));
}

void TestTesterFiles::everyLineHasItsSum_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QChar>("separator");
    QTest::addColumn<QChar>("decimalMark");

    for (const SampleFile &file : sampleJob(sampleSeed)) {
        const bool german = file.name == roofSouthGerman;
        QTest::newRow(qPrintable(file.name))
            << file.bytes << QChar(german ? ';' : ',') << QChar(german ? ',' : '.');
    }
}

void TestTesterFiles::everyLineHasItsSum()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QChar, separator);
    QFETCH(QChar, decimalMark);
    const QStringList tests = lines(bytes).mid(2);
    QVERIFY(tests.size() >= 4);
    for (const QString &line : tests)
        QVERIFY2(testerChecksumMatches(line, separator, decimalMark), qPrintable(line));
}

void TestTesterFiles::linesEndWithCarriageReturnAndLineFeed()
{
    for (const SampleFile &file : sampleJob(sampleSeed)) {
        QVERIFY(file.bytes.endsWith("\r\n"));
        QCOMPARE(file.bytes.count('\n'), file.bytes.count("\r\n"));
        QCOMPARE(file.bytes.count('\r'), file.bytes.count("\r\n"));
    }
}

void TestTesterFiles::germanFileDiffersInMarksAndDatesAlone()
{
    const QStringList english = lines(sample(roofSouth));
    const QStringList german = lines(sample(roofSouthGerman));
    QCOMPARE(german.size(), english.size());
    for (int i = 0; i < english.size(); ++i) {
        QStringList one = english.at(i).split(QLatin1Char(','));
        QStringList other = german.at(i).split(QLatin1Char(';'));
        QCOMPARE(other.size(), one.size());
        if (i >= 2) {
            QCOMPARE(QDate::fromString(other.takeAt(2), QStringLiteral("dd.MM.yyyy")),
                     QDate::fromString(one.takeAt(2), QStringLiteral("d/M/yyyy")));
            // The sum counts the characters of the date.
            one.removeLast();
            other.removeLast();
            other.replaceInStrings(QStringLiteral(","), QStringLiteral("."));
        }
        QCOMPARE(other, one);
    }
}

void TestTesterFiles::allKindsOfTestOccur()
{
    QSet<QString> types;
    for (const QString &line : lines(sample(roofSouth)).mid(2))
        types.insert(line.section(QLatin1Char(','), 0, 0));
    QCOMPARE(types, (QSet<QString>{"1", "2", "4", "8", "16"}));
    QCOMPARE(curveRows(sample(roofSouth)).size(), 3);
}

void TestTesterFiles::filesLoadWithAllTheirTests_data()
{
    everyLineHasItsSum_data();
}

void TestTesterFiles::filesLoadWithAllTheirTests()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QChar, separator);
    const LocaleSwitch locale(separator == QLatin1Char(';') ? QStringLiteral("de_DE")
                                                            : QStringLiteral("en_GB"));
    QBuffer buffer(&bytes);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    CsvResultsModel model;
    QVERIFY(model.load(&buffer));
    QCOMPARE(model.rowCount(), lines(bytes).size() - 2);
    QCOMPARE(model.serialNumber(), QStringLiteral("5120-0347"));
    QCOMPARE(model.testTypeColumn(), 0);
    QVERIFY(model.columnCount() >= 14);
}

void TestTesterFiles::curvesLookLikeThoseOfModules()
{
    for (const QStringList &row : curveRows(sample(roofSouth))) {
        const QVector<Point> curve = points(row);
        QVERIFY(curve.size() > 100);
        for (int i = 1; i < curve.size(); ++i)
            QVERIFY(curve.at(i).voltage > curve.at(i - 1).voltage);
        const double voc = row.at(5).toDouble();
        const double isc = row.at(6).toDouble();
        const double vmp = row.at(14).toDouble();
        const double imp = row.at(15).toDouble();
        QVERIFY(curve.first().voltage > 0.0 && curve.first().voltage < 0.05 * voc);
        QVERIFY(curve.last().voltage < voc && curve.last().voltage > 0.95 * voc);
        QVERIFY(qAbs(curve.first().current - isc) < 0.02 * isc);
        QVERIFY(vmp / voc > 0.755 && vmp / voc < 0.846);
        const double fillFactor = vmp * imp / (voc * isc);
        QVERIFY(fillFactor > 0.634 && fillFactor < 0.798);
        QVERIFY(qAbs(100.0 * fillFactor - row.at(13).toDouble()) < 0.2);
    }
}

void TestTesterFiles::onlyAPassingCloudChangesTheIrradianceByATenth()
{
    QVector<bool> changes;
    for (const QStringList &row : curveRows(sample(passingClouds)) + curveRows(sample(roofSouth))) {
        double lowest = 1e9;
        double highest = 0.0;
        for (const Point &point : points(row)) {
            lowest = qMin(lowest, point.irradiance);
            highest = qMax(highest, point.irradiance);
        }
        changes << (highest * 0.9 > lowest);
    }
    QCOMPARE(changes, (QVector<bool>{false, true, true, false, false, false, false}));
}

void TestTesterFiles::stringObeysItsRatings()
{
    const PvModule module = {8.72, 37.8, 0.00058, -0.00339, 0.27, 320.0, 1.68};
    PvString string(module, 10);
    QVERIFY(qAbs(string.openCircuitVoltage() - 378.0) < 0.5);
    QVERIFY(qAbs(string.shortCircuitCurrent() - 8.72) < 0.02);
    QVERIFY(qAbs(string.point(1.0, 1000.0).current) < 0.001);

    string.setConditions(500.0, 25.0);
    QVERIFY(qAbs(string.shortCircuitCurrent() - 4.36) < 0.01);
    string.setConditions(1000.0, 75.0);
    QVERIFY(qAbs(string.openCircuitVoltage() - 378.0 * (1 - 50 * 0.00339)) < 0.5);
}

KELMAR_TEST_MAIN(TestTesterFiles)
#include "tst_testerfiles.moc"
