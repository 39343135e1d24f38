#pragma once

#include <QString>

namespace IVCurve {

/// The date of a test as the report and the details show it: in the short form of the system's locale, which
/// need not be the session's language. The stored text is ISO, or in the form of older files
/// ("17/05/2012 10:32:05"); empty if it is no date.
QString formatTestDate(const QString &text);

} // namespace IVCurve
