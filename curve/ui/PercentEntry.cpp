#include "curve/ui/PercentEntry.h"

#include "app/core/Messages.h"

#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QInputDialog>
#include <QLocale>

namespace IVCurve::PercentEntry {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(IVCurve::PercentEntry)
};

struct Range
{
    double least;
    double most;
};

constexpr int decimals = 4;

void tellMissing(QWidget *parent, const QString &text)
{
    Message message;
    message.parent = parent;
    message.icon = QMessageBox::Warning;
    message.title = Text::tr("Kelmar");
    message.text = text;
    showMessage(message);
}

void enter(QWidget *parent, const QString &reference, QDoubleSpinBox *coefficient, Range range,
           const QString &missing)
{
    bool isNumber = false;
    // A reference of zero passes: the start is then no number and the coefficient becomes zero.
    const double whole = QLocale().toDouble(reference, &isNumber);
    if (!isNumber) {
        tellMissing(parent, missing);
        return;
    }
    const double start = QLocale().toDouble(coefficient->text()) / whole * 100;
    bool accepted = false;
    const double percent =
        QInputDialog::getDouble(parent, QString(), Text::tr("Enter value in percent per centigrade"), start,
                                range.least, range.most, decimals, &accepted);
    if (accepted)
        coefficient->setValue(percent / 100 * whole);
}

} // namespace

void enterAlpha(QWidget *parent, const QString &isc, QDoubleSpinBox *alpha)
{
    enter(parent, isc, alpha, {0, 100}, Text::tr("Isc is missing or zero"));
}

void enterBeta(QWidget *parent, const QString &voc, QDoubleSpinBox *beta)
{
    enter(parent, voc, beta, {-100, 0}, Text::tr("Voc is missing or zero"));
}

} // namespace IVCurve::PercentEntry
