#pragma once

#include <QSpinBox>

namespace IVCurve {

/// A spin box that knows whether its value has changed since the flag was last cleared.
class CurveQSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit CurveQSpinBox(QWidget *parent = nullptr);

    bool userChanged = false;
};

} // namespace IVCurve
