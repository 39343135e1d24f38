#pragma once

#include "app/core/Shell.h"
#include "app/shell/MdiWindow.h"

#include <QDateTime>
#include <QModelIndexList>
#include <QProcess>

#include <memory>

namespace Ui {
class MainWindow;
}
class DialogImportResults;
class GoneFiles;
class ProjectCommands;
class ProjectModel;
class QActionGroup;
class QFileSystemWatcher;
class QItemSelectionModel;

/// The one top-level window: the workspace, the project tree and the search panel beside it, the menus
/// and the commands. It wires; the work is done by the classes it holds.
class MainWindow : public MdiWindow, public Shell
{
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    /// The one window, or null.
    static MainWindow *instance();

    QWidget *window() override { return this; }
    /// Shows a tester's results file in the import dialog.
    void importFile(const QString &path);

    bool event(QEvent *event) override;

public slots:
    /// Opens a file: returns the document that is open on just this path, or a new one. A new document
    /// that is not valid is the caller's to delete; null for files that went to the desktop.
    AbstractDocument *openDocument(const QString &filePath);
    void import() override;
    void download() override;
    void resetWindowLayout() override;

protected slots:
    void projectsFolderChanged(const QString &newFolder);
    void selectionChanged(const QModelIndex &current, const QModelIndex &previous);
    void openDocument(const QModelIndex &index);
    void directoryChanged(const QString &path);
    void showTreeContextMenu(const QPoint &pos);
    void documentTitleChanged(AbstractDocument *doc);
    void documentChanged(AbstractDocument *from, AbstractDocument *to);
    void showResultsDocument();
    void loadCommandLineFiles();
    void switchLanguage(QAction *action);
    void dataLoggerError(QProcess::ProcessError error);
    void dataLoggerFinished(int exitCode, QProcess::ExitStatus status);
    void importRow(const QModelIndexList &indexes);

    void createNewInspectionReport();
    void createNewTestReport();
    void createNewVerificationCertificate();
    void createNewInstallationDiagram();
    void createNewChecklistReport();
    void createNewCurveData();
    void createClientHandoverPack();
    void createNewFolder();
    void open();
    void save();
    void remove();
    void rename();
    void showSettingsDialog();
    void showAbout();
    void showScreencastTutorial();
    void showPDFManual();

private:
    using MdiWindow::openDocument;

    void createNewFromFavourite(const QString &name);
    void setUpTree();
    void restoreLayout();
    void connectActions();
    void watchFoldersUnder(const QString &root);
    /// Opens a path and deletes the document again when it could not be loaded.
    void openOrDiscard(const QString &path);

    ProjectModel *m_projectModel = nullptr;
    std::unique_ptr<Ui::MainWindow> m_ui;
    QItemSelectionModel *m_selectionModel = nullptr;
    QFileSystemWatcher *m_watcher = nullptr;
    GoneFiles *m_goneFiles = nullptr;
    DialogImportResults *m_importDialog = nullptr;
    QDateTime m_downloadStarted;
    QActionGroup *m_languageGroup = nullptr;
    std::unique_ptr<ProjectCommands> m_commands;
};
