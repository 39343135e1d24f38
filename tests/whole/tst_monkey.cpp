#include "app/core/Identity.h"
#include "app/shell/Application.h"
#include "res/Resources.h"
#include "tests/support/TestHome.h"
#include "tests/whole/HangWatch.h"
#include "tests/whole/Monkey.h"

#include <QtTest>
#include <QtWidgets>

#include <limits>

namespace {

constexpr int seedOfTheSuite = 1;
constexpr int secondsOfTheSuite = 60;
/// A start acts no shorter than so, and all starts together act no less.
constexpr int leastMilliseconds = 1000;
constexpr int leastGestures = 100;

/// What one start of the program is to get, and what came of it.
struct Run
{
    unsigned seed = 0;
    int milliseconds = 0;
    int steps = 0;
    double longest = 0;
    double longestBusy = 0;
};

Run run;
std::unique_ptr<Monkey> monkey;
std::unique_ptr<HangWatch> watch;

/// Takes what the program would hand to a browser or another program of the desktop.
class Desktop : public QObject
{
    Q_OBJECT

public slots:
    void open(const QUrl &) {}
};

QString home()
{
    return TestHome::instance()->projectsRoot();
}

QString logFolder()
{
    // The home of a run that crashed is left behind.
    return qEnvironmentVariable("KELMAR_MONKEY_LOGS", TestHome::instance()->path());
}

void startMonkey()
{
    const QString log = QStringLiteral("%1/kelmar-monkey-%2.log").arg(logFolder()).arg(run.seed);
    monkey = std::make_unique<Monkey>(run.seed, home(), log);
    watch = std::make_unique<HangWatch>();
    monkey->start();
    QTimer::singleShot(run.milliseconds, monkey.get(), &Monkey::leave);
}

void endMonkey()
{
    run.steps = monkey ? monkey->steps() : 0;
    run.longest = watch ? watch->longest() : 0;
    run.longestBusy = watch ? watch->longestBusy() : 0;
    monkey.reset();
    watch.reset();
}

/// One start of the program, to its end.
void runOnce(unsigned seed, int milliseconds)
{
    static const bool registered = (qAddPreRoutine(startMonkey), true);
    Q_UNUSED(registered)
    qAddPostRoutine(endMonkey);
    run = {seed, milliseconds, 0, 0, 0};
    Desktop desktop;
    for (const char *scheme : {"file", "http", "https", "mailto"})
        QDesktopServices::setUrlHandler(scheme, &desktop, "open");
    char name[] = "kelmar";
    char *arguments[] = {name, nullptr};
    int count = 1;
    runKelmar(count, arguments, std::chrono::milliseconds(50));
    for (const char *scheme : {"file", "http", "https", "mailto"})
        QDesktopServices::unsetUrlHandler(scheme);
}

int number(const char *variable, int otherwise)
{
    bool given = false;
    const int value = qEnvironmentVariableIntValue(variable, &given);
    return given ? value : otherwise;
}

} // namespace

/// Random hands on the whole program: it neither crashes nor stays away for good. KELMAR_MONKEY_SECONDS says
/// how long they act, KELMAR_MONKEY_SEED names another seed, KELMAR_MONKEY_LOGS the folder for the steps. How
/// long the program did not answer is told; it is judged where KELMAR_MONKEY_JUDGES is set, on a quiet
/// machine.
class TestMonkey : public QObject
{
    Q_OBJECT

private slots:
    void randomHandsNeitherCrashNorHangTheProgram_data();
    void randomHandsNeitherCrashNorHangTheProgram();

private:
    static void layOutTheJob();
};

void TestMonkey::layOutTheJob()
{
    QDir(home()).removeRecursively();
    QDir(TestHome::instance()->dataFolder()).removeRecursively();
    QSettings store(Identity::organisationName(), Identity::applicationName());
    store.clear();
    store.setValue("locale", "en");
    store.setValue("Directories/RootDir", home());
    QSettings().sync();
    initResources();
    for (const char *suffix : {"kelir", "kelvc", "kelchk", "kelatr"})
        writeFile(home() + "/Job/report." + suffix,
                  readFile(QStringLiteral(":/res/reports_en/default.%1").arg(suffix)));
    QDirIterator samples(KELMAR_SAMPLES, QDir::Files, QDirIterator::Subdirectories);
    while (samples.hasNext()) {
        const QString path = samples.next();
        writeFile(home() + "/Job/" + samples.fileName(), readFile(path));
    }
}

void TestMonkey::randomHandsNeitherCrashNorHangTheProgram_data()
{
    QTest::addColumn<int>("seed");
    const int seed = number("KELMAR_MONKEY_SEED", seedOfTheSuite);
    QTest::addRow("seed %d", seed) << seed;
}

void TestMonkey::randomHandsNeitherCrashNorHangTheProgram()
{
    QFETCH(int, seed);
    layOutTheJob();
    qInfo("the steps are written to %s", qPrintable(logFolder()));
    QElapsedTimer clock;
    clock.start();
    const int seconds = number("KELMAR_MONKEY_SECONDS", secondsOfTheSuite);
    Run whole;
    int starts = 0;
    // A program that the monkey has ended is started again, with other gestures. A slow machine takes longer
    // to come to its gestures.
    do {
        const int left = int(seconds * 1000 - clock.elapsed());
        runOnce(unsigned(seed + 1000 * starts++), qMax(left, leastMilliseconds));
        whole.steps += run.steps;
        whole.longest = qMax(whole.longest, run.longest);
        whole.longestBusy = qMax(whole.longestBusy, run.longestBusy);
    } while (clock.elapsed() < seconds * 1000 || whole.steps < leastGestures);
    qInfo("%d gestures in %d starts; longest gap %.2f s, longest busy one %.2f s", whole.steps, starts,
          whole.longest, whole.longestBusy);
    if (!qEnvironmentVariableIsSet("KELMAR_MONKEY_JUDGES"))
        return;
    QVERIFY2(whole.steps > 2 * seconds, "the monkey was held up");
    QVERIFY2(whole.longestBusy < 2.0, "the program did not answer for two seconds");
}

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    TestHome home;
    QDir::setCurrent(home.path());
    // The framework would end a function after five minutes.
    if (!qEnvironmentVariableIsSet("QTEST_FUNCTION_TIMEOUT"))
        qputenv("QTEST_FUNCTION_TIMEOUT", QByteArray::number(std::numeric_limits<int>::max()));
    TestMonkey test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_monkey.moc"
