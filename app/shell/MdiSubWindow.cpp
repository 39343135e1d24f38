#include "app/shell/MdiSubWindow.h"

#include "app/document/AbstractDocument.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>

#include <algorithm>

namespace {

/// Is a dialog of the document at work? It would go with the document while its answer is waited for. The
/// user cannot come here then, but the watch over files that have gone can.
bool hasDialogOf(const QWidget *document)
{
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
    if (document && (hasDialogOf(document) || !document->queryClose()))
        event->ignore();
}
