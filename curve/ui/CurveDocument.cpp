#include "curve/ui/CurveDocument.h"

#include "app/core/Datalogger.h"
#include "app/core/WaitCursor.h"
#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveModuleRow.h"
#include "curve/data/CurveTree.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/data/ModuleDatabase.h"
#include "curve/data/TesterCurveImporter.h"
#include "curve/ui/CurveDetailsDialog.h"
#include "curve/ui/CurveDocumentActions.h"
#include "curve/ui/CurveGraph.h"
#include "curve/ui/CurveGraphSquishHelper.h"
#include "curve/ui/CurveModulesChooser.h"
#include "curve/ui/CurveModulesDlg.h"
#include "curve/ui/ExceptionBox.h"
#include "curve/ui/RemovalOrder.h"
#include "curve/ui/StringExports.h"
#include "curve/ui/TreeStrings.h"

#include <QAction>
#include <QColorDialog>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>
#include <QSettings>
#include <QSplitter>
#include <QToolBar>

namespace IVCurve {

namespace {

constexpr int charactersOfName = 12;
/// How long a datalogger may take to end by itself before it is ended.
constexpr int farewellMilliseconds = 500;

} // namespace

CurveDocument::CurveDocument(const QString &path, QWidget *parent)
    : DocumentWithToolbar(path, parent), m_curveFile(std::make_unique<CurveDatabase>(path))
{
    // The failure has been told; what has no file stays an empty widget that nobody shows.
    if (!m_curveFile->isOpen())
        return;
    qRegisterMetaType<QProcess::ProcessError>();
    qRegisterMetaType<QProcess::ExitStatus>();
    buildViews();
    connectViews();
    connectActions();
    m_graphProbe = std::make_unique<CurveGraphSquishHelper>(m_graph.get());
    setValid(true);
}

CurveDocument::~CurveDocument()
{
    dropDatalogger();
}

void CurveDocument::buildViews()
{
    m_splitter = std::make_unique<QSplitter>(Qt::Horizontal);
    m_tree = std::make_unique<CurveTree>();
    m_contextMenu = std::make_unique<QMenu>();
    m_graph = std::make_unique<CurveGraph>(m_curveFile->graphModel());
    m_actions = std::make_unique<CurveDocumentActions>(this);
    replaceScrollArea(m_splitter.get());
    fillToolBar();
    m_tree->addAction(m_actions->actionDeleteTreeRow);
    m_tree->addAction(m_actions->actionInsertTreeRow);
    m_tree->setModel(m_curveFile->treeModel());
    m_tree->setAccessibleName(fileName());
    // Room for the name of a string in a folder.
    const int nameWidth = m_tree->fontMetrics().averageCharWidth() * charactersOfName;
    m_tree->header()->resizeSection(CurveTreeModel::DescriptionColumn, 3 * m_tree->indentation() + nameWidth);
    m_splitter->addWidget(m_tree.get());
    m_splitter->addWidget(m_graph.get());
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setStretchFactor(0, 1);
    m_splitter->setStretchFactor(1, 1);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    fillMenu();
}

void CurveDocument::fillToolBar()
{
    const QList<QList<QAction *>> groups{
        {m_actions->actionSave},
        {m_actions->actionShowMEAS, m_actions->actionShowSTC, m_actions->actionShowNOM,
         m_actions->actionShowIV, m_actions->actionShowPWR},
        {m_actions->actionDownload, m_actions->actionImportCSV},
        {m_actions->actionPrint, m_actions->actionExportToPdf, m_actions->actionExportToImage},
        {m_actions->actionManageModules}};
    for (const QList<QAction *> &group : groups) {
        if (!toolBar()->actions().isEmpty())
            toolBar()->addSeparator();
        toolBar()->addActions(group);
    }
    // It has no text that would name it to those who cannot see its picture.
    toolBar()->widgetForAction(m_actions->actionPrint)->setAccessibleName(m_actions->actionPrint->toolTip());
}

void CurveDocument::fillMenu()
{
    m_contextMenu->addActions({m_actions->actionSave, m_actions->actionInsertTreeRow,
                               m_actions->actionDeleteTreeRow, m_actions->actionViewDetails,
                               m_actions->actionAssignModule, m_actions->actionCurveReport});
    m_contextMenu->addMenu(tr("Export Points"))->addActions(m_actions->exports());
    m_contextMenu->addAction(m_actions->actionSetColour);
}

void CurveDocument::connectViews()
{
    CurveTreeModel *tree = m_curveFile->treeModel();
    CurveGraphModel *strings = m_curveFile->graphModel();
    connect(m_tree.get(), &QWidget::customContextMenuRequested, this, &CurveDocument::onCustomContextMenu);
    connect(m_tree->selectionModel(), &QItemSelectionModel::selectionChanged, strings,
            &CurveGraphModel::slotTreeSelectionChanged);
    connect(m_tree.get(), &QAbstractItemView::activated, this,
            qOverload<QModelIndex>(&CurveDocument::slotViewDetails));
    connect(tree, &CurveTreeModel::modified, this, &CurveDocument::treeModified);
    m_graph->follow();
    // Strings get a colour when they are first shown, also in rows below the one that was selected.
    connect(strings, &CurveGraphModel::signalUpdateLegend, m_tree->viewport(), qOverload<>(&QWidget::update));
    connect(tree, &QAbstractItemModel::rowsAboutToBeRemoved, strings, &CurveGraphModel::slotRowRemoved);
}

void CurveDocument::connectActions()
{
    const struct
    {
        QAction *action;
        void (CurveDocument::*slot)();
    } ownSlots[] = {
        {m_actions->actionInsertTreeRow, &CurveDocument::slotInsertRow},
        {m_actions->actionDeleteTreeRow, &CurveDocument::slotDeleteRow},
        {m_actions->actionDownload, &CurveDocument::slotDownload},
        {m_actions->actionManageModules, &CurveDocument::slotManageModules},
        {m_actions->actionImportCSV, &CurveDocument::slotImport},
        {m_actions->actionAssignModule, &CurveDocument::slotAssignModule},
        {m_actions->actionExportPoints, &CurveDocument::slotExportPoints},
        {m_actions->actionExportPointsSTC, &CurveDocument::slotExportPointsSTC},
        {m_actions->actionExportPWRPoints, &CurveDocument::slotExportPWRPoints},
        {m_actions->actionExportPWRPointsSTC, &CurveDocument::slotExportPWRPointsSTC},
        {m_actions->actionSetColour, &CurveDocument::slotSetColour},
        {m_actions->actionCurveReport, &CurveDocument::slotCurveReport},
        {m_actions->actionViewDetails, qOverload<>(&CurveDocument::slotViewDetails)},
    };
    for (const auto &wire : ownSlots)
        connect(wire.action, &QAction::triggered, this, wire.slot);
    connect(m_actions->actionSave, &QAction::triggered, m_curveFile->treeModel(), &CurveTreeModel::slotSave);

    const struct
    {
        QAction *action;
        void (CurveGraph::*slot)(bool on);
    } switches[] = {
        {m_actions->actionShowIV, &CurveGraph::displayIVToggled},
        {m_actions->actionShowPWR, &CurveGraph::displayPWRToggled},
        {m_actions->actionShowMEAS, &CurveGraph::displayMEASToggled},
        {m_actions->actionShowSTC, &CurveGraph::displaySTCToggled},
        {m_actions->actionShowNOM, &CurveGraph::displayNOMToggled},
    };
    for (const auto &wire : switches)
        connect(wire.action, &QAction::toggled, m_graph.get(), wire.slot);
    connect(m_actions->actionPrint, &QAction::triggered, m_graph.get(), &CurveGraph::print);
    connect(m_actions->actionExportToPdf, &QAction::triggered, m_graph.get(), &CurveGraph::exportpdf);
    connect(m_actions->actionExportToImage, &QAction::triggered, m_graph.get(), &CurveGraph::exportimg);
}

void CurveDocument::treeModified(bool dirty)
{
    m_actions->actionSave->setEnabled(dirty);
    setModified(dirty);
    emit modified(dirty);
}

bool CurveDocument::queryClose()
{
    return askToSave(tr("Save changes to %1?", "Warning Message").arg(fileName()));
}

bool CurveDocument::staysWhileEventsAreHandled()
{
    const QPointer<CurveDocument> guard(this);
    QCoreApplication::processEvents();
    return guard;
}

void CurveDocument::save()
{
    if (!isValid())
        return;
    const WaitCursor wait;
    if (!staysWhileEventsAreHandled())
        return;
    m_actions->actionSave->activate(QAction::Trigger);
    treeModified(false);
}

bool CurveDocument::event(QEvent *event)
{
    // With the keyboard in the tool bar both the document's Save and that of the main window want the key,
    // and of two neither would get it. So the document takes it itself.
    if (event->type() == QEvent::ShortcutOverride && toolBar()->isAncestorOf(focusWidget()) &&
        static_cast<QKeyEvent *>(event)->matches(QKeySequence::Save)) {
        event->accept();
        return true;
    }
    return DocumentWithToolbar::event(event);
}

void CurveDocument::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Save) && isModified())
        save();
    else
        DocumentWithToolbar::keyPressEvent(event);
}

