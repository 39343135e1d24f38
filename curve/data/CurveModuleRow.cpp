#include "curve/data/CurveModuleRow.h"

namespace IVCurve {

CurveModuleRow::~CurveModuleRow() = default;

} // namespace IVCurve
