#include "app/core/Identity.h"
#include "browser/ProjectModel.h"
#include "browser/ProjectTreeView.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"
#include "tests/support/Trash.h"
#include "tests/support/TrashQuestion.h"

#include <QHeaderView>

namespace {

/// What another program drags: files by their addresses.
QMimeData *urlsOf(const QStringList &paths)
{
    QList<QUrl> urls;
    for (const QString &path : paths)
        urls.append(QUrl::fromLocalFile(path));
    auto *data = new QMimeData;
    data->setUrls(urls);
    return data;
}

} // namespace

class TestProjectTreeView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void deleteMovesTheSelectionToTheTrash();
    void deleteWithFiveSelectedItemsAsksOnce();
    void deleteWithoutSelectionAsksNothing();
    void otherKeysReachTheTree();
    void renamingInPlaceRenamesOnTheDisk();
    void deleteWhileRenamingEditsTheName();
    void draggingWithinTheTreeMovesWithoutAQuestion();
    void oneFileFromOutsideIsNamedInTheQuestion();
    void twoFilesFromOutsideAskOnceWithTheirNumber();
    void refusedDropLeavesTheDiskAndTheViewAsTheyWere();
    void actionOfTheSourceIsKept();
    void modelOfAnotherClassCannotBeDeletedFrom();
    // These come last: the window system remembers the action of a drag from outside, and would give it to
    // the drops that are made up above.
    void draggingFromAnotherProgramAsksAndCopies();
    void refusedDragFromAnotherProgramCopiesNothing();

private:
    QString inRoot(const QString &relative) const
    {
        return TestHome::instance()->projectsRoot() + '/' + relative;
    }
    QString outside(const QString &name) const { return TestHome::instance()->path("outside/" + name); }
    QModelIndex indexOf(const QString &relative) const { return m_model->index(inRoot(relative)); }
    QPoint placeOf(const QString &relative) const { return m_view->visualRect(indexOf(relative)).center(); }
    void show(const QStringList &files);
    bool rowsAreInOrder(const QModelIndex &parent) const;
    void select(const QStringList &files);
    /// Drags with real events from another process.
    void dragFromAnotherProgram(const QStringList &paths, const QString &target);
    bool drop(const QStringList &paths, const QString &target, Qt::DropActions actions = Qt::CopyAction);

    std::unique_ptr<ProjectModel> m_model;
    std::unique_ptr<ProjectTreeView> m_view;
};

void TestProjectTreeView::init()
{
    TestHome::instance()->reset();
    Trash::startEmpty();
    QDir(TestHome::instance()->path("outside")).removeRecursively();
}

void TestProjectTreeView::cleanup()
{
    m_view.reset();
    m_model.reset();
}

/// Makes the files and shows the tree as the main window does.
void TestProjectTreeView::show(const QStringList &files)
{
    for (const QString &file : files)
        writeFile(inRoot(file), file.toUtf8());
    m_model = std::make_unique<ProjectModel>();
    m_view = std::make_unique<ProjectTreeView>();
    m_view->setEditTriggers(QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed);
    m_view->setDragEnabled(true);
    m_view->setDragDropOverwriteMode(false);
    m_view->setDragDropMode(QAbstractItemView::DragDrop);
    m_view->setDefaultDropAction(Qt::MoveAction);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->header()->hide();
    m_view->setModel(m_model.get());
    m_view->setRootIndex(m_model->setRootPath(TestHome::instance()->projectsRoot()));
    m_view->resize(300, 400);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    m_view->setFocus();
    for (const QString &file : files) {
        m_view->expand(indexOf(QFileInfo(file).path()));
        QTRY_VERIFY(!m_view->visualRect(indexOf(file)).isEmpty());
    }
    // The model puts new rows in order a moment after it tells of them.
    QTRY_VERIFY(rowsAreInOrder(m_view->rootIndex()));
}

