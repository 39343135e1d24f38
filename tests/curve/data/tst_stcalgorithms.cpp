#include "curve/data/Anderson.h"
#include "curve/data/Blaesser.h"
#include "curve/data/CurveTrace.h"
#include "curve/data/IEC60891.h"
#include "tests/support/LocaleSwitch.h"
#include "tests/support/TestMain.h"

#include <cmath>
#include <memory>
#include <random>

using namespace IVCurve;

namespace {

bool close(double a, double b, double relative = 1e-12)
{
    return std::abs(a - b) <= relative * std::max({std::abs(a), std::abs(b), 1e-300}) || a == b;
}

STCparameters conditions(const char *G, const char *T)
{
    STCparameters settings;
    settings.G = G;
    settings.Tpv = T;
    return settings;
}

QPointF corrected(STCAlgorithm &algorithm, double V, double I, double g = 0.0)
{
    CurveTrace trace;
    trace.addPoint(V, I, g, 0);
    return algorithm.correct(trace.refs.front());
}

#define COMPARE_POINT(point, voltage, current)                                                               \
    do {                                                                                                     \
        const QPointF actual = (point);                                                                      \
        QVERIFY2(close(actual.x(), voltage), qPrintable(QString::number(actual.x(), 'g', 17)));              \
        QVERIFY2(close(actual.y(), current), qPrintable(QString::number(actual.y(), 'g', 17)));              \
    } while (false)

/// A string with all that the methods ask for.
struct RandomString
{
    explicit RandomString(std::mt19937 &random)
    {
        const auto between = [&](double low, double high) {
            return low + (high - low) * (random() / 4294967296.0);
        };
        G = between(300, 1150);
        T = between(-10, 75);
        isc = between(2, 14);
        voc = between(30, 900);
        alpha = between(-0.001, 0.01);
        beta = between(-0.6, -0.05);
        delta = between(0.05, 0.12);
        Rs = between(0.05, 1);
        K = between(0, 0.003);
        series = 1 + int(random() % 24);
        parallel = 1 + int(random() % 4);
        const double count = 3 + double(random() % 30);
        for (double i = 0; i < count; ++i) {
            const double g = random() % 5 == 0 ? 0.0 : between(0.9 * G, 1.1 * G);
            trace.addPoint(voc * i / count, isc * (1 - std::pow(i / count, 9)), g, 0);
        }
        settings.G = QString::number(G, 'g', 17);
        settings.Tpv = QString::number(T, 'g', 17);
        settings.alpha = QString::number(alpha, 'g', 17);
        settings.beta = QString::number(beta, 'g', 17);
        settings.delta = QString::number(delta, 'g', 17);
        settings.Rs = QString::number(Rs, 'g', 17);
        settings.K = QString::number(K, 'g', 17);
    }

    double G, T, isc, voc, alpha, beta, delta, Rs, K;
    int series, parallel;
    CurveTrace trace;
    STCparameters settings;
};

std::unique_ptr<STCAlgorithm> algorithmFor(const RandomString &string, int number)
{
    static const ModuleBinding none;
    if (number == 0)
        return std::make_unique<Blaesser>(string.isc, string.voc, &string.settings);
    if (number == 1)
        return std::make_unique<IEC60891>(string.isc, string.G, &string.settings, &none);
    return std::make_unique<Anderson>(string.isc, string.voc, &string.settings, &none);
}

/// Procedure 1 as it is published, for one module: I2 = I1 + Isc (G2/G1 - 1) + alpha (T2 - T1),
/// V2 = V1 - Rs (I2 - I1) - kappa I2 (T2 - T1) + beta (T2 - T1).
QPointF publishedProcedure1(const RandomString &string, const QPointF &point, double G1, double iscAtG1)
{
    const double G2 = 1000;
    const double dT = 25 - string.T;
    const double I2 = point.y() + iscAtG1 * (G2 / G1 - 1) + string.alpha * dT;
    return {point.x() - string.Rs * (I2 - point.y()) - string.K * I2 * dT + string.beta * dT, I2};
}

/// Anderson's translation as it is published, with the coefficients as shares per degree of the measured
/// values at standard conditions: I2 = I1 / ((1 + a (T1-T2)) G1/G2), V2 = V1 / ((1 + b (T1-T2)) (1 + d ln
/// G1/G2)).
QPointF publishedAnderson(const QPointF &point, double G1, double T1, double a, double b, double d)
{
    const double iscRatio = (1 + a * (T1 - 25)) * (G1 / 1000);
    const double vocRatio = (1 + b * (T1 - 25)) * (1 + d * std::log(G1 / 1000));
    return {point.x() / vocRatio, point.y() / iscRatio};
}

} // namespace

