#include "app/shell/ProjectCommands.h"

#include "app/core/DocumentType.h"
#include "app/core/Folders.h"
#include "app/core/Language.h"
#include "app/shell/DocumentFactory.h"
#include "browser/ProjectModel.h"
#include "browser/ProjectTreeView.h"

#include <QCoreApplication>
#include <QDir>
#include <QItemSelectionModel>

namespace {

/// The translation context of the new folders' names.
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(ProjectCommands)
};

QString madeFolder(const QString &pattern)
{
    QString path = pattern.arg(Folders::instance()->projectsRoot());
    uniqueFilePath(path);
    QDir().mkpath(path);
    return path;
}

} // namespace

ProjectCommands::ProjectCommands(ProjectModel *model, ProjectTreeView *view, QItemSelectionModel *selection)
    : m_model(model), m_view(view), m_selection(selection)
{
}

QString ProjectCommands::targetFolder() const
{
    const QModelIndexList selected = m_selection->selectedIndexes();
    if (selected.isEmpty() || !selected.last().isValid())
        return Folders::instance()->projectsRoot();
    const QFileInfo info = m_model->fileInfo(selected.last());
    return info.isDir() ? info.filePath() : info.path();
}

void ProjectCommands::newDocument(const QString &name)
{
    const QModelIndex index = m_model->index(createDocumentFile(targetFolder(), name));
    if (!index.isValid())
        return;
    m_view->scrollTo(index);
    m_selection->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    m_view->edit(index);
}

void ProjectCommands::newFolder()
{
    madeFolder(Text::tr("%1/New Folder"));
}

void ProjectCommands::newClientHandoverPack()
{
    select(madeFolder(Text::tr("%1/New Client Handover Pack")));
    newDocument(newDocumentNames().checklist);
}

void ProjectCommands::remove()
{
    m_model->removeFiles(m_selection->selectedIndexes());
}

void ProjectCommands::rename()
{
    const QModelIndex current = m_view->currentIndex();
    if (current.isValid())
        m_view->edit(current);
}

void ProjectCommands::select(const QString &path)
{
    m_selection->setCurrentIndex(m_model->index(path), QItemSelectionModel::ClearAndSelect);
}
