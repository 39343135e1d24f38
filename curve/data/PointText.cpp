#include "curve/data/PointText.h"

#include "curve/data/CurveTrace.h"
#include "curve/data/PlainNumber.h"

#include <algorithm>
#include <cmath>

namespace IVCurve {

namespace {

constexpr QChar valueSeparator(u':');
constexpr QChar pointSeparator(u'#');
constexpr int decimals = 3;
/// Irradiance of a stored point that has no third value.
constexpr double unstatedIrradiance = 1000.0;

/// The value from `begin` on, up to the next separator, and where it ends.
struct Value
{
    double number;
    bool isNumber;
    const QChar *end;
};

Value readValue(const QChar *begin, const QChar *pointEnd)
{
    static const QLocale c = QLocale::c();
    const QChar *end = std::find(begin, pointEnd, valueSeparator);
    if (const auto plain = plainNumber(begin, end, QLatin1Char('.')))
        return {*plain, true, end};
    bool isNumber = false;
    const double number = c.toDouble(QStringView(begin, end - begin), &isNumber);
    return {number, isNumber, end};
}

void appendPoint(const QChar *begin, const QChar *end, CurveTrace &trace)
{
    double current = 0.0;
    double irradiance = unstatedIrradiance;
    const Value voltage = readValue(begin, end);
    if (voltage.isNumber && voltage.end != end) {
        const Value second = readValue(voltage.end + 1, end);
        current = second.number;
        if (second.isNumber && second.end != end)
            irradiance = readValue(second.end + 1, end).number;
    }
    trace.addPoint(voltage.number, current, irradiance, 0);
}

/// Appends a number with three decimals.
void appendNumber(QString &text, double value)
{
    // Numbers that were read with three decimals lie next to a whole number of thousandths: no other rounding
    // is possible for them. Signs and ties are the toolkit's.
    const double thousandths = value * 1000.0;
    const double whole = std::floor(thousandths + 0.5);
    if (!(value >= 0.0 && whole < 1e12 && std::abs(thousandths - whole) < 0.25) || std::signbit(value)) {
        text += QLocale::c().toString(value, 'f', decimals);
        return;
    }
    QChar digits[16];
    QChar *at = digits + 16;
    auto rest = static_cast<quint64>(whole);
    for (int written = 0; written <= decimals || rest != 0; ++written) {
        if (written == decimals)
            *--at = QLatin1Char('.');
        *--at = QLatin1Char(static_cast<char>('0' + rest % 10));
        rest /= 10;
    }
    text.append(at, static_cast<int>(digits + 16 - at));
}

} // namespace

bool appendPoints(const QString &text, CurveTrace &trace)
{
    if (text.isEmpty())
        return true;
    const auto points = std::count(text.cbegin(), text.cend(), pointSeparator) + 1;
    if (points > maximalPointCount)
        return false;
    trace.reserve(trace.size() + static_cast<int>(points));
    const QChar *begin = text.cbegin();
    for (;;) {
        const QChar *end = std::find(begin, text.cend(), pointSeparator);
        appendPoint(begin, end, trace);
        if (end == text.cend())
            return true;
        begin = end + 1;
    }
}

QString pointText(const CurveTrace &trace)
{
    QString text = QLatin1String("");
    text.reserve(trace.size() * 32);
    for (const TracePoint &point : trace.refs) {
        const QPointF &position = point.position();
        appendNumber(text, position.x());
        text += valueSeparator;
        appendNumber(text, position.y());
        text += valueSeparator;
        appendNumber(text, point.irradiance);
        text += valueSeparator;
        text += QLocale::c().toString(point.tag);
        text += pointSeparator;
    }
    text.chop(1);
    return text;
}

PointCellReader::PointCellReader(const QLocale &locale) : m_numbers(locale) {}

std::optional<PointCell> PointCellReader::read(QStringView cell) const
{
    QStringView parts[4];
    int count = 0;
    for (qsizetype begin = 0; begin <= cell.size() && count < 4; ++count) {
        qsizetype end = begin;
        while (end < cell.size() && cell.at(end) != valueSeparator)
            ++end;
        parts[count] = cell.mid(begin, end - begin);
        begin = end + 1;
    }
    if (count < 2)
        return std::nullopt;
    const auto voltage = m_numbers.read(parts[0]);
    const auto current = m_numbers.read(parts[1]);
    const auto irradiance = count > 2 ? m_numbers.read(parts[2]) : 0.0;
    const auto pointTag = count > 3 ? tag(parts[3]) : 0;
    if (!voltage || !current || !irradiance || !pointTag)
        return std::nullopt;
    return PointCell{*voltage, *current, *irradiance, *pointTag};
}

std::optional<int> PointCellReader::tag(QStringView text) const
{
    if (text.size() == 1 && text.first().unicode() >= '0' && text.first().unicode() <= '9')
        return text.first().unicode() - '0';
    bool isNumber = false;
    const int value = m_numbers.locale().toInt(text, &isNumber);
    return isNumber ? std::optional<int>(value) : std::nullopt;
}

} // namespace IVCurve
