#include "report/GraphicalReportDocument.h"

#include "app/core/DocumentType.h"
#include "app/core/Messages.h"
#include "app/core/Shell.h"
#include "app/document/ZoomableGraphicsView.h"
#include "app/platform/Platform.h"
#include "report/ReportScene.h"
#include "report/items/AddDeleteCommand.h"

#include <QAction>
#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>
#include <QUndoStack>

namespace {

void callShell(void (Shell::*act)())
{
    if (Shell *shell = Shell::instance())
        (shell->*act)();
}

} // namespace

GraphicalReportDocument::GraphicalReportDocument(const QString &path, QWidget *parent)
    : GraphicsDocument(path, parent)
    , m_undoStack(new QUndoStack(this))
    , m_scene(new ReportScene(m_undoStack, this))
{
    buildToolBar();
    connectActions();
    connectStackAndScene();
    view()->setScene(m_scene);
    setValid(m_scene->load(path));
    QCoreApplication::processEvents();
    // Laying the file over the template moves the same signals as typing does.
    setModified(false);
    m_actionSave->setEnabled(false);
    connect(m_actionPrint, &QAction::triggered, m_scene, &ReportScene::print);
    connect(m_actionExportToPdf, &QAction::triggered, m_scene, &ReportScene::exportToPdf);
}

GraphicalReportDocument::~GraphicalReportDocument()
{
    // An editor that loses the focus as the view goes must not reach what is already gone of this object.
    m_undoStack->disconnect(this);
    m_scene->disconnect(this);
    view()->setScene(nullptr);
}

void GraphicalReportDocument::buildToolBar()
{
    addToolActions({
        {&m_actionUndo, "actionUndo", ":res/toolButtons/undo.png", QT_TR_NOOP("Undo"), "Ctrl+Z", false, true},
        {&m_actionRedo, "actionRedo", ":res/toolButtons/redo.png", QT_TR_NOOP("Redo"), "Ctrl+Y", false,
         false},
        {&m_actionSave, "actionSave", ":res/toolButtons/save.png", QT_TR_NOOP("Save"), "Ctrl+S", false, true},
        {&m_actionSaveFavourite, "actionSaveFavourite", ":res/toolButtons/save_favourite.png",
         QT_TR_NOOP("Save As Favourite. Next time you create a new report it look like this report."),
         "Ctrl+Alt+S", true, false},
        {&m_actionDownload, "actionDownload", ":res/toolButtons/kt_7_download.png",
         QT_TR_NOOP("Download data from tester"), "Ctrl+Alt+D", true, true},
        {&m_actionImport, "actionImport", ":res/toolButtons/import.png", QT_TR_NOOP("Import data from file"),
         "Ctrl+Alt+I", true, false},
        {&m_actionPrint, "actionPrint", ":res/toolButtons/printer.png", QT_TR_NOOP("Print"), "Ctrl+P", true,
         true},
        {&m_actionExportToPdf, "actionExportToPdf", ":res/toolButtons/export_pdf.png",
         QT_TR_NOOP("Export to PDF"), "Ctrl+Shift+E", true, false},
    });
    leaveKeyToShell(m_actionSave);
}

void GraphicalReportDocument::connectActions()
{
    connect(m_actionUndo, &QAction::triggered, this, &GraphicalReportDocument::undo);
    connect(m_actionRedo, &QAction::triggered, this, &GraphicalReportDocument::redo);
    connect(m_actionSave, &QAction::triggered, this, &GraphicalReportDocument::save);
    connect(m_actionSaveFavourite, &QAction::triggered, this, &GraphicalReportDocument::saveAsFavourite);
    connect(m_actionDownload, &QAction::triggered, this, [] { callShell(&Shell::download); });
    connect(m_actionImport, &QAction::triggered, this, [] { callShell(&Shell::import); });
}

void GraphicalReportDocument::connectStackAndScene()
{
    connect(m_undoStack, &QUndoStack::canUndoChanged, m_actionUndo, &QAction::setEnabled);
    connect(m_undoStack, &QUndoStack::canRedoChanged, m_actionRedo, &QAction::setEnabled);
    connect(m_undoStack, &QUndoStack::cleanChanged, this, &GraphicalReportDocument::cleanChanged);
    connect(m_scene, &ReportScene::modified, this, &GraphicalReportDocument::modified);
}

void GraphicalReportDocument::modified()
{
    m_actionSave->setEnabled(true);
    setModified(true);
}

void GraphicalReportDocument::cleanChanged(bool clean)
{
    m_actionSave->setEnabled(!clean);
    setModified(!clean);
}

bool GraphicalReportDocument::queryClose()
{
    return askToSave(tr("Save changes to %1?").arg(fileName()));
}

void GraphicalReportDocument::save()
{
    purgeDeletedItems();
    m_scene->save(filePath());
    // The user may close the document now.
    const QPointer<GraphicalReportDocument> guard(this);
    QCoreApplication::processEvents();
    if (!guard)
        return;
    setModified(false);
    m_actionSave->setEnabled(false);
    m_undoStack->setClean();
}

void GraphicalReportDocument::purgeDeletedItems()
{
    // Whatever the position in the stack: a deletion that was undone counts, too.
    for (int i = 0; i < m_undoStack->count(); ++i) {
        const auto *command = dynamic_cast<const AddDeleteCommand *>(m_undoStack->command(i));
        if (command && !command->isAdd() && command->item())
            m_scene->discard(command->item());
    }
}

void GraphicalReportDocument::saveAsFavourite()
{
    Message message;
    message.parent = Shell::parentWindow();
    message.icon = QMessageBox::Warning;
    message.text =
        tr("Saving this document as a favourite means that every time you create a new document of "
           "this type it will look like this document.");
    message.informativeText =
        tr("Are you sure you want to overwrite the favourite?\n"
           "(NOTE: You may restore the default document at any time from the settings.)");
    message.buttons = QMessageBox::Yes | QMessageBox::No;
    message.defaultButton = QMessageBox::No;
    const QPointer<GraphicalReportDocument> guard(this);
    if (!askYesNo(message) || !guard)
        return;
    save();
    if (!guard)
        return;
    // In the spelling in which favourites are looked for, whatever the document's own.
    const QString suffix = QFileInfo(filePath()).suffix().toLower();
    const QString favourite = favouritePath(suffix);
    if (m_scene->save(favourite))
        Platform::shareWithAllUsers(favourite);
}

void GraphicalReportDocument::setCurrent(bool current)
{
    m_scene->setFocusItem(nullptr);
    if (current)
        m_scene->setFocus();
    else
        m_scene->clearFocus();
}

void GraphicalReportDocument::undo()
{
    m_undoStack->undo();
}

void GraphicalReportDocument::redo()
{
    m_undoStack->redo();
}
