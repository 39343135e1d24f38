#include "app/core/Folders.h"
#include "app/document/AbstractDocument.h"
#include "browser/ProjectTreeView.h"
#include "curve/data/CurveTree.h"
#include "tests/app/shell/Desk.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/HiddenFile.h"
#include "tests/support/TestMain.h"
#include "tests/support/TrashQuestion.h"

#include <QAction>
#include <QDialog>
#include <QFileSystemWatcher>
#include <QGraphicsView>
#include <QMdiArea>
#include <QMenu>
#include <QPointer>
#include <QSignalSpy>
#include <QTabBar>
#include <QToolBar>

class TestOpenDocuments : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_desk.reset(); }

    void selectedFileBringsItsTabToTheFront();
    void activatedTabSelectsItsFile();
    void selectingAFolderLeavesTheTabs();
    void saveFollowsTheActiveDocument();
    void saveFollowsTheChangesOfTheActiveDocumentOnly();
    void keyOfSaveSavesWithTheFocusInTheReport();
    void keyOfSaveSavesWithTheFocusInTheTree();
    void keyOfSaveSavesWithTheFocusInATreeOfCurves();
    void keyOfSaveDoesNothingForAnUnchangedDocument();
    void saveInTheMenuSavesTheActiveDocument();

    void fileRemovedFromASubfolderClosesItsTab();
    void changedDocumentAsksWhenItsFileIsRemoved();
    void cancelledQuestionKeepsTheDocumentWithoutItsFile();
    void fileRemovedUnderADialogOrMenuClosesItsTabAfterwards_data();
    void fileRemovedUnderADialogOrMenuClosesItsTabAfterwards();
    void fileThatComesBackUnderADialogKeepsItsTab();
    void fileRemovedFromTheRootKeepsItsTab();
    void folderMadeLaterIsWatchedAfterTheNextSettingOfTheRoot();
    void hiddenFolderIsNotWatched();
    void deletingInTheTreeClosesTheTab();

    void windowWithChangedDocumentsAsksBeforeItCloses();
    void windowCanGoWithDocumentsStillOpen();
    void windowStaysWhileAMenuIsOpen();

private:
    AbstractDocument *open(const QString &relative) const
    {
        AbstractDocument *document = m_desk->window->openDocument(Desk::path(relative));
        QTest::qWait(1);
        return document;
    }
    QAction *save() const { return m_desk->action("actionSave"); }
    /// Waits long enough for a change on the disk to be told.
    static void waitForTheDisk() { QTest::qWait(400); }

    std::unique_ptr<Desk> m_desk;
};

void TestOpenDocuments::init()
{
    Desk::clear();
    for (const char *name :
         {"Job 1/one.kelatr", "Job 1/two.kelatr", "Job 2/Deep/three.kelatr", "root.kelatr"})
        Desk::addReport(name);
    m_desk = std::make_unique<Desk>();
}

void TestOpenDocuments::selectedFileBringsItsTabToTheFront()
{
    const AbstractDocument *one = open("Job 1/one.kelatr");
    const AbstractDocument *two = open("Job 1/two.kelatr");
    QCOMPARE(m_desk->window->activeDocument(), two);
    m_desk->click("Job 1/one.kelatr");
    QCOMPARE(m_desk->window->activeDocument(), one);
    QCOMPARE(m_desk->tabs()->currentIndex(), 0);
}

void TestOpenDocuments::activatedTabSelectsItsFile()
{
    open("Job 1/one.kelatr");
    open("Job 2/Deep/three.kelatr");
    QCOMPARE(m_desk->selected(), QStringList{"Job 2/Deep/three.kelatr"});
    QTest::mouseClick(m_desk->tabs(), Qt::LeftButton, Qt::NoModifier, m_desk->tabs()->tabRect(0).center());
    QCOMPARE(m_desk->selected(), QStringList{"Job 1/one.kelatr"});
    QCOMPARE(m_desk->current(), QString("Job 1/one.kelatr"));
}

void TestOpenDocuments::selectingAFolderLeavesTheTabs()
{
    const AbstractDocument *one = open("Job 1/one.kelatr");
    m_desk->click("Job 2");
    QCOMPARE(m_desk->window->activeDocument(), one);
    QCOMPARE(m_desk->selected(), QStringList{"Job 2"});
}

