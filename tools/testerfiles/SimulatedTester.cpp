#include "tools/testerfiles/SimulatedTester.h"

#include <cmath>

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr int pointsOfACurve = 128;

/// Sixty multicrystalline cells.
constexpr PvModule sixtyCells = {8.72, 37.8, 0.00058, -0.00339, 0.27, 320.0, 1.68};

/// What the testers' files call the kinds of test.
enum TestCode
{
    Continuity = 1,
    AutoTest = 2,
    PositiveInsulation = 4,
    NegativeInsulation = 8,
    Curve = 16
};

const QString serialNumber = QStringLiteral("5120-0347");

QStringList columnNames(bool location)
{
    QStringList names = {
        QStringLiteral("TestType"),     QStringLiteral("Index"),       QStringLiteral("DD/MM/YYYY"),
        QStringLiteral("HH:MM:SS"),     QStringLiteral("Rpe (Ohm)"),   QStringLiteral("Voc (VDC)"),
        QStringLiteral("Isc (ADC)"),    QStringLiteral("Riso (MOhm)"), QStringLiteral("Viso (V)"),
        QStringLiteral("Iclamp (Amp)"), QStringLiteral("Irr (W/m2)")};
    if (location) {
        names.insert(2, QStringLiteral("Location"));
    } else {
        names << QStringLiteral("Ta (C)") << QStringLiteral("Tpv (C)") << QStringLiteral("FF")
              << QStringLiteral("Vmpp (V)") << QStringLiteral("Impp(A)") << QStringLiteral("IVCurve");
    }
    return names;
}

/// What a cloud leaves of the irradiance while it passes, `progress` being 0 to 1 over the measurement.
double cloudFactor(double progress)
{
    const double distance = (progress - 0.55) / 0.15;
    return 1.0 - 0.22 * std::exp(-distance * distance);
}

} // namespace

SimulatedTester::SimulatedTester(unsigned seed, const TesterFileFormat &format, const QDateTime &start)
    : m_random(seed)
    , m_format(format)
    , m_clock(start)
    , m_file(format, serialNumber, 0, QStringList())
    , m_string(sixtyCells, 1)
{
}

void SimulatedTester::beginFile(int version, bool location)
{
    m_file = TesterFile(m_format, serialNumber, version, columnNames(location));
    m_index = 0;
}

void SimulatedTester::connectString(int modules, const QString &location)
{
    m_string = PvString(sixtyCells, modules);
    m_location = location;
    m_irradiance = between(620.0, 980.0);
    m_ambientTemperature = between(12.0, 26.0);
    // Cells are warmer than the air by some 30 degrees under full sun.
    m_cellTemperature = m_ambientTemperature + m_irradiance * between(0.026, 0.032);
    m_string.setConditions(m_irradiance, m_cellTemperature);
    m_clock = m_clock.addSecs(static_cast<qint64>(between(150.0, 420.0)));
}

void SimulatedTester::testContinuity()
{
    Fields fields = newTest(Continuity);
    measureContinuity(fields);
    m_file.addTest(fields, 0);
}

void SimulatedTester::autoTest()
{
    Fields fields = newTest(AutoTest);
    measureContinuity(fields);
    measureInsulation(fields);
    measureString(fields);
    fields.insert(QStringLiteral("Iclamp (Amp)"), m_format.number(between(0.3, 6.5), 1));
    m_file.addTest(fields, 0);
}

void SimulatedTester::testInsulation(bool positive)
{
    Fields fields = newTest(positive ? PositiveInsulation : NegativeInsulation);
    measureInsulation(fields);
    m_file.addTest(fields, 0);
}

void SimulatedTester::measureCurve(Sky sky, int status)
{
    Fields fields = newTest(Curve);
    measureContinuity(fields);
    measureInsulation(fields);
    measureString(fields);
    measurePower(fields);
    m_file.addTest(fields, status, sweep(sky));
}

double SimulatedTester::between(double low, double high)
{
    // The distributions of the standard library differ from one to the next.
    return low + (high - low) * (double(m_random()) / 4294967296.0);
}

SimulatedTester::Fields SimulatedTester::newTest(int type)
{
    m_clock = m_clock.addSecs(static_cast<qint64>(between(20.0, 75.0)));
    return {{QStringLiteral("TestType"), QString::number(type)},
            {QStringLiteral("Index"), QString::number(++m_index)},
            {QStringLiteral("Location"), m_location},
            {QStringLiteral("DD/MM/YYYY"), m_clock.date().toString(m_format.datePattern)},
            {QStringLiteral("HH:MM:SS"), m_clock.time().toString(QStringLiteral("HH:mm:ss"))}};
}

void SimulatedTester::measureContinuity(Fields &fields)
{
    fields.insert(QStringLiteral("Rpe (Ohm)"), m_format.number(between(0.05, 0.6), 2));
}

void SimulatedTester::measureInsulation(Fields &fields)
{
    // The tester's scale ends at 200 MOhm.
    const double resistance = between(40.0, 320.0);
    fields.insert(QStringLiteral("Riso (MOhm)"),
                  resistance > 200.0 ? QStringLiteral(">200") : m_format.number(resistance, 1));
    fields.insert(QStringLiteral("Viso (V)"), QStringLiteral("1000"));
}

void SimulatedTester::measureString(Fields &fields)
{
    fields.insert(QStringLiteral("Voc (VDC)"), m_format.number(m_string.openCircuitVoltage(), 1));
    fields.insert(QStringLiteral("Isc (ADC)"), m_format.number(m_string.shortCircuitCurrent(), 2));
    fields.insert(QStringLiteral("Irr (W/m2)"), m_format.number(m_irradiance, 0));
}

void SimulatedTester::measurePower(Fields &fields)
{
    const PvString::Point maximum = m_string.maximumPowerPoint();
    const double fillFactor =
        maximum.voltage * maximum.current / (m_string.openCircuitVoltage() * m_string.shortCircuitCurrent());
    fields.insert(QStringLiteral("Ta (C)"), m_format.number(m_ambientTemperature, 1));
    fields.insert(QStringLiteral("Tpv (C)"), m_format.number(m_cellTemperature, 1));
    fields.insert(QStringLiteral("FF"), m_format.number(100.0 * fillFactor, 1));
    fields.insert(QStringLiteral("Vmpp (V)"), m_format.number(maximum.voltage, 1));
    fields.insert(QStringLiteral("Impp(A)"), m_format.number(maximum.current, 2));
}

QVector<TesterCurvePoint> SimulatedTester::sweep(Sky sky)
{
    QVector<TesterCurvePoint> curve;
    for (int i = 0; i < pointsOfACurve; ++i) {
        const double progress = (i + 0.5) / pointsOfACurve;
        const double cloud = sky == Sky::PassingCloud ? cloudFactor(progress) : 1.0;
        const double irradiance = m_irradiance * cloud * between(0.998, 1.002);
        // Points come denser towards open circuit. The first lies just above zero volts.
        const double share = 0.07 + 0.929 * std::sin(pi / 2 * progress);
        const PvString::Point point = m_string.point(share, irradiance);
        if (point.voltage <= 0.0 || point.current <= 0.0)
            continue;
        // Now and then the tester catches a reading that is too low.
        const double slip = between(0.0, 1.0) < 0.02 ? between(0.86, 0.95) : between(0.9993, 1.0007);
        const int flag = static_cast<int>(between(0.0, 4.0));
        curve.append({point.voltage, point.current * slip, irradiance, flag});
    }
    return curve;
}
