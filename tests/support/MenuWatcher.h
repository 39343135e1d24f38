#pragma once

#include <QApplication>
#include <QMenu>
#include <QTimer>

/// Notes what context menus show, and chooses an entry or none.
class MenuWatcher : public QObject
{
public:
    struct Entry
    {
        QString text;
        bool enabled = false;
    };

    explicit MenuWatcher(const QString &choice = QString()) : m_choice(choice)
    {
        connect(&m_timer, &QTimer::timeout, this, &MenuWatcher::look);
        m_timer.start(1);
    }

    /// The entries of the menus that came up, separators as empty texts.
    const QVector<Entry> &entries() const { return m_entries; }
    int menus() const { return m_menus; }
    QStringList texts() const
    {
        QStringList result;
        for (const Entry &entry : m_entries)
            result += entry.text;
        return result;
    }
    bool isEnabled(const QString &text) const
    {
        for (const Entry &entry : m_entries) {
            if (entry.text == text)
                return entry.enabled;
        }
        return false;
    }
    /// Called while the menu is up.
    std::function<void()> whileOpen = [] {};

private:
    void look()
    {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        ++m_menus;
        whileOpen();
        QAction *chosen = nullptr;
        const QList<QAction *> actions = menu->actions();
        for (QAction *action : actions) {
            m_entries.append({action->text(), action->isEnabled()});
            if (!m_choice.isEmpty() && action->text() == m_choice)
                chosen = action;
        }
        if (chosen) {
            menu->setActiveAction(chosen);
            QTest::keyClick(menu, Qt::Key_Return);
        } else {
            menu->close();
        }
    }

    QString m_choice;
    QTimer m_timer;
    QVector<Entry> m_entries;
    int m_menus = 0;
};