bool TestProjectTreeView::rowsAreInOrder(const QModelIndex &parent) const
{
    const auto order = [this](const QModelIndex &index) {
        return (m_model->isDir(index) ? '0' : '1') + m_model->fileName(index);
    };
    for (int row = 0; row < m_model->rowCount(parent); ++row) {
        const QModelIndex index = m_model->index(row, 0, parent);
        if (row > 0 && order(m_model->index(row - 1, 0, parent)) > order(index))
            return false;
        if (!rowsAreInOrder(index))
            return false;
    }
    return true;
}

void TestProjectTreeView::select(const QStringList &files)
{
    for (const QString &file : files)
        m_view->selectionModel()->select(indexOf(file), QItemSelectionModel::Select);
    m_view->selectionModel()->setCurrentIndex(indexOf(files.last()), QItemSelectionModel::NoUpdate);
}

/// Drops files from another program on a row; returns whether the drop was accepted.
bool TestProjectTreeView::drop(const QStringList &paths, const QString &target, Qt::DropActions actions)
{
    const std::unique_ptr<QMimeData> data(urlsOf(paths));
    QWidget *viewport = m_view->viewport();
    QDragEnterEvent enter(placeOf(target), actions, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &enter);
    QDragMoveEvent move(placeOf(target), actions, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &move);
    if (!enter.isAccepted() || !move.isAccepted()) {
        QTest::qFail("the tree does not take the drag", __FILE__, __LINE__);
        return false;
    }
    QDropEvent event(placeOf(target), actions, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &event);
    return event.isAccepted();
}

void TestProjectTreeView::deleteMovesTheSelectionToTheTrash()
{
    show({"a.kelir", "b.kelir"});
    select({"b.kelir"});
    BoxWatcher watcher;
    const TrashQuestion question(watcher, "\"b.kelir\"");
    QTest::keyClick(m_view.get(), Qt::Key_Delete);
    QVERIFY(QFileInfo::exists(inRoot("a.kelir")));
    QVERIFY(!QFileInfo::exists(inRoot("b.kelir")));
    QTRY_COMPARE(m_model->rowCount(m_view->rootIndex()), 1);
}

void TestProjectTreeView::deleteWithFiveSelectedItemsAsksOnce()
{
    const QStringList files{"a.kelir", "b.kelir", "c.kelir", "d.kelir", "Job/e.kelir"};
    show(files);
    select(files);
    BoxWatcher watcher;
    const TrashQuestion question(watcher, "these 5 items");
    QTest::keyClick(m_view.get(), Qt::Key_Delete);
    QCOMPARE(question.timesAsked(), 1);
    for (const QString &file : files)
        QVERIFY2(!QFileInfo::exists(inRoot(file)), qPrintable(file));
    QCOMPARE(Trash::names(), QStringList({"a.kelir", "b.kelir", "c.kelir", "d.kelir", "e.kelir"}));
}

void TestProjectTreeView::deleteWithoutSelectionAsksNothing()
{
    show({"a.kelir"});
    m_view->clearSelection();
    BoxWatcher watcher;
    QTest::keyClick(m_view.get(), Qt::Key_Delete);
    QCOMPARE(watcher.boxes().size(), 0);
    QVERIFY(QFileInfo::exists(inRoot("a.kelir")));
}

void TestProjectTreeView::otherKeysReachTheTree()
{
    show({"a.kelir", "b.kelir"});
    select({"a.kelir"});
    m_view->setCurrentIndex(indexOf("a.kelir"));
    QTest::keyClick(m_view.get(), Qt::Key_Down);
    QCOMPARE(m_view->currentIndex(), indexOf("b.kelir"));
}

