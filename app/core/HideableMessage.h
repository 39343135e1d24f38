#pragma once

#include "app/core/Messages.h"

/// A message that the user can ask not to see again.
namespace HideableMessage {

/// True if the user has hidden the message that is remembered under this key of the settings.
bool isHidden(const QString &settingsKey);

/// Shows the message in the middle of the screen, with a check box to hide it in future. What the check box
/// says is remembered whatever the answer.
QMessageBox::StandardButton show(Message message, const QString &settingsKey);

} // namespace HideableMessage
