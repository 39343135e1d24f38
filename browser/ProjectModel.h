#pragma once

#include <QFileSystemModel>

/// The folders and files under the projects root: one column, with the program's icons, writable, so
/// that renaming in place and dropping work on the disk directly.
class ProjectModel : public QFileSystemModel
{
    Q_OBJECT

public:
    explicit ProjectModel(QObject *parent = nullptr);

    /// Always 1: size, type and date are not shown.
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    /// Moves the files and folders to the system's trash, all in one operation with one confirmation.
    void removeFiles(const QModelIndexList &indexes);
};
