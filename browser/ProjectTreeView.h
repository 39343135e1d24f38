#pragma once

#include <QPointer>
#include <QTreeView>

class ProjectModel;

/// The tree of the user's projects. Files are renamed in place, moved by dragging, taken in from
/// outside after a question, and deleted through the system's trash.
class ProjectTreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit ProjectTreeView(QWidget *parent = nullptr);

    void setModel(ProjectModel *model);
    /// A model of another class is shown, but nothing can be deleted from it.
    void setModel(QAbstractItemModel *model) override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    bool confirmCopy(const QList<QUrl> &urls);

    QPointer<ProjectModel> m_model;
};
