#include "tools/testerfiles/SampleJob.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTextStream>

namespace {

/// Writes one file; tells on standard error what went wrong.
bool write(const QDir &folder, const SampleFile &sample)
{
    QFile file(folder.filePath(sample.name));
    if (file.open(QIODevice::WriteOnly) && file.write(sample.bytes) == sample.bytes.size() && file.flush())
        return true;
    QTextStream(stderr) << file.fileName() << ": " << file.errorString() << '\n';
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Writes the results files of a tester that does not exist."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("OUTDIR"), QStringLiteral("Folder to write to."));
    const QCommandLineOption seedOption(QStringLiteral("seed"), QStringLiteral("What the values start from."),
                                        QStringLiteral("N"), QString::number(sampleSeed));
    parser.addOption(seedOption);
    parser.process(application);

    bool isNumber = false;
    const unsigned seed = parser.value(seedOption).toUInt(&isNumber);
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 1 || !isNumber)
        parser.showHelp(2);
    const QDir folder(arguments.first());
    if (!folder.mkpath(QStringLiteral("."))) {
        QTextStream(stderr) << arguments.first() << ": cannot be created\n";
        return 1;
    }
    for (const SampleFile &sample : sampleJob(seed)) {
        if (!write(folder, sample))
            return 1;
    }
    return 0;
}
