#include "curve/data/STCAlgorithm.h"
#include "curve/data/StringRecord.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <cmath>
#include <random>

using namespace IVCurve;

namespace {

CurveTrace traceOf(const QVector<QPointF> &points, double irradiance = 1000)
{
    CurveTrace trace;
    for (const QPointF &point : points)
        trace.addPoint(point.x(), point.y(), irradiance, 0);
    return trace;
}

StringHeader headerAt(const char *irradiance, const char *cellTemp)
{
    StringHeader header;
    header.irradiance = irradiance;
    header.cellTemp = cellTemp;
    header.ambientTemp = "20";
    return header;
}

/// A record whose corrected curve is the measured one.
StringRecord atStandardConditions(const QVector<QPointF> &points)
{
    return StringRecord(headerAt("1000", "25"), traceOf(points));
}

QVector<double> currents(const CurveTrace &trace)
{
    QVector<double> list;
    for (const QPointF &point : trace.points)
        list.append(point.y());
    return list;
}

StringRecord withCurrents(const QVector<double> &values)
{
    CurveTrace trace;
    for (const double value : values)
        trace.addPoint(trace.size() + 1, value, 1000, 0);
    return StringRecord(headerAt("1000", "25"), trace);
}

/// The search for dips once more, by lists and with the correction left out.
QVector<double> plainlyWithoutDips(QVector<double> values)
{
    const int count = values.size();
    for (int pass = 0; pass <= count; ++pass) {
        QVector<double> kept;
        for (int i = 0; i < values.size(); ++i) {
            const bool dip = i > 0 && i + 1 < values.size() && values[i - 1] != 0.0 &&
                             values[i - 1] >= values[i] && values[i + 1] >= values[i];
            if (!dip)
                kept.append(values[i]);
        }
        if (kept.size() == values.size())
            break;
        values = kept;
    }
    return values;
}

} // namespace

class TestStringRecord : public QObject
{
    Q_OBJECT

private slots:
    void anEmptyCurveHasEmptyTraces();
    void aStringWithoutAModuleHasNoNominalCurve();
    void powerCurvesFollowTheirSources();
    void theCorrectedCurveIsLedOnToTheAxes();
    void aCurveThatEndsOnTheAxesIsNotLedOn();
    void theFirstRequestDecidesWhetherTheCurveIsLedOn();
    void theExtraCorrectionsComeBeforeAndAfterTheWalk();

    void theNominalCurveIsTheDefinedOne();
    void aModuleWithoutShapeRunsAlongTheVoltageAxis();
    void shapeIsOnlyThereForRatingsThatDefineIt_data();
    void shapeIsOnlyThereForRatingsThatDefineIt();

    void firstAndLastPointAreNeverDips();
    void dipsGoWithEqualNeighbours();
    void dipsAreSoughtUntilNoneIsLeft();
    void dipsAreSoughtInTheCorrectedCurve();
    void beforeVersion2NoDipIsSought();
    void randomCurvesLoseTheDipsThatAPlainSearchFinds();
    void pointsKeepIrradianceAndTagWhenOthersGo();
    void highestPowerCountsAbove0Only();

    void blaesserTakesTheAirAndTheReportedReadings();
    void theOthersTakeTheCellAndTheMeasuredCurve();
    void readingsThatDoNotParseGiveWayToTheCurve();
    void anUnknownAlgorithmIsAnderson();
    void makingAnAlgorithmStoresTheConditions();
    void clearingTakesCurveAndPowerTogether();
    void aCopyIsDeep();
    void memoryOfAStringStaysWithinItsBudget();
};

void TestStringRecord::anEmptyCurveHasEmptyTraces()
{
    StringRecord record(headerAt("800", "45"), CurveTrace());
    record.removeDips(2);
    QVERIFY(record.stcCurve(true).isEmpty());
    QVERIFY(record.stcPowerCurve().isEmpty());
    QVERIFY(record.measuredPowerCurve().isEmpty());
    QCOMPARE(record.measuredCurve().mppIndex, -1);
    QCOMPARE(record.stcCurve(true).mppIndex, -1);
}

