#include "app/core/XmlNumber.h"

#include <QDomElement>
#include <QLocale>

#include <cmath>

namespace {
constexpr double bound = 1e6;
}

double doubleAttribute(const QDomElement &element, const char *name, double fallback)
{
    bool isNumber = false;
    const double value = element.attribute(QLatin1String(name)).toDouble(&isNumber);
    return isNumber && std::isfinite(value) && std::abs(value) <= bound ? value : fallback;
}

int intAttribute(const QDomElement &element, const char *name, int fallback)
{
    bool isNumber = false;
    const int value = element.attribute(QLatin1String(name)).toInt(&isNumber);
    return isNumber && std::abs(double(value)) <= bound ? value : fallback;
}

void setDoubleAttribute(QDomElement &element, const char *name, double value)
{
    element.setAttribute(QLatin1String(name), QString::number(value, 'g', QLocale::FloatingPointShortest));
}