QModelIndexList CurveDocument::selectedRows() const
{
    return m_tree->selectionModel()->selectedRows(0);
}

void CurveDocument::onContext(const std::function<void(const QModelIndex &index)> &work)
{
    onTree([this, &work] {
        if (m_contextIndex)
            work(*m_contextIndex);
    });
}

void CurveDocument::onTree(const std::function<void()> &work)
{
    guarded(work);
    m_contextIndex.reset();
}

void CurveDocument::onCustomContextMenu(QPoint point)
{
    const QModelIndex index = m_tree->indexAt(point);
    m_contextIndex = index;
    bool insertable = true;
    bool isString = false;
    if (index.isValid()) {
        const TreeItem *node = m_curveFile->treeModel()->item(index);
        insertable = node->data.at(TreeItem::MemLocation).isNull();
        isString = !node->data.at(TreeItem::CurveID).isNull();
    }
    m_actions->actionInsertTreeRow->setEnabled(insertable);
    const QList<QAction *> ofString = m_actions->ofString();
    for (QAction *action : ofString)
        action->setEnabled(isString);
    m_contextMenu->exec(m_tree->viewport()->mapToGlobal(point));
}

void CurveDocument::slotInsertRow()
{
    onTree([this] {
        const QModelIndex parent = m_contextIndex ? QModelIndex(*m_contextIndex) : QModelIndex();
        // Rows belong to the first column, wherever in the row the click was.
        m_curveFile->treeModel()->insertNewRow(parent.sibling(parent.row(), 0));
    });
}