class TestSTCAlgorithms : public QObject
{
    Q_OBJECT

private slots:
    void defaultsAreThoseOfTheLocale();
    void workedValueOfBlaesser();
    void workedValueOfIEC60891();
    void workedValueOfIEC60891With20ModulesInSeries();
    void workedValueOfAnderson();

    void temperature0CountsAs25();
    void irradianceThatIsMissingOr0CountsAs1000_data();
    void irradianceThatIsMissingOr0CountsAs1000();
    void andersonAtStandardConditionsLeavesEveryPoint();
    void iec60891AtStandardConditionsLeavesEveryPoint();
    void blaesserWithoutIscDividesByNothing();
    void inPerPointModeAPointWithoutIrradianceTakesTheLastOne();
    void withAModuleAndersonTakesAlphaOverItsIsc();
    void withoutAModuleAndersonScalesTheMeasuredIsc();
    void changingCHasNoEffect();

    void blaesserReadsNoDecimalCommas();
    void theOthersReadDecimalCommas();
    void settingsThatDoNotParseCountAs0();
    void changedSettingsActAtTheNextPoint();
    void andersonWithoutAReferenceGivesTheOrigin();
    void blaesserIgnoresThePointsOwnIrradiance();
    void iec60891ScalesIscFromTheCurveToThePoint();
    void negativeIrradianceIsNotCaught();

    void iec60891AgreesWithThePublishedProcedure();
    void andersonAgreesWithThePublishedFormulas();
    void andersonsOwnReferencesDeviateAsDefined();
    void theOrderOfPointsMattersInPerPointModeOnly_data();
    void theOrderOfPointsMattersInPerPointModeOnly();
};

void TestSTCAlgorithms::defaultsAreThoseOfTheLocale()
{
    const STCparameters english;
    QCOMPARE(int(english.algorithm), 2);
    QCOMPARE(QStringList({english.a, english.b, english.c, english.alpha, english.beta, english.delta,
                          english.K, english.Rs, english.Tpv, english.G}),
             QStringList(
                 {"0.06", "-0.004", "0.00012", "0.004", "-0.15", "0.085", "0.00125", "0.35", "25", "1000"}));
    QVERIFY(!english.perPointIrradiance);
    const LocaleSwitch german("de");
    QCOMPARE(STCparameters().beta, QString("-0,15"));
}

void TestSTCAlgorithms::workedValueOfBlaesser()
{
    const STCparameters settings = conditions("800", "45");
    Blaesser blaesser(6.4, 600, &settings);
    COMPARE_POINT(corrected(blaesser, 400, 6), 455.5409803473116, 7.40625);
}

void TestSTCAlgorithms::workedValueOfIEC60891()
{
    const STCparameters settings = conditions("800", "45");
    const ModuleBinding none;
    IEC60891 iec(6.4, 800, &settings, &none);
    COMPARE_POINT(corrected(iec, 400, 6), 402.656, 7.52);
}

void TestSTCAlgorithms::workedValueOfIEC60891With20ModulesInSeries()
{
    const STCparameters settings = conditions("800", "45");
    ModuleBinding binding;
    binding.series = 20;
    IEC60891 iec(6.4, 800, &settings, &binding);
    COMPARE_POINT(corrected(iec, 400, 6), 453.12, 7.52);
}

