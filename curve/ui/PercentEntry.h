#pragma once

#include <QString>

class QDoubleSpinBox;
class QWidget;

/// Enters a temperature coefficient of a module in percent of the value that it is the coefficient of.
namespace IVCurve::PercentEntry {

/// Asks for the current coefficient as a share of the short-circuit current, which `isc` shows.
void enterAlpha(QWidget *parent, const QString &isc, QDoubleSpinBox *alpha);
/// Asks for the voltage coefficient as a share of the open-circuit voltage, which `voc` shows.
void enterBeta(QWidget *parent, const QString &voc, QDoubleSpinBox *beta);

} // namespace IVCurve::PercentEntry
