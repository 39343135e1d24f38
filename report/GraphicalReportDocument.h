#pragma once

#include "app/document/GraphicsDocument.h"

class QAction;
class QUndoStack;
class ReportScene;

/// The open window of a report file: a tool bar over the pages, and one undo stack for all edits.
class GraphicalReportDocument : public GraphicsDocument
{
    Q_OBJECT

public:
    explicit GraphicalReportDocument(const QString &path, QWidget *parent = nullptr);
    ~GraphicalReportDocument() override;

    ReportScene *scene() const { return m_scene; }
    QUndoStack *undoStack() const { return m_undoStack; }

    bool queryClose() override;
    /// Writes the report to its file. It counts as saved even when that failed: the user has been told.
    void save() override;
    /// Makes the report what new reports of its kind look like, if the user agrees.
    virtual void saveAsFavourite();

public slots:
    void setCurrent(bool current) override;
    void undo();
    void redo();
    /// Something on a page has changed.
    void modified();
    /// The undo stack has left the saved state or come back to it.
    void cleanChanged(bool clean);

private:
    void buildToolBar();
    void connectActions();
    void connectStackAndScene();
    void purgeDeletedItems();

    QAction *m_actionUndo = nullptr;
    QAction *m_actionRedo = nullptr;
    QAction *m_actionSave = nullptr;
    QAction *m_actionSaveFavourite = nullptr;
    QAction *m_actionDownload = nullptr;
    QAction *m_actionImport = nullptr;
    QAction *m_actionPrint = nullptr;
    QAction *m_actionExportToPdf = nullptr;
    /// Before the scene, so that it goes before it, too: its steps own added images.
    QUndoStack *m_undoStack;
    ReportScene *m_scene;
};
