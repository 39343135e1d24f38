#include "tests/whole/Hands.h"

#include "tests/support/Patience.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QGraphicsItem>
#include <QGraphicsView>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

namespace Hands {

namespace {

QWidget *receiver(QWidget *window)
{
    QWidget *focused = QApplication::focusWidget();
    return focused ? focused : window;
}

} // namespace

void bringToFront(QWidget *window)
{
    // A window counts as active, too, while a dialog of its has the keyboard, and the other way round: what
    // is asked for here is the one that gets the keys.
    const auto hasKeyboard = [window] { return QApplication::activeWindow() == window; };
    if (hasKeyboard())
        return;
    window->activateWindow();
    if (!QTest::qWaitFor(hasKeyboard))
        QApplication::setActiveWindow(window);
}

void chooseFromMenu(QMainWindow *window, QMenu *menu, QAction *entry)
{
    bringToFront(window);
    QMenuBar *bar = window->menuBar();
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->actionGeometry(menu->menuAction()).center());
    QTRY_VERIFY(menu->isVisible());
    QVERIFY2(entry->isEnabled(), qPrintable(entry->text()));
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(entry).center());
}

void clickToolButton(QWidget *window, const QString &actionName)
{
    const QList<QToolBar *> bars = window->findChildren<QToolBar *>();
    for (QToolBar *bar : bars) {
        const QList<QAction *> actions = bar->actions();
        for (QAction *action : actions) {
            if (action->objectName() == actionName && bar->isVisible()) {
                QTest::mouseClick(bar->widgetForAction(action), Qt::LeftButton);
                return;
            }
        }
    }
    QFAIL(qPrintable(QStringLiteral("no tool button for ") + actionName));
}

void click(QAbstractButton *button)
{
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(10, button->height() / 2));
}

void click(QAbstractItemView *view, const QModelIndex &index, Qt::KeyboardModifiers modifiers)
{
    QVERIFY(index.isValid());
    bringToFront(view->window());
    view->scrollTo(index);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers, view->visualRect(index).center());
}

void doubleClick(QAbstractItemView *view, const QModelIndex &index)
{
    click(view, index);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, view->visualRect(index).center());
}

void click(QGraphicsView *view, const QGraphicsItem *item)
{
    QVERIFY(item);
    bringToFront(view->window());
    view->ensureVisible(item);
    QTest::qWait(20);
    const QPoint place = view->mapFromScene(item->sceneBoundingRect().center());
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
}

void type(QWidget *window, const QString &text)
{
    bringToFront(window);
    QTest::keyClicks(receiver(window), text);
}

void press(QWidget *window, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    bringToFront(window);
    QTest::keyClick(receiver(window), key, modifiers);
}

} // namespace Hands
