#include "diagram/InstallationDiagramDocument.h"

#include "app/document/ZoomableGraphicsView.h"
#include "diagram/Cable.h"
#include "diagram/DiagramGraphicsScene.h"

#include <QAction>
#include <QActionGroup>
#include <QCoreApplication>

namespace {

/// Room around the items when the diagram is opened, and around the scene as it grows.
constexpr double marginWhenOpened = 500;
constexpr double marginWhenGrown = 200;

QRectF grown(const QRectF &rect, double margin)
{
    return rect.adjusted(-margin, -margin, margin, margin);
}

} // namespace

InstallationDiagramDocument::InstallationDiagramDocument(const QString &path, QWidget *parent)
    : GraphicsDocument(path, parent)
    , m_cableGroup(new QActionGroup(this))
    , m_scene(new DiagramGraphicsScene(this))
{
    buildToolBar();
    connectActions();
    // Wires are black, whatever the desktop's colours are.
    view()->setBackgroundBrush(Qt::white);
    view()->setScene(m_scene);
    setValid(m_scene->load(path));
    QCoreApplication::processEvents();
    const QRectF drawn = m_scene->itemsBoundingRect();
    view()->setSceneRect(grown(drawn, marginWhenOpened));
    view()->centerOn(drawn.topLeft());
    connectScene();
    setModified(false);
}

InstallationDiagramDocument::~InstallationDiagramDocument()
{
    // What goes with the scene must not reach what is already gone of this object.
    m_scene->disconnect(this);
    view()->setScene(nullptr);
}

void InstallationDiagramDocument::buildToolBar()
{
    addToolActions({
        {&m_actionSave, "actionSave", ":res/toolButtons/save.png", QT_TR_NOOP("Save"), "Ctrl+S", false, true},
        {&m_actionPrint, "actionPrint", ":res/toolButtons/printer.png", QT_TR_NOOP("Print"), "Ctrl+P", true,
         true},
        {&m_actionExportToPdf, "actionExportToPdf", ":res/toolButtons/export_pdf.png",
         QT_TR_NOOP("Export to PDF"), "Ctrl+Shift+E", true, false},
        {&m_actionWire, "actionWire", ":res/toolButtons/wire.png", QT_TR_NOOP("Wire"), "", true, true},
        {&m_action1Core, "action1Core", ":res/toolButtons/cable1core.png", QT_TR_NOOP("Single wire"), "",
         true, true},
        {&m_action2Core, "action2Core", ":res/toolButtons/cable2core.png", QT_TR_NOOP("DC cable"), "", true,
         false},
        // The name is that of the action before it: others look for it so.
        {&m_action3Core, "action2Core", ":res/toolButtons/cable3core.png", QT_TR_NOOP("AC cable"), "", true,
         false},
    });
    m_actionWire->setCheckable(true);
    addCable(m_action1Core, SingleWire);
    addCable(m_action2Core, DcCable);
    addCable(m_action3Core, AcCable);
    m_action1Core->setChecked(true);
    m_cableGroup->setEnabled(false);
    leaveKeyToShell(m_actionSave);
}

void InstallationDiagramDocument::addCable(QAction *action, int cableType)
{
    action->setCheckable(true);
    action->setData(cableType);
    m_cableGroup->addAction(action);
}

void InstallationDiagramDocument::connectActions()
{
    connect(m_actionSave, &QAction::triggered, this, &InstallationDiagramDocument::save);
    connect(m_actionWire, &QAction::toggled, this, &InstallationDiagramDocument::wireToggled);
    connect(m_cableGroup, &QActionGroup::triggered, this, &InstallationDiagramDocument::setCableType);
}

void InstallationDiagramDocument::connectScene()
{
    connect(m_actionPrint, &QAction::triggered, m_scene, &DiagramGraphicsScene::print);
    connect(m_actionExportToPdf, &QAction::triggered, m_scene, &DiagramGraphicsScene::exportToPdf);
    connect(m_scene, &QGraphicsScene::sceneRectChanged, this, &InstallationDiagramDocument::sceneRectChanged);
    connect(m_scene, &DiagramGraphicsScene::modeChanged, this, &InstallationDiagramDocument::modeChanged);
    connect(m_scene, &DiagramGraphicsScene::modified, this, &InstallationDiagramDocument::modified);
}

void InstallationDiagramDocument::wireToggled(bool checked)
{
    m_cableGroup->setEnabled(checked);
    m_scene->setMode(checked ? DiagramGraphicsScene::WireMode : DiagramGraphicsScene::EditMode);
}

void InstallationDiagramDocument::setCableType(QAction *action)
{
    m_scene->setCableType(action->data().toInt());
}

void InstallationDiagramDocument::modeChanged(int newMode)
{
    m_actionWire->setChecked(newMode == DiagramGraphicsScene::WireMode);
}

void InstallationDiagramDocument::modified()
{
    m_actionSave->setEnabled(true);
    setModified(true);
}

void InstallationDiagramDocument::sceneRectChanged(const QRectF &rect)
{
    view()->setSceneRect(grown(rect, marginWhenGrown));
}

bool InstallationDiagramDocument::queryClose()
{
    return askToSave(tr("Save changes to %1?", "Warning Message").arg(fileName()));
}

void InstallationDiagramDocument::save()
{
    m_scene->save(filePath());
    setModified(false);
}
