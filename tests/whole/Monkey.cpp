#include "tests/whole/Monkey.h"

#include "app/dialogs/DialogSettings.h"
#include "app/shell/MainWindow.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileDialog>
#include <QPointer>
#include <QPrintDialog>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest>

namespace {

const Qt::Key keys[] = {Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Return,    Qt::Key_Escape, Qt::Key_Delete,
                        Qt::Key_Insert, Qt::Key_Space,   Qt::Key_Backspace, Qt::Key_Up,     Qt::Key_Down,
                        Qt::Key_Left,   Qt::Key_Right,   Qt::Key_Home,      Qt::Key_End,    Qt::Key_PageUp,
                        Qt::Key_F2,     Qt::Key_F10,     Qt::Key_PageDown,  Qt::Key_Menu,   Qt::Key_Enter};

// No separators of paths: a name that is typed somewhere stays a name.
const QString letters = QStringLiteral("abcXYZ 0123456789.,;:-+*?<>&\"'%(){}äöüßΩ€\u00a0");

Qt::KeyboardModifiers modifiersOf(unsigned dice)
{
    static const Qt::KeyboardModifiers choice[] = {
        Qt::NoModifier,      Qt::NoModifier,  Qt::NoModifier,
        Qt::ShiftModifier,   Qt::NoModifier,  Qt::ControlModifier,
        Qt::ControlModifier, Qt::AltModifier, Qt::ControlModifier | Qt::ShiftModifier};
    return choice[dice % (sizeof choice / sizeof *choice)];
}

/// What has the user's attention: a menu, else a dialog, else the window in front.
QWidget *windowInFront()
{
    if (QWidget *popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget *active = QApplication::activeWindow())
        return active;
    MainWindow *window = MainWindow::instance();
    return window && window->isVisible() ? window : nullptr;
}

/// A place in the window: as often in a small button as on a large page.
QPoint placeIn(const QWidget *window, unsigned target, unsigned x, unsigned y)
{
    QVector<const QWidget *> places{window};
    const QList<QWidget *> children = window->findChildren<QWidget *>();
    for (const QWidget *child : children) {
        if (child->isVisible() && child->window() == window && !child->visibleRegion().isEmpty())
            places.append(child);
    }
    const QWidget *place = places.at(int(target % unsigned(places.size())));
    const QRect visible = place->visibleRegion().boundingRect();
    const QPoint within = visible.topLeft() + QPoint(int(x % unsigned(qMax(1, visible.width()))),
                                                     int(y % unsigned(qMax(1, visible.height()))));
    return place->mapTo(window, within);
}

/// Dialogs in which a stray text could lead out of the monkey's home.
bool wantsCare(const QWidget *window)
{
    return qobject_cast<const QFileDialog *>(window) || qobject_cast<const QPrintDialog *>(window) ||
           qobject_cast<const DialogSettings *>(window);
}

} // namespace

Monkey::Monkey(unsigned seed, const QString &home, const QString &log)
    : m_random(seed), m_home(home), m_log(log)
{
    if (!m_log.open(QIODevice::WriteOnly | QIODevice::Append))
        QTest::qFail(qPrintable(QStringLiteral("cannot write ") + log), __FILE__, __LINE__);
    note(QStringLiteral("seed %1").arg(seed));
}

void Monkey::start()
{
    // Each step has a timer of its own: one that is still in its call would not fire again in the event
    // loop of a dialog that the call has opened. Never at once: what a step has closed is left first.
    QTimer::singleShot(1 + int(m_random() % 11), this, &Monkey::step);
}

void Monkey::leave()
{
    m_leaving = true;
}

void Monkey::later(std::function<void()> act)
{
    m_hand.append(std::move(act));
}

Monkey::Dice Monkey::draw()
{
    Dice dice;
    for (unsigned *value :
         {&dice.gesture, &dice.target, &dice.x, &dice.y, &dice.toX, &dice.toY, &dice.key, &dice.modifiers})
        *value = unsigned(m_random());
    return dice;
}

void Monkey::step()
{
    start();
    if (!m_hand.isEmpty()) {
        const std::function<void()> act = m_hand.takeFirst();
        act();
        return;
    }
    if (m_leaving) {
        closeOneWindow();
        return;
    }
    QWidget *window = windowInFront();
    if (!window || !window->windowHandle())
        return;
    ++m_steps;
    const Dice dice = draw();
    if (isTiredOf(window)) {
        note(QStringLiteral("tired of %1").arg(QLatin1String(window->metaObject()->className())));
        RawInput::strike(window->windowHandle(), Qt::Key_Escape, Qt::NoModifier);
        // A panel that floats does not go away by itself.
        if (MainWindow *main = MainWindow::instance())
            QApplication::setActiveWindow(main);
        return;
    }
    if (wantsCare(window))
        answerWithCare(window, dice);
    else
        gesture(window, dice);
}