void CurveDocument::slotDeleteRow()
{
    onTree([this] { deleteRows(); });
}

void CurveDocument::deleteRows()
{
    const QVector<QPersistentModelIndex> rows = inOrderOfRemoval(selectedRows());
    for (const QPersistentModelIndex &row : rows) {
        if (row.isValid())
            m_curveFile->treeModel()->removeNode(row);
    }
}

void CurveDocument::slotViewDetails()
{
    onContext([this](const QModelIndex &index) { viewDetails(index); });
}

void CurveDocument::slotViewDetails(QModelIndex index)
{
    if (index.isValid() && index.model())
        guarded([this, &index] { viewDetails(index); });
}

void CurveDocument::viewDetails(const QPersistentModelIndex &index)
{
    const std::optional<quint32> id = stringIdAt(index);
    if (!id)
        return;
    CurveGraphModel *strings = m_curveFile->graphModel();
    StringRecord edited(strings->record(*id));
    auto *dialog = new CurveDetailsDialog(&edited, this);
    if (dialog->exec() != QDialog::Accepted)
        return;
    strings->applyDetails(edited, index);
    strings->saveStringSettings(*id);
}

void CurveDocument::slotSetColour()
{
    onContext([this](const QModelIndex &index) {
        if (chooseColour(index))
            treeModified(true);
    });
}

void CurveDocument::slotDoubleClickTree(QModelIndex index)
{
    if (!index.isValid() || index.column() == CurveTreeModel::DescriptionColumn)
        return;
    guarded([this, &index] {
        if (index.column() != CurveTreeModel::ColourColumn)
            viewDetails(index);
        else if (chooseColour(index))
            treeModified(true);
    });
}

bool CurveDocument::chooseColour(const QPersistentModelIndex &index)
{
    const auto nodeAt = [this](const QModelIndex &place) {
        return place.isValid() ? m_curveFile->treeModel()->item(place) : nullptr;
    };
    const TreeItem *before = nodeAt(index);
    const QColor colour =
        QColorDialog::getColor(before ? before->colour : QColor(), this, QString(), QFlag(0));
    if (!colour.isValid())
        return false;
    // The row may have gone while the dialog was open.
    if (TreeItem *node = nodeAt(index)) {
        node->colour = colour;
        m_tree->viewport()->update();
        if (const std::optional<quint32> id = stringIdAt(index))
            showColour(*id, colour);
    }
    return true;
}

