#pragma once

#include <QString>

class QMenu;
class QWidget;

/// What a demanding user sees at once in a window. Each function takes a picture, as
/// WholeProgram::takePicture() does, and fails the test where something is wrong.
namespace WindowLook {

/// Texts without room, keys that lead to two things, things without a name for those who do not see them.
void at(QWidget *window, const QString &name);

/// The same, and what the Tab key does not come to. The window gets the keyboard.
void atDialog(QWidget *dialog, const QString &name);

/// Texts without room and keys of two entries.
void atMenu(QMenu *menu, const QString &name);

/// Gives the program what a desktop with dark colours gives it.
void useDarkColours();

/// The same, where KELMAR_PALETTE asks for "dark".
void useColours();

} // namespace WindowLook