/// After a while in one dialog or menu it wants back to the main window, as users do.
bool Monkey::isTiredOf(QWidget *window)
{
    const bool isPassing = !qobject_cast<MainWindow *>(window);
    m_stay = isPassing && window->metaObject() == m_lastKind ? m_stay + 1 : 0;
    m_lastKind = window->metaObject();
    return m_stay > 12;
}

/// Opens one file of its home, as often as not one that is open already.
void Monkey::openAFile(const Dice &dice)
{
    MainWindow *window = MainWindow::instance();
    const QStringList known = filesAtHome();
    if (!window || known.isEmpty())
        return;
    const QString path = known.at(int(dice.target % unsigned(known.size())));
    note(QStringLiteral("opens %1").arg(path));
    window->openDocument(path);
}

QStringList Monkey::filesAtHome() const
{
    QStringList known;
    QDirIterator files(m_home, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        known.append(files.next());
    known.sort();
    return known;
}

void Monkey::gesture(QWidget *window, const Dice &dice)
{
    const QPoint place = placeIn(window, dice.target, dice.x, dice.y);
    const unsigned chance = dice.gesture % 100;
    if (chance < 38)
        click(window, place, Qt::LeftButton, false);
    else if (chance < 46)
        click(window, place, Qt::LeftButton, true);
    else if (chance < 56)
        click(window, place, Qt::RightButton, false);
    else if (chance < 68)
        drag(window, place, placeIn(window, dice.key, dice.toX, dice.toY), modifiersOf(dice.modifiers));
    else if (chance < 80)
        type(window, dice);
    else if (chance < 90)
        pressKey(window, dice);
    else if (chance < 96)
        pressShortcut(window, dice);
    else if (chance < 98 && qobject_cast<MainWindow *>(window))
        openAFile(dice);
    else
        turnWheel(window, place, dice);
}

void Monkey::answerWithCare(QWidget *dialog, const Dice &dice)
{
    if (auto *files = qobject_cast<QFileDialog *>(dialog)) {
        answerFileDialog(files, dice);
        return;
    }
    const QList<QAbstractButton *> buttons = dialog->findChildren<QAbstractButton *>();
    QAbstractButton *button =
        buttons.isEmpty() ? nullptr : buttons.at(int(dice.target % unsigned(buttons.size())));
    note(QStringLiteral("careful in %1").arg(QLatin1String(dialog->metaObject()->className())));
    // The buttons of a print dialog lead to file dialogs with paths of the system: it is left at once.
    if (qobject_cast<QPrintDialog *>(dialog) || !button || dice.gesture % 3 == 0)
        static_cast<QDialog *>(dialog)->reject();
    else if (button->isVisible() && button->isEnabled())
        button->click();
}

void Monkey::answerFileDialog(QFileDialog *dialog, const Dice &dice)
{
    const QStringList known = filesAtHome();
    QString path;
    if (dialog->fileMode() == QFileDialog::Directory)
        path = m_home;
    else if (dialog->acceptMode() == QFileDialog::AcceptSave && dice.key % 2 == 0)
        path = QStringLiteral("%1/saved %2").arg(m_home).arg(++m_saved);
    else if (!known.isEmpty())
        path = known.at(int(dice.target % unsigned(known.size())));
    if (path.isEmpty() || dice.gesture % 3 == 0) {
        note(QStringLiteral("file dialog cancelled"));
        dialog->reject();
        return;
    }
    note(QStringLiteral("file dialog gets %1").arg(path));
    dialog->setDirectory(QFileInfo(path).absolutePath());
    dialog->selectFile(path);
    const QPointer<QFileDialog> guard(dialog);
    QMetaObject::invokeMethod(dialog, "accept");
    // A file of the wrong kind, or a question whether to overwrite that was refused.
    if (guard && guard->isVisible())
        guard->reject();
}

void Monkey::click(QWidget *window, QPoint place, Qt::MouseButton button, bool twice)
{
    note(QStringLiteral("%1 click with %2 at %3,%4 in %5")
             .arg(twice ? "double" : "single")
             .arg(int(button))
             .arg(place.x())
             .arg(place.y())
             .arg(QLatin1String(window->metaObject()->className())));
    const QPointer<QWindow> handle(window->windowHandle());
    for (const bool again : {false, true}) {
        if (again && !twice)
            break;
        later([=] { m_input.press(handle, button, Qt::NoModifier, place, again); });
        later([=] { letGo(handle, button, Qt::NoModifier, place); });
    }
}

/// A button that is down comes up again, whatever has become of the window.
void Monkey::letGo(const QPointer<QWindow> &window, Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
                   QPoint place)
{
    const QWidget *front = windowInFront();
    m_input.release(window || !front ? window.data() : front->windowHandle(), button, modifiers, place);
}

void Monkey::drag(QWidget *window, QPoint from, QPoint to, Qt::KeyboardModifiers modifiers)
{
    note(QStringLiteral("drag from %1,%2 to %3,%4 with %5")
             .arg(from.x())
             .arg(from.y())
             .arg(to.x())
             .arg(to.y())
             .arg(int(modifiers)));
    const QPointer<QWindow> handle(window->windowHandle());
    later([=] { m_input.press(handle, Qt::LeftButton, modifiers, from); });
    const int moves = 6;
    for (int i = 1; i <= moves; ++i) {
        const QPoint place = from + (to - from) * i / moves;
        later([=] { m_input.move(handle, modifiers, place); });
    }
    later([=] { letGo(handle, Qt::LeftButton, modifiers, to); });
}

void Monkey::type(QWidget *window, const Dice &dice)
{
    QString text;
    for (unsigned value : {dice.target, dice.x, dice.y, dice.toX, dice.toY})
        text.append(letters.at(int(value % unsigned(letters.size()))));
    note(QStringLiteral("types %1").arg(text));
    const QPointer<QWindow> handle(window->windowHandle());
    for (const QChar character : qAsConst(text)) {
        later([=] {
            // A dialog that wants care may have come up in between.
            QWidget *front = windowInFront();
            if (handle && front && front->windowHandle() && !wantsCare(front))
                RawInput::strike(front->windowHandle(), Qt::Key_unknown, Qt::NoModifier, QString(character));
        });
    }
}

void Monkey::pressKey(QWidget *window, const Dice &dice)
{
    const Qt::Key key = keys[dice.key % (sizeof keys / sizeof *keys)];
    const Qt::KeyboardModifiers modifiers = modifiersOf(dice.modifiers);
    note(QStringLiteral("key %1").arg(QKeySequence(int(key) | int(modifiers)).toString()));
    RawInput::strike(window->windowHandle(), key, modifiers);
}

void Monkey::pressShortcut(QWidget *window, const Dice &dice)
{
    QList<QKeySequence> shortcuts;
    const QList<QAction *> actions = window->findChildren<QAction *>();
    for (const QAction *action : actions) {
        if (!action->shortcut().toString().isEmpty())
            shortcuts.append(action->shortcut());
    }
    if (shortcuts.isEmpty())
        return;
    const QKeySequence shortcut = shortcuts.at(int(dice.target % unsigned(shortcuts.size())));
    note(QStringLiteral("shortcut %1").arg(shortcut.toString()));
    const int combination = shortcut[0];
    RawInput::strike(window->windowHandle(), Qt::Key(combination & ~int(Qt::KeyboardModifierMask)),
                     Qt::KeyboardModifiers(combination & int(Qt::KeyboardModifierMask)));
}

void Monkey::turnWheel(QWidget *window, QPoint place, const Dice &dice)
{
    QWidget *under = window->childAt(place);
    if (!under)
        return;
    note(QStringLiteral("wheel"));
    const QPoint local = under->mapFrom(window, place);
    const QPoint turn(0, dice.key % 2 ? 120 : -120);
    QWheelEvent event(local, window->mapToGlobal(place), QPoint(), turn, Qt::NoButton,
                      modifiersOf(dice.modifiers), Qt::NoScrollPhase, false);
    QApplication::sendEvent(under, &event);
}

void Monkey::closeOneWindow()
{
    if (QWidget *popup = QApplication::activePopupWidget()) {
        popup->close();
    } else if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
        note(QStringLiteral("leaves %1").arg(QLatin1String(dialog->metaObject()->className())));
        // A question whether to save is answered with No, else the program would never end.
        auto *box = qobject_cast<QMessageBox *>(dialog);
        if (box && box->button(QMessageBox::No))
            box->button(QMessageBox::No)->click();
        else
            dialog->reject();
    } else if (MainWindow *window = MainWindow::instance()) {
        // One that was closed before the program came into its event loop could not end that loop.
        if (!window->isVisible())
            QCoreApplication::quit();
        window->close();
    }
}

void Monkey::note(const QString &what)
{
    m_log.write(QStringLiteral("%1 %2\n").arg(m_steps).arg(what).toUtf8());
    m_log.flush();
}
