#include "tests/whole/RawInput.h"

#include <QtTest>

namespace {

/// Far beyond what the toolkit takes for a double click.
constexpr int millisecondsBetweenClicks = 5000;

const struct
{
    Qt::KeyboardModifier modifier;
    Qt::Key key;
} modifierKeys[] = {{Qt::ShiftModifier, Qt::Key_Shift},
                    {Qt::ControlModifier, Qt::Key_Control},
                    {Qt::AltModifier, Qt::Key_Alt}};

void sendKey(const QPointer<QWindow> &window, QEvent::Type type, Qt::Key key, Qt::KeyboardModifiers modifiers,
             const QString &text = QString())
{
    if (window)
        qt_handleKeyEvent(window, type, key, modifiers, text);
}

} // namespace

void RawInput::press(const QPointer<QWindow> &window, Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
                     QPoint place, bool again)
{
    m_time += again ? 1 : millisecondsBetweenClicks;
    m_down.setFlag(button, true);
    send(window, QEvent::MouseButtonPress, button, modifiers, place);
}

void RawInput::move(const QPointer<QWindow> &window, Qt::KeyboardModifiers modifiers, QPoint place)
{
    send(window, QEvent::MouseMove, Qt::NoButton, modifiers, place);
}

void RawInput::release(const QPointer<QWindow> &window, Qt::MouseButton button,
                       Qt::KeyboardModifiers modifiers, QPoint place)
{
    m_down.setFlag(button, false);
    send(window, QEvent::MouseButtonRelease, button, modifiers, place);
}

void RawInput::send(const QPointer<QWindow> &window, QEvent::Type type, Qt::MouseButton button,
                    Qt::KeyboardModifiers modifiers, QPoint place)
{
    if (window)
        qt_handleMouseEvent(window, place, window->mapToGlobal(place), m_down, button, type, modifiers,
                            ++m_time);
}

void RawInput::strike(const QPointer<QWindow> &window, Qt::Key key, Qt::KeyboardModifiers modifiers,
                      const QString &text)
{
    Qt::KeyboardModifiers held;
    for (const auto &row : modifierKeys) {
        if (!(modifiers & row.modifier))
            continue;
        sendKey(window, QEvent::KeyPress, row.key, held);
        held |= row.modifier;
    }
    sendKey(window, QEvent::KeyPress, key, modifiers, text);
    sendKey(window, QEvent::KeyRelease, key, modifiers, text);
    for (const auto &row : modifierKeys) {
        if (!(modifiers & row.modifier))
            continue;
        sendKey(window, QEvent::KeyRelease, row.key, held);
        held &= ~Qt::KeyboardModifiers(row.modifier);
    }
}

void RawInput::strike(const QPointer<QWindow> &window, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    const char character = QTest::keyToAscii(key);
    strike(window, key, modifiers, character ? QString(QLatin1Char(character)) : QString());
}
