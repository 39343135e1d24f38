#pragma once

#include <QString>

namespace IVCurve {

class StringRecord;

/// The report on strings as HTML: a template, filled with a row for each string in two tables, the conditions
/// of the measurement and the values of its curves. Numbers are written in the default locale.
class CurveReport
{
public:
    explicit CurveReport(const QString &templateText) : m_template(templateText) {}

    /// Reads the template of the session's language. False if there is none.
    static bool readTemplate(QString &templateText);

    void addString(StringRecord &record);
    QString html() const;

private:
    QString m_template;
    QString m_conditions;
    QString m_values;
};

} // namespace IVCurve
