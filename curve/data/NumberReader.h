#pragma once

#include <QLocale>
#include <QString>

#include <optional>

namespace IVCurve {

/// Reads numbers as a locale's toDouble() does, and plain ones with much less work.
class NumberReader
{
public:
    explicit NumberReader(const QLocale &locale = QLocale());

    /// Nothing for a text that is no number.
    std::optional<double> read(QStringView text) const;
    const QLocale &locale() const { return m_locale; }

private:
    QLocale m_locale;
    /// Null where digits are other ones than 0 to 9: no text is plain there.
    QChar m_decimalMark;
};

} // namespace IVCurve