void CurveDocument::showColour(quint32 id, const QColor &colour)
{
    const CurveGraphModel *strings = m_curveFile->graphModel();
    const auto loaded = strings->records().find(id);
    if (loaded != strings->records().end() && loaded->second)
        loaded->second->setColour(colour);
    m_graph->slotRemoveCurves(id);
    m_graph->slotInsertCurves(id);
    m_graph->updateLegend(strings->selectedNames());
}

void CurveDocument::slotManageModules()
{
    guarded([this] { CurveModulesDlg(this).exec(); });
}

void CurveDocument::slotAssignModule()
{
    onTree([this] { assignModule(); });
}

void CurveDocument::assignModule()
{
    const QModelIndexList selected = selectedRows();
    const QVector<QPersistentModelIndex> rows(selected.begin(), selected.end());
    if (rows.isEmpty())
        return;
    CurveModulesChooser chooser(this);
    if (chooser.exec() != QDialog::Accepted)
        return;
    const ModuleTable *table = ModuleDatabase::instance().table();
    if (!table)
        return;
    // The number 0 takes the strings' module away, by a row that holds nothing.
    const std::unique_ptr<CurveModuleRow> module =
        chooser.selectedId() > 0 ? table->row(chooser.selectedId()) : std::make_unique<CurveModuleRow>();
    if (!module)
        return;
    for (const QPersistentModelIndex &row : rows) {
        if (const std::optional<quint32> id = stringIdAt(row))
            m_curveFile->graphModel()->assignModule(*id, *module, chooser.seriesCount());
    }
}

void CurveDocument::slotCurveReport()
{
    onTree([this] { StringExports(this, *m_curveFile).report(selectedRows(), *m_graph); });
}

void CurveDocument::slotExportPoints()
{
    exportPoints(PointExport::Measured);
}

void CurveDocument::slotExportPWRPoints()
{
    exportPoints(PointExport::MeasuredPower);
}

void CurveDocument::slotExportPointsSTC()
{
    exportPoints(PointExport::Stc);
}

void CurveDocument::slotExportPWRPointsSTC()
{
    exportPoints(PointExport::StcPower);
}

void CurveDocument::exportPoints(PointExport::Kind kind)
{
    onTree([this, kind] { StringExports(this, *m_curveFile).points(selectedRows(), kind); });
}

void CurveDocument::slotImport()
{
    guarded([this] {
        QSettings settings;
        const QString key = QStringLiteral("Directories/LastImportDir");
        const QString start =
            settings.value(key, settings.value(QStringLiteral("Directories/RootDir"))).toString();
        const QString path = QFileDialog::getOpenFileName(this, tr("Import CSV File"), start,
                                                          QStringLiteral("CSV Files (*.csv)"));
        if (path.isEmpty())
            return;
        const WaitCursor wait;
        if (!staysWhileEventsAreHandled())
            return;
        importCurves(path);
        settings.setValue(key, QFileInfo(path).absolutePath());
    });
}

void CurveDocument::importCurves(const QString &path)
{
    if (TesterCurveImporter(path, m_curveFile.get()).run())
        save();
}

void CurveDocument::slotDownload()
{
    dropDatalogger();
    m_datalogger = std::make_unique<QProcess>(this);
    connect(m_datalogger.get(), &QProcess::errorOccurred, this, &CurveDocument::slotDataLoggerError);
    connect(m_datalogger.get(), qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
            &CurveDocument::slotDataLoggerFinished);
    if (Datalogger::start(m_datalogger.get(), this))
        m_dataloggerStarted = QDateTime::currentDateTime();
}

void CurveDocument::slotDataLoggerError(QProcess::ProcessError)
{
    if (m_datalogger)
        Datalogger::showStartFailure(this);
}

void CurveDocument::slotDataLoggerFinished(int, QProcess::ExitStatus)
{
    const QString path = Datalogger::fileSavedSince(m_dataloggerStarted);
    if (!path.isEmpty() && Datalogger::askToImport(path, this))
        guarded([this, &path] { importCurves(path); });
    m_dataloggerStarted = QDateTime();
    // The process is still telling of its end.
    if (m_datalogger)
        m_datalogger.release()->deleteLater();
}

void CurveDocument::dropDatalogger()
{
    if (!m_datalogger)
        return;
    m_datalogger->disconnect(this);
    if (m_datalogger->state() != QProcess::NotRunning) {
        m_datalogger->terminate();
        m_datalogger->waitForFinished(farewellMilliseconds);
    }
    m_datalogger.reset();
}

} // namespace IVCurve
