#include "app/core/Datalogger.h"
#include "app/document/AbstractDocument.h"
#include "app/shell/MainWindow.h"
#include "report/GraphicalReportDocument.h"
#include "report/ReportScene.h"
#include "report/items/ReportResizableImage.h"
#include "report/items/ReportTable.h"
#include "report/items/ReportTableCell.h"
#include "tests/manual/ManualCamera.h"
#include "tests/manual/ManualDesk.h"
#include "tests/manual/ManualJob.h"
#include "tests/support/Patience.h"
#include "tests/support/TestHome.h"
#include "tests/whole/Hands.h"
#include "tests/whole/WholeProgram.h"

#include <QtTest>
#include <QtWidgets>

namespace {

/// Room for a page as large as on paper.
const QSize largeWindow(1240, 800);

QPoint middleOf(const QGraphicsView *view, const QGraphicsItem *item)
{
    return view->mapFromScene(item->sceneBoundingRect().center());
}

/// The part of a view that shows a part of its scene.
QRect shown(const QGraphicsView *view, const QRectF &part)
{
    return view->mapFromScene(part).boundingRect() & view->viewport()->rect();
}

} // namespace

/// Sets up what the manual's pictures show, in the real program, and has them taken.
class TestManualPictures : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void theFirstStart();
    void theMainWindow();
    void theTreeOfJobs();
    void aReportIsFilledIn();
    void resultsAreImported();
    void theDataloggerOffersItsFile();
    void aDiagramIsDrawn();
    void reportsAreSearched();
    void dialogsOfTheMainWindow();
    void everyFormIsPrinted();

private:
    void importRows(const ManualDesk &desk, BoxWatcher &watcher,
                    const std::function<void(QDialog *)> &look) const;
    void fillHead(const ManualDesk &desk) const;
    void addPicture(const ManualDesk &desk, BoxWatcher &watcher) const;

    std::unique_ptr<ManualJob> m_job;
};

void TestManualPictures::init()
{
    m_job = std::make_unique<ManualJob>();
    m_job->prepare();
}

void TestManualPictures::theFirstStart()
{
    m_job->forgetSettings();
    ManualDesk::work(
        [](ManualDesk &, BoxWatcher &) {},
        [this](BoxWatcher &watcher) {
            watcher.expectDialog("DialogLanguageChooser", [this](QWidget *dialog) {
                auto *box = dialog->findChild<QComboBox *>();
                box->setCurrentIndex(box->findText(m_job->word("English", "German")));
                emit box->activated(box->currentIndex());
                ManualCamera::takeFramed(dialog, QStringLiteral("language-chooser"));
                QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                                  Qt::LeftButton);
            });
            watcher.expect(m_job->word("Could not find the projects root directory: ",
                                       "Das Projektverzeichnis wurde nicht gefunden: "),
                           QMessageBox::Ok);
            watcher.expectFileDialog(m_job->root());
            watcher.expectDialog("DialogWelcome", [](QWidget *dialog) {
                Hands::click(dialog->findChild<QRadioButton *>(QStringLiteral("continueUsing")));
                ManualCamera::takeFramed(dialog, QStringLiteral("welcome"));
                QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                                  Qt::LeftButton);
            });
        });
}

void TestManualPictures::theMainWindow()
{
    ManualDesk::work([this](ManualDesk &desk, BoxWatcher &) {
        desk.expand(m_job->folder());
        desk.open(m_job->report());
        Hands::clickToolButton(&desk.window, QStringLiteral("actionZoomOut"));
        ManualCamera::take(&desk.window, QStringLiteral("main-window"));
        QVERIFY(desk.report()->scene()->writePdf(
            ManualCamera::besidePictures(QStringLiteral("report-printed.pdf"))));
    });
}

