#include "app/document/AbstractDocument.h"
#include "app/shell/MainWindow.h"
#include "tests/manual/ManualCamera.h"
#include "tests/manual/ManualDesk.h"
#include "tests/manual/ManualJob.h"
#include "tests/support/Patience.h"
#include "tests/support/TestHome.h"
#include "tests/whole/Hands.h"

#include <QtTest>
#include <QtWidgets>
#include <qwt_plot.h>

namespace {

/// The parts of a curve file's window.
struct CurveDesk
{
    explicit CurveDesk(const ManualDesk &mainDesk)
        : desk(mainDesk)
        , tree(desk.document()->findChild<QTreeView *>())
        , plot(desk.document()->findChild<QwtPlot *>())
    {
    }

    QAction *action(const char *name) const
    {
        return desk.document()->findChild<QAction *>(QLatin1String(name));
    }
    QModelIndex folder() const { return tree->model()->index(0, 0); }
    QModelIndex string(int row) const { return tree->model()->index(row, 0, folder()); }
    void select(const QModelIndex &index) const
    {
        Hands::click(tree, index);
        QTest::qWait(100);
    }
    /// Opens the menu of a string as a right click does.
    void openMenu(const QModelIndex &index) const
    {
        emit tree->customContextMenuRequested(tree->visualRect(index).center());
    }
    /// Chooses an entry of the string's menu, so that the command acts on that string.
    void choose(const QModelIndex &index, const char *name) const
    {
        QTimer::singleShot(300, tree, [this, name] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            QVERIFY(menu);
            menu->setActiveAction(action(name));
            QTest::keyClick(menu, Qt::Key_Return);
        });
        openMenu(index);
    }

    const ManualDesk &desk;
    QTreeView *tree;
    QwtPlot *plot;
};

} // namespace

/// Sets up what the manual's pictures of curves show, in the real program, and has them taken.
class TestManualCurvePictures : public QObject
{
    Q_OBJECT

public slots:
    /// Stands in for the desktop, which would show the report.
    void openUrl(const QUrl &url) { m_opened = url.toLocalFile(); }

private slots:
    void init();

    void theWindowOfACurveFile();
    void stringsInColour();
    void detailsOfAString();
    void modules();
    void theCurveReport();

private:
    void open(const std::function<void(const CurveDesk &, BoxWatcher &)> &user) const;

    std::unique_ptr<ManualJob> m_job;
    QString m_opened;
};

void TestManualCurvePictures::init()
{
    m_job = std::make_unique<ManualJob>();
    m_job->prepare();
    QSettings().setValue(QStringLiteral("Curves/HideAutomaticSaveWarning"), true);
}

/// Opens the job's curve file in a window that has room for tree and graph.
void TestManualCurvePictures::open(const std::function<void(const CurveDesk &, BoxWatcher &)> &user) const
{
    ManualDesk::work([this, &user](ManualDesk &desk, BoxWatcher &watcher) {
        desk.arrange(QSize(1240, 640));
        desk.open(m_job->curves());
        const CurveDesk curves(desk);
        curves.tree->expandAll();
        curves.desk.document()->findChild<QSplitter *>()->setSizes({480, 480});
        curves.tree->header()->resizeSection(0, 150);
        user(curves, watcher);
    });
}

void TestManualCurvePictures::theWindowOfACurveFile()
{
    open([](const CurveDesk &curves, BoxWatcher &) {
        curves.select(curves.folder());
        auto *area = curves.desk.window.findChild<QMdiArea *>();
        // Where the curves bend, the tracker has most to tell.
        QWidget *canvas = curves.plot->canvas();
        QTest::mouseMove(canvas, QPoint(canvas->width() * 6 / 10, canvas->height() / 2));
        ManualCamera::take(area, QStringLiteral("curves"));
        QCursor::setPos(curves.tree->viewport()->mapToGlobal(QPoint(5, 200)));
        QTest::qWait(100);

        curves.desk.takeNextMenu(nullptr, QStringLiteral("curve-menu"));
        curves.openMenu(curves.string(0));

        // One string, measured, corrected and nominal, with its power.
        curves.select(curves.string(0));
        for (const char *name : {"actionShowMEAS", "actionShowNOM", "actionShowPWR"})
            curves.action(name)->trigger();
        QTest::qWait(200);
        ManualCamera::take(curves.plot, QStringLiteral("curves-compared"));
    });
}

