#include "tests/structure/StructureRules.h"

#include "tests/structure/IncludeGraph.h"
#include "tests/structure/SourceTree.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

namespace StructureRules {

namespace {

/// A folder and those it may include beside itself, each with what lies below it.
struct Floor
{
    const char *folder;
    QStringList mayInclude;
};

const QStringList &ground()
{
    static const QStringList folders{QStringLiteral("app/core"), QStringLiteral("app/platform")};
    return folders;
}

/// The rooms, a room inside another before the one around it. What stands above all of them, the
/// programs with their windows and the tools, is not listed.
const QVector<Floor> &floors()
{
    const QStringList documents = ground() + QStringList{QStringLiteral("app/document")};
    static const QVector<Floor> table{
        {"app/platform", {}},
        {"app/core", {QStringLiteral("app/platform")}},
        {"app/document", ground()},
        {"report/file", ground()},
        {"report", documents + QStringList{QStringLiteral("report/file")}},
        {"curve/data", ground()},
        {"curve/ui", documents + QStringList{QStringLiteral("curve/data")}},
        {"diagram", documents},
        {"import", documents + QStringList{QStringLiteral("report")}},
        {"browser", documents + QStringList{QStringLiteral("report/file")}},
    };
    return table;
}

bool liesIn(const QString &path, const QString &folder)
{
    return path.startsWith(folder + QLatin1Char('/'));
}

const Floor *floorOf(const QString &path)
{
    for (const Floor &floor : floors()) {
        if (liesIn(path, QLatin1String(floor.folder)))
            return &floor;
    }
    return nullptr;
}

bool mayKnowEverything(const QString &path)
{
    return liesIn(path, QStringLiteral("app")) || liesIn(path, QStringLiteral("tools"));
}

IncludeGraph graphOfFolders(const SourceTree &tree)
{
    return IncludeGraph(tree, &SourceFile::folder);
}

IncludeGraph graphOfComponents(const SourceTree &tree)
{
    return IncludeGraph(tree, &SourceFile::component);
}

QStringList filesWith(const SourceTree &tree, const QString &pattern)
{
    const QRegularExpression expression(pattern);
    QStringList found;
    for (const SourceFile &file : tree.files()) {
        if (expression.match(file.code).hasMatch())
            found.append(file.path);
    }
    return found;
}

QVector<int> sortedLengths(const SourceTree &tree, bool headers)
{
    QVector<int> lengths;
    for (const SourceFile &file : tree.files()) {
        if (file.isHeader() == headers)
            lengths.append(file.lines);
    }
    std::sort(lengths.begin(), lengths.end());
    return lengths;
}

/// The length that nine of ten files do not exceed.
int ninetiethPercentile(const QVector<int> &sorted)
{
    return sorted.isEmpty() ? 0 : sorted.at((sorted.size() * 9 + 9) / 10 - 1);
}

int allLines(const SourceTree &tree)
{
    int lines = 0;
    for (const SourceFile &file : tree.files())
        lines += file.lines;
    return lines;
}

int unfinishedTranslations(const QString &root)
{
    int count = 0;
    QDirIterator walk(root + QStringLiteral("/translations"), {QStringLiteral("*.ts")}, QDir::Files);
    while (walk.hasNext()) {
        QFile file(walk.next());
        if (file.open(QIODevice::ReadOnly))
            count += file.readAll().count("type=\"unfinished\"");
    }
    return count;
}

} // namespace

QStringList folderCycles(const SourceTree &tree)
{
    return graphOfFolders(tree).cycles();
}

QStringList componentCycles(const SourceTree &tree)
{
    return graphOfComponents(tree).cycles();
}

QStringList floorBreaches(const SourceTree &tree)
{
    QStringList found;
    for (const SourceFile &file : tree.files()) {
        const Floor *floor = floorOf(file.path);
        if (!floor) {
            if (!mayKnowEverything(file.path))
                found.append(file.path + QLatin1String(" stands on no floor"));
            continue;
        }
        for (const QString &include : file.includes) {
            const bool own = floorOf(include) == floor;
            const bool allowed = std::any_of(floor->mayInclude.cbegin(), floor->mayInclude.cend(),
                                             [&](const QString &below) { return liesIn(include, below); });
            if (tree.holds(include) && !own && !allowed)
                found.append(file.path + QLatin1String(" includes ") + include);
        }
    }
    return found;
}

QStringList includesNotFromTheRoot(const SourceTree &tree)
{
    QStringList found;
    for (const SourceFile &file : tree.files()) {
        for (const QString &include : file.includes) {
            const QString beside = QDir::cleanPath(file.folder() + QLatin1Char('/') + include);
            if (!tree.holds(include) && tree.holds(beside))
                found.append(file.path + QLatin1String(" includes ") + include);
        }
    }
    return found;
}

QStringList textConnects(const SourceTree &tree)
{
    return filesWith(tree, QStringLiteral("\\b(SIGNAL|SLOT)\\s*\\("));
}

QStringList filesThatOpenABox(const SourceTree &tree)
{
    return filesWith(
        tree, QStringLiteral("\\bQMessageBox\\s*::\\s*(information|warning|critical|question|about|"
                             "aboutQt)\\s*\\(|\\bQMessageBox\\s+\\w+\\s*[({;]|\\bnew\\s+QMessageBox\\b|"
                             "<\\s*QMessageBox\\s*>\\s*\\("));
}

QStringList longSources(const SourceTree &tree)
{
    QStringList found;
    for (const SourceFile &file : tree.files()) {
        if (!file.isHeader() && file.lines >= tooManyLines)
            found.append(QStringLiteral("%1 has %2 lines").arg(file.path).arg(file.lines));
    }
    return found;
}

QStringList scoreboard(const SourceTree &tree, const SourceTree &tests)
{
    const IncludeGraph components = graphOfComponents(tree);
    const QVector<int> sources = sortedLengths(tree, false);
    const QVector<int> headers = sortedLengths(tree, true);
    const auto line = [](const char *what, const QString &goal, const QString &figure) {
        return QStringLiteral("%1 %2 (goal: %3)").arg(QLatin1String(what), -42).arg(figure, 7).arg(goal);
    };
    const auto number = [](int value) { return QString::number(value); };
    const auto ratio = [](double part, double whole, int digits) {
        return QString::number(whole > 0 ? part / whole : 0, 'f', digits);
    };
    return {
        line("folders in include cycles", QStringLiteral("0"), number(graphOfFolders(tree).nodesInCycles())),
        line("components in include cycles, %", QStringLiteral("0"),
             ratio(100 * components.nodesInCycles(), components.size(), 1)),
        line("longest .cpp", QStringLiteral("below %1").arg(tooManyLines),
             number(sources.isEmpty() ? 0 : sources.last())),
        line("90th percentile of .cpp", QStringLiteral("below 350"), number(ninetiethPercentile(sources))),
        line("90th percentile of .h", QStringLiteral("below 130"), number(ninetiethPercentile(headers))),
        line("product lines", QStringLiteral("-"), number(allLines(tree))),
        line("test lines per product line", QStringLiteral("above 0.6"),
             ratio(allLines(tests), allLines(tree), 2)),
        line("places that open a message box", QStringLiteral("1"), number(filesThatOpenABox(tree).size())),
        line("files with connects by text", QStringLiteral("0"), number(textConnects(tree).size())),
        line("fuzz targets", QStringLiteral("one per input format"),
             number(filesWith(tests, QStringLiteral("\\bLLVMFuzzerTestOneInput\\s*\\(")).size())),
        line("unfinished translations", QStringLiteral("0"), number(unfinishedTranslations(tree.root()))),
    };
}

} // namespace StructureRules
