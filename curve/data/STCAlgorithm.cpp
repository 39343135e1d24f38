#include "curve/data/STCAlgorithm.h"

namespace IVCurve {

STCAlgorithm::~STCAlgorithm() = default;

double STCAlgorithm::usable(const std::optional<double> &value, double otherwise)
{
    return value && !isExactlyZero(*value) ? *value : otherwise;
}

} // namespace IVCurve
