#pragma once

#include <QRect>
#include <QString>

class QWidget;

/// Takes the manual's pictures where the environment variable KELMAR_SCREENSHOTS names a folder; waits for
/// the windows all the same where it does not.
namespace ManualCamera {

/// A window within its frame, and what lies over it.
void takeFramed(QWidget *window, const QString &name);

/// A window or a part of one without a frame, and what lies over it.
void take(QWidget *widget, const QString &name);

/// A part of a widget, in its own coordinates.
void take(QWidget *widget, const QRect &part, const QString &name);

/// Two widgets that do not touch each other, a menu and its window for example, with all between them.
void takeBoth(QWidget *one, QWidget *other, const QString &name);

/// The path of a file beside the pictures, which the script that has them taken makes a picture of.
QString besidePictures(const QString &name);

} // namespace ManualCamera