void TestManualPictures::theTreeOfJobs()
{
    ManualDesk::work([this](ManualDesk &desk, BoxWatcher &watcher) {
        desk.expand(m_job->folder());
        desk.select(m_job->report());
        const QDockWidget *browser = desk.dock("documentBrowser");
        ManualCamera::take(desk.dock("documentBrowser"), QRect(0, 0, browser->width(), 270),
                           QStringLiteral("tree"));

        desk.takeNextMenu(nullptr, QStringLiteral("tree-menu"));
        emit desk.tree->customContextMenuRequested(
            desk.tree->visualRect(desk.model->index(m_job->report())).center());

        watcher.expectAndLook(m_job->word("Do you want to move", "Möchten Sie"), QMessageBox::No,
                              [](QWidget *box) { ManualCamera::takeFramed(box, QStringLiteral("trash")); });
        Hands::press(&desk.window, Qt::Key_Delete);

        // A new document waits for its name as long as the window has the keyboard.
        QTest::qWait(400);
        Hands::bringToFront(&desk.window);
        desk.action("actionNewTestReport")->trigger();
        QTRY_VERIFY(desk.tree->findChild<QLineEdit *>());
        ManualCamera::take(desk.dock("documentBrowser"), QRect(0, 0, browser->width(), 270),
                           QStringLiteral("new-document"));
        QTest::keyClick(desk.tree->findChild<QLineEdit *>(), Qt::Key_Escape);
    });
}

void TestManualPictures::fillHead(const ManualDesk &desk) const
{
    desk.fill("installation_address",
              m_job->word("Karen and Peter Holloway\n12 Sunny Lane\nSampleton SP4 7QX",
                          "Karin und Peter Holzer\nSonnenweg 12\n99998 Musterstadt"));
    desk.fill("description_of_work", m_job->word("South roof, strings 1 to 3", "Süddach, Stränge 1 bis 3"));
    desk.fill("report_ref_id", m_job->word("SL12-2016-02", "SW12-2016-02"));
    desk.fill("inspector", m_job->word("A. Whitfield", "A. Weber"));
    Hands::click(desk.view(), desk.field("initial"));
}

void TestManualPictures::addPicture(const ManualDesk &desk, BoxWatcher &watcher) const
{
    // Between the heading and the logo the page is bare.
    const QPoint place = desk.view()->mapFromScene(QPointF(410, 40));
    watcher.expectFileDialog(m_job->photo());
    QTimer::singleShot(400, &desk.window, [&desk] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        menu->setActiveAction(menu->actions().first());
        QTest::keyClick(menu, Qt::Key_Return);
    });
    desk.rightClick(place);
    ReportResizableImage *photo = nullptr;
    const QList<QGraphicsItem *> items = desk.report()->scene()->items();
    for (QGraphicsItem *item : items) {
        auto *image = dynamic_cast<ReportResizableImage *>(item);
        if (image && image->x() < 500)
            photo = image;
    }
    QVERIFY(photo);
    // The frame comes with the mouse.
    QTest::mouseMove(desk.view()->viewport(), middleOf(desk.view(), photo));
    QTest::mouseMove(desk.view()->viewport(), middleOf(desk.view(), photo) + QPoint(4, 4));
}

void TestManualPictures::aReportIsFilledIn()
{
    m_job->empty(m_job->report());
    ManualDesk::work([this](ManualDesk &desk, BoxWatcher &watcher) {
        desk.expand(m_job->folder());
        desk.open(m_job->report());
        Hands::clickToolButton(&desk.window, QStringLiteral("actionZoomOut"));
        fillHead(desk);
        Hands::click(desk.view(), desk.field("description_of_work"));
        ManualCamera::take(&desk.window, QStringLiteral("report-fields"));

        desk.takeNextMenu(nullptr, QStringLiteral("text-menu"));
        // On the words: beside them the field's own menu comes up.
        desk.rightClick(desk.view()->mapFromScene(desk.field("description_of_work")->scenePos()) +
                        QPoint(30, 8));

        desk.arrange(largeWindow);
        Hands::clickToolButton(&desk.window, QStringLiteral("actionZoomIn"));
        desk.fillColumn(2, 1,
                        {QStringLiteral("Poly 250 W"), QStringLiteral("18"), m_job->word("676.8", "676,8")});
        const QRectF grid = desk.table()->sceneBoundingRect();
        ManualCamera::take(desk.view()->viewport(),
                           shown(desk.view(), QRectF(grid.topLeft() - QPointF(10, 10), QSizeF(490, 150))),
                           QStringLiteral("report-table"));

        desk.view()->ensureVisible(QRectF(0, 0, 790, 320), 0, 0);
        addPicture(desk, watcher);
        ManualCamera::take(desk.view()->viewport(), shown(desk.view(), QRectF(20, 10, 760, 300)),
                           QStringLiteral("report-picture"));

        watcher.expectAndLook(
            m_job->word("Saving this document as a favourite", "Wenn Sie dieses Dokument als Favorit"),
            QMessageBox::No,
            [](QWidget *box) { ManualCamera::takeFramed(box, QStringLiteral("favourite")); });
        Hands::clickToolButton(&desk.window, QStringLiteral("actionSaveFavourite"));
        watcher.expectAndLook(
            m_job->word("Save changes to", "Änderungen an"), QMessageBox::No,
            [](QWidget *box) { ManualCamera::takeFramed(box, QStringLiteral("save-changes")); });
        QVERIFY(desk.window.close());
    });
}

