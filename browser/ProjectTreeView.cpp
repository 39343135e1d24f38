#include "browser/ProjectTreeView.h"

#include "app/core/Identity.h"
#include "app/core/Messages.h"
#include "browser/ProjectModel.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QUrl>

ProjectTreeView::ProjectTreeView(QWidget *parent) : QTreeView(parent) {}

void ProjectTreeView::setModel(ProjectModel *model)
{
    setModel(static_cast<QAbstractItemModel *>(model));
}

void ProjectTreeView::setModel(QAbstractItemModel *model)
{
    m_model = qobject_cast<ProjectModel *>(model);
    QTreeView::setModel(model);
}

void ProjectTreeView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete && m_model)
        m_model->removeFiles(selectedIndexes());
    QTreeView::keyPressEvent(event);
}

void ProjectTreeView::dropEvent(QDropEvent *event)
{
    // Whatever the wording of the question says, the action stays the one that the source proposes.
    if (event->source() || confirmCopy(event->mimeData()->urls())) {
        QTreeView::dropEvent(event);
        return;
    }
    event->ignore();
    // For the view it is as if the drag had left: it takes back the drop indicator and stops scrolling.
    QDragLeaveEvent left;
    dragLeaveEvent(&left);
}

bool ProjectTreeView::confirmCopy(const QList<QUrl> &urls)
{
    Message question;
    question.parent = this;
    question.windowIcon = QIcon(Identity::brandedImage(QStringLiteral("logo.ico")));
    question.icon = QMessageBox::Question;
    question.buttons = QMessageBox::Yes | QMessageBox::No;
    question.text =
        urls.size() > 1
            ? tr("This will copy %1 files to your project area.", "Informative Message").arg(urls.size())
            : tr("This will copy \"%1\" to you project area.", "Informative Message")
                  .arg(urls.value(0).toLocalFile());
    question.informativeText = tr("Do you want to proceed?", "User prompt");
    return askYesNo(question);
}
