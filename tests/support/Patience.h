#pragma once

#include <QtTest>

/// How long a test waits for what must come, in milliseconds. The framework's five seconds are too few for a
/// busy machine under sanitizers; a test that passes never waits so long.
constexpr int patience = 60000;

#undef QTRY_VERIFY
#define QTRY_VERIFY(expression) QTRY_VERIFY_WITH_TIMEOUT((expression), patience)
#undef QTRY_VERIFY2
#define QTRY_VERIFY2(expression, message) QTRY_VERIFY2_WITH_TIMEOUT((expression), message, patience)
#undef QTRY_COMPARE
#define QTRY_COMPARE(expression, expected) QTRY_COMPARE_WITH_TIMEOUT((expression), expected, patience)
