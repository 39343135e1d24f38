#pragma once

#include <QPointer>
#include <QWindow>

/// Mouse and keys as the window system delivers them: each event by itself, to a window that an earlier one
/// may have been the end of. The toolkit's own test functions turn the event loop after every event and hold
/// on to the window all the while: what comes next then happens within the event before, as no user can do
/// it.
class RawInput
{
public:
    /// `again` makes the press the second one of a double click.
    void press(const QPointer<QWindow> &window, Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
               QPoint place, bool again = false);
    void move(const QPointer<QWindow> &window, Qt::KeyboardModifiers modifiers, QPoint place);
    void release(const QPointer<QWindow> &window, Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
                 QPoint place);

    /// Presses and releases a key, and the modifiers around it.
    static void strike(const QPointer<QWindow> &window, Qt::Key key, Qt::KeyboardModifiers modifiers,
                       const QString &text);
    /// The same with the text that the key has of itself.
    static void strike(const QPointer<QWindow> &window, Qt::Key key, Qt::KeyboardModifiers modifiers);

private:
    void send(const QPointer<QWindow> &window, QEvent::Type type, Qt::MouseButton button,
              Qt::KeyboardModifiers modifiers, QPoint place);

    Qt::MouseButtons m_down;
    int m_time = 0;
};
