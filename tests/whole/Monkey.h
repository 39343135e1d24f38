#pragma once

#include "tests/whole/RawInput.h"

#include <QFile>
#include <QObject>
#include <QPoint>
#include <QVector>

#include <functional>
#include <random>

class QFileDialog;
class QWidget;

/// A user who knows nothing: clicks, drags, types and presses keys at random in whatever window has the
/// user's attention, nested dialogs, menus and drags included. The same seed draws the same gestures; what
/// they hit depends on the windows' state.
///
/// It never types a path and answers file dialogs with paths below its home only, so that nothing outside
/// can come to harm.
class Monkey : public QObject
{
    Q_OBJECT

public:
    /// `home` is the folder that file dialogs are sent to; each step is written to `log`.
    Monkey(unsigned seed, const QString &home, const QString &log);

    /// Begins to act; from then on each step follows the one before by itself.
    void start();
    /// No further gesture. What is open is closed by Escape, and the main window last.
    void leave();

    int steps() const { return m_steps; }

private:
    /// One drawing of the dice: each gesture takes a whole one, whatever it needs of it.
    struct Dice
    {
        unsigned gesture, target, x, y, toX, toY, key, modifiers;
    };

    void step();
    void later(std::function<void()> act);
    Dice draw();

    bool isTiredOf(QWidget *window);
    void openAFile(const Dice &dice);
    QStringList filesAtHome() const;

    void gesture(QWidget *window, const Dice &dice);
    void answerWithCare(QWidget *dialog, const Dice &dice);
    void answerFileDialog(QFileDialog *dialog, const Dice &dice);

    void click(QWidget *window, QPoint place, Qt::MouseButton button, bool twice);
    void drag(QWidget *window, QPoint from, QPoint to, Qt::KeyboardModifiers modifiers);
    void letGo(const QPointer<QWindow> &window, Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
               QPoint place);
    void type(QWidget *window, const Dice &dice);
    void pressKey(QWidget *window, const Dice &dice);
    void pressShortcut(QWidget *window, const Dice &dice);
    void turnWheel(QWidget *window, QPoint place, const Dice &dice);
    void closeOneWindow();

    void note(const QString &what);

    std::mt19937 m_random;
    QString m_home;
    QFile m_log;
    RawInput m_input;
    QVector<std::function<void()>> m_hand;
    const QMetaObject *m_lastKind = nullptr;
    int m_stay = 0;
    int m_steps = 0;
    int m_saved = 0;
    bool m_leaving = false;
};
