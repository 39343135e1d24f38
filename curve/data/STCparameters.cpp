#include "curve/data/STCparameters.h"

#include "app/core/NumberText.h"

namespace IVCurve {

STCparameters::STCparameters()
    : a(NumberText::shown(0.06))
    , b(NumberText::shown(-0.004))
    , c(NumberText::shown(0.00012))
    , alpha(NumberText::shown(0.004))
    , beta(NumberText::shown(-0.15))
    , delta(NumberText::shown(0.085))
    , K(NumberText::shown(0.00125))
    , Rs(NumberText::shown(0.35))
    , Tpv(QStringLiteral("25"))
    , G(QStringLiteral("1000"))
{
}

STCparameters::~STCparameters() = default;

} // namespace IVCurve
