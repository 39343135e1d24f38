#pragma once

#include <QObject>
#include <QString>

/// The one place that knows where things lie on disk: the projects root with the user's project tree,
/// and the data folder with favourites and catalogues. All paths use "/".
class Folders : public QObject
{
    Q_OBJECT

public:
    /// The singleton, made when missing. With `recreate` the existing one is deleted first, so that a
    /// new main window starts from a clean service.
    static Folders *instance(bool recreate = false);

    /// The data folder, made when missing. Shared by all users of the machine.
    QString dataFolder();
    /// The data folder once more, as the place that search results are named after.
    QString searchFolder();
    /// The projects root proposed to a new user. Does not make it.
    QString defaultProjectsRoot();
    /// The projects root in force. Asks the user when the stored one does not exist.
    QString projectsRoot();

    /// Makes `path` the projects root, after asking whether to create it where it is missing. Returns
    /// false, with the old root still in force, when the user refuses or it cannot be created.
    bool setProjectsRoot(const QString &path);

signals:
    /// Emitted at each setting of the root, also to the same path.
    void projectsFolderChanged(const QString &newFolder);

private:
    Folders() = default;
    void chooseProjectsRoot();

    QString m_searchFolder;
    QString m_dataFolder;
    QString m_defaultProjectsRoot;
    QString m_projectsRoot;
};