void TestStringRecord::aStringWithoutAModuleHasNoNominalCurve()
{
    StringRecord record = atStandardConditions({{0, 8}, {10, 7}, {20, 0}});
    QVERIFY(record.nominalCurve().isEmpty());
    QVERIFY(record.nominalPowerCurve().isEmpty());
    QCOMPARE(record.stcCurve(false).points, record.measuredCurve().points);
    QCOMPARE(record.module().series, 1);
}

void TestStringRecord::powerCurvesFollowTheirSources()
{
    StringRecord record = atStandardConditions({{1, 8}, {10, 7}, {20, 1}});
    QCOMPARE(record.measuredPowerCurve().points, QVector<QPointF>({{1, 8}, {10, 70}, {20, 20}}));
    QCOMPARE(record.measuredPowerCurve().mppIndex, record.measuredCurve().mppIndex);
    QVERIFY(record.measuredPowerCurve().kind == TraceKind::measuredPower);
    QCOMPARE(record.stcPowerCurve().points, QVector<QPointF>({{0, 0}, {1, 8}, {10, 70}, {20, 20}, {20, 0}}));
    QCOMPARE(record.stcPowerCurve().mppIndex, 2);
}

void TestStringRecord::theCorrectedCurveIsLedOnToTheAxes()
{
    StringRecord record = atStandardConditions({{1, 8}, {10, 7}, {20, 1}});
    QCOMPARE(record.stcCurve(true).points, QVector<QPointF>({{0, 8}, {1, 8}, {10, 7}, {20, 1}, {20, 0}}));
    QCOMPARE(record.stcCurve(true).refs.front().irradiance, 1000.0);
}

void TestStringRecord::aCurveThatEndsOnTheAxesIsNotLedOn()
{
    StringRecord record = atStandardConditions({{0, 8}, {10, 7}, {20, 0}});
    QCOMPARE(record.stcCurve(true).size(), 3);
}

void TestStringRecord::theFirstRequestDecidesWhetherTheCurveIsLedOn()
{
    StringRecord plain = atStandardConditions({{1, 8}, {10, 7}, {20, 1}});
    QCOMPARE(plain.stcCurve(false).size(), 3);
    QCOMPARE(plain.stcCurve(true).size(), 3);
    StringRecord extended = atStandardConditions({{1, 8}, {10, 7}, {20, 1}});
    QCOMPARE(extended.stcCurve(true).size(), 5);
    QCOMPARE(extended.stcCurve(false).size(), 5);
}

void TestStringRecord::theExtraCorrectionsComeBeforeAndAfterTheWalk()
{
    // The point without irradiance takes that of the point before it: at its extra correction in front that
    // is the measurement's, and behind the walk the last one's.
    CurveTrace trace;
    trace.addPoint(1, 8, 0, 0);
    trace.addPoint(10, 7, 500, 0);
    trace.addPoint(20, 1, 0, 0);
    StringRecord record(headerAt("800", "25"), trace);
    record.settings().perPointIrradiance = true;
    const CurveTrace &stc = record.stcCurve(true);
    QCOMPARE(stc.size(), 5);
    QVERIFY(qFuzzyCompare(stc.points.at(0).y(), 10.0));
    QVERIFY(qFuzzyCompare(stc.points.at(1).y(), 10.0));
    QVERIFY(qFuzzyCompare(stc.points.at(2).y(), 14.0));
    QVERIFY(qFuzzyCompare(stc.points.at(3).y(), 2.0));
    QCOMPARE(stc.points.at(4).x(), stc.points.at(3).x());
}

