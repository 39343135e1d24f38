#include "tests/whole/IndependentSearch.h"

#include "tests/whole/IndependentReader.h"

#include <QXmlStreamReader>

#include <cctype>
#include <filesystem>

#include <sys/stat.h>

namespace IndependentSearch {

namespace {

/// A star stands for any run of characters, a question mark for any one.
bool matchesFrom(const char *name, const char *pattern)
{
    if (*pattern == '*')
        return matchesFrom(name, pattern + 1) || (*name != 0 && matchesFrom(name + 1, pattern));
    if (*name == 0 || *pattern == 0)
        return *name == *pattern;
    const auto lower = [](char each) { return std::tolower(static_cast<unsigned char>(each)); };
    return (*pattern == '?' || lower(*name) == lower(*pattern)) && matchesFrom(name + 1, pattern + 1);
}

} // namespace

QStringList walk(const QString &folder, const std::function<bool(const Entry &)> &accepts)
{
    QStringList found;
    namespace fs = std::filesystem;
    fs::recursive_directory_iterator entries(folder.toStdString(),
                                             fs::directory_options::skip_permission_denied);
    for (; entries != fs::recursive_directory_iterator(); ++entries) {
        const fs::path &path = entries->path();
        struct stat facts
        {
        };
        if (entries->is_symlink() || path.extension() == ".lnk" || stat(path.string().c_str(), &facts) != 0)
            continue;
        if (path.filename().string().front() == '.') {
            entries.disable_recursion_pending();
            continue;
        }
        Entry entry;
        entry.path = path.generic_u8string().c_str();
        entry.name = path.filename().u8string().c_str();
        entry.modified = facts.st_mtime;
        entry.size = facts.st_size;
        entry.isFolder = S_ISDIR(facts.st_mode);
        if (accepts(entry))
            found.append(QString::fromUtf8(entry.path));
    }
    found.sort();
    return found;
}

bool matches(const Entry &entry, const char *pattern)
{
    return matchesFrom(entry.name.constData(), pattern);
}

bool containsPhrase(const Entry &entry, const QString &phrase)
{
    if (entry.isFolder ||
        (!entry.name.endsWith(".kelir") && !entry.name.endsWith(".kelatr") && !entry.name.endsWith(".kelvc")))
        return false;
    const auto entries = independentEntries(QString::fromUtf8(entry.path));
    if (entries.isEmpty())
        return false;
    QXmlStreamReader reader(entries.first().second);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::Characters &&
            reader.text().contains(phrase, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

} // namespace IndependentSearch
