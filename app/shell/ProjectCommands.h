#pragma once

#include <QString>

class ProjectModel;
class ProjectTreeView;
class QItemSelectionModel;

/// The commands that make and change files and folders in the project tree.
class ProjectCommands
{
public:
    ProjectCommands(ProjectModel *model, ProjectTreeView *view, QItemSelectionModel *selection);

    /// A new document beside or in what is selected, ready to get its real name.
    void newDocument(const QString &name);
    /// A new folder directly under the projects root, whatever is selected.
    void newFolder();
    /// A new folder under the projects root with a checklist in it.
    void newClientHandoverPack();
    /// Moves the selected files to the trash.
    void remove();
    /// Starts editing the name of the current file.
    void rename();
    /// Makes the file the only selected one.
    void select(const QString &path);

private:
    QString targetFolder() const;

    ProjectModel *m_model;
    ProjectTreeView *m_view;
    QItemSelectionModel *m_selection;
};