void TestOpenDocuments::saveFollowsTheActiveDocument()
{
    AbstractDocument *one = open("Job 1/one.kelatr");
    AbstractDocument *two = open("Job 1/two.kelatr");
    QVERIFY(!save()->isEnabled());
    one->setModified(true);
    QVERIFY(!save()->isEnabled());
    m_desk->window->setActiveDocument(one);
    QVERIFY(save()->isEnabled());
    m_desk->window->setActiveDocument(two);
    QVERIFY(!save()->isEnabled());
    one->setModified(false);
}

void TestOpenDocuments::saveFollowsTheChangesOfTheActiveDocumentOnly()
{
    AbstractDocument *one = open("Job 1/one.kelatr");
    AbstractDocument *two = open("Job 1/two.kelatr");
    two->setModified(true);
    QVERIFY(save()->isEnabled());
    one->setModified(true);
    one->setModified(false);
    QVERIFY(save()->isEnabled());
    two->setModified(false);
    QVERIFY(!save()->isEnabled());
}

void TestOpenDocuments::keyOfSaveSavesWithTheFocusInTheReport()
{
    AbstractDocument *document = open("Job 1/one.kelatr");
    auto *view = document->findChild<QGraphicsView *>();
    view->setFocus();
    QVERIFY(view->hasFocus());
    document->setModified(true);
    writeFile(document->filePath(), "overwritten by the save");
    QTest::keyClick(view, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!document->isModified());
    QVERIFY(readFile(document->filePath()) != "overwritten by the save");
}

void TestOpenDocuments::keyOfSaveSavesWithTheFocusInTheTree()
{
    AbstractDocument *document = open("Job 1/one.kelatr");
    m_desk->tree->setFocus();
    QVERIFY(m_desk->tree->hasFocus());
    document->setModified(true);
    writeFile(document->filePath(), "overwritten by the save");
    QTest::keyClick(m_desk->tree, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!document->isModified());
    QVERIFY(readFile(document->filePath()) != "overwritten by the save");
}

void TestOpenDocuments::keyOfSaveSavesWithTheFocusInATreeOfCurves()
{
    writeFile(Desk::path("Job 1/curves.kelcrv"), readFile(":/res/reports_en/default.kelcrv"));
    AbstractDocument *document = open("Job 1/curves.kelcrv");
    auto *view = document->findChild<IVCurve::CurveTree *>();
    view->setFocus();
    QTRY_VERIFY(view->hasFocus());
    QTest::keyClick(view, Qt::Key_Insert);
    QVERIFY(document->isModified());
    QVERIFY(save()->isEnabled());
    QTest::keyClick(view, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!document->isModified());
    QVERIFY(!save()->isEnabled());
    QVERIFY(!document->findChild<QAction *>("actionSave")->isEnabled());
    // With the keyboard in the tool bar, too.
    QTest::keyClick(view, Qt::Key_Insert);
    QVERIFY(document->isModified());
    auto *bar = document->findChild<QToolBar *>();
    QWidget *button = bar->widgetForAction(document->findChild<QAction *>("actionShowIV"));
    button->setFocus();
    QTRY_VERIFY(button->hasFocus());
    QTest::keyClick(button, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!document->isModified());
    // The key of the tree's rows does nothing in the tree of projects.
    m_desk->tree->setFocus();
    QTRY_VERIFY(m_desk->tree->hasFocus());
    QTest::keyClick(m_desk->tree, Qt::Key_Insert);
    QVERIFY(!document->isModified());
}

void TestOpenDocuments::fileRemovedUnderADialogOrMenuClosesItsTabAfterwards_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"dialog of the document", "dialog of the window", "menu"})
        QTest::newRow(kind) << QString(kind);
}

