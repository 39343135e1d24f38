#include "app/core/Messages.h"

#include <QCheckBox>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>

namespace {

MessageSink &sink()
{
    static MessageSink instance;
    return instance;
}

void moveToCentreOfPrimaryScreen(QWidget &box)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    const QSize size = box.sizeHint();
    box.move(screen->geometry().center() - QPoint(size.width() / 2, size.height() / 2));
}

/// Messages carry file names and texts out of files: none of them is markup, whatever it looks like.
void showAsWritten(QMessageBox &box)
{
    for (QLabel *label : box.findChildren<QLabel *>())
        label->setTextFormat(Qt::PlainText);
}

} // namespace

MessageAnswer showMessage(const Message &message)
{
    if (sink())
        return sink()(message);

    QMessageBox box(message.icon, message.title, message.text, message.buttons, message.parent);
    box.setInformativeText(message.informativeText);
    showAsWritten(box);
    if (!message.windowIcon.isNull())
        box.setWindowIcon(message.windowIcon);
    if (message.defaultButton != QMessageBox::NoButton)
        box.setDefaultButton(message.defaultButton);
    QCheckBox *checkBox = nullptr;
    if (!message.checkBoxText.isEmpty()) {
        checkBox = new QCheckBox(message.checkBoxText, &box);
        checkBox->setChecked(message.checkBoxChecked);
        box.setCheckBox(checkBox);
    }
    if (message.centred)
        moveToCentreOfPrimaryScreen(box);
    const auto button = static_cast<QMessageBox::StandardButton>(box.exec());
    return {button, checkBox && checkBox->isChecked()};
}

bool askYesNo(const Message &message)
{
    return showMessage(message).button == QMessageBox::Yes;
}

void flashMessage(const QString &text)
{
    if (sink()) {
        Message message;
        message.text = text;
        sink()(message);
        return;
    }
    QMessageBox box;
    box.setText(text);
    showAsWritten(box);
    box.show();
}

void setMessageSink(MessageSink newSink)
{
    sink() = std::move(newSink);
}
