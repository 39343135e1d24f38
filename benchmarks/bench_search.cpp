// Searching a tree of 10,000 files, 1,000 of them reports, beside loops that do the unavoidable part alone.

#include "app/core/Folders.h"
#include "app/core/Fonts.h"
#include "app/core/Identity.h"
#include "app/core/Language.h"
#include "benchmarks/support/Comparisons.h"
#include "benchmarks/support/SampleReports.h"
#include "benchmarks/support/TemporaryHome.h"
#include "browser/FindInFiles.h"
#include "browser/FoundFilesModel.h"
#include "browser/SearchResultsDocument.h"
#include "res/Resources.h"

#include <benchmark/benchmark.h>

#include <QAbstractTableModel>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QProcess>
#include <QTableView>
#include <QTimer>
#include <QXmlDefaultHandler>
#include <QXmlSimpleReader>

#include <QtEndian>

#include <zlib.h>

namespace {

constexpr int filesPerFolder = 100;
/// One file in so many is a report.
constexpr int reportShare = 10;
constexpr int prefixSize = 4;
constexpr QSize tabSize(1000, 700);

TemporaryHome *home = nullptr;

QString treeOf(int files)
{
    return home->path(QStringLiteral("projects %1").arg(files));
}

/// A tree of jobs. The reports are those of the array test, filled in.
void makeTree(int files, const QString &report)
{
    for (int i = 0; i < files; ++i) {
        const QDir folder(treeOf(files) + QStringLiteral("/Job %1").arg(i / filesPerFolder));
        if (i % filesPerFolder == 0)
            folder.mkpath(QStringLiteral("."));
        if (i % reportShare == 0)
            QFile::copy(report, folder.filePath(QStringLiteral("Report %1.kelatr").arg(i)));
        else
            QFile(folder.filePath(QStringLiteral("Photograph %1.jpg").arg(i))).open(QIODevice::WriteOnly);
    }
}

template <typename Step> double seconds(Step step)
{
    const auto start = std::chrono::steady_clock::now();
    step();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The panel with its results tab, as the main window joins them.
struct Search
{
    explicit Search(int files) : results(QStringLiteral("/Search Results"))
    {
        Folders::instance()->setProjectsRoot(treeOf(files));
        results.setResultsModel(panel.model());
        results.resize(tabSize);
        results.show();
        QCoreApplication::processEvents();
    }
    void type(const char *group, const char *edit, const QString &text)
    {
        panel.findChild<QGroupBox *>(QLatin1String(group))->setChecked(true);
        panel.findChild<QLineEdit *>(QLatin1String(edit))->setText(text);
    }
    void run() { QMetaObject::invokeMethod(&panel, "search"); }
    int found() const { return panel.model()->rowCount(); }

    FindInFiles panel;
    SearchResultsDocument results;
};

const char namePattern[] = "*p*";
const char absentPhrase[] = "no such phrase";

QRegExp nameExpression()
{
    return QRegExp(QLatin1String(namePattern), Qt::CaseInsensitive, QRegExp::Wildcard);
}

/// All files of a tree are reports and photographs; its folders have another name.
int foundByName(int files)
{
    return files;
}

void nameSearch(benchmark::State &state, int files)
{
    for (auto _ : state) {
        Search search(files);
        search.type("fileGroup", "nameEdit", QLatin1String(namePattern));
        state.SetIterationTime(seconds([&] { search.run(); }));
        if (search.found() != foundByName(files))
            state.SkipWithError("the search found something else");
    }
}

/// The rows of the bare loop.
class Rows : public QAbstractTableModel
{
public:
    int rowCount(const QModelIndex &parent) const override { return parent.isValid() ? 0 : m_names.size(); }
    int columnCount(const QModelIndex &) const override { return 3; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? m_names.at(index.row()) : QVariant();
    }
    void append(const QString &name)
    {
        beginInsertRows({}, m_names.size(), m_names.size());
        m_names.append(name);
        endInsertRows();
    }
    int size() const { return m_names.size(); }

private:
    QStringList m_names;
};

/// Calls `found` with the path of each entry of that name.
template <typename Found> void bareWalk(const QRegExp &name, const QString &folder, Found found)
{
    for (const QDir::Filter kind : {QDir::Files, QDir::Dirs}) {
        const QFileInfoList entries =
            QDir(folder).entryInfoList(kind | QDir::NoSymLinks | QDir::NoDotAndDotDot, QDir::NoSort);
        for (const QFileInfo &entry : entries) {
            if (name.exactMatch(entry.fileName()))
                found(entry.filePath());
            QCoreApplication::processEvents();
            if (kind == QDir::Dirs)
                bareWalk(name, entry.filePath(), found);
        }
    }
}

void bareLoop(benchmark::State &state, int files)
{
    for (auto _ : state) {
        Rows rows;
        QTableView view;
        view.setModel(&rows);
        view.verticalHeader()->setDefaultSectionSize(18);
        view.verticalHeader()->hide();
        view.resize(tabSize);
        view.show();
        QCoreApplication::processEvents();
        state.SetIterationTime(seconds([&] {
            bareWalk(nameExpression(), treeOf(files), [&rows](const QString &path) { rows.append(path); });
        }));
        if (rows.size() != foundByName(files))
            state.SkipWithError("the loop found something else");
    }
}

void bareLoopWithoutView(benchmark::State &state, int files)
{
    for (auto _ : state) {
        int count = 0;
        bareWalk(nameExpression(), treeOf(files), [&count](const QString &) { ++count; });
        if (count != foundByName(files))
            state.SkipWithError("the loop found something else");
    }
}

/// Another program that looks at the same names, and shows nothing.
void findProgram(benchmark::State &state, int files)
{
    for (auto _ : state) {
        QProcess process;
        process.start(QStringLiteral("find"),
                      {treeOf(files), QStringLiteral("-iname"), QLatin1String(namePattern)});
        if (!process.waitForFinished() || process.readAllStandardOutput().count('\n') < foundByName(files))
            state.SkipWithError("find failed");
    }
}

/// Notes the longest time in which no event is handled.
class Pulse : public QObject
{
public:
    Pulse()
    {
        qApp->installEventFilter(this);
        m_timer.start(0);
        m_clock.start();
    }
    bool eventFilter(QObject *, QEvent *) override
    {
        m_longest = qMax(m_longest, m_clock.nsecsElapsed());
        m_clock.start();
        return false;
    }
    double longestSeconds() const { return double(m_longest) * 1e-9; }

private:
    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_longest = 0;
};

/// By name alone when the phrase is empty: then everything is found.
void longestGap(benchmark::State &state, int files, const char *phrase)
{
    for (auto _ : state) {
        Search search(files);
        if (*phrase)
            search.type("phraseGroup", "phraseEdit", QLatin1String(phrase));
        const Pulse pulse;
        search.run();
        state.SetIterationTime(pulse.longestSeconds());
    }
}

/// From the press on Stop in the middle of a walk to its end.
void stopping(benchmark::State &state, int files, const char *phrase)
{
    constexpr int untilStop = 100;
    for (auto _ : state) {
        Search search(files);
        if (*phrase)
            search.type("phraseGroup", "phraseEdit", QLatin1String(phrase));
        QElapsedTimer sinceStop;
        QTimer::singleShot(untilStop, &search.panel, [&] {
            sinceStop.start();
            QMetaObject::invokeMethod(&search.panel, "stop");
        });
        search.run();
        if (!sinceStop.isValid()) {
            state.SkipWithError("the search was over before it could be stopped");
            return;
        }
        state.SetIterationTime(double(sinceStop.nsecsElapsed()) * 1e-9);
    }
}

void phraseSearch(benchmark::State &state, int files)
{
    for (auto _ : state) {
        Search search(files);
        search.type("phraseGroup", "phraseEdit", QLatin1String(absentPhrase));
        state.SetIterationTime(seconds([&] { search.run(); }));
        if (search.panel.model()->index(0, 0).data(FoundFilesModel::filePathRole).isValid())
            state.SkipWithError("the search found something");
    }
}

/// Takes every run of text and looks for nothing in it.
class Listener : public QXmlDefaultHandler
{
public:
    bool characters(const QString &text) override
    {
        length += text.size();
        return true;
    }
    int length = 0;
};

QByteArray inflatedXml(const QString &path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    const QByteArray container = file.readAll();
    QByteArray stream(1 << 21, Qt::Uninitialized);
    uLongf size = static_cast<uLongf>(stream.size());
    if (uncompress(reinterpret_cast<Bytef *>(stream.data()), &size,
                   reinterpret_cast<const Bytef *>(container.constData() + prefixSize),
                   static_cast<uLong>(container.size() - prefixSize)) != Z_OK)
        return QByteArray();
    // The name of the first entry, which is "xml", and then its data.
    constexpr int nameSize = 4 + 3 * 2;
    return stream.mid(nameSize + 4, qFromBigEndian<int>(stream.constData() + nameSize));
}

void inflateAndRead(benchmark::State &state, int files)
{
    for (auto _ : state) {
        int length = 0;
        for (int i = 0; i < files; i += reportShare) {
            const QByteArray xml = inflatedXml(
                treeOf(files) + QStringLiteral("/Job %1/Report %2.kelatr").arg(i / filesPerFolder).arg(i));
            QXmlInputSource source;
            source.setData(xml);
            Listener listener;
            QXmlSimpleReader reader;
            reader.setContentHandler(&listener);
            reader.parse(&source);
            length += listener.length;
        }
        if (length == 0)
            state.SkipWithError("there was nothing to read");
    }
}

#define MILLISECONDS ->Unit(benchmark::kMillisecond)
BENCHMARK_CAPTURE(nameSearch, 2500, 2500) MILLISECONDS->UseManualTime();
BENCHMARK_CAPTURE(nameSearch, 10000, 10000) MILLISECONDS->UseManualTime();
// The view of the bare loop paints all its rows again after each one.
BENCHMARK_CAPTURE(bareLoop, 10000, 10000) MILLISECONDS->UseManualTime()->Repetitions(3);
BENCHMARK_CAPTURE(bareLoopWithoutView, 10000, 10000) MILLISECONDS->UseRealTime();
BENCHMARK_CAPTURE(findProgram, 10000, 10000) MILLISECONDS->UseRealTime();
BENCHMARK_CAPTURE(longestGap, name, 10000, "") MILLISECONDS->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(longestGap, phrase, 10000, absentPhrase) MILLISECONDS->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(stopping, name, 10000, "") MILLISECONDS->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(stopping, phrase, 10000, absentPhrase) MILLISECONDS->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(phraseSearch, 10000, 10000) MILLISECONDS->UseManualTime();
BENCHMARK_CAPTURE(inflateAndRead, 10000, 10000) MILLISECONDS->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    TemporaryHome temporaryHome;
    home = &temporaryHome;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    initResources();
    Identity::applyToApplication();
    substituteMissingFonts();
    useLanguage(QStringLiteral("en"), QLocale::c());
    const QString report = home->path(QStringLiteral("Filled.kelatr"));
    writeFilledReport(report);
    for (int files : {2500, 10000})
        makeTree(files, report);
    return Comparisons()
        .ratio("10,000 files by name / a bare loop with a view", "nameSearch/10000", "bareLoop/10000", 1.5)
        .ratio("  / a bare loop that shows nothing", "nameSearch/10000", "bareLoopWithoutView/10000")
        .ratio("  / another program that looks at the names", "nameSearch/10000", "findProgram/10000")
        .ratio("  / 2,500 files, where 4 is linear growth", "nameSearch/10000", "nameSearch/2500", 4.4)
        .limit("longest time without an event, 10,000 files by name", "longestGap/name", 50)
        .limit("longest time without an event, 1,000 reports by phrase", "longestGap/phrase", 50)
        .limit("from the press on Stop to the end, by name", "stopping/name", 100)
        .limit("from the press on Stop to the end, by phrase", "stopping/phrase", 100)
        .ratio("1,000 reports by phrase / inflating and parsing them", "phraseSearch/10000",
               "inflateAndRead/10000", 1.3)
        .run(argc, argv);
}