void TestOpenDocuments::fileRemovedUnderADialogOrMenuClosesItsTabAfterwards()
{
    QFETCH(QString, kind);
    writeFile(Desk::path("Job 1/curves.kelcrv"), readFile(":/res/reports_en/default.kelcrv"));
    const QPointer<AbstractDocument> document = open("Job 1/curves.kelcrv");
    QSignalSpy told(m_desk->window->findChild<QFileSystemWatcher *>(), &QFileSystemWatcher::directoryChanged);
    bool stayed = false;
    // What is waited for would be the document's, or come back to it.
    const auto removeAndWait = [&](QWidget *awaited) {
        QVERIFY(QFile::remove(Desk::path("Job 1/curves.kelcrv")));
        QTRY_VERIFY(!told.isEmpty());
        QTest::qWait(300);
        stayed = document && m_desk->openNames() == QStringList{"curves.kelcrv"};
        awaited->close();
    };
    if (kind == "menu") {
        QMenu menu;
        menu.addAction("entry");
        QTimer::singleShot(0, &menu, [&] { removeAndWait(&menu); });
        menu.exec(m_desk->window->geometry().center());
    } else {
        QDialog dialog(kind == "dialog of the document" ? static_cast<QWidget *>(document)
                                                        : m_desk->window.get());
        QTimer::singleShot(0, &dialog, [&] { removeAndWait(&dialog); });
        dialog.exec();
    }
    QVERIFY(stayed);
    QTRY_VERIFY(!document);
    QVERIFY(m_desk->openNames().isEmpty());
}

void TestOpenDocuments::fileThatComesBackUnderADialogKeepsItsTab()
{
    const QByteArray report = readFile(Desk::path("Job 1/one.kelatr"));
    const AbstractDocument *document = open("Job 1/one.kelatr");
    QSignalSpy told(m_desk->window->findChild<QFileSystemWatcher *>(), &QFileSystemWatcher::directoryChanged);
    {
        QDialog dialog(m_desk->window.get());
        QTimer::singleShot(0, &dialog, [&] {
            QVERIFY(QFile::remove(document->filePath()));
            QTRY_VERIFY(!told.isEmpty());
            writeFile(document->filePath(), report);
            dialog.close();
        });
        dialog.exec();
    }
    waitForTheDisk();
    QCOMPARE(m_desk->openNames(), QStringList{"one.kelatr"});
}

void TestOpenDocuments::windowStaysWhileAMenuIsOpen()
{
    const QPointer<AbstractDocument> document = open("Job 1/one.kelatr");
    QMenu menu;
    menu.addAction("entry");
    bool closed = true;
    QTimer::singleShot(0, &menu, [&] {
        // As a window manager or the end of a session asks for it.
        closed = m_desk->window->close();
        menu.close();
    });
    menu.exec(m_desk->window->geometry().center());
    QVERIFY(!closed);
    QVERIFY(document);
    QVERIFY(m_desk->window->isVisible());
    QVERIFY(m_desk->window->close());
    QTRY_VERIFY(!document);
}

