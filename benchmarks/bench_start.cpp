// From the start of the program's process to its painted main window, beside an empty main window.

#include "app/core/Identity.h"
#include "benchmarks/support/Comparisons.h"
#include "benchmarks/support/TemporaryHome.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSettings>

namespace {

TemporaryHome *home = nullptr;

/// Settings as the first start has left them, in a language, and some jobs with documents.
void prepareHome(const QString &language)
{
    QSettings settings;
    settings.setValue(QStringLiteral("locale"), language);
    settings.setValue(QStringLiteral("Directories/RootDir"), home->path(QStringLiteral("projects")));
    settings.setValue(QStringLiteral("Welcome/show"), false);
    settings.sync();
    for (int job = 1; job <= 30; ++job) {
        const QDir folder(home->path(QStringLiteral("projects/Job %1").arg(job)));
        folder.mkpath(QStringLiteral("."));
        QFile(folder.filePath(QStringLiteral("Array Test Report.kelatr"))).open(QIODevice::WriteOnly);
    }
}

/// Each round is a process of its own.
void runProgram(benchmark::State &state, const char *program, const QStringList &arguments = {})
{
    const QString path = QCoreApplication::applicationDirPath() + QLatin1String(program);
    for (auto _ : state) {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(path, arguments);
        if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit ||
            process.exitCode() != 0) {
            state.SkipWithError("the program did not come to its first paint");
            return;
        }
    }
}

void startEmpty(benchmark::State &state)
{
    runProgram(state, "/start_empty");
}

void startKelmar(benchmark::State &state, const char *language)
{
    prepareHome(QLatin1String(language));
    // Beside the program's own catalogues.
    runProgram(state, "/../start_kelmar");
}

BENCHMARK(startEmpty)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(startKelmar, english, "en")->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(startKelmar, german, "de")->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

int main(int argc, char **argv)
{
    TemporaryHome temporaryHome;
    home = &temporaryHome;
    QCoreApplication application(argc, argv);
    Identity::applyToApplication();
    return Comparisons()
        .ratio("start to the main window / an empty main window", "startKelmar/english", "startEmpty", 2)
        .ratio("start to the main window in German / an empty main window", "startKelmar/german",
               "startEmpty", 2)
        .run(argc, argv);
}
