#include "app/shell/MainWindow.h"

#include "app/core/Datalogger.h"
#include "app/core/Folders.h"
#include "app/core/Identity.h"
#include "app/core/Language.h"
#include "app/core/Messages.h"
#include "app/dialogs/DialogAbout.h"
#include "app/dialogs/DialogSettings.h"
#include "app/dialogs/DialogWelcome.h"
#include "app/document/AbstractDocument.h"
#include "app/shell/DocumentFactory.h"
#include "app/shell/GoneFiles.h"
#include "app/shell/LanguageMenu.h"
#include "app/shell/PaneKeys.h"
#include "app/shell/ProjectCommands.h"
#include "browser/FindInFiles.h"
#include "browser/FoundFilesModel.h"
#include "browser/ProjectModel.h"
#include "browser/ProjectTreeView.h"
#include "browser/SearchResultsDocument.h"
#include "import/DialogImportResults.h"
#include "import/ImportStatusMessage.h"
#include "import/ResultsImporter.h"
#include "report/GraphicalReportDocument.h"
#include "ui_MainWindow.h"

#include <QActionGroup>
#include <QDesktopServices>
#include <QDirIterator>
#include <QFileDialog>
#include <QFileSystemWatcher>
#include <QMenu>
#include <QSettings>
#include <QUrl>

namespace {

/// Posted by the constructor: the welcome comes up once the window is on screen.
const auto welcomeEvent = QEvent::Type(1001);

} // namespace

MainWindow::MainWindow() : m_ui(new Ui::MainWindow), m_goneFiles(new GoneFiles(this))
{
    if (restartRequested())
        Folders::instance(true);
    connect(Folders::instance(), &Folders::projectsFolderChanged, this, &MainWindow::projectsFolderChanged);
    m_ui->setupUi(this);
    m_languageGroup = LanguageMenu::fill(m_ui->menuLanguage, this);
    connect(m_languageGroup, &QActionGroup::triggered, this, &MainWindow::switchLanguage);
    m_ui->mdiArea->setBackground(QBrush(QPixmap(Identity::brandedImage(QStringLiteral("bg.jpg")))));
    setUp(m_ui->mdiArea, m_ui->menuWindow);
    tabifyDockWidget(m_ui->documentSearch, m_ui->documentBrowser);
    new PaneKeys(this, m_ui->mdiArea, {m_ui->documentBrowser, m_ui->documentSearch});
    setUpTree();
    restoreLayout();
    connectActions();
    m_importDialog = new DialogImportResults(this);
    connect(m_importDialog, &DialogImportResults::importRow, this, &MainWindow::importRow);
    Folders::instance()->projectsRoot();
    if (restartRequested())
        setRestartRequested(false);
    else
        QCoreApplication::postEvent(this, new QEvent(welcomeEvent));
    m_ui->actionPDFManual->setVisible(true);
    m_ui->actionScreencastTutorial->setVisible(false);
}

MainWindow::~MainWindow()
{
    QSettings settings;
    settings.setValue(QStringLiteral("Windows/MainWindowGeometry"), saveGeometry());
    settings.setValue(QStringLiteral("Windows/MainWindowState"), saveState(0));
}

MainWindow *MainWindow::instance()
{
    return dynamic_cast<MainWindow *>(Shell::instance());
}

void MainWindow::setUpTree()
{
    m_projectModel = new ProjectModel(this);
    m_ui->treeView->setModel(m_projectModel);
    m_ui->treeView->setHeaderHidden(true);
    m_ui->treeView->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_ui->treeView, &QWidget::customContextMenuRequested, this, &MainWindow::showTreeContextMenu);
}

void MainWindow::restoreLayout()
{
    const QSettings settings;
    restoreGeometry(settings.value(QStringLiteral("Windows/MainWindowGeometry")).toByteArray());
    restoreState(settings.value(QStringLiteral("Windows/MainWindowState")).toByteArray(), 0);
}

