#pragma once

#include "tools/testerfiles/PvString.h"
#include "tools/testerfiles/TesterFile.h"

#include <QDateTime>

#include <random>

/// A tester at an array that does not exist: measures plausible values and stores them in a file.
/// The same seed gives the same file on every machine.
class SimulatedTester
{
public:
    /// What the weather does while a curve is measured.
    enum class Sky
    {
        Clear,
        PassingCloud
    };

    SimulatedTester(unsigned seed, const TesterFileFormat &format, const QDateTime &start);

    /// Begins a file. With `location` it has a column of the user's own, and none for curves.
    void beginFile(int version, bool location = false);
    QByteArray file() const { return m_file.bytes(); }

    /// Goes to the next string of the array.
    void connectString(int modules, const QString &location = QString());

    void testContinuity();
    void autoTest();
    void testInsulation(bool positive);
    void measureCurve(Sky sky = Sky::Clear, int status = 0);

private:
    using Fields = QMap<QString, QString>;

    /// Evenly spread between two limits.
    double between(double low, double high);
    Fields newTest(int type);
    void measureContinuity(Fields &fields);
    void measureInsulation(Fields &fields);
    void measureString(Fields &fields);
    void measurePower(Fields &fields);
    QVector<TesterCurvePoint> sweep(Sky sky);

    std::mt19937 m_random;
    TesterFileFormat m_format;
    QDateTime m_clock;
    TesterFile m_file;
    PvString m_string;
    QString m_location;
    double m_irradiance = 0.0;
    double m_ambientTemperature = 0.0;
    double m_cellTemperature = 0.0;
    int m_index = 0;
};
