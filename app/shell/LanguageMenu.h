#pragma once

class QAction;
class QActionGroup;
class QMenu;
class QWidget;

/// The entries of the Language menu and what choosing one of them asks and changes.
namespace LanguageMenu {

/// Fills the menu with one checkable action for each catalogue, in an exclusive group owned by `owner`.
/// The language in force is checked.
QActionGroup *fill(QMenu *menu, QWidget *owner);

/// Asks whether to change to the action's language and prepares the change: stores it and deletes the
/// favourites, which are in the old language. True if the main window is to close and come back.
bool change(QAction *action, QActionGroup *group, QWidget *parent);

} // namespace LanguageMenu
