#include "app/shell/PaneKeys.h"

#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QShortcut>
#include <QToolBar>

namespace {

bool takesKeys(const QWidget *widget)
{
    return (widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled() && widget->isVisible();
}

/// What has the keyboard when it comes to a pane: what had it last, or else the first that can.
QWidget *entranceOf(QWidget *pane)
{
    if (takesKeys(pane))
        return pane;
    QWidget *last = pane->focusWidget();
    if (last && takesKeys(last))
        return last;
    QWidget *next = pane->nextInFocusChain();
    while (next != pane && !(pane->isAncestorOf(next) && takesKeys(next)))
        next = next->nextInFocusChain();
    return next == pane ? nullptr : next;
}

/// Tool bar and content of a document, which are its children.
QVector<QWidget *> partsOf(const QWidget *document)
{
    QVector<QWidget *> bars;
    QVector<QWidget *> contents;
    const QList<QWidget *> children =
        document->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *child : children)
        (qobject_cast<QToolBar *>(child) ? bars : contents).append(child);
    return bars + contents;
}

} // namespace

PaneKeys::PaneKeys(QMainWindow *window, QMdiArea *area, const QVector<QDockWidget *> &panels)
    : QObject(window), m_area(area)
{
    for (QDockWidget *panel : panels)
        m_panels.append(panel);
    const auto *forth = new QShortcut(QKeySequence(Qt::Key_F6), window);
    connect(forth, &QShortcut::activated, this, [this] { move(1); });
    const auto *back = new QShortcut(QKeySequence(int(Qt::SHIFT) + int(Qt::Key_F6)), window);
    connect(back, &QShortcut::activated, this, [this] { move(-1); });
}

QVector<QWidget *> PaneKeys::panes() const
{
    QVector<QWidget *> all;
    for (const QPointer<QDockWidget> &panel : m_panels) {
        if (panel && panel->widget())
            all.append(panel->widget());
    }
    if (const QMdiSubWindow *front = m_area ? m_area->currentSubWindow() : nullptr)
        all += partsOf(front->widget());
    return all;
}

void PaneKeys::move(int step)
{
    const QVector<QWidget *> all = panes();
    const QWidget *focused = QApplication::focusWidget();
    int now = step > 0 ? -1 : all.size();
    for (int i = 0; i < all.size(); ++i) {
        if (focused && (all.at(i) == focused || all.at(i)->isAncestorOf(focused)))
            now = i;
    }
    for (int tries = 0; tries < all.size(); ++tries) {
        now = (now + step + all.size()) % all.size();
        if (auto *panel = qobject_cast<QDockWidget *>(all.at(now)->parentWidget()))
            panel->raise();
        QWidget *entrance = entranceOf(all.at(now));
        if (!entrance)
            continue;
        entrance->window()->activateWindow();
        entrance->setFocus(Qt::ShortcutFocusReason);
        return;
    }
}