void TestManualCurvePictures::stringsInColour()
{
    const QString clouds = TestHome::instance()->path(m_job->word("Passing clouds.csv", "Wolken.csv"));
    QByteArray lines = readFile(QStringLiteral(KELMAR_SAMPLES "/Sunny Lane 12/Passing clouds.csv"));
    if (m_job->isGerman())
        lines.replace(',', ';').replace('.', ',');
    writeFile(clouds, lines);
    open([&clouds, this](const CurveDesk &curves, BoxWatcher &watcher) {
        watcher.expectFileDialog(clouds);
        curves.action("actionImportCSV")->trigger();
        curves.tree->expandAll();
        curves.desk.document()->findChild<QSplitter *>()->setSizes({560, 400});
        curves.tree->header()->resizeSection(0, 170);
        QTest::qWait(100);
        curves.select(curves.folder());
        ManualCamera::take(curves.tree, QRect(0, 0, curves.tree->width(), 220), QStringLiteral("curve-tree"));
        watcher.expect(m_job->word("Save changes to", "Änderungen an"), QMessageBox::No);
        QVERIFY(curves.desk.window.close());
    });
}

void TestManualCurvePictures::detailsOfAString()
{
    open([](const CurveDesk &curves, BoxWatcher &watcher) {
        curves.select(curves.string(0));
        watcher.expectDialog("IVCurve::CurveDetailsDialog", [](QWidget *dialog) {
            ManualCamera::takeFramed(dialog, QStringLiteral("curve-details-test"));
            dialog->findChild<QTabWidget *>(QStringLiteral("tabWidget"))->setCurrentIndex(1);
            ManualCamera::takeFramed(dialog, QStringLiteral("curve-details-module"));
            dialog->close();
        });
        curves.choose(curves.string(0), "actionViewDetails");
    });
}

void TestManualCurvePictures::modules()
{
    open([](const CurveDesk &curves, BoxWatcher &watcher) {
        curves.select(curves.string(0));
        watcher.expectDialog("IVCurve::CurveModulesChooser", [](QWidget *dialog) {
            auto *modules = dialog->findChild<QComboBox *>(QStringLiteral("comboModule"));
            modules->setCurrentIndex(modules->count() / 2);
            dialog->findChild<QSpinBox *>(QStringLiteral("spinTotalInSeries"))->setValue(18);
            ManualCamera::takeFramed(dialog, QStringLiteral("module-choose"));
            dialog->close();
        });
        curves.choose(curves.string(0), "actionAssignModule");

        watcher.expectDialog("IVCurve::CurveModulesDlg", [&watcher](QWidget *dialog) {
            auto *table = dialog->findChild<QTableWidget *>(QStringLiteral("tableModules"));
            table->setCurrentCell(table->rowCount() / 2, 0);
            ManualCamera::takeFramed(dialog, QStringLiteral("modules"));
            watcher.expectDialog("IVCurve::CurveModulesEditDlg", [](QWidget *editor) {
                ManualCamera::takeFramed(editor, QStringLiteral("module-edit"));
                editor->close();
            });
            QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("btnEdit")), Qt::LeftButton);
            dialog->close();
        });
        curves.action("actionManageModules")->trigger();
    });
}

void TestManualCurvePictures::theCurveReport()
{
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "openUrl");
    open([this](const CurveDesk &curves, BoxWatcher &watcher) {
        curves.tree->setCurrentIndex(curves.string(0));
        for (int row = 0; row < curves.tree->model()->rowCount(curves.folder()); ++row)
            curves.tree->selectionModel()->select(curves.string(row),
                                                  QItemSelectionModel::Select | QItemSelectionModel::Rows);
        const QString report = ManualCamera::besidePictures(QStringLiteral("curve-report.pdf"));
        watcher.expectFileDialog(report);
        curves.choose(curves.string(0), "actionCurveReport");
        QTRY_COMPARE(m_opened, report);
    });
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
}

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0);
    TestHome home;
    QCoreApplication::setOrganizationName(QStringLiteral("Varnhold"));
    QCoreApplication::setApplicationName(QStringLiteral("Kelmar"));
    TestManualCurvePictures test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_manualcurvepictures.moc"