void TestSTCAlgorithms::workedValueOfAnderson()
{
    const STCparameters settings = conditions("800", "45");
    const ModuleBinding none;
    Anderson anderson(6.4, 600, &settings, &none);
    COMPARE_POINT(corrected(anderson, 400, 6), 409.7824772160029, 7.425742574257425);
    // Short circuit and open circuit come out as the references that the method holds.
    COMPARE_POINT(corrected(anderson, 600, 6.4), 614.6737158240044, 7.920792079207921);
}

void TestSTCAlgorithms::temperature0CountsAs25()
{
    const STCparameters zero = conditions("800", "0");
    const STCparameters usual = conditions("800", "25");
    const ModuleBinding none;
    IEC60891 iec0(6.4, 800, &zero, &none), iec25(6.4, 800, &usual, &none);
    Anderson and0(6.4, 600, &zero, &none), and25(6.4, 600, &usual, &none);
    Blaesser bla0(6.4, 600, &zero), bla25(6.4, 600, &usual);
    QCOMPARE(corrected(iec0, 400, 6), corrected(iec25, 400, 6));
    QCOMPARE(corrected(and0, 400, 6), corrected(and25, 400, 6));
    QCOMPARE(corrected(bla0, 400, 6), corrected(bla25, 400, 6));
}

void TestSTCAlgorithms::irradianceThatIsMissingOr0CountsAs1000_data()
{
    QTest::addColumn<QString>("G");
    QTest::newRow("0") << "0";
    QTest::newRow("empty") << "";
    QTest::newRow("no number") << "bright";
}

void TestSTCAlgorithms::irradianceThatIsMissingOr0CountsAs1000()
{
    QFETCH(QString, G);
    STCparameters missing = conditions("1", "45");
    missing.G = G;
    const STCparameters full = conditions("1000", "45");
    const ModuleBinding none;
    IEC60891 iec(6.4, 0, &missing, &none), iec1000(6.4, 1000, &full, &none);
    Anderson anderson(6.4, 600, &missing, &none), anderson1000(6.4, 600, &full, &none);
    Blaesser blaesser(6.4, 600, &missing), blaesser1000(6.4, 600, &full);
    QCOMPARE(corrected(iec, 400, 6), corrected(iec1000, 400, 6));
    QCOMPARE(corrected(anderson, 400, 6), corrected(anderson1000, 400, 6));
    QCOMPARE(corrected(blaesser, 400, 6), corrected(blaesser1000, 400, 6));
}

void TestSTCAlgorithms::andersonAtStandardConditionsLeavesEveryPoint()
{
    std::mt19937 random(1);
    for (int round = 0; round < 1000; ++round) {
        RandomString string(random);
        string.settings.G = "1000";
        string.settings.Tpv = "25";
        const ModuleBinding module(random() % 2, string.series, string.parallel, 40, 9, 32, 8.5);
        Anderson anderson(string.isc, string.voc, &string.settings, &module);
        for (const TracePoint &point : string.trace.refs)
            COMPARE_POINT(anderson.correct(point), point.position().x(), point.position().y());
    }
}

void TestSTCAlgorithms::iec60891AtStandardConditionsLeavesEveryPoint()
{
    std::mt19937 random(2);
    for (int round = 0; round < 1000; ++round) {
        RandomString string(random);
        string.settings.G = "1000";
        string.settings.Tpv = "25";
        ModuleBinding module;
        module.series = string.series;
        module.parallel = string.parallel;
        IEC60891 iec(string.isc, 1000, &string.settings, &module);
        for (const TracePoint &point : string.trace.refs)
            QCOMPARE(iec.correct(point), point.position());
    }
}

void TestSTCAlgorithms::blaesserWithoutIscDividesByNothing()
{
    const STCparameters settings = conditions("800", "45");
    Blaesser blaesser(0, 600, &settings);
    const QPointF point = corrected(blaesser, 400, 6);
    QVERIFY(close(point.y(), 7.5));
    QVERIFY(std::isfinite(point.x()));
}

