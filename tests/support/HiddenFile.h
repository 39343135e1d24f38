#pragma once

#include <QString>

/// Hides a file or folder whose name begins with a dot where that alone does not hide it.
void hide(const QString &path);
