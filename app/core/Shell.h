#pragma once

class QWidget;

/// What documents and services need of the main window, so that none of them has to know its class.
/// The object that derives from it registers itself for its life.
class Shell
{
public:
    virtual ~Shell();

    /// The main window, or null when the program runs without one.
    static Shell *instance();

    /// Parent for message boxes and dialogs; null without a window.
    static QWidget *parentWindow();

    /// Logical vertical resolution in dots per inch of the main window's screen, or of the primary
    /// screen when there is no window.
    static int logicalDpiY();

    virtual QWidget *window() = 0;
    /// Asks for a tester's results file and shows its rows.
    virtual void import() = 0;
    /// Starts the datalogger.
    virtual void download() = 0;

protected:
    Shell();
    Shell(const Shell &) = delete;
    Shell &operator=(const Shell &) = delete;
};
