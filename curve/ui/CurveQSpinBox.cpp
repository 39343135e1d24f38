#include "curve/ui/CurveQSpinBox.h"

namespace IVCurve {

CurveQSpinBox::CurveQSpinBox(QWidget *parent) : QSpinBox(parent)
{
    connect(this, QOverload<int>::of(&QSpinBox::valueChanged), this, [this] { userChanged = true; });
}

} // namespace IVCurve
