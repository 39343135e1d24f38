#pragma once

#include <QStringList>

class QWidget;

/// What a window tells those who cannot see it.
namespace AccessibleNames {

/// The widgets of a window that a user works with and that have no name, each with class and object name.
QStringList missingIn(const QWidget *window);

} // namespace AccessibleNames