void TestSTCAlgorithms::inPerPointModeAPointWithoutIrradianceTakesTheLastOne()
{
    STCparameters settings = conditions("800", "45");
    settings.perPointIrradiance = true;
    const ModuleBinding none;
    IEC60891 iec(6.4, 850, &settings, &none);
    Anderson anderson(6.4, 600, &settings, &none);
    // Before any other it is that of the measurement.
    QCOMPARE(corrected(iec, 400, 6, 0).y(), corrected(iec, 400, 6, 800).y());
    const QPointF at900 = corrected(iec, 400, 6, 900);
    QCOMPARE(corrected(iec, 400, 6, 0), at900);
    const QPointF first = corrected(anderson, 400, 6, 0);
    COMPARE_POINT(first, 409.7824772160029, 7.425742574257425);
    const QPointF anderson900 = corrected(anderson, 400, 6, 900);
    QVERIFY(!close(anderson900.y(), first.y()));
    QCOMPARE(corrected(anderson, 400, 6, 0), anderson900);
}

void TestSTCAlgorithms::withAModuleAndersonTakesAlphaOverItsIsc()
{
    const STCparameters settings = conditions("800", "45");
    const ModuleBinding module(7, 16, 3, 37.5, 8.8, 30, 8.3);
    Anderson anderson(6.4, 600, &settings, &module);
    const double alphaR = 0.004 / 8.8;
    const double betaR = -0.15 * 16 / ((16 * 37.5 + 600) * 0.5);
    COMPARE_POINT(corrected(anderson, 400, 6), 400 / ((0.085 * std::log(0.8) + 1) * (20 * betaR + 1)),
                  6 / ((20 * alphaR + 1) * 0.8));
}

void TestSTCAlgorithms::withoutAModuleAndersonScalesTheMeasuredIsc()
{
    const STCparameters settings = conditions("500", "45");
    const ModuleBinding none;
    Anderson anderson(6.4, 600, &settings, &none);
    const double alphaR = 0.004 / (2 * 6.4);
    QVERIFY(close(corrected(anderson, 400, 6).y(), 6 / ((20 * alphaR + 1) * 0.5)));
}

void TestSTCAlgorithms::changingCHasNoEffect()
{
    STCparameters settings = conditions("800", "45");
    settings.c = "12";
    Blaesser blaesser(6.4, 600, &settings);
    COMPARE_POINT(corrected(blaesser, 400, 6), 455.5409803473116, 7.40625);
    const ModuleBinding none;
    IEC60891 iec(6.4, 800, &settings, &none);
    COMPARE_POINT(corrected(iec, 400, 6), 402.656, 7.52);
}

void TestSTCAlgorithms::blaesserReadsNoDecimalCommas()
{
    const LocaleSwitch german("de");
    STCparameters settings = conditions("803,5", "45,5");
    Blaesser blaesser(6.4, 600, &settings);
    // Nothing parses: no irradiance, temperature, alpha, a, b and Rs are left that could change a point.
    QCOMPARE(corrected(blaesser, 400, 6), QPointF(400, 6));
    settings.G = "500";
    settings.Tpv = "45";
    Blaesser whole(6.4, 600, &settings);
    QCOMPARE(corrected(whole, 400, 6), QPointF(400, 12));
}

void TestSTCAlgorithms::theOthersReadDecimalCommas()
{
    const LocaleSwitch german("de");
    const STCparameters settings = conditions("800,0", "45,0");
    const ModuleBinding none;
    IEC60891 iec(6.4, 800, &settings, &none);
    COMPARE_POINT(corrected(iec, 400, 6), 402.656, 7.52);
    Anderson anderson(6.4, 600, &settings, &none);
    COMPARE_POINT(corrected(anderson, 400, 6), 409.7824772160029, 7.425742574257425);
}

void TestSTCAlgorithms::settingsThatDoNotParseCountAs0()
{
    STCparameters settings = conditions("800", "45");
    settings.alpha = settings.beta = settings.K = settings.delta = "";
    settings.Rs = "x";
    const ModuleBinding none;
    IEC60891 iec(6.4, 800, &settings, &none);
    COMPARE_POINT(corrected(iec, 400, 6), 400.0, 7.6);
    Anderson anderson(6.4, 600, &settings, &none);
    COMPARE_POINT(corrected(anderson, 400, 6), 400.0, 7.5);
}

