#include "app/core/Identity.h"
#include "app/core/Shell.h"
#include "tests/support/TestMain.h"

namespace {

class Window : public QWidget, public Shell
{
public:
    QWidget *window() override { return this; }
    void import() override { ++imports; }
    void download() override { ++downloads; }
    int imports = 0;
    int downloads = 0;
};

} // namespace

class TestShell : public QObject
{
    Q_OBJECT

private slots:
    void withoutAWindowThereIsNoShell();
    void windowIsTheShellForItsLife();
    void newWindowTakesThePlaceOfOneThatStillCloses();
    void resolutionIsThatOfTheWindowOrTheScreen();
    void programTellsWhoItIs();
};

void TestShell::withoutAWindowThereIsNoShell()
{
    QCOMPARE(Shell::instance(), nullptr);
    QCOMPARE(Shell::parentWindow(), nullptr);
}

void TestShell::windowIsTheShellForItsLife()
{
    {
        Window window;
        QCOMPARE(Shell::instance(), &window);
        QCOMPARE(Shell::parentWindow(), &window);
        Shell::instance()->import();
        Shell::instance()->download();
        QCOMPARE(window.imports, 1);
        QCOMPARE(window.downloads, 1);
    }
    QCOMPARE(Shell::instance(), nullptr);
}

void TestShell::newWindowTakesThePlaceOfOneThatStillCloses()
{
    auto before = std::make_unique<Window>();
    const Window after;
    QCOMPARE(Shell::instance(), &after);
    before.reset();
    QCOMPARE(Shell::instance(), &after);
}

void TestShell::resolutionIsThatOfTheWindowOrTheScreen()
{
    const int screen = qRound(QGuiApplication::primaryScreen()->logicalDotsPerInchY());
    QCOMPARE(Shell::logicalDpiY(), screen);
    const Window window;
    QCOMPARE(Shell::logicalDpiY(), window.QWidget::logicalDpiY());
}

void TestShell::programTellsWhoItIs()
{
    QCOMPARE(QCoreApplication::applicationName(), QString("Kelmar"));
    QCOMPARE(QCoreApplication::applicationVersion(), QString("V2.2.0.0"));
    QCOMPARE(QCoreApplication::organizationName(), QString("Varnhold"));
    QVERIFY(!QCoreApplication::organizationDomain().isEmpty());
    QCOMPARE(Identity::projectsFolderName(), QString("Kelmar Projects"));
    QCOMPARE(Identity::dataloggerExecutable(), QString("VarnholdDatalogger"));
    QCOMPARE(Identity::dataloggerApplicationName(), QString("Varnhold Solar Datalogger"));
    QCOMPARE(Identity::brandedImage("splash.png"), QString(":res/images/Varnhold_splash.png"));
}

KELMAR_TEST_MAIN(TestShell)
#include "tst_shell.moc"