void TestProjectTreeView::renamingInPlaceRenamesOnTheDisk()
{
    show({"Job/a.kelir"});
    m_view->setCurrentIndex(indexOf("Job"));
    QTest::keyClick(m_view.get(), Qt::Key_F2);
    auto *editor = m_view->viewport()->findChild<QLineEdit *>();
    QVERIFY(editor);
    editor->selectAll();
    QTest::keyClicks(editor, "Roof");
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_VERIFY(QFileInfo::exists(inRoot("Roof/a.kelir")));
    QVERIFY(!QFileInfo::exists(inRoot("Job")));
}

void TestProjectTreeView::deleteWhileRenamingEditsTheName()
{
    show({"a.kelir"});
    m_view->setCurrentIndex(indexOf("a.kelir"));
    QTest::keyClick(m_view.get(), Qt::Key_F2);
    auto *editor = m_view->viewport()->findChild<QLineEdit *>();
    QVERIFY(editor);
    BoxWatcher watcher;
    editor->setCursorPosition(0);
    QTest::keyClick(editor, Qt::Key_Delete);
    QCOMPARE(watcher.boxes().size(), 0);
    QCOMPARE(editor->text(), QString(".kelir"));
    QTest::keyClick(editor, Qt::Key_Escape);
    QVERIFY(QFileInfo::exists(inRoot("a.kelir")));
}

void TestProjectTreeView::draggingWithinTheTreeMovesWithoutAQuestion()
{
    show({"From/a.kelir", "To/b.kelir"});
    BoxWatcher watcher;
    QWidget *viewport = m_view->viewport();
    const QPoint from = placeOf("From/a.kelir");
    const QPoint to = placeOf("To");
    QWindow *window = m_view->windowHandle();
    const auto inWindow = [&](const QPoint &place) { return viewport->mapTo(m_view.get(), place); };

    // The drag runs a loop of its own inside the move that begins it, so each thing the hand does has
    // its own timer.
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, inWindow(from));
    const QVector<QPoint> way{from + QPoint(20, 0), from + QPoint(30, 5), to + QPoint(5, 0), to};
    for (int i = 0; i < way.size(); ++i)
        QTimer::singleShot(100 * (i + 1), this, [&, i] { QTest::mouseMove(window, inWindow(way.at(i))); });
    QTimer::singleShot(600, this, [&] { QTest::mouseRelease(window, Qt::LeftButton, {}, inWindow(to)); });
    QTRY_VERIFY(QFileInfo::exists(inRoot("To/a.kelir")));
    QVERIFY(!QFileInfo::exists(inRoot("From/a.kelir")));
    QVERIFY(QFileInfo::exists(inRoot("To/b.kelir")));
    QCOMPARE(watcher.boxes().size(), 0);
}

void TestProjectTreeView::dragFromAnotherProgram(const QStringList &paths, const QString &target)
{
    const QPoint place = m_view->viewport()->mapToGlobal(placeOf(target));
    QProcess program;
    program.start(KELMAR_DRAG_SOURCE,
                  QStringList{QString::number(place.x()), QString::number(place.y())} + paths);
    if (!QTest::qWaitFor([&] { return program.state() == QProcess::NotRunning; }, 10000))
        QTest::qFail("the drag does not end", __FILE__, __LINE__);
}

void TestProjectTreeView::draggingFromAnotherProgramAsksAndCopies()
{
    show({"Job/a.kelir"});
    writeFile(outside("1.csv"), "1");
    writeFile(outside("2.csv"), "2");
    BoxWatcher watcher;
    watcher.expect("This will copy 2 files to your project area.", QMessageBox::Yes);
    dragFromAnotherProgram({outside("1.csv"), outside("2.csv")}, "Job");
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(readFile(inRoot("Job/1.csv")), QByteArray("1"));
    QCOMPARE(readFile(inRoot("Job/2.csv")), QByteArray("2"));
    QVERIFY(QFileInfo::exists(outside("1.csv")));
}

