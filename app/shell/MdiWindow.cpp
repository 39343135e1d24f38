#include "app/shell/MdiWindow.h"

#include "app/document/AbstractDocument.h"
#include "app/shell/MdiSubWindow.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QMdiArea>
#include <QMenu>
#include <QPointer>
#include <QSignalMapper>
#include <QTabBar>

MdiWindow::MdiWindow(QWidget *parent) : QMainWindow(parent) {}

MdiWindow::~MdiWindow()
{
    // The children go after this object has become a plain widget: what they still have to say on their way
    // out must not reach its slots any more.
    const QList<QObject *> descendants = findChildren<QObject *>();
    for (QObject *descendant : descendants)
        descendant->disconnect(this);
}

void MdiWindow::setUp(QMdiArea *area, QMenu *windowMenu)
{
    m_mdiArea = area;
    connect(m_mdiArea, &QMdiArea::subWindowActivated, this, &MdiWindow::subWindowActivated);
    m_tabBar = m_mdiArea->findChild<QTabBar *>();
    m_mdiArea->setTabsClosable(true);
    m_mdiArea->setTabsMovable(true);
    connect(m_tabBar, &QTabBar::tabCloseRequested, this, &MdiWindow::closeTab);
    m_windowMapper = new QSignalMapper(this);
    connect(m_windowMapper, &QSignalMapper::mappedWidget, this, &MdiWindow::setActiveWidget);
    createActions();
    // The menu takes these two only when it opens; their keys work from the start.
    addActions({m_nextAction, m_previousAction});
    m_windowMenu = windowMenu;
    connect(m_windowMenu, &QMenu::aboutToShow, this, &MdiWindow::updateWindowMenu);
}

void MdiWindow::createActions()
{
    const auto make = [this](const char *icon, const QString &text, const QString &statusTip) {
        auto *action = new QAction(QIcon(QStringLiteral(":res/toolButtons/%1.png").arg(QLatin1String(icon))),
                                   text, this);
        action->setStatusTip(statusTip);
        return action;
    };
    m_closeAction = make("close", tr("Cl&ose"), tr("Close the active window"));
    connect(m_closeAction, &QAction::triggered, this, &MdiWindow::closeActiveDocument);
    m_tileAction = make("window_tile", tr("&Tile"), tr("Tile the windows"));
    connect(m_tileAction, &QAction::triggered, this, &MdiWindow::tileDocuments);
    m_cascadeAction = make("window_cascade", tr("&Cascade"), tr("Cascade the windows"));
    connect(m_cascadeAction, &QAction::triggered, this, &MdiWindow::cascadeDocuments);
    m_resetLayoutAction = make("redo", tr("&Reset Window Layout"), tr("Restore the default Window layout"));
    connect(m_resetLayoutAction, &QAction::triggered, this, &MdiWindow::resetWindowLayout);
    m_nextAction = make("window_next", tr("Ne&xt"), tr("Move the focus to the next window"));
    m_nextAction->setShortcuts(QKeySequence::NextChild);
    connect(m_nextAction, &QAction::triggered, m_mdiArea, &QMdiArea::activateNextSubWindow);
    m_previousAction = make("window_prev", tr("Pre&vious"), tr("Move the focus to the previous window"));
    m_previousAction->setShortcuts(QKeySequence::PreviousChild);
    connect(m_previousAction, &QAction::triggered, m_mdiArea, &QMdiArea::activatePreviousSubWindow);
}

AbstractDocument *MdiWindow::activeDocument() const
{
    // While the window itself is not active, the area calls none of its windows active; the one in front
    // is still the one that is meant, by rows from the import dialog, for example.
    const QMdiSubWindow *sub = m_mdiArea->currentSubWindow();
    return sub ? qobject_cast<AbstractDocument *>(sub->widget()) : nullptr;
}

QVector<AbstractDocument *> MdiWindow::documents() const
{
    QVector<AbstractDocument *> all;
    const QList<QMdiSubWindow *> subWindows = m_mdiArea->subWindowList(QMdiArea::CreationOrder);
    for (const QMdiSubWindow *sub : subWindows) {
        if (auto *document = qobject_cast<AbstractDocument *>(sub->widget()))
            all.append(document);
    }
    return all;
}

void MdiWindow::cascadeDocuments()
{
    m_mdiArea->cascadeSubWindows();
}

void MdiWindow::tileDocuments()
{
    m_mdiArea->tileSubWindows();
}

void MdiWindow::openDocument(AbstractDocument *doc)
{
    auto *sub = new MdiSubWindow(doc);
    sub->setAttribute(Qt::WA_DeleteOnClose);
    m_mdiArea->addSubWindow(sub);
    connect(sub, &QMdiSubWindow::windowStateChanged, this, &MdiWindow::windowStateChanged);
    sub->show();
}

