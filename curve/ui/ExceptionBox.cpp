#include "curve/ui/ExceptionBox.h"

#include "app/core/Identity.h"
#include "app/core/Messages.h"
#include "app/core/Shell.h"

#include <QCoreApplication>

#include <exception>

namespace IVCurve {

namespace {

/// The translation context of the message.
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(IVCurve::ExceptionBox)
};

void showException(const std::exception &exception)
{
    Message message;
    message.parent = Shell::parentWindow();
    message.icon = QMessageBox::Critical;
    message.title = Identity::applicationName();
    message.text = Text::tr("Exception thrown: %1").arg(QString::fromUtf8(exception.what()));
    showMessage(message);
}

} // namespace

bool guarded(const std::function<void()> &work)
{
    try {
        work();
    } catch (const std::exception &exception) {
        showException(exception);
        return false;
    }
    return true;
}

} // namespace IVCurve
