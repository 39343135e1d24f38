#include "app/batch/BatchMessages.h"

#include "app/core/Messages.h"

#include <QCoreApplication>
#include <QTextStream>

#include <cstdio>

namespace {

bool failureTold = false;

} // namespace

BatchExit batchOutcome(bool done)
{
    return done && !failureTold ? BatchDone : BatchBadInput;
}

void tell(const QString &text)
{
    failureTold = true;
    QTextStream(stderr) << QCoreApplication::applicationName() << ": " << text.simplified() << '\n';
}

void tellMessages()
{
    setMessageSink([](const Message &message) {
        const bool failedBefore = failureTold;
        tell(message.text + QLatin1Char(' ') + message.informativeText);
        failureTold =
            failedBefore || message.icon == QMessageBox::Warning || message.icon == QMessageBox::Critical;
        const bool question = message.buttons.testFlag(QMessageBox::No);
        return MessageAnswer{question ? QMessageBox::No : QMessageBox::Ok, message.checkBoxChecked};
    });
}