void MainWindow::connectActions()
{
    m_selectionModel = new QItemSelectionModel(m_projectModel, this);
    m_ui->treeView->setSelectionModel(m_selectionModel);
    m_commands = std::make_unique<ProjectCommands>(m_projectModel, m_ui->treeView, m_selectionModel);
    connect(m_selectionModel, &QItemSelectionModel::currentChanged, this, &MainWindow::selectionChanged);
    connect(m_ui->treeView, &QAbstractItemView::activated, this,
            qOverload<const QModelIndex &>(&MainWindow::openDocument));
    connect(this, &MdiWindow::activeDocumentChanged, this, &MainWindow::documentChanged);

    const struct
    {
        QAction *action;
        void (MainWindow::*slot)();
    } wiring[] = {
        {m_ui->actionNewInspectionReport, &MainWindow::createNewInspectionReport},
        {m_ui->actionNewTestReport, &MainWindow::createNewTestReport},
        {m_ui->actionNewVerificationCertificate, &MainWindow::createNewVerificationCertificate},
        {m_ui->actionNewInstallationDiagram, &MainWindow::createNewInstallationDiagram},
        {m_ui->actionNewChecklist, &MainWindow::createNewChecklistReport},
        {m_ui->actionNewCurveData, &MainWindow::createNewCurveData},
        {m_ui->actionNewClientHandoverPack, &MainWindow::createClientHandoverPack},
        {m_ui->actionNewFolder, &MainWindow::createNewFolder},
        {m_ui->actionOpen, &MainWindow::open},
        {m_ui->actionSave, &MainWindow::save},
        {m_ui->actionDelete, &MainWindow::remove},
        {m_ui->actionRename, &MainWindow::rename},
        {m_ui->actionSettings, &MainWindow::showSettingsDialog},
        {m_ui->actionAbout, &MainWindow::showAbout},
        {m_ui->actionScreencastTutorial, &MainWindow::showScreencastTutorial},
        {m_ui->actionPDFManual, &MainWindow::showPDFManual},
        {m_ui->actionImport, &MainWindow::import},
        {m_ui->actionDownload, &MainWindow::download},
    };
    for (const auto &wire : wiring)
        connect(wire.action, &QAction::triggered, this, wire.slot);
    // It stands in no menu but the tree's; its key works all the same.
    addAction(m_ui->actionOpen);
    connect(m_ui->findInFiles, &FindInFiles::searchStarted, this, &MainWindow::showResultsDocument);
}

bool MainWindow::event(QEvent *event)
{
    const bool handled = MdiWindow::event(event);
    if (event->type() == welcomeEvent)
        DialogWelcome(this).exec();
    return handled;
}

AbstractDocument *MainWindow::openDocument(const QString &filePath)
{
    const QVector<AbstractDocument *> open = documents();
    for (AbstractDocument *document : open) {
        if (document->filePath() == filePath)
            return document;
    }
    AbstractDocument *document = createDocument(filePath, nullptr);
    if (document && document->isValid()) {
        MdiWindow::openDocument(document);
        connect(document, &AbstractDocument::titleChanged, this, &MainWindow::documentTitleChanged);
    }
    return document;
}

void MainWindow::openDocument(const QModelIndex &index)
{
    openOrDiscard(index.data(QFileSystemModel::FilePathRole).toString());
}

void MainWindow::openOrDiscard(const QString &path)
{
    const AbstractDocument *document = openDocument(path);
    if (document && !document->isValid())
        delete document;
}

void MainWindow::open()
{
    openOrDiscard(m_projectModel->filePath(m_ui->treeView->currentIndex()));
}

void MainWindow::loadCommandLineFiles()
{
    const QStringList arguments = QCoreApplication::arguments();
    for (int i = 1; i < arguments.size(); ++i)
        openOrDiscard(arguments.at(i));
}

void MainWindow::save()
{
    if (AbstractDocument *document = activeDocument())
        document->save();
}

void MainWindow::remove()
{
    m_commands->remove();
}

void MainWindow::rename()
{
    m_commands->rename();
}