void TestStringRecord::theNominalCurveIsTheDefinedOne()
{
    StringRecord record = atStandardConditions({{1, 8}});
    record.module() = ModuleBinding(0, 18, 2, 37.5, 8.8, 30.5, 8.3);
    const double shape = (30.5 - 37.5) / std::log(1 - 8.3 / 8.8);
    QCOMPARE(record.module().shape, shape);
    const CurveTrace &nominal = record.nominalCurve();
    QCOMPARE(nominal.size(), 128);
    double V = 0;
    for (int k = 0; k < 127; ++k) {
        // The exponential less 2, not less 1.
        const double I = 8.8 - (std::exp(V / shape) - 2) * std::exp(-37.5 / shape) * 8.8;
        QVERIFY(std::abs(nominal.points.at(k).x() - 18 * V) < 1e-9);
        QVERIFY2(std::abs(nominal.points.at(k).y() - 2 * I) < 1e-9, qPrintable(QString::number(k)));
        V += 37.5 / 127;
    }
    QCOMPARE(nominal.points.last(), QPointF(18 * 37.5, 0));
    QCOMPARE(nominal.maxV, 18 * 37.5);
    QVERIFY(nominal.maxI >= 2 * 8.8);
    double highest = 0;
    for (const QPointF &point : nominal.points)
        highest = std::max(highest, point.x() * point.y());
    const QPointF &mpp = nominal.points.at(nominal.mppIndex);
    // The forced index is the first above Vmp; only what comes later can overtake it.
    QVERIFY(mpp.x() > 18 * 30.5);
    QVERIFY(mpp.x() * mpp.y() > 0.97 * highest);
    QCOMPARE(record.nominalPowerCurve().mppIndex, nominal.mppIndex);
    QCOMPARE(record.nominalPowerCurve().size(), 128);
}

void TestStringRecord::aModuleWithoutShapeRunsAlongTheVoltageAxis()
{
    StringRecord record = atStandardConditions({{1, 8}});
    record.module() = ModuleBinding(0, 18, 1, 37.5, 8.8, 30.5, 8.8);
    QCOMPARE(record.module().shape, 0.0);
    const CurveTrace &nominal = record.nominalCurve();
    QCOMPARE(nominal.size(), 128);
    for (int k = 0; k < 127; ++k)
        QCOMPARE(nominal.points.at(k).y(), 0.0);
    QVERIFY(qFuzzyCompare(nominal.points.at(126).x(), 37.5 * 126 / 127));
    QCOMPARE(nominal.points.last(), QPointF(18 * 37.5, 0));
}

void TestStringRecord::shapeIsOnlyThereForRatingsThatDefineIt_data()
{
    QTest::addColumn<double>("isc");
    QTest::addColumn<double>("imp");
    QTest::addColumn<bool>("defined");
    QTest::newRow("usual") << 8.8 << 8.3 << true;
    QTest::newRow("equal") << 8.8 << 8.8 << false;
    QTest::newRow("no Isc") << 0.0 << 8.3 << false;
    QTest::newRow("no Imp") << 8.8 << 0.0 << false;
}

void TestStringRecord::shapeIsOnlyThereForRatingsThatDefineIt()
{
    QFETCH(double, isc);
    QFETCH(double, imp);
    QTEST(ModuleBinding(3, 1, 1, 37.5, isc, 30.5, imp).shape > 0.0, "defined");
}

void TestStringRecord::firstAndLastPointAreNeverDips()
{
    StringRecord record = withCurrents({1, 8, 8.5, 7, 2});
    record.removeDips(2);
    QCOMPARE(currents(record.measuredCurve()), QVector<double>({1, 8, 8.5, 7, 2}));
    StringRecord rising = withCurrents({5, 4, 9});
    rising.removeDips(2);
    QCOMPARE(currents(rising.measuredCurve()), QVector<double>({5, 9}));
}

void TestStringRecord::dipsGoWithEqualNeighbours()
{
    // Inside a falling curve a flat run loses all but its last point.
    StringRecord record = withCurrents({9, 8, 8, 8, 7, 1});
    record.removeDips(2);
    QCOMPARE(currents(record.measuredCurve()), QVector<double>({9, 8, 7, 1}));
    QCOMPARE(record.measuredCurve().points.at(1).x(), 4.0);
}

void TestStringRecord::dipsAreSoughtUntilNoneIsLeft()
{
    StringRecord record = withCurrents({9, 5, 4, 6, 7, 8, 3});
    record.removeDips(2);
    QCOMPARE(currents(record.measuredCurve()), QVector<double>({9, 8, 3}));
}

void TestStringRecord::dipsAreSoughtInTheCorrectedCurve()
{
    // A cloud takes current and irradiance alike: no dip at standard conditions.
    CurveTrace cloud;
    cloud.addPoint(1, 8.0, 800, 0);
    cloud.addPoint(2, 3.95, 400, 0);
    cloud.addPoint(3, 7.8, 800, 0);
    cloud.addPoint(4, 0.1, 800, 0);
    StringRecord record(headerAt("800", "25"), cloud);
    record.removeDips(2);
    QCOMPARE(record.measuredCurve().size(), 4);
    // The same readings under a steady sun are one.
    StringRecord steady(headerAt("800", "25"), traceOf(cloud.points, 800));
    steady.removeDips(2);
    QCOMPARE(steady.measuredCurve().size(), 3);
}

