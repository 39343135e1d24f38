#pragma once

#include "app/document/DocumentWithToolbar.h"
#include "curve/ui/PointExport.h"

#include <QDateTime>
#include <QPersistentModelIndex>
#include <QProcess>

#include <functional>
#include <memory>
#include <optional>

class QMenu;
class QSplitter;

namespace IVCurve {

class CurveDatabase;
class CurveGraph;
class CurveGraphSquishHelper;
class CurveTree;
struct CurveDocumentActions;

/// The open window of a curve file: the tree of its strings beside the graph of those that are selected. The
/// file is open for as long as the document is.
class CurveDocument : public DocumentWithToolbar
{
    Q_OBJECT

public:
    /// Throws std::exception, after a message, when the tree of the file cannot be read.
    explicit CurveDocument(const QString &path, QWidget *parent = nullptr);
    ~CurveDocument() override;

    bool queryClose() override;

signals:
    void modified(bool dirty);

public slots:
    void onCustomContextMenu(QPoint point);
    /// Writes the tree to the file and drops the curves that it does not show.
    void save() override;
    void slotInsertRow();
    void slotDeleteRow();
    void slotViewDetails();
    void slotViewDetails(QModelIndex index);
    void slotSetColour();
    void slotManageModules();
    void slotAssignModule();
    void slotCurveReport();
    void slotExportPoints();
    void slotExportPointsSTC();
    void slotExportPWRPoints();
    void slotExportPWRPointsSTC();
    /// Nothing of the window is connected to it: a double click activates the row.
    void slotDoubleClickTree(QModelIndex index);
    void slotDownload();
    void slotImport();
    void slotDataLoggerError(QProcess::ProcessError error);
    void slotDataLoggerFinished(int exitCode, QProcess::ExitStatus status);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void buildViews();
    void fillToolBar();
    void fillMenu();
    void connectViews();
    void connectActions();
    void treeModified(bool dirty);
    /// Lets what waits be shown. False if the user has closed the document meanwhile.
    bool staysWhileEventsAreHandled();
    QModelIndexList selectedRows() const;
    /// Runs what a command does on the string under the last right click, which is then done with.
    void onContext(const std::function<void(const QModelIndex &index)> &work);
    /// Runs what a command does on the tree, which is then done with the last right click, too.
    void onTree(const std::function<void()> &work);
    void deleteRows();
    void viewDetails(const QPersistentModelIndex &index);
    bool chooseColour(const QPersistentModelIndex &index);
    void showColour(quint32 id, const QColor &colour);
    void assignModule();
    void exportPoints(PointExport::Kind kind);
    void importCurves(const QString &path);
    void dropDatalogger();

    // In the order of their making; they go the other way, the file last.
    std::unique_ptr<CurveDatabase> m_curveFile;
    std::unique_ptr<QSplitter> m_splitter;
    std::unique_ptr<CurveTree> m_tree;
    std::unique_ptr<QMenu> m_contextMenu;
    std::unique_ptr<CurveGraph> m_graph;
    /// The index under the last right click, which stays true while rows come and go.
    std::optional<QPersistentModelIndex> m_contextIndex;
    std::unique_ptr<CurveDocumentActions> m_actions;
    std::unique_ptr<CurveGraphSquishHelper> m_graphProbe;
    std::unique_ptr<QProcess> m_datalogger;
    QDateTime m_dataloggerStarted;
};

} // namespace IVCurve
