#pragma once

#include "app/document/GraphicsDocument.h"

class DiagramGraphicsScene;
class QAction;
class QActionGroup;

/// The open window of an installation diagram: a tool bar over the drawing.
class InstallationDiagramDocument : public GraphicsDocument
{
    Q_OBJECT

public:
    explicit InstallationDiagramDocument(const QString &path, QWidget *parent = nullptr);
    ~InstallationDiagramDocument() override;

    DiagramGraphicsScene *scene() const { return m_scene; }

    bool queryClose() override;
    /// Writes the diagram to its file. It counts as saved even when that failed: the user has been told.
    void save() override;

public slots:
    void wireToggled(bool checked);
    /// What the chosen action of the tool bar says new wires are to be.
    void setCableType(QAction *action);
    void modeChanged(int newMode);
    /// Something in the drawing has changed.
    void modified();
    void sceneRectChanged(const QRectF &rect);

private:
    void buildToolBar();
    void addCable(QAction *action, int cableType);
    void connectActions();
    void connectScene();

    QAction *m_actionSave = nullptr;
    QAction *m_actionPrint = nullptr;
    QAction *m_actionExportToPdf = nullptr;
    QAction *m_actionWire = nullptr;
    QAction *m_action1Core = nullptr;
    QAction *m_action2Core = nullptr;
    QAction *m_action3Core = nullptr;
    QActionGroup *m_cableGroup;
    DiagramGraphicsScene *m_scene;
};