void TestProjectTreeView::refusedDragFromAnotherProgramCopiesNothing()
{
    show({"Job/a.kelir"});
    writeFile(outside("results.csv"), "r");
    BoxWatcher watcher;
    watcher.expect("This will copy \"" + outside("results.csv") + "\"", QMessageBox::No);
    dragFromAnotherProgram({outside("results.csv")}, "Job");
    QCOMPARE(watcher.boxes().size(), 1);
    QVERIFY(!QFileInfo::exists(inRoot("Job/results.csv")));
}

void TestProjectTreeView::oneFileFromOutsideIsNamedInTheQuestion()
{
    show({"Job/a.kelir"});
    writeFile(outside("results.csv"), "r");
    BoxWatcher watcher;
    watcher.expect("This will copy", QMessageBox::Yes);
    QVERIFY(drop({outside("results.csv")}, "Job"));
    QCOMPARE(watcher.boxes().size(), 1);
    const BoxWatcher::Box box = watcher.boxes().first();
    QCOMPARE(box.text, "This will copy \"" + outside("results.csv") + "\" to you project area.");
    QCOMPARE(box.informativeText, QString("Do you want to proceed?"));
    QCOMPARE(box.icon, QMessageBox::Question);
    QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(box.parent, m_view.get());
    QCOMPARE(readFile(inRoot("Job/results.csv")), QByteArray("r"));
    QVERIFY(QFileInfo::exists(outside("results.csv")));
}

void TestProjectTreeView::twoFilesFromOutsideAskOnceWithTheirNumber()
{
    show({"Job/a.kelir"});
    writeFile(outside("1.csv"), "1");
    writeFile(outside("2.csv"), "2");
    BoxWatcher watcher;
    watcher.expect("This will copy 2 files to your project area.", QMessageBox::Yes);
    QVERIFY(drop({outside("1.csv"), outside("2.csv")}, "Job"));
    QCOMPARE(watcher.boxes().size(), 1);
    QVERIFY(QFileInfo::exists(inRoot("Job/1.csv")));
    QVERIFY(QFileInfo::exists(inRoot("Job/2.csv")));
}

void TestProjectTreeView::refusedDropLeavesTheDiskAndTheViewAsTheyWere()
{
    show({"Job/a.kelir"});
    writeFile(outside("results.csv"), "r");
    BoxWatcher watcher;
    watcher.expect("This will copy", QMessageBox::No);
    QVERIFY(!drop({outside("results.csv")}, "Job"));
    QVERIFY(!QFileInfo::exists(inRoot("Job/results.csv")));
    // A view that still believed in a drag would not take up the selection by mouse.
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier, placeOf("Job/a.kelir"));
    QCOMPARE(m_view->selectionModel()->selectedIndexes(), QModelIndexList{indexOf("Job/a.kelir")});
}

void TestProjectTreeView::actionOfTheSourceIsKept()
{
    show({"Job/a.kelir"});
    writeFile(outside("results.csv"), "r");
    BoxWatcher watcher;
    watcher.expect("This will copy", QMessageBox::Yes);
    QVERIFY(drop({outside("results.csv")}, "Job", Qt::MoveAction));
    QVERIFY(QFileInfo::exists(inRoot("Job/results.csv")));
    QVERIFY(!QFileInfo::exists(outside("results.csv")));
}

void TestProjectTreeView::modelOfAnotherClassCannotBeDeletedFrom()
{
    show({"a.kelir"});
    QStandardItemModel other;
    other.appendRow(new QStandardItem("a.kelir"));
    static_cast<QAbstractItemView *>(m_view.get())->setModel(&other);
    m_view->setCurrentIndex(other.index(0, 0));
    BoxWatcher watcher;
    QTest::keyClick(m_view.get(), Qt::Key_Delete);
    QCOMPARE(watcher.boxes().size(), 0);
    QCOMPARE(other.rowCount(), 1);
    m_view.reset();
}

KELMAR_TEST_MAIN(TestProjectTreeView)
#include "tst_projecttreeview.moc"