void MainWindow::createNewFromFavourite(const QString &name)
{
    m_commands->newDocument(name);
}

void MainWindow::createNewInspectionReport()
{
    createNewFromFavourite(newDocumentNames().inspectionReport);
}

void MainWindow::createNewTestReport()
{
    createNewFromFavourite(newDocumentNames().testReport);
}

void MainWindow::createNewVerificationCertificate()
{
    createNewFromFavourite(newDocumentNames().verificationCertificate);
}

void MainWindow::createNewInstallationDiagram()
{
    createNewFromFavourite(newDocumentNames().installationDiagram);
}

void MainWindow::createNewChecklistReport()
{
    createNewFromFavourite(newDocumentNames().checklist);
}

void MainWindow::createNewCurveData()
{
    createNewFromFavourite(newDocumentNames().curveData);
}

void MainWindow::createClientHandoverPack()
{
    m_commands->newClientHandoverPack();
}

void MainWindow::createNewFolder()
{
    m_commands->newFolder();
}

void MainWindow::selectionChanged(const QModelIndex &current, const QModelIndex &)
{
    for (QAction *action : {m_ui->actionOpen, m_ui->actionRename, m_ui->actionDelete})
        action->setEnabled(current.isValid());
    if (!current.isValid())
        return;
    const QString path = current.data(QFileSystemModel::FilePathRole).toString();
    const QVector<AbstractDocument *> open = documents();
    for (AbstractDocument *document : open) {
        if (document->filePath() == path)
            setActiveDocument(document);
    }
}

void MainWindow::documentChanged(AbstractDocument *, AbstractDocument *to)
{
    if (!to)
        return;
    m_commands->select(to->filePath());
    m_ui->actionSave->setEnabled(to->isModified());
}

void MainWindow::documentTitleChanged(AbstractDocument *doc)
{
    if (doc == activeDocument())
        m_ui->actionSave->setEnabled(doc->isModified());
}

void MainWindow::showTreeContextMenu(const QPoint &pos)
{
    QMenu menu(m_ui->treeView);
    if (m_ui->treeView->indexAt(pos).isValid()) {
        menu.addAction(m_ui->actionOpen);
        menu.setDefaultAction(m_ui->actionOpen);
        menu.addSeparator();
        menu.addActions({m_ui->actionSave, m_ui->actionDelete, m_ui->actionRename});
        menu.addSeparator();
    }
    menu.addActions({m_ui->actionNewInspectionReport, m_ui->actionNewTestReport,
                     m_ui->actionNewVerificationCertificate, m_ui->actionNewInstallationDiagram,
                     m_ui->actionNewChecklist, m_ui->actionNewCurveData});
    menu.addSeparator();
    menu.addActions({m_ui->actionNewFolder, m_ui->actionNewClientHandoverPack});
    menu.exec(m_ui->treeView->viewport()->mapToGlobal(pos));
}

void MainWindow::projectsFolderChanged(const QString &newFolder)
{
    m_ui->treeView->setRootIndex(m_projectModel->setRootPath(newFolder));
    delete m_watcher;
    m_watcher = new QFileSystemWatcher(this);
    watchFoldersUnder(newFolder);
    connect(m_watcher, &QFileSystemWatcher::directoryChanged, this, &MainWindow::directoryChanged);
}

void MainWindow::watchFoldersUnder(const QString &root)
{
    QStringList folders;
    QDirIterator entries(root, QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        entries.next();
        if (entries.fileInfo().isDir() && !entries.fileName().startsWith(QLatin1Char('.')))
            folders.append(entries.fileInfo().absoluteFilePath());
    }
    if (!folders.isEmpty())
        m_watcher->addPaths(folders);
}

void MainWindow::directoryChanged(const QString &)
{
    for (AbstractDocument *document : documents()) {
        const bool hasFile = !qobject_cast<SearchResultsDocument *>(document);
        if (hasFile && !QFileInfo::exists(document->filePath()))
            m_goneFiles->add(document);
    }
    m_goneFiles->close();
}

