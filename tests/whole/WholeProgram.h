#pragma once

#include "tests/support/BoxWatcher.h"

#include <QStringList>

#include <functional>

class MainWindow;
class QImage;

/// Runs the whole program in this process, with a user who answers its dialogs and then works in its window.
class WholeProgram
{
public:
    /// Called when the application object exists, to tell the watcher which dialogs to expect.
    using Preparation = std::function<void(BoxWatcher &)>;
    /// Called for each main window once it is on screen, the program is in its event loop and no dialog is
    /// open. `pass` counts the main windows from 1. The window is closed afterwards.
    using User = std::function<void(MainWindow &window, BoxWatcher &watcher, int pass)>;

    /// One start of the program, to its end. Returns its exit code.
    static int run(const QStringList &arguments, const Preparation &prepare, const User &user);

    /// Saves a picture of a window where the environment variable KELMAR_SCREENSHOTS names a folder.
    static void takePicture(QWidget *window, const QString &name);
    static void keepPicture(const QImage &picture, const QString &name);
};
