#include "app/core/DocumentType.h"
#include "browser/ProjectModel.h"
#include "browser/ProjectTreeView.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

namespace {

QImage picture(const QVariant &icon)
{
    return icon.value<QIcon>().pixmap(32).toImage();
}

QImage picture(const char *name)
{
    return QIcon(QStringLiteral(":res/fileTypes/%1.png").arg(QLatin1String(name))).pixmap(32).toImage();
}

} // namespace

/// The tree while another program works below the projects root.
class TestLiveTree : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void filesMadeElsewhereAppear();
    void filesRenamedElsewhereChangeTheirName();
    void filesDeletedElsewhereGo();
    void foldersMadeAndDeletedElsewhereFollow();
    void openFolderThatIsRenamedElsewhereKeepsItsContents();
    void handoverPackFollowsItsChecklist();
    void manyChangesAtOnceEndInTheStateOfTheDisk();
    void fileThatReplacesAnotherIsOneEntry();
    void selectionSurvivesWhatHappensBesideIt();

private:
    static QString root() { return TestHome::instance()->projectsRoot(); }
    /// Has a shell do something in the projects root, and waits for its end.
    static void elsewhere(const char *script);
    QModelIndex indexOf(const QString &relative) const
    {
        return m_model->index(relative.isEmpty() ? root() : root() + '/' + relative);
    }
    QStringList shown(const QString &folder = QString()) const;

    std::unique_ptr<ProjectModel> m_model;
    std::unique_ptr<ProjectTreeView> m_view;
    std::unique_ptr<BoxWatcher> m_watcher;
};

void TestLiveTree::init()
{
    TestHome::instance()->reset();
    m_watcher = std::make_unique<BoxWatcher>();
    for (const char *name : {"a.kelir", "b.kelir", "Job/c.kelir"})
        writeFile(root() + '/' + name, "x");
    m_model = std::make_unique<ProjectModel>();
    m_view = std::make_unique<ProjectTreeView>();
    m_view->setModel(m_model.get());
    m_view->setRootIndex(m_model->setRootPath(root()));
    m_view->resize(300, 400);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
    m_view->expand(indexOf("Job"));
    QTRY_COMPARE(shown(), (QStringList{"Job", "a.kelir", "b.kelir"}));
    QTRY_COMPARE(shown("Job"), QStringList{"c.kelir"});
}

void TestLiveTree::cleanup()
{
    QCOMPARE(m_watcher->boxes().size(), 0);
    m_view.reset();
    m_model.reset();
    m_watcher.reset();
}

void TestLiveTree::elsewhere(const char *script)
{
    QProcess shell;
    shell.setWorkingDirectory(root());
    shell.start("sh", {"-e", "-c", script});
    QVERIFY(shell.waitForFinished(patience));
    QCOMPARE(shell.exitCode(), 0);
}

QStringList TestLiveTree::shown(const QString &folder) const
{
    QStringList names;
    const QModelIndex parent = indexOf(folder);
    for (int row = 0; row < m_model->rowCount(parent); ++row)
        names.append(m_model->index(row, 0, parent).data().toString());
    names.sort();
    return names;
}

void TestLiveTree::filesMadeElsewhereAppear()
{
    elsewhere("echo x > new.kelatr; echo x > Job/deeper.kelvc");
    QTRY_COMPARE(shown(), (QStringList{"Job", "a.kelir", "b.kelir", "new.kelatr"}));
    QTRY_COMPARE(shown("Job"), (QStringList{"c.kelir", "deeper.kelvc"}));
    QCOMPARE(picture(indexOf("new.kelatr").data(Qt::DecorationRole)),
             picture(documentIcon(root() + "/new.kelatr")));
}

void TestLiveTree::filesRenamedElsewhereChangeTheirName()
{
    elsewhere("mv a.kelir z.kelir; mv Job/c.kelir Job/d.kelir");
    QTRY_COMPARE(shown(), (QStringList{"Job", "b.kelir", "z.kelir"}));
    QTRY_COMPARE(shown("Job"), QStringList{"d.kelir"});
}

void TestLiveTree::filesDeletedElsewhereGo()
{
    elsewhere("rm a.kelir Job/c.kelir");
    QTRY_COMPARE(shown(), (QStringList{"Job", "b.kelir"}));
    QTRY_COMPARE(shown("Job"), QStringList());
}

void TestLiveTree::foldersMadeAndDeletedElsewhereFollow()
{
    elsewhere("mkdir -p Roof/East; echo x > Roof/East/e.kelir; rm -r Job");
    QTRY_COMPARE(shown(), (QStringList{"Roof", "a.kelir", "b.kelir"}));
    m_view->expand(indexOf("Roof"));
    QTRY_COMPARE(shown("Roof"), QStringList{"East"});
    m_view->expand(indexOf("Roof/East"));
    QTRY_COMPARE(shown("Roof/East"), QStringList{"e.kelir"});
}

void TestLiveTree::openFolderThatIsRenamedElsewhereKeepsItsContents()
{
    elsewhere("mv Job Barn");
    QTRY_COMPARE(shown(), (QStringList{"Barn", "a.kelir", "b.kelir"}));
    m_view->expand(indexOf("Barn"));
    QTRY_COMPARE(shown("Barn"), QStringList{"c.kelir"});
}

void TestLiveTree::handoverPackFollowsItsChecklist()
{
    const auto icon = [this] { return picture(indexOf("Job").data(Qt::DecorationRole)); };
    QCOMPARE(icon(), picture("folder"));
    elsewhere("echo x > Job/handover.kelchk");
    QTRY_COMPARE(icon(), picture("chp_folder"));
    elsewhere("rm Job/handover.kelchk");
    QTRY_COMPARE(icon(), picture("folder"));
}

void TestLiveTree::manyChangesAtOnceEndInTheStateOfTheDisk()
{
    elsewhere("for i in 1 2 3 4 5 6 7 8 9; do echo x > $i.kelir; mv $i.kelir m$i.kelir; done;"
              "rm m3.kelir m6.kelir m9.kelir; mv m1.kelir Job; mkdir m3.kelir");
    QTRY_COMPARE(shown(), QDir(root()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name));
    QTRY_COMPARE(shown("Job"), (QStringList{"c.kelir", "m1.kelir"}));
    QVERIFY(m_model->isDir(indexOf("m3.kelir")));
}

void TestLiveTree::fileThatReplacesAnotherIsOneEntry()
{
    elsewhere("echo much longer > swap; mv swap a.kelir");
    QTRY_COMPARE(shown(), (QStringList{"Job", "a.kelir", "b.kelir"}));
    QCOMPARE(readFile(m_model->filePath(indexOf("a.kelir"))), QByteArray("much longer\n"));
}

void TestLiveTree::selectionSurvivesWhatHappensBesideIt()
{
    m_view->setCurrentIndex(indexOf("b.kelir"));
    elsewhere("echo x > 0.kelir; rm a.kelir; echo x > z.kelir");
    QTRY_COMPARE(shown(), (QStringList{"0.kelir", "Job", "b.kelir", "z.kelir"}));
    QCOMPARE(m_view->selectionModel()->selectedIndexes(), QModelIndexList{indexOf("b.kelir")});
    QCOMPARE(m_view->currentIndex().data().toString(), QString("b.kelir"));
}

KELMAR_TEST_MAIN(TestLiveTree)
#include "tst_livetree.moc"
