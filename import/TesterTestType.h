#pragma once

#include <QString>

/// What kind of test a line of a tester's results file holds. The values are those of the file.
enum class TesterTestType : unsigned
{
    Continuity = 1,
    AutoTest = 2,
    PositiveEarthInsulation = 4,
    NegativeEarthInsulation = 8,
    AutoTestAndCurve = 16
};

/// The kind of test in words, also for codes that no tester writes.
QString testTypeText(unsigned code);
