#pragma once

#include <QStringList>

class QWidget;

/// Whether the texts that a window shows have room where they stand.
namespace TextRoom {

/// The visible labels, buttons, choices, tabs and group titles of a window whose text does not fit, each
/// with class, object name and text.
QStringList clippedTexts(const QWidget *window);

} // namespace TextRoom