void TestManualPictures::importRows(const ManualDesk &desk, BoxWatcher &watcher,
                                    const std::function<void(QDialog *)> &look) const
{
    watcher.expectFileDialog(m_job->resultsFile());
    Hands::clickToolButton(&desk.window, QStringLiteral("actionImport"));
    auto *dialog = desk.window.findChild<QDialog *>(QStringLiteral("DialogImportResults"));
    QTRY_VERIFY(dialog->isVisible());
    dialog->resize(820, 420);
    QTRY_COMPARE(dialog->windowHandle()->size(), QSize(820, 420));
    auto *rows = dialog->findChild<QTableView *>();
    // Four rows are one string: continuity, automatic test, both signs of insulation.
    for (const int first : {0, 5, 10}) {
        Hands::click(rows, rows->model()->index(first, 1));
        Hands::click(rows, rows->model()->index(first + 3, 1), Qt::ShiftModifier);
        if (first == 0)
            look(dialog);
        QTest::mouseClick(dialog->findChild<QCommandLinkButton *>(), Qt::LeftButton);
    }
    dialog->close();
    QTRY_COMPARE(desk.table()->cellAt(4, 14)->plainText(), QStringLiteral("837"));
}

void TestManualPictures::resultsAreImported()
{
    m_job->empty(m_job->report());
    ManualDesk::work([this](ManualDesk &desk, BoxWatcher &watcher) {
        desk.expand(m_job->folder());
        desk.open(m_job->report());
        Hands::clickToolButton(&desk.window, QStringLiteral("actionZoomOut"));
        importRows(desk, watcher, [](QDialog *dialog) {
            ManualCamera::takeFramed(dialog, QStringLiteral("import-dialog"));
        });
        desk.arrange(largeWindow);
        Hands::clickToolButton(&desk.window, QStringLiteral("actionZoomIn"));
        const QRectF grid = desk.table()->sceneBoundingRect();
        const QRectF first = desk.table()->cellAt(2, 12)->sceneBoundingRect();
        desk.view()->ensureVisible(QRectF(0, first.top() - 6, 790, grid.bottom() - first.top() + 12), 0, 0);
        ManualCamera::take(desk.view()->viewport(),
                           shown(desk.view(), QRectF(grid.left() - 6, first.top() - 1, grid.width() + 12,
                                                     grid.bottom() - first.top() + 7)),
                           QStringLiteral("imported-rows"));
        Hands::press(&desk.window, Qt::Key_S, Qt::ControlModifier);
    });
}

void TestManualPictures::theDataloggerOffersItsFile()
{
    const QString saved = m_job->root() + m_job->word("/Tester/2016-05-12.csv", "/Prüfgerät/2016-05-12.csv");
    ManualDesk::work([this, saved](ManualDesk &desk, BoxWatcher &watcher) {
        desk.expand(m_job->folder());
        desk.open(m_job->report());
        writeFile(saved, readFile(m_job->resultsFile()));
        QFile file(saved);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(
            file.setFileTime(QDateTime::currentDateTime().addSecs(-25), QFileDevice::FileModificationTime));
        file.close();
        watcher.expectAndLook(
            m_job->word("Would you like to import", "Möchten Sie die soeben"), QMessageBox::No,
            [](QWidget *box) { ManualCamera::takeFramed(box, QStringLiteral("download")); });
        QVERIFY(!Datalogger::askToImport(saved, &desk.window));
    });
}