void TestSTCAlgorithms::changedSettingsActAtTheNextPoint()
{
    STCparameters settings = conditions("800", "45");
    const ModuleBinding none;
    IEC60891 iec(6.4, 800, &settings, &none);
    COMPARE_POINT(corrected(iec, 400, 6), 402.656, 7.52);
    settings.alpha = "0";
    QVERIFY(close(corrected(iec, 400, 6).y(), 7.6));
    settings.alpha = "0.004";
    QVERIFY(close(corrected(iec, 400, 6).y(), 7.52));
}

void TestSTCAlgorithms::andersonWithoutAReferenceGivesTheOrigin()
{
    const STCparameters settings = conditions("800", "45");
    const ModuleBinding none;
    Anderson noCurrent(0, 600, &settings, &none);
    QCOMPARE(corrected(noCurrent, 400, 6), QPointF(0, 0));
    Anderson noVoltage(6.4, 0, &settings, &none);
    QCOMPARE(corrected(noVoltage, 400, 6), QPointF(0, 0));
}

void TestSTCAlgorithms::blaesserIgnoresThePointsOwnIrradiance()
{
    STCparameters settings = conditions("800", "45");
    settings.perPointIrradiance = true;
    Blaesser blaesser(6.4, 600, &settings);
    COMPARE_POINT(corrected(blaesser, 400, 6, 500), 455.5409803473116, 7.40625);
}

void TestSTCAlgorithms::iec60891ScalesIscFromTheCurveToThePoint()
{
    STCparameters settings = conditions("800", "25");
    settings.perPointIrradiance = true;
    const ModuleBinding none;
    IEC60891 iec(6.4, 800, &settings, &none);
    // Isc at 600 W/m2 is 4.8 A, of which two thirds are missing to 1000.
    QVERIFY(close(corrected(iec, 400, 4.5, 600).y(), 4.5 + 4.8 * (1000.0 / 600 - 1)));
}

void TestSTCAlgorithms::negativeIrradianceIsNotCaught()
{
    const STCparameters settings = conditions("-5", "45");
    const ModuleBinding none;
    Anderson anderson(6.4, 600, &settings, &none);
    QVERIFY(std::isnan(corrected(anderson, 400, 6).x()));
    Blaesser blaesser(6.4, 600, &settings);
    QVERIFY(std::isnan(corrected(blaesser, 400, 6).x()));
}

void TestSTCAlgorithms::iec60891AgreesWithThePublishedProcedure()
{
    std::mt19937 random(3);
    for (int round = 0; round < 10000; ++round) {
        RandomString string(random);
        // With one module and the irradiance of the whole measurement there is no deviation.
        ModuleBinding module;
        IEC60891 iec(string.isc, string.G, &string.settings, &module);
        for (const TracePoint &point : string.trace.refs) {
            const QPointF expected = publishedProcedure1(string, point.position(), string.G, string.isc);
            COMPARE_POINT(iec.correct(point), expected.x(), expected.y());
        }
        // Per point: the same procedure at each point's irradiance, with the short-circuit current that
        // belongs to it.
        string.settings.perPointIrradiance = true;
        const double Gc = string.trace.firstIrradiance;
        IEC60891 perPoint(string.isc, Gc, &string.settings, &module);
        double g = string.G;
        for (const TracePoint &point : string.trace.refs) {
            if (point.irradiance > 0)
                g = point.irradiance;
            const QPointF expected = publishedProcedure1(string, point.position(), g, string.isc * g / Gc);
            const QPointF actual = perPoint.correct(point);
            QVERIFY(close(actual.x(), expected.x(), 1e-9) && close(actual.y(), expected.y(), 1e-9));
        }
        // The deviation: alpha counts once for each module in parallel, and the whole correction of the
        // voltage once for each in series.
        string.settings.perPointIrradiance = false;
        module.series = string.series;
        module.parallel = string.parallel;
        IEC60891 many(string.isc, string.G, &string.settings, &module);
        RandomString scaled = string;
        scaled.alpha *= string.parallel;
        for (const TracePoint &point : string.trace.refs) {
            const QPointF one = publishedProcedure1(scaled, point.position(), string.G, string.isc);
            const double V = point.position().x();
            const QPointF actual = many.correct(point);
            QVERIFY(close(actual.x(), V + (one.x() - V) * string.series, 1e-9));
            QVERIFY(close(actual.y(), one.y()));
        }
    }
}