void TestOpenDocuments::keyOfSaveDoesNothingForAnUnchangedDocument()
{
    const AbstractDocument *document = open("Job 1/one.kelatr");
    writeFile(document->filePath(), "left as it is");
    QTest::keyClick(document->findChild<QGraphicsView *>(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(readFile(document->filePath()), QByteArray("left as it is"));
}

void TestOpenDocuments::saveInTheMenuSavesTheActiveDocument()
{
    AbstractDocument *one = open("Job 1/one.kelatr");
    AbstractDocument *two = open("Job 1/two.kelatr");
    one->setModified(true);
    two->setModified(true);
    save()->trigger();
    QVERIFY(one->isModified());
    QVERIFY(!two->isModified());
    one->setModified(false);
    m_desk->window->closeDocument(one);
    m_desk->window->closeDocument(two);
    QTRY_VERIFY(m_desk->window->documents().isEmpty());
    // Without a document there is nothing to save.
    QVERIFY(QMetaObject::invokeMethod(m_desk->window.get(), "save"));
}

void TestOpenDocuments::fileRemovedFromASubfolderClosesItsTab()
{
    const BoxWatcher watcher;
    open("Job 1/one.kelatr");
    open("Job 2/Deep/three.kelatr");
    QVERIFY(QFile::remove(Desk::path("Job 2/Deep/three.kelatr")));
    QTRY_COMPARE(m_desk->openNames(), QStringList{"one.kelatr"});
    QVERIFY(QFile::remove(Desk::path("Job 1/one.kelatr")));
    QTRY_VERIFY(m_desk->openNames().isEmpty());
}

void TestOpenDocuments::changedDocumentAsksWhenItsFileIsRemoved()
{
    BoxWatcher watcher;
    watcher.expect("Save changes to one.kelatr?", QMessageBox::No);
    open("Job 1/one.kelatr")->setModified(true);
    QVERIFY(QFile::remove(Desk::path("Job 1/one.kelatr")));
    QTRY_VERIFY(m_desk->openNames().isEmpty());
    QVERIFY(!QFileInfo::exists(Desk::path("Job 1/one.kelatr")));
}

void TestOpenDocuments::cancelledQuestionKeepsTheDocumentWithoutItsFile()
{
    BoxWatcher watcher;
    watcher.expect("Save changes to one.kelatr?", QMessageBox::Cancel);
    AbstractDocument *document = open("Job 1/one.kelatr");
    document->setModified(true);
    QVERIFY(QFile::remove(Desk::path("Job 1/one.kelatr")));
    QTRY_COMPARE(watcher.boxes().size(), 1);
    QCOMPARE(m_desk->openNames(), QStringList{"one.kelatr"});
    document->save();
    QVERIFY(QFileInfo::exists(Desk::path("Job 1/one.kelatr")));
}

void TestOpenDocuments::fileRemovedFromTheRootKeepsItsTab()
{
    open("root.kelatr");
    QVERIFY(QFile::remove(Desk::path("root.kelatr")));
    waitForTheDisk();
    QCOMPARE(m_desk->openNames(), QStringList{"root.kelatr"});
}

void TestOpenDocuments::folderMadeLaterIsWatchedAfterTheNextSettingOfTheRoot()
{
    Desk::addReport("Later/four.kelatr");
    Desk::addReport("Later/five.kelatr");
    open("Later/four.kelatr");
    open("Later/five.kelatr");
    QVERIFY(QFile::remove(Desk::path("Later/four.kelatr")));
    waitForTheDisk();
    QCOMPARE(m_desk->openNames(), (QStringList{"four.kelatr", "five.kelatr"}));
    QVERIFY(Folders::instance()->setProjectsRoot(TestHome::instance()->projectsRoot()));
    QVERIFY(QFile::remove(Desk::path("Later/five.kelatr")));
    // Whatever folder is told of, every open document is looked after.
    QTRY_VERIFY(m_desk->openNames().isEmpty());
}

void TestOpenDocuments::hiddenFolderIsNotWatched()
{
    Desk::addReport(".hidden/secret.kelatr");
    hide(Desk::path(".hidden"));
    QVERIFY(Folders::instance()->setProjectsRoot(TestHome::instance()->projectsRoot()));
    open(".hidden/secret.kelatr");
    QVERIFY(QFile::remove(Desk::path(".hidden/secret.kelatr")));
    waitForTheDisk();
    QCOMPARE(m_desk->openNames(), QStringList{"secret.kelatr"});
}

void TestOpenDocuments::deletingInTheTreeClosesTheTab()
{
    BoxWatcher watcher;
    const TrashQuestion question(watcher, "to the trash?");
    open("Job 1/one.kelatr");
    QTRY_COMPARE(m_desk->current(), QString("Job 1/one.kelatr"));
    m_desk->tree->setFocus();
    QTest::keyClick(m_desk->tree, Qt::Key_Delete);
    QTRY_VERIFY(m_desk->openNames().isEmpty());
    QVERIFY(!QFileInfo::exists(Desk::path("Job 1/one.kelatr")));
}

void TestOpenDocuments::windowWithChangedDocumentsAsksBeforeItCloses()
{
    BoxWatcher watcher;
    watcher.expect("Save changes to two.kelatr?", QMessageBox::No);
    watcher.expect("Save changes to one.kelatr?", QMessageBox::Cancel);
    open("Job 1/one.kelatr")->setModified(true);
    open("Job 1/two.kelatr")->setModified(true);
    QVERIFY(!m_desk->window->close());
    QTRY_COMPARE(m_desk->openNames(), QStringList{"one.kelatr"});
    QCOMPARE(watcher.boxes().first().parent, static_cast<QWidget *>(m_desk->window.get()));
}

void TestOpenDocuments::windowCanGoWithDocumentsStillOpen()
{
    const QPointer<AbstractDocument> one = open("Job 1/one.kelatr");
    open("Job 1/two.kelatr")->setModified(true);
    m_desk.reset();
    QVERIFY(!one);
}

KELMAR_TEST_MAIN(TestOpenDocuments)
#include "tst_opendocuments.moc"
