#include "app/core/Shell.h"
#include "browser/ProjectModel.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"
#include "tests/support/Trash.h"

namespace {

/// A main window for the boxes to belong to.
class Window : public QWidget, public Shell
{
public:
    QWidget *window() override { return this; }
    void import() override {}
    void download() override {}
};

} // namespace

/// The program's question before files go to the trash, where the system does not ask by itself.
class TestTrashQuestion : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void fiveItemsGoToTheTrashWithOneQuestion();
    void oneItemIsNamedInTheQuestion();
    void refusingTheQuestionKeepsTheFiles();
    void childOfASelectedFolderGoesWithItsFolder();
    void neighbourWithALongerNameCountsByItself();
    void itemsThatCannotBeMovedAreNamed();
    void questionBelongsToTheMainWindow();

private:
    QString inRoot(const QString &relative) const
    {
        return TestHome::instance()->projectsRoot() + '/' + relative;
    }
    QString trashed(const QString &name) const
    {
        return TestHome::instance()->path("share/Trash/files/" + name);
    }
    QModelIndex indexOf(const QString &relative) const { return m_model->index(inRoot(relative)); }

    std::unique_ptr<ProjectModel> m_model;
};

void TestTrashQuestion::init()
{
    TestHome::instance()->reset();
    Trash::startEmpty();
    m_model = std::make_unique<ProjectModel>();
    m_model->setRootPath(TestHome::instance()->projectsRoot());
}

void TestTrashQuestion::fiveItemsGoToTheTrashWithOneQuestion()
{
    QModelIndexList indexes;
    for (int i = 1; i <= 4; ++i) {
        writeFile(inRoot(QString("file%1.kelir").arg(i)), QByteArray::number(i));
        indexes.append(indexOf(QString("file%1.kelir").arg(i)));
    }
    writeFile(inRoot("Job/inside.kelir"), "5");
    indexes.append(indexOf("Job"));

    BoxWatcher watcher;
    watcher.expect("these 5 items", QMessageBox::Yes);
    m_model->removeFiles(indexes);
    QCOMPARE(watcher.boxes().size(), 1);
    QCOMPARE(watcher.boxes().first().icon, QMessageBox::Question);
    QCOMPARE(watcher.boxes().first().buttons, QMessageBox::Yes | QMessageBox::No);
    QVERIFY(QDir(TestHome::instance()->projectsRoot()).isEmpty());
    QCOMPARE(readFile(trashed("file3.kelir")), QByteArray("3"));
    QCOMPARE(readFile(trashed("Job/inside.kelir")), QByteArray("5"));
}

void TestTrashQuestion::oneItemIsNamedInTheQuestion()
{
    writeFile(inRoot("100 %1.kelir"), "x");
    BoxWatcher watcher;
    watcher.expect("\"100 %1.kelir\"", QMessageBox::Yes);
    m_model->removeFiles({indexOf("100 %1.kelir")});
    QVERIFY(!QFileInfo::exists(inRoot("100 %1.kelir")));
    QVERIFY(QFileInfo::exists(trashed("100 %1.kelir")));
}

void TestTrashQuestion::refusingTheQuestionKeepsTheFiles()
{
    writeFile(inRoot("site.kelir"), "x");
    BoxWatcher watcher;
    watcher.expect("site.kelir", QMessageBox::No);
    m_model->removeFiles({indexOf("site.kelir")});
    QVERIFY(QFileInfo::exists(inRoot("site.kelir")));
}

void TestTrashQuestion::childOfASelectedFolderGoesWithItsFolder()
{
    writeFile(inRoot("Job/Deeper/site.kelir"), "x");
    BoxWatcher watcher;
    watcher.expect("\"Job\"", QMessageBox::Yes);
    m_model->removeFiles({indexOf("Job/Deeper/site.kelir"), indexOf("Job"), indexOf("Job/Deeper")});
    QCOMPARE(watcher.boxes().size(), 1);
    QVERIFY(QFileInfo::exists(trashed("Job/Deeper/site.kelir")));
    QVERIFY(!QFileInfo::exists(trashed("site.kelir")));
}

void TestTrashQuestion::neighbourWithALongerNameCountsByItself()
{
    writeFile(inRoot("Job/site.kelir"), "x");
    writeFile(inRoot("Job 2/site.kelir"), "x");
    BoxWatcher watcher;
    watcher.expect("these 2 items", QMessageBox::Yes);
    m_model->removeFiles({indexOf("Job"), indexOf("Job 2")});
    QVERIFY(QDir(TestHome::instance()->projectsRoot()).isEmpty());
}

void TestTrashQuestion::itemsThatCannotBeMovedAreNamed()
{
    // With what the trash adds to it, the name gets longer than a name may be.
    const QString tooLong = QString(244, 'n') + ".kelir";
    writeFile(inRoot(tooLong), "x");
    writeFile(inRoot("goes.kelir"), "x");
    BoxWatcher watcher;
    watcher.expect("these 2 items", QMessageBox::Yes);
    watcher.expect("Could not move to the trash", QMessageBox::Ok);
    m_model->removeFiles({indexOf(tooLong), indexOf("goes.kelir")});
    QCOMPARE(watcher.boxes().size(), 2);
    QCOMPARE(watcher.boxes().last().icon, QMessageBox::Warning);
    QCOMPARE(watcher.texts().last(), "Could not move to the trash:\n" + inRoot(tooLong));
    QVERIFY(QFileInfo::exists(inRoot(tooLong)));
    QVERIFY(QFileInfo::exists(trashed("goes.kelir")));
}

void TestTrashQuestion::questionBelongsToTheMainWindow()
{
    Window window;
    writeFile(inRoot("site.kelir"), "x");
    BoxWatcher watcher;
    watcher.expect("site.kelir", QMessageBox::No);
    m_model->removeFiles({indexOf("site.kelir")});
    QCOMPARE(watcher.boxes().first().parent, &window);
}

KELMAR_TEST_MAIN(TestTrashQuestion)
#include "tst_trashquestion.moc"
