#include "app/core/Identity.h"
#include "app/core/Language.h"
#include "app/document/AbstractDocument.h"
#include "app/shell/MainWindow.h"
#include "res/Resources.h"
#include "tests/support/TestHome.h"
#include "tests/whole/WholeProgram.h"

#include <QtTest>
#include <QtWidgets>

/// What a start makes of its arguments and of the language stored.
class TestCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void languageWithoutACatalogueGivesEnglishMenusAndGermanForms();
    void firstOfTwoFilesIsOpened();
    void fileThatIsNotThereIsIgnored();
    void damagedFileIsToldAndTheWindowStandsEmpty();
    void startWithoutArgumentsOpensNothing();
    void slotForAllArgumentsOpensThemAll();

private:
    QString addReport(const QString &name) const;
    void start(
        const QStringList &arguments, const WholeProgram::User &user,
        const WholeProgram::Preparation &prepare = [](BoxWatcher &) {});
    static QStringList openPaths(const MainWindow &window)
    {
        QStringList paths;
        for (const AbstractDocument *document : window.documents())
            paths.append(document->filePath());
        return paths;
    }

    QString m_root;
};

void TestCommandLine::init()
{
    m_root = TestHome::instance()->projectsRoot();
    QDir(m_root).removeRecursively();
    QVERIFY(QDir().mkpath(m_root));
    QDir(TestHome::instance()->dataFolder()).removeRecursively();
    QSettings store(Identity::organisationName(), Identity::applicationName());
    store.clear();
    store.setValue("locale", "en");
    store.setValue("Directories/RootDir", m_root);
    store.setValue("Welcome/show", false);
}

QString TestCommandLine::addReport(const QString &name) const
{
    initResources();
    const QString path = m_root + '/' + name;
    writeFile(path, readFile(":/res/reports_en/default.kelatr"));
    return path;
}

void TestCommandLine::start(const QStringList &arguments, const WholeProgram::User &user,
                            const WholeProgram::Preparation &prepare)
{
    int passes = 0;
    const int code =
        WholeProgram::run(arguments, prepare, [&](MainWindow &window, BoxWatcher &watcher, int pass) {
            passes = pass;
            user(window, watcher, pass);
        });
    QCOMPARE(code, 0);
    QCOMPARE(passes, 1);
}

// The first of all: it needs a process in which no catalogue was found yet.
void TestCommandLine::languageWithoutACatalogueGivesEnglishMenusAndGermanForms()
{
    QSettings(Identity::organisationName(), Identity::applicationName()).setValue("locale", "sv");
    start({}, [this](MainWindow &window, BoxWatcher &, int) {
        QCOMPARE(window.findChild<QMenu *>("menuFile")->title(), QString("File"));
        QCOMPARE(reportsFolder(), QString("reports_de"));
        window.findChild<QAction *>("actionNewInspectionReport")->trigger();
        QCOMPARE(readFile(m_root + "/Prüfbericht Besichtigung.kelir"),
                 readFile(":/res/reports_de/default.kelir"));
        for (const QAction *language : window.findChild<QMenu *>("menuLanguage")->actions())
            QVERIFY(!language->isChecked());
    });
    QCOMPARE(QSettings(Identity::organisationName(), Identity::applicationName()).value("locale").toString(),
             QString("sv"));
}

void TestCommandLine::firstOfTwoFilesIsOpened()
{
    const QString first = addReport("first.kelatr");
    const QString second = addReport("second.kelatr");
    start({first, second}, [&](MainWindow &window, BoxWatcher &, int) {
        QCOMPARE(openPaths(window), QStringList{first});
        QVERIFY(window.activeDocument()->isVisible());
    });
}

void TestCommandLine::fileThatIsNotThereIsIgnored()
{
    const QString second = addReport("second.kelatr");
    start({m_root + "/absent.kelatr", second}, [](MainWindow &window, BoxWatcher &watcher, int) {
        QVERIFY(window.documents().isEmpty());
        QVERIFY(watcher.boxes().isEmpty());
    });
}

void TestCommandLine::damagedFileIsToldAndTheWindowStandsEmpty()
{
    const QString path = m_root + "/damaged.kelir";
    writeFile(path, "no report");
    start(
        {path},
        [](MainWindow &window, BoxWatcher &watcher, int) {
            QCOMPARE(watcher.boxes().size(), 1);
            QVERIFY(window.documents().isEmpty());
        },
        [](BoxWatcher &watcher) { watcher.expect(QString(), QMessageBox::Ok); });
}

void TestCommandLine::startWithoutArgumentsOpensNothing()
{
    start({}, [](MainWindow &window, BoxWatcher &, int) { QVERIFY(window.documents().isEmpty()); });
}

void TestCommandLine::slotForAllArgumentsOpensThemAll()
{
    const QString first = addReport("first.kelatr");
    const QString second = addReport("second.kelatr");
    const QString damaged = m_root + "/damaged.kelir";
    writeFile(damaged, "no report");
    start({first, damaged, second}, [&](MainWindow &window, BoxWatcher &watcher, int) {
        watcher.expect(QString(), QMessageBox::Ok);
        QVERIFY(QMetaObject::invokeMethod(&window, "loadCommandLineFiles"));
        QCOMPARE(openPaths(window), (QStringList{first, second}));
    });
}

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0);
    TestHome home;
    TestCommandLine test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_commandline.moc"