void TestSTCAlgorithms::andersonAgreesWithThePublishedFormulas()
{
    std::mt19937 random(4);
    for (int round = 0; round < 10000; ++round) {
        RandomString string(random);
        const ModuleBinding module(9, string.series, string.parallel, 37.5, 8.8, 30, 8.3);
        // The deviation of the reference voltage: the mean of the rated and the measured one.
        const double a = string.alpha / module.isc;
        const double b = string.beta * string.series / ((string.series * module.voc + string.voc) / 2);
        Anderson anderson(string.isc, string.voc, &string.settings, &module);
        for (const TracePoint &point : string.trace.refs) {
            const QPointF expected =
                publishedAnderson(point.position(), string.G, string.T, a, b, string.delta);
            COMPARE_POINT(anderson.correct(point), expected.x(), expected.y());
        }
        string.settings.perPointIrradiance = true;
        Anderson perPoint(string.isc, string.voc, &string.settings, &module);
        double g = string.G;
        for (const TracePoint &point : string.trace.refs) {
            if (point.irradiance > 0)
                g = point.irradiance;
            const QPointF expected = publishedAnderson(point.position(), g, string.T, a, b, string.delta);
            COMPARE_POINT(perPoint.correct(point), expected.x(), expected.y());
        }
    }
}

void TestSTCAlgorithms::andersonsOwnReferencesDeviateAsDefined()
{
    std::mt19937 random(5);
    for (int round = 0; round < 10000; ++round) {
        RandomString string(random);
        ModuleBinding none;
        none.series = string.series;
        none.parallel = string.parallel;
        // Without a module the coefficients are shares of what was measured, the current's of that at 1000.
        const double a = string.alpha * string.parallel / (1000 / string.G * string.isc);
        const double b = string.beta * string.series / string.voc;
        Anderson anderson(string.isc, string.voc, &string.settings, &none);
        for (const TracePoint &point : string.trace.refs) {
            const QPointF expected =
                publishedAnderson(point.position(), string.G, string.T, a, b, string.delta);
            COMPARE_POINT(anderson.correct(point), expected.x(), expected.y());
        }
    }
}

void TestSTCAlgorithms::theOrderOfPointsMattersInPerPointModeOnly_data()
{
    QTest::addColumn<int>("algorithm");
    QTest::addColumn<bool>("hasState");
    QTest::newRow("Blaesser") << 0 << false;
    QTest::newRow("IEC 60891") << 1 << true;
    QTest::newRow("Anderson") << 2 << true;
}

void TestSTCAlgorithms::theOrderOfPointsMattersInPerPointModeOnly()
{
    QFETCH(int, algorithm);
    QFETCH(bool, hasState);
    std::mt19937 random(6);
    for (const bool perPoint : {false, true}) {
        int different = 0;
        for (int round = 0; round < 500; ++round) {
            RandomString string(random);
            string.settings.perPointIrradiance = perPoint;
            const auto forward = algorithmFor(string, algorithm);
            const auto backward = algorithmFor(string, algorithm);
            QVector<QPointF> there;
            QVector<QPointF> back;
            bool anyWithout = false;
            for (const TracePoint &point : string.trace.refs) {
                there.append(forward->correct(point));
                anyWithout = anyWithout || point.irradiance <= 0;
            }
            for (auto point = string.trace.refs.rbegin(); point != string.trace.refs.rend(); ++point)
                back.prepend(backward->correct(*point));
            if (!perPoint || !hasState || !anyWithout)
                QCOMPARE(back, there);
            different += back != there;
        }
        // A point without irradiance takes that of the one before it, which is another one backwards.
        QCOMPARE(different > 100, perPoint && hasState);
    }
}

KELMAR_TEST_MAIN(TestSTCAlgorithms)
#include "tst_stcalgorithms.moc"
