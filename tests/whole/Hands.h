#pragma once

#include <QString>

class QAbstractButton;
class QAbstractItemView;
class QAction;
class QGraphicsItem;
class QGraphicsView;
class QMainWindow;
class QMenu;
class QModelIndex;
class QToolButton;
class QWidget;

/// What a user's hands do with mouse and keys.
namespace Hands {

/// Makes a window the active one and waits until it is. A user looks before typing; keys that are sent while
/// the window manager is still busy with windows coming and going would reach none of them.
void bringToFront(QWidget *window);

/// Opens a menu of the menu bar with the mouse and clicks an entry.
void chooseFromMenu(QMainWindow *window, QMenu *menu, QAction *entry);

/// Clicks the tool button of an action, found by the action's object name below `window`.
void clickToolButton(QWidget *window, const QString &actionName);

/// Clicks where a check box or radio button has its mark.
void click(QAbstractButton *button);

void click(QAbstractItemView *view, const QModelIndex &index,
           Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void doubleClick(QAbstractItemView *view, const QModelIndex &index);

/// Clicks the middle of a graphics item.
void click(QGraphicsView *view, const QGraphicsItem *item);

/// Types a text, then keys, into whatever has the focus in the window.
void type(QWidget *window, const QString &text);
void press(QWidget *window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

} // namespace Hands
