#pragma once

#include <QIcon>
#include <QMessageBox>
#include <QString>

#include <functional>

class QWidget;

/// One message to the user. Only what differs from the defaults has to be given.
struct Message
{
    QWidget *parent = nullptr;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QString text = QString();
    QString informativeText = QString();
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
    QString title = QString();
    QIcon windowIcon = QIcon();
    /// Text of a check box below the message; none when empty.
    QString checkBoxText = QString();
    bool checkBoxChecked = false;
    /// In the middle of the primary screen instead of over the parent.
    bool centred = false;
};

/// What the user did with a message.
struct MessageAnswer
{
    QMessageBox::StandardButton button = QMessageBox::NoButton;
    bool checked = false;
};

/// Shows a modal message box and waits for the answer. The one place where the program opens one.
MessageAnswer showMessage(const Message &message);

/// True if the answer to a question with Yes among its buttons was Yes.
bool askYesNo(const Message &message);

/// Shows a message that is gone again when the function returns. For failures that are not the user's
/// concern and must not hold up the program.
void flashMessage(const QString &text);

using MessageSink = std::function<MessageAnswer(const Message &)>;

/// Sends all messages elsewhere, for a program without windows. An empty sink brings the boxes back.
void setMessageSink(MessageSink sink);
