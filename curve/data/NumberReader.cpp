#include "curve/data/NumberReader.h"

#include "curve/data/PlainNumber.h"

namespace IVCurve {

NumberReader::NumberReader(const QLocale &locale) : m_locale(locale)
{
    if (m_locale.zeroDigit() == QLatin1Char('0'))
        m_decimalMark = m_locale.decimalPoint();
}

std::optional<double> NumberReader::read(QStringView text) const
{
    if (!m_decimalMark.isNull()) {
        if (const auto plain = plainNumber(text.begin(), text.end(), m_decimalMark))
            return plain;
    }
    bool isNumber = false;
    const double value = m_locale.toDouble(text, &isNumber);
    return isNumber ? std::optional<double>(value) : std::nullopt;
}

} // namespace IVCurve