void TestStringRecord::beforeVersion2NoDipIsSought()
{
    for (const quint32 version : {0u, 1u}) {
        StringRecord record = withCurrents({9, 5, 9, 1});
        record.removeDips(version);
        QCOMPARE(record.measuredCurve().size(), 4);
        QVERIFY(!record.settings().perPointIrradiance);
        QCOMPARE(record.measuredCurve().mppIndex, 2);
    }
    StringRecord record = withCurrents({9, 5, 9, 1});
    record.removeDips(3);
    QCOMPARE(record.measuredCurve().size(), 3);
    QVERIFY(record.settings().perPointIrradiance);
}

void TestStringRecord::randomCurvesLoseTheDipsThatAPlainSearchFinds()
{
    std::mt19937 random(21);
    for (int round = 0; round < 2000; ++round) {
        QVector<double> values;
        for (unsigned count = random() % 40; count > 0; --count)
            values.append(double(random() % 12));
        // The first current is the reference of the correction, which without it gives zeros alone.
        if (!values.isEmpty())
            values.first() = 4;
        StringRecord record = withCurrents(values);
        record.removeDips(2);
        QCOMPARE(currents(record.measuredCurve()), plainlyWithoutDips(values));
    }
}

void TestStringRecord::pointsKeepIrradianceAndTagWhenOthersGo()
{
    CurveTrace trace;
    trace.addPoint(1, 9, 801, 1);
    trace.addPoint(2, 1, 802, 2);
    trace.addPoint(3, 9, 803, 3);
    trace.addPoint(4, 1, 804, 4);
    StringRecord record(headerAt("800", "25"), trace);
    record.removeDips(2);
    QCOMPARE(record.measuredCurve().size(), 3);
    QCOMPARE(record.measuredCurve().refs[1].irradiance, 803.0);
    QCOMPARE(record.measuredCurve().refs[1].tag, 3);
    QCOMPARE(record.measuredCurve().refs[1].index, 1);
    QVERIFY(record.measuredCurve().kind == TraceKind::measured);
}

void TestStringRecord::highestPowerCountsAbove0Only()
{
    StringRecord record = atStandardConditions({{0, 8}, {-1, 3}, {5, 0}});
    record.findMaximumPower();
    QCOMPARE(record.measuredCurve().mppIndex, -1);
    StringRecord equal = atStandardConditions({{0, 8}, {2, 3}, {3, 2}});
    equal.findMaximumPower();
    QCOMPARE(equal.measuredCurve().mppIndex, 1);
}

void TestStringRecord::blaesserTakesTheAirAndTheReportedReadings()
{
    StringHeader header = headerAt("800", "99");
    header.ambientTemp = "45";
    header.isc = "6.4";
    header.voc = "600";
    StringRecord record(header, traceOf({{400, 6}, {500, 3}}));
    record.settings().algorithm = 0;
    const QPointF first = record.stcCurve(false).points.first();
    QVERIFY(std::abs(first.x() - 455.5409803473116) < 1e-9);
    QVERIFY(std::abs(first.y() - 7.40625) < 1e-12);
}

void TestStringRecord::theOthersTakeTheCellAndTheMeasuredCurve()
{
    StringHeader header = headerAt("800", "45");
    header.ambientTemp = "99";
    header.isc = "1";
    header.voc = "1";
    CurveTrace trace = traceOf({{0, 6.4}, {400, 6}, {600, 0}}, 800);
    StringRecord anderson(header, trace);
    QVERIFY(std::abs(anderson.stcCurve(false).points.at(1).x() - 409.7824772160029) < 1e-9);
    StringRecord iec(header, trace);
    iec.settings().algorithm = 1;
    QVERIFY(std::abs(iec.stcCurve(false).points.at(1).x() - 402.656) < 1e-9);
    QVERIFY(std::abs(iec.stcCurve(false).points.at(1).y() - 7.52) < 1e-12);
}

