#include "import/TesterTestType.h"

#include <QCoreApplication>

namespace {

/// The translation context of these texts.
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(TesterTestType)
};

struct TestTypeFacts
{
    TesterTestType type;
    const char *text;
};

constexpr TestTypeFacts testTypes[] = {
    {TesterTestType::Continuity, QT_TRANSLATE_NOOP("TesterTestType", "Continuity")},
    {TesterTestType::AutoTest, QT_TRANSLATE_NOOP("TesterTestType", "AutoTest")},
    {TesterTestType::PositiveEarthInsulation,
     QT_TRANSLATE_NOOP("TesterTestType", "Positive-earth insulation")},
    {TesterTestType::NegativeEarthInsulation,
     QT_TRANSLATE_NOOP("TesterTestType", "Negative-earth insulation")},
    {TesterTestType::AutoTestAndCurve, QT_TRANSLATE_NOOP("TesterTestType", "AutoTest & Curve")},
};

} // namespace

QString testTypeText(unsigned code)
{
    for (const TestTypeFacts &facts : testTypes) {
        if (static_cast<unsigned>(facts.type) == code)
            return Text::tr(facts.text);
    }
    return Text::tr("Unknown");
}