void MainWindow::showResultsDocument()
{
    const QString path =
        Folders::instance()->searchFolder() + QLatin1Char('/') + SearchResultsDocument::pathName();
    auto *results = qobject_cast<SearchResultsDocument *>(openDocument(path));
    if (!results)
        return;
    // An open tab serves again, and its rows must not be opened once for each search.
    connect(results, &SearchResultsDocument::openDocument, this, &MainWindow::openOrDiscard,
            Qt::UniqueConnection);
    connect(m_ui->findInFiles, &FindInFiles::searchFinished, results, &SearchResultsDocument::resizeColumns,
            Qt::UniqueConnection);
    results->setResultsModel(m_ui->findInFiles->model());
}

void MainWindow::resetWindowLayout()
{
    for (QDockWidget *dock : {m_ui->documentSearch, m_ui->documentBrowser}) {
        dock->setFloating(false);
        addDockWidget(Qt::LeftDockWidgetArea, dock, Qt::Vertical);
    }
    tabifyDockWidget(m_ui->documentSearch, m_ui->documentBrowser);
}

void MainWindow::switchLanguage(QAction *action)
{
    if (!LanguageMenu::change(action, m_languageGroup, this))
        return;
    setRestartRequested(true);
    close();
}

void MainWindow::showSettingsDialog()
{
    DialogSettings(this).exec();
}

void MainWindow::showAbout()
{
    DialogAbout(this).exec();
}

void MainWindow::showScreencastTutorial()
{
    QDesktopServices::openUrl(QUrl(Identity::tutorialAddress()));
}

void MainWindow::showPDFManual()
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(QCoreApplication::applicationDirPath() +
                                                  QStringLiteral("/Bedienungsanleitung.pdf")));
}

void MainWindow::import()
{
    // The guard shows boxes that vanish with their handler: a failure leaves the window as it was.
    try {
        const QSettings settings;
        const QString start = settings
                                  .value(QStringLiteral("Directories/LastImportDir"),
                                         settings.value(QStringLiteral("Directories/RootDir")))
                                  .toString();
        const QString path =
            QFileDialog::getOpenFileName(this, tr("Import CSV File"), start, tr("CSV Files (*.csv)"));
        if (!path.isEmpty())
            importFile(path);
    } catch (const std::exception &exception) {
        flashMessage(QStringLiteral("Exception thrown in MainWindow::import(): ") +
                     QString::fromLocal8Bit(exception.what()));
    } catch (...) {
        flashMessage(
            QStringLiteral("An unknown exception has been thrown by the MainWindow::import() function"));
    }
}

void MainWindow::importFile(const QString &path)
{
    if (!m_importDialog->setFile(path))
        return;
    QSettings().setValue(QStringLiteral("Directories/LastImportDir"), path);
    m_importDialog->show();
}

void MainWindow::importRow(const QModelIndexList &indexes)
{
    auto *report = qobject_cast<GraphicalReportDocument *>(activeDocument());
    if (!report)
        return;
    ResultsImporter importer(report, m_importDialog->model());
    const int status = importer.importRows(indexes);
    if (status == 0)
        return;
    Message message = importStatusMessage(status, report->filePath(), indexes);
    message.parent = this;
    showMessage(message);
}

void MainWindow::download()
{
    auto *process = new QProcess(this);
    connect(process, &QProcess::errorOccurred, this, &MainWindow::dataLoggerError);
    connect(process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
            &MainWindow::dataLoggerFinished);
    if (Datalogger::start(process, this))
        m_downloadStarted = QDateTime::currentDateTime();
}

void MainWindow::dataLoggerError(QProcess::ProcessError)
{
    Datalogger::showStartFailure(this);
}

void MainWindow::dataLoggerFinished(int, QProcess::ExitStatus)
{
    const QString path = Datalogger::fileSavedSince(m_downloadStarted);
    if (!path.isEmpty() && Datalogger::askToImport(path, this))
        importFile(path);
    m_downloadStarted = QDateTime();
}
