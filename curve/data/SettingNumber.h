#pragma once

#include "curve/data/NumberReader.h"

namespace IVCurve {

/// The number in a setting's text, read again only when the text has become another one. A text that is
/// no number counts as 0.
class SettingNumber
{
public:
    /// True if `text` is another one than that which was read last. As that one is kept shared, a change of
    /// it makes it a text of its own.
    bool isOutdated(const QString &text) const { return !text.isSharedWith(m_text); }
    void read(const QString &text, const NumberReader &numbers)
    {
        m_text = text;
        m_value = numbers.read(text).value_or(0.0);
    }
    double value() const { return m_value; }

private:
    QString m_text;
    double m_value = 0.0;
};

} // namespace IVCurve
