#include "tests/whole/KeyboardReach.h"

#include "tests/whole/Hands.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QMap>
#include <QMenu>
#include <QRadioButton>
#include <QTabBar>
#include <QtTest>

namespace {

/// No window has more to offer.
constexpr int mostSteps = 200;

QString described(const QWidget *widget)
{
    return QStringLiteral("%1 \"%2\"")
        .arg(QLatin1String(widget->metaObject()->className()), widget->objectName());
}

/// A part of a widget that has the keyboard for it, as a table has for the editors of its cells.
bool isPart(const QWidget *widget)
{
    const QWidget *parent = widget->parentWidget();
    return qobject_cast<const QAbstractSpinBox *>(parent) || qobject_cast<const QComboBox *>(parent) ||
           qobject_cast<const QAbstractItemView *>(parent->parentWidget());
}

bool isOffered(const QWidget *widget, const QWidget *window)
{
    return widget->window() == window && widget->isVisibleTo(window) && widget->isEnabled() &&
           (widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy() && !isPart(widget) &&
           !widget->visibleRegion().isEmpty();
}

/// Of the buttons of one choice Tab comes to one only.
bool isReached(QWidget *widget, const QSet<QWidget *> &places)
{
    return places.contains(widget) ||
           (qobject_cast<QRadioButton *>(widget) &&
            std::any_of(places.begin(), places.end(), [widget](QWidget *other) {
                return qobject_cast<QRadioButton *>(other) && other->parentWidget() == widget->parentWidget();
            }));
}

/// Where the keyboard comes to, key by key, until it is back at the first place.
QSet<QWidget *> walk(QWidget *window, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QSet<QWidget *> places;
    const QWidget *first = nullptr;
    for (int i = 0; i < mostSteps; ++i) {
        Hands::press(window, key, modifiers);
        QWidget *now = QApplication::focusWidget();
        if (!now || now == first)
            break;
        first = first ? first : now;
        places.insert(now);
    }
    return places;
}

void note(QMap<QString, QString> &known, const QString &text, QStringList &shared)
{
    const QString key = QKeySequence::mnemonic(text).toString();
    if (key.isEmpty())
        return;
    if (known.contains(key))
        shared.append(key + QStringLiteral(": ") + known.value(key) + QStringLiteral(", ") + text);
    known.insert(key, text);
}

/// The texts of a widget that a key together with Alt leads to.
QStringList textsWithKeys(const QWidget *widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        return label->buddy() ? QStringList(label->text()) : QStringList();
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
        return {button->text()};
    if (const auto *box = qobject_cast<const QGroupBox *>(widget))
        return {box->title()};
    QStringList texts;
    if (const auto *tabs = qobject_cast<const QTabBar *>(widget)) {
        for (int i = 0; i < tabs->count(); ++i)
            texts.append(tabs->tabText(i));
    }
    return texts;
}

} // namespace

QStringList KeyboardReach::notReachedByTab(QWidget *window)
{
    const QSet<QWidget *> forth = walk(window, Qt::Key_Tab, Qt::NoModifier);
    const QSet<QWidget *> back = walk(window, Qt::Key_Backtab, Qt::ShiftModifier);
    QStringList missed;
    const QList<QWidget *> widgets = window->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (isOffered(widget, window) && !(isReached(widget, forth) && isReached(widget, back)))
            missed.append(described(widget));
    }
    return missed;
}

QStringList KeyboardReach::sharedAccelerators(const QMenu *menu)
{
    QStringList shared;
    QMap<QString, QString> known;
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions) {
        if (action->isVisible())
            note(known, action->text(), shared);
    }
    return shared;
}

QStringList KeyboardReach::sharedAccelerators(const QWidget *window)
{
    QStringList shared;
    QMap<QString, QString> known;
    const QList<QWidget *> widgets = window->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (widget->window() != window || !widget->isVisibleTo(window))
            continue;
        const QStringList texts = textsWithKeys(widget);
        for (const QString &text : texts)
            note(known, text, shared);
    }
    return shared;
}