void TestStringRecord::readingsThatDoNotParseGiveWayToTheCurve()
{
    StringHeader header = headerAt("bright", "warm");
    header.ambientTemp = "";
    header.isc = ">20";
    StringRecord record(header, traceOf({{0, 6.4}, {600, 0}}));
    record.settings().algorithm = 0;
    QCOMPARE(record.stcCurve(false).points, QVector<QPointF>({{0, 6.4}, {600, 0}}));
    QCOMPARE(record.settings().G, QString("1000"));
    QCOMPARE(record.settings().Tpv, QString("25"));
}

void TestStringRecord::anUnknownAlgorithmIsAnderson()
{
    StringRecord record(headerAt("800", "45"), traceOf({{0, 6.4}, {400, 6}, {600, 0}}));
    record.settings().algorithm = 77;
    QVERIFY(std::abs(record.stcCurve(false).points.at(1).x() - 409.7824772160029) < 1e-9);
}

void TestStringRecord::makingAnAlgorithmStoresTheConditions()
{
    StringRecord record(headerAt("800", "45"), traceOf({{0, 6.4}}));
    record.makeAlgorithm(true, true);
    QCOMPARE(record.settings().G, QString("800"));
    QCOMPARE(record.settings().Tpv, QString("45"));
    record.makeAlgorithm(false, false);
    QCOMPARE(record.settings().G, QString("1000"));
    QCOMPARE(record.settings().Tpv, QString("25"));
}

void TestStringRecord::clearingTakesCurveAndPowerTogether()
{
    StringRecord record(headerAt("800", "45"), traceOf({{1, 6.4}, {400, 6}, {600, 1}}));
    record.module() = ModuleBinding(0, 18, 1, 37.5, 8.8, 30.5, 8.3);
    const QVector<QPointF> before = record.stcPowerCurve().points;
    const QVector<QPointF> nominal = record.nominalPowerCurve().points;
    record.settings().alpha = "0.01";
    record.module() = ModuleBinding(0, 9, 1, 37.5, 8.8, 30.5, 8.3);
    QCOMPARE(record.stcPowerCurve().points, before);
    record.clearDerivedCurves();
    QVERIFY(record.stcPowerCurve().points != before);
    QVERIFY(record.nominalPowerCurve().points != nominal);
}

void TestStringRecord::aCopyIsDeep()
{
    auto record = std::make_unique<StringRecord>(headerAt("800", "45"), traceOf({{1, 6.4}, {600, 1}}));
    record->setCurveId(12);
    record->stcPowerCurve();
    StringRecord copy(*record);
    StringRecord other = atStandardConditions({{5, 5}});
    copy.swap(other);
    record.reset();
    QCOMPARE(other.curveId(), 12u);
    QCOMPARE(other.measuredCurve().refs.front().position(), QPointF(1, 6.4));
    QCOMPARE(other.stcCurve(true).refs.front().owner, &other.stcCurve(true).points);
    QCOMPARE(copy.measuredCurve().refs.front().owner, &copy.measuredCurve().points);
}

void TestStringRecord::memoryOfAStringStaysWithinItsBudget()
{
    CurveTrace trace;
    trace.reserve(128);
    for (int i = 0; i < 128; ++i)
        trace.addPoint(i * 5, 8 - i * 0.06, 800, 0);
    StringRecord record(headerAt("800", "45"), CurveTrace());
    record.takeMeasured(trace);
    record.module() = ModuleBinding(0, 18, 1, 37.5, 8.8, 30.5, 8.3);
    const CurveTrace *const traces[] = {&record.measuredCurve(), &record.measuredPowerCurve(),
                                        &record.stcCurve(true),  &record.stcPowerCurve(),
                                        &record.nominalCurve(),  &record.nominalPowerCurve()};
    size_t bytes = 0;
    size_t points = 0;
    for (const CurveTrace *made : traces) {
        bytes +=
            size_t(made->points.capacity()) * sizeof(QPointF) + made->refs.capacity() * sizeof(TracePoint);
        points += size_t(made->size());
    }
    QVERIFY2(double(bytes) <= 1.5 * 40 * double(points),
             qPrintable(QString("%1 bytes for %2 points").arg(bytes).arg(points)));
}

KELMAR_TEST_MAIN(TestStringRecord)
#include "tst_stringrecord.moc"