void TestManualPictures::aDiagramIsDrawn()
{
    ManualDesk::work([this](ManualDesk &desk, BoxWatcher &watcher) {
        desk.arrange(QSize(1240, 700));
        desk.open(m_job->diagram());
        const QRectF drawing = desk.view()->scene()->itemsBoundingRect();
        while (desk.view()->mapFromScene(drawing).boundingRect().width() > desk.view()->viewport()->width())
            Hands::clickToolButton(&desk.window, QStringLiteral("actionZoomOut"));
        desk.view()->centerOn(drawing.center());
        ManualCamera::take(desk.window.findChild<QMdiArea *>(), QStringLiteral("diagram"));

        // Right of the drawing there is nothing.
        const QPoint empty(desk.view()->viewport()->width() - 8, 8);
        desk.takeNextMenu(nullptr, QStringLiteral("diagram-menu"));
        desk.rightClick(empty);

        watcher.expectDialog("DialogComponentSettings", [](QWidget *dialog) {
            ManualCamera::takeFramed(dialog, QStringLiteral("diagram-caption"));
            dialog->close();
        });
        QTimer::singleShot(400, &desk.window, [] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            QVERIFY(menu);
            // Below the label and the separator: the inverter.
            menu->setActiveAction(menu->actions().at(2));
            QTest::keyClick(menu, Qt::Key_Return);
        });
        desk.rightClick(empty);
    });
}

void TestManualPictures::reportsAreSearched()
{
    for (const QString &form : m_job->forms())
        m_job->setDate(form);
    ManualDesk::work([this](ManualDesk &desk, BoxWatcher &) {
        QDockWidget *search = desk.dock("documentSearch");
        search->raise();
        auto *phrase = search->findChild<QGroupBox *>(QStringLiteral("phraseGroup"));
        QTest::mouseClick(phrase, Qt::LeftButton, Qt::NoModifier, QPoint(12, 8));
        QVERIFY(phrase->isChecked());
        search->findChild<QLineEdit *>(QStringLiteral("phraseEdit"))
            ->setText(m_job->word("sunny lane", "sonnenweg"));
        for (QDateEdit *date : search->findChildren<QDateEdit *>())
            date->setDate(ManualJob::day());
        QTest::mouseClick(search->findChild<QPushButton *>(QStringLiteral("search")), Qt::LeftButton);
        QTRY_VERIFY(search->findChild<QPushButton *>(QStringLiteral("search"))->isVisible());
        QTest::qWait(200);
        ManualCamera::take(&desk.window, QStringLiteral("search"));
    });
}

void TestManualPictures::dialogsOfTheMainWindow()
{
    const QString favourite = TestHome::instance()->dataFolder() + QStringLiteral("/default.kelatr");
    writeFile(favourite, QByteArray("of the user's own"));
    m_job->setDate(favourite);
    ManualDesk::work([this](ManualDesk &desk, BoxWatcher &watcher) {
        watcher.expectDialog("DialogSettings", [](QWidget *dialog) {
            ManualCamera::takeFramed(dialog, QStringLiteral("settings-projects"));
            dialog->findChild<QTabWidget *>()->setCurrentIndex(1);
            ManualCamera::takeFramed(dialog, QStringLiteral("settings-favourites"));
            dialog->close();
        });
        desk.action("actionSettings")->trigger();
        watcher.expectDialog("DialogAbout", [](QWidget *dialog) {
            ManualCamera::takeFramed(dialog, QStringLiteral("about"));
            dialog->close();
        });
        desk.action("actionAbout")->trigger();
        watcher.expectAndLook(
            m_job->word("Changing the language", "Beim Ändern der Sprache"), QMessageBox::Cancel,
            [](QWidget *box) { ManualCamera::takeFramed(box, QStringLiteral("language-change")); });
        for (QAction *language : desk.menu("menuLanguage")->actions()) {
            if (!language->isChecked()) {
                language->trigger();
                break;
            }
        }
    });
}

void TestManualPictures::everyFormIsPrinted()
{
    for (const QString &form : m_job->forms())
        m_job->empty(form);
    ManualDesk::work([this](ManualDesk &desk, BoxWatcher &) {
        int number = 0;
        for (const QString &form : m_job->forms()) {
            desk.open(form);
            ++number;
            QVERIFY(desk.report()->scene()->writePdf(
                ManualCamera::besidePictures(QStringLiteral("forms-%1.pdf").arg(number))));
        }
        QCOMPARE(number, 4);
    });
}

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0);
    TestHome home;
    TestManualPictures test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_manualpictures.moc"
