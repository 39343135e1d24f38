#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

class QDockWidget;
class QMdiArea;
class QMainWindow;

/// Leads the keyboard around the parts of the main window: F6 to the next one, Shift+F6 to the one before.
/// The parts are the panels, then the tool bar and the content of the document in front. A page keeps the Tab
/// key to itself, so that without these keys only the mouse would find the way out of it.
class PaneKeys : public QObject
{
    Q_OBJECT

public:
    PaneKeys(QMainWindow *window, QMdiArea *area, const QVector<QDockWidget *> &panels);

private:
    void move(int step);
    QVector<QWidget *> panes() const;

    QPointer<QMdiArea> m_area;
    QVector<QPointer<QDockWidget>> m_panels;
};
