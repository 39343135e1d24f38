#include "app/batch/Batch.h"

#include "app/batch/BatchCommands.h"
#include "app/batch/CurveCommands.h"
#include "app/batch/CurveExportCommands.h"
#include "app/batch/PlotCommand.h"
#include "app/batch/RowSelection.h"
#include "app/core/Fonts.h"
#include "app/core/Identity.h"
#include "app/core/Language.h"
#include "app/platform/Platform.h"
#include "res/Resources.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QSettings>
#include <QTextStream>

#include <cstdio>

namespace {

const char usage[] =
    "usage: kelmar-batch import-results FILE.csv --rows 1-4 --report REPORT.kelatr [--new] [--pdf OUT.pdf]\n"
    "       kelmar-batch pdf DOCUMENT OUT.pdf\n"
    "       kelmar-batch import-curves FILE.csv --into CURVES.kelcrv [--new]\n"
    "       kelmar-batch import-modules TABLE.csv\n"
    "       kelmar-batch plot CURVES.kelcrv OUT.png|OUT.pdf [--strings 3,1] [--show STC,IV]\n"
    "       kelmar-batch curve-report CURVES.kelcrv OUT.pdf [--strings 3,1]\n"
    "       kelmar-batch export-points CURVES.kelcrv --kind meas|pwr|stc|stcpwr --into FOLDER [--strings "
    "3,1]\n"
    "       kelmar-batch data-folder\n"
    "\n"
    "  import-results  writes rows of a tester's results file into an array test report\n"
    "    --rows LIST     rows such as 1-4 or 2,5-7; row 1 is the file's first result\n"
    "    --report FILE   the report to write into\n"
    "    --new           make the report from the empty form\n"
    "    --pdf FILE      print the report, too\n"
    "  pdf             prints a document to a PDF file\n"
    "  import-curves   takes a tester's results file into a curve file, as a folder of its own\n"
    "    --into FILE     the curve file to take it into\n"
    "    --new           make the curve file\n"
    "  import-modules  adds a public table of modules (columns Name, Technology, V_oc_ref, I_sc_ref, "
    "V_mp_ref,\n"
    "                  I_mp_ref, alpha_sc, beta_oc, R_s) to the catalogue and tells what it skipped\n"
    "  plot            draws the graph of a curve file's strings to an image or a PDF file\n"
    "    --strings LIST  all, as without it, or the numbers of the strings, such as 3,1\n"
    "    --show LIST     what to show: MEAS, STC and NOM, each as IV and as PWR; else STC,IV\n"
    "  curve-report    writes the report on a curve file's strings, with their graph; --strings as above\n"
    "  export-points   writes the points of a curve file's strings as tables, one file for each\n"
    "    --kind KIND     meas: measured currents, pwr: measured power, stc and stcpwr: the same corrected "
    "to\n"
    "                    standard test conditions\n"
    "    --into FOLDER   the folder to write into\n"
    "  data-folder     prints the folder of the catalogue and the favourites\n"
    "\n"
    "  --language CODE language of forms and numbers, for example de; else the one that the program uses\n"
    "  --force         overwrite existing files\n"
    "  --help, --version\n"
    "\n"
    "Ends with 0 when done, 1 for bad input, 2 for wrong usage.\n";

int wrongUsage(const QString &why)
{
    if (!why.isEmpty())
        tell(why);
    QTextStream(stderr) << usage;
    return BatchUsage;
}

/// The language asked for, else the stored one, else that of the environment. There are English forms for
/// everybody but Germans.
void chooseLanguage(const QString &asked)
{
    QString name = asked;
    if (name.isEmpty())
        name = QSettings().value(QStringLiteral("locale")).toString();
    const QLocale locale = name.isEmpty() ? QLocale::system() : QLocale(name);
    const bool german = locale.language() == QLocale::German;
    useLanguage(german ? QStringLiteral("de") : QStringLiteral("en"), locale);
}

int runImport(const QCommandLineParser &options, const QStringList &arguments)
{
    if (arguments.size() != 2 || !options.isSet(QStringLiteral("rows")) ||
        !options.isSet(QStringLiteral("report")))
        return wrongUsage(QStringLiteral("import-results needs FILE.csv, --rows and --report."));
    const auto rows = parseRowSelection(options.value(QStringLiteral("rows")));
    if (!rows)
        return wrongUsage(
            QStringLiteral("\"%1\" is no list of rows.").arg(options.value(QStringLiteral("rows"))));
    ImportOrder order;
    order.resultsFile = arguments.at(1);
    order.rows = *rows;
    order.report = options.value(QStringLiteral("report"));
    order.makeNew = options.isSet(QStringLiteral("new"));
    order.pdf = options.value(QStringLiteral("pdf"));
    order.force = options.isSet(QStringLiteral("force"));
    return importResults(order);
}

int runPdf(const QCommandLineParser &options, const QStringList &arguments)
{
    if (arguments.size() != 3)
        return wrongUsage(QStringLiteral("pdf needs DOCUMENT and OUT.pdf."));
    return printDocument(arguments.at(1), arguments.at(2), options.isSet(QStringLiteral("force")));
}

int runImportCurves(const QCommandLineParser &options, const QStringList &arguments)
{
    if (arguments.size() != 2 || !options.isSet(QStringLiteral("into")))
        return wrongUsage(QStringLiteral("import-curves needs FILE.csv and --into."));
    return importCurves(arguments.at(1), options.value(QStringLiteral("into")),
                        options.isSet(QStringLiteral("new")), options.isSet(QStringLiteral("force")));
}

int runImportModules(const QCommandLineParser &, const QStringList &arguments)
{
    return arguments.size() == 2 ? importModules(arguments.at(1))
                                 : wrongUsage(QStringLiteral("import-modules needs TABLE.csv."));
}

/// The strings asked for; nothing, after telling, if that cannot be understood.
std::optional<StringSelection> chosenStrings(const QCommandLineParser &options)
{
    const QString text = options.value(QStringLiteral("strings"));
    const auto strings = parseStringSelection(text);
    if (!strings)
        wrongUsage(QStringLiteral("\"%1\" is no list of strings.").arg(text));
    return strings;
}

int runPlot(const QCommandLineParser &options, const QStringList &arguments)
{
    if (arguments.size() != 3)
        return wrongUsage(QStringLiteral("plot needs FILE.kelcrv and OUT.png or OUT.pdf."));
    const auto selection = chosenStrings(options);
    if (!selection)
        return BatchUsage;
    PlotOrder order;
    order.curveFile = arguments.at(1);
    order.output = arguments.at(2);
    order.strings = *selection;
    order.force = options.isSet(QStringLiteral("force"));
    if (options.isSet(QStringLiteral("show"))) {
        const auto views = parseViews(options.value(QStringLiteral("show")));
        if (!views)
            return wrongUsage(
                QStringLiteral("\"%1\" is no list of views.").arg(options.value(QStringLiteral("show"))));
        order.views = *views;
    }
    return plotCurves(order);
}

int runCurveReport(const QCommandLineParser &options, const QStringList &arguments)
{
    if (arguments.size() != 3)
        return wrongUsage(QStringLiteral("curve-report needs FILE.kelcrv and OUT.pdf."));
    const auto strings = chosenStrings(options);
    return strings ? writeCurveReport(arguments.at(1), arguments.at(2), *strings,
                                      options.isSet(QStringLiteral("force")))
                   : BatchUsage;
}

int runExportPoints(const QCommandLineParser &options, const QStringList &arguments)
{
    if (arguments.size() != 2 || !options.isSet(QStringLiteral("kind")) ||
        !options.isSet(QStringLiteral("into")))
        return wrongUsage(QStringLiteral("export-points needs FILE.kelcrv, --kind and --into."));
    const QString kindName = options.value(QStringLiteral("kind"));
    const auto kind = parsePointKind(kindName);
    if (!kind)
        return wrongUsage(QStringLiteral("\"%1\" is no kind of points.").arg(kindName));
    const auto strings = chosenStrings(options);
    return strings ? exportPoints(arguments.at(1), *kind, *strings, options.value(QStringLiteral("into")),
                                  options.isSet(QStringLiteral("force")))
                   : BatchUsage;
}

int runDataFolder(const QCommandLineParser &, const QStringList &)
{
    return printDataFolder();
}

struct Command
{
    const char *name;
    int (*run)(const QCommandLineParser &options, const QStringList &arguments);
};

constexpr Command commands[] = {
    {"import-results", runImport},
    {"pdf", runPdf},
    {"import-curves", runImportCurves},
    {"import-modules", runImportModules},
    {"plot", runPlot},
    {"curve-report", runCurveReport},
    {"export-points", runExportPoints},
    {"data-folder", runDataFolder},
};

int runCommand(const QStringList &commandLine)
{
    QCommandLineParser options;
    for (const char *valued : {"rows", "report", "pdf", "into", "show", "kind", "language"})
        options.addOption({QLatin1String(valued), QString(), QLatin1String(valued)});
    options.addOption({QStringLiteral("strings"), QString(), QStringLiteral("list"), QStringLiteral("all")});
    for (const char *flag : {"new", "force", "help", "version"})
        options.addOption(QCommandLineOption(QLatin1String(flag)));
    if (!options.parse(commandLine))
        return wrongUsage(options.errorText());
    if (options.isSet(QStringLiteral("help"))) {
        QTextStream(stdout) << usage;
        return BatchDone;
    }
    if (options.isSet(QStringLiteral("version"))) {
        QTextStream(stdout) << Identity::applicationName() << ' ' << Identity::applicationVersion() << '\n';
        return BatchDone;
    }
    chooseLanguage(options.value(QStringLiteral("language")));
    const QStringList arguments = options.positionalArguments();
    const QString command = arguments.value(0);
    for (const Command &known : commands) {
        if (command == QLatin1String(known.name))
            return known.run(options, arguments);
    }
    return wrongUsage(command.isEmpty() ? QString() : QStringLiteral("\"%1\" is no command.").arg(command));
}

} // namespace

int runBatch(int &argc, char **argv)
{
    // What is to be told is told by tell(); the toolkit's remarks on its surroundings help nobody here.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    // XML attributes are written in hash order: with a fixed seed a file is the same at each saving.
    qSetGlobalQHashSeed(0);
    Platform::doWithoutDisplay();
    QApplication application(argc, argv);
    initResources();
    Identity::applyToApplication();
    substituteMissingFonts();
    tellMessages();
    return runCommand(QCoreApplication::arguments());
}
