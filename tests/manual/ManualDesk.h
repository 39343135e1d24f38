#pragma once

#include "tests/whole/WholeProgram.h"

#include <QSize>
#include <QString>
#include <QStringList>

class AbstractDocument;
class GraphicalReportDocument;
class MainWindow;
class QAction;
class QDockWidget;
class QFileSystemModel;
class QGraphicsView;
class QMenu;
class QTreeView;
class ReportTable;
class ReportText;

/// The program's main window as the hands see it that set up the manual's pictures.
class ManualDesk
{
public:
    /// Runs the program once, with a user at the desk of its one main window. The window has the size that
    /// the pictures show.
    static void work(
        const std::function<void(ManualDesk &, BoxWatcher &)> &user,
        const WholeProgram::Preparation &prepare = [](BoxWatcher &) {});

    explicit ManualDesk(MainWindow &mainWindow);

    QAction *action(const char *name) const;
    QMenu *menu(const char *name) const;
    QDockWidget *dock(const char *name) const;
    AbstractDocument *document() const;
    GraphicalReportDocument *report() const;
    QGraphicsView *view() const;
    ReportText *field(const char *id) const;
    ReportTable *table() const;

    /// Gives the window its size, and the docks theirs.
    void arrange(const QSize &size) const;
    /// Opens a folder of the tree and waits until its entries are there.
    void expand(const QString &folder) const;
    void select(const QString &path) const;
    /// Opens a document that lies in the tree.
    void open(const QString &path) const;
    void fill(const char *id, const QString &text) const;
    void fillColumn(int column, int row, const QStringList &texts) const;
    void paste(const QString &text) const;
    /// Nothing has the keyboard any more.
    void leaveFields() const;
    /// Takes the menu that comes up next, with the widget that it belongs to, and closes it.
    void takeNextMenu(QWidget *over, const QString &name) const;
    /// Presses the right button of the mouse over a place of the view.
    void rightClick(const QPoint &inViewport) const;

    MainWindow &window;
    QTreeView *tree;
    QFileSystemModel *model;
};
