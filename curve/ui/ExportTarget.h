#pragma once

#include <QString>

class QWidget;

namespace IVCurve {

/// Asks for the file of a report or of points, proposing `name` in the folder of the last export, and
/// remembers the chosen folder. Empty when the user cancels.
QString askExportTarget(QWidget *parent, const QString &title, const QString &filter,
                        const QString &name = QString());

} // namespace IVCurve
