#include "tests/structure/SourceTree.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

namespace {

SourceFile readSource(const QString &root, const QString &path)
{
    SourceFile source;
    source.path = path;
    QFile file(root + QLatin1Char('/') + path);
    if (!file.open(QIODevice::ReadOnly))
        return source;
    const QString text = QString::fromUtf8(file.readAll());
    source.lines = text.count(QLatin1Char('\n'));
    source.code = SourceTree::codeOf(text, false);

    static const QRegularExpression include(QStringLiteral("^[ \\t]*#[ \\t]*include[ \\t]*\"([^\"]+)\""),
                                            QRegularExpression::MultilineOption);
    auto matches = include.globalMatch(SourceTree::codeOf(text, true));
    while (matches.hasNext())
        source.includes.append(matches.next().captured(1));
    return source;
}

/// The place behind a literal that begins at `from` with a quotation mark.
int endOfLiteral(const QString &text, int from)
{
    const QChar mark = text.at(from);
    int at = from + 1;
    while (at < text.size() && text.at(at) != mark && text.at(at) != QLatin1Char('\n'))
        at += text.at(at) == QLatin1Char('\\') ? 2 : 1;
    return qMin(at + 1, text.size());
}

/// The place behind a raw string literal whose R stands at `from`.
int endOfRawString(const QString &text, int from)
{
    const int bracket = text.indexOf(QLatin1Char('('), from);
    const QString close = QLatin1Char(')') + text.mid(from + 2, bracket - from - 2) + QLatin1Char('"');
    const int end = text.indexOf(close, bracket);
    return end < 0 ? text.size() : end + close.size();
}

bool beginsWord(const QString &text, int at)
{
    return at == 0 || !(text.at(at - 1).isLetterOrNumber() || text.at(at - 1) == QLatin1Char('_'));
}

} // namespace

QString SourceFile::folder() const
{
    return path.left(qMax(0, path.lastIndexOf(QLatin1Char('/'))));
}

QString SourceFile::component() const
{
    return path.left(path.lastIndexOf(QLatin1Char('.')));
}

SourceTree::SourceTree(const QString &root, const QStringList &folders) : m_root(root)
{
    QStringList paths;
    for (const QString &folder : folders) {
        QDirIterator walk(root + QLatin1Char('/') + folder, {QStringLiteral("*.h"), QStringLiteral("*.cpp")},
                          QDir::Files, QDirIterator::Subdirectories);
        while (walk.hasNext())
            paths.append(walk.next().mid(root.size() + 1));
    }
    paths.sort();
    for (const QString &path : qAsConst(paths))
        m_files.append(readSource(root, path));
}

bool SourceTree::holds(const QString &path) const
{
    return std::any_of(m_files.cbegin(), m_files.cend(),
                       [&path](const SourceFile &file) { return file.path == path; });
}

QString SourceTree::codeOf(const QString &text, bool keepStrings)
{
    QString code;
    for (int at = 0; at < text.size();) {
        const QStringRef next = text.midRef(at, 2);
        int end = at + 1;
        bool keep = true;
        if (next == QLatin1String("//")) {
            end = text.indexOf(QLatin1Char('\n'), at);
            keep = false;
        } else if (next == QLatin1String("/*")) {
            end = text.indexOf(QLatin1String("*/"), at + 2);
            end = end < 0 ? end : end + 2;
            keep = false;
        } else if (next == QLatin1String("R\"") && beginsWord(text, at)) {
            end = endOfRawString(text, at);
            keep = keepStrings;
        } else if (text.at(at) == QLatin1Char('"') ||
                   (text.at(at) == QLatin1Char('\'') && beginsWord(text, at))) {
            end = endOfLiteral(text, at);
            keep = keepStrings;
        }
        if (end < 0)
            end = text.size();
        if (keep)
            code.append(text.midRef(at, end - at));
        at = end;
    }
    return code;
}
