#pragma once

#include <QStringList>

class QMenu;
class QWidget;

/// Whether somebody without a mouse gets to everything that a window offers.
namespace KeyboardReach {

/// What can be used of a window but is not come by with Tab, or not with Shift+Tab, each with class and
/// object name. The buttons of one choice count as reached with one of them: the arrow keys lead on.
QStringList notReachedByTab(QWidget *window);

/// Accelerators that two entries of a menu share, each with the texts of both.
QStringList sharedAccelerators(const QMenu *menu);

/// Accelerators that two labels, buttons, tabs or group titles of a window share, each with both texts.
QStringList sharedAccelerators(const QWidget *window);

} // namespace KeyboardReach
