#pragma once

#include "app/shell/MainWindow.h"

#include <QStringList>

#include <functional>
#include <memory>

class ProjectTreeView;
class QAction;
class QFileSystemModel;
class QLineEdit;
class QMdiArea;
class QMenu;
class QTabBar;

/// A main window on the screen over a projects root of its own, and what tests look at in it. English, no
/// welcome, no documents; everything from an earlier test is gone.
class Desk
{
public:
    /// A clean home for a window to be made in: no favourites, no projects, English, no welcome.
    static void clear();

    Desk();
    ~Desk();

    /// Closes the window and makes a new one, as at the next start.
    void restart();

    QAction *action(const char *name) const;
    QTabBar *tabs() const;
    QStringList openNames() const;

    /// Where a path below the projects root lies on the disk.
    static QString path(const QString &relative);
    /// Writes an array test report below the projects root.
    static QString addReport(const QString &relative);

    /// Clicks an entry of the tree, given below the projects root, after waiting until it is there.
    void click(const QString &relative) const;
    void doubleClick(const QString &relative) const;
    /// The selected entries of the tree, below the projects root.
    QStringList selected() const;
    QString current() const;
    /// The line edit in which a name is being changed; null when none is.
    QLineEdit *nameEditor() const;

    /// Opens the context menu of the tree at an entry, or beside all entries for an empty name, and calls
    /// `look` with it.
    void contextMenu(const QString &relative, const std::function<void(QMenu *)> &look) const;

    std::unique_ptr<MainWindow> window;
    ProjectTreeView *tree = nullptr;
    QMdiArea *area = nullptr;

private:
    void show();
    QString below(const QString &path) const;
    QPoint place(const QString &relative) const;
};