void MdiWindow::closeDocument(AbstractDocument *doc)
{
    if (QMdiSubWindow *sub = subWindowOf(doc)) {
        m_mdiArea->setActiveSubWindow(sub);
        m_mdiArea->closeActiveSubWindow();
    }
}

void MdiWindow::closeActiveDocument()
{
    m_mdiArea->closeActiveSubWindow();
}

void MdiWindow::closeTab(int)
{
    // The area closes the sub-window by itself, through its close event.
}

void MdiWindow::setActiveDocument(AbstractDocument *doc)
{
    if (QMdiSubWindow *sub = subWindowOf(doc))
        m_mdiArea->setActiveSubWindow(sub);
}

void MdiWindow::resetWindowLayout() {}

QMdiSubWindow *MdiWindow::subWindowOf(const AbstractDocument *doc) const
{
    const QList<QMdiSubWindow *> subWindows = m_mdiArea->subWindowList();
    for (QMdiSubWindow *sub : subWindows) {
        if (doc && sub->widget() == doc)
            return sub;
    }
    return nullptr;
}

void MdiWindow::setActiveWidget(QWidget *widget)
{
    if (auto *sub = qobject_cast<QMdiSubWindow *>(widget))
        m_mdiArea->setActiveSubWindow(sub);
}

void MdiWindow::subWindowActivated(QMdiSubWindow *sub)
{
    AbstractDocument *previous = m_lastActiveDocument;
    m_lastActiveDocument = sub ? qobject_cast<AbstractDocument *>(sub->widget()) : nullptr;
    emit activeDocumentChanged(previous, m_lastActiveDocument);
}

void MdiWindow::windowStateChanged(Qt::WindowStates, Qt::WindowStates)
{
    if (const auto *sub = qobject_cast<QMdiSubWindow *>(sender()))
        m_tabBar->setVisible(sub->isMaximized());
}

void MdiWindow::updateWindowMenu()
{
    const QList<QMdiSubWindow *> subWindows = m_mdiArea->subWindowList();
    m_windowMenu->clear();
    m_windowMenu->addAction(m_closeAction);
    m_windowMenu->addSeparator();
    m_windowMenu->addAction(m_tileAction);
    m_windowMenu->addAction(m_cascadeAction);
    m_windowMenu->addSeparator();
    m_windowMenu->addAction(m_resetLayoutAction);
    m_windowMenu->addSeparator();
    m_windowMenu->addAction(m_nextAction);
    m_windowMenu->addAction(m_previousAction);
    m_windowMenu->addSeparator();
    addSubWindowActions(subWindows);

    m_closeAction->setEnabled(!subWindows.isEmpty());
    m_tileAction->setEnabled(!subWindows.isEmpty());
    m_cascadeAction->setEnabled(!subWindows.isEmpty());
    m_nextAction->setEnabled(subWindows.size() > 1);
    m_previousAction->setEnabled(subWindows.size() > 1);
}

void MdiWindow::addSubWindowActions(const QList<QMdiSubWindow *> &subWindows)
{
    for (int i = 0; i < subWindows.size(); ++i) {
        QMdiSubWindow *sub = subWindows.at(i);
        // Only a single digit can serve as accelerator.
        const QString pattern = i < 9 ? tr("&%1 %2") : tr("%1 %2");
        QAction *action = m_windowMenu->addAction(pattern.arg(QString::number(i + 1), sub->windowTitle()));
        action->setCheckable(true);
        action->setChecked(sub == m_mdiArea->activeSubWindow());
        connect(action, &QAction::triggered, m_windowMapper, qOverload<>(&QSignalMapper::map));
        m_windowMapper->setMapping(action, sub);
    }
}

void MdiWindow::closeEvent(QCloseEvent *event)
{
    QVector<QPointer<QMdiSubWindow>> subWindows;
    for (QMdiSubWindow *sub : m_mdiArea->subWindowList())
        subWindows.append(sub);
    if (subWindows.isEmpty()) {
        event->accept();
        return;
    }
    const QMdiSubWindow *active = m_mdiArea->activeSubWindow();
    const Qt::WindowStates state = (active ? active->windowState() : Qt::WindowNoState) | Qt::WindowActive;
    // Each document comes to the front before it asks whether to save. The walk runs from the last to
    // the first, so that a refusal leaves the earlier ones as they were.
    for (int i = subWindows.size() - 1; i >= 0; --i) {
        const QPointer<QMdiSubWindow> sub = subWindows.at(i); // NOLINT(performance-unnecessary-copy-initialization)
        if (sub)
            sub->setWindowState(state);
        QCoreApplication::processEvents();
        if (sub && !sub->close()) {
            event->ignore();
            return;
        }
    }
}
