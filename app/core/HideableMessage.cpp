#include "app/core/HideableMessage.h"

#include <QCoreApplication>
#include <QSettings>

namespace HideableMessage {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(HideableMessage)
};

} // namespace

bool isHidden(const QString &settingsKey)
{
    return QSettings().value(settingsKey).toBool();
}

QMessageBox::StandardButton show(Message message, const QString &settingsKey)
{
    message.checkBoxText = Text::tr("Do not show this message again");
    message.centred = true;
    const MessageAnswer answer = showMessage(message);
    QSettings().setValue(settingsKey, answer.checked);
    return answer.button;
}

} // namespace HideableMessage
