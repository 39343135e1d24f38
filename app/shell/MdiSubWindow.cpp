#include "app/shell/MdiSubWindow.h"

#include "app/document/AbstractDocument.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QThread>

#include <algorithm>

namespace {

/// Does anything wait for an answer that may be the document's: a dialog, a menu, a drag? It would go with
/// the document. A click cannot come here then, but the window manager can.
bool isAwaited(const QWidget *document)
{
    if (QApplication::activePopupWidget() || QThread::currentThread()->loopLevel() > 1)
        return true;
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [document](const QWidget *window) {
        const QWidget *ancestor = window->isModal() && window->isVisible() ? window : nullptr;
        while (ancestor && ancestor != document)
            ancestor = ancestor->parentWidget();
        return ancestor != nullptr;
    });
}

} // namespace

MdiSubWindow::MdiSubWindow(QWidget *widget, Qt::WindowFlags flags) : QMdiSubWindow(nullptr, flags)
{
    setWindowState(Qt::WindowNoState);
    setWidget(widget);
}

MdiSubWindow::~MdiSubWindow()
{
    // Left to itself the area notices only when the document is gone already, and would tell of a change
    // from a document that nobody may touch any more.
    if (QMdiArea *area = mdiArea())
        area->removeSubWindow(this);
}

void MdiSubWindow::closeEvent(QCloseEvent *event)
{
    auto *document = qobject_cast<AbstractDocument *>(widget());
    if (document && (isAwaited(document) || !document->queryClose()))
        event->ignore();
}
