#pragma once

#include <QByteArray>
#include <QStringList>

#include <functional>

/// A search written once more with other means: the standard library's walk, the system's own file facts, name
/// patterns matched letter by letter, a stream reader for the XML.
namespace IndependentSearch {

struct Entry
{
    QByteArray path;
    QByteArray name;
    /// Seconds since 1970 of the last change.
    qint64 modified = 0;
    qint64 size = 0;
    bool isFolder = false;
};

/// The entries below a folder that `accepts` takes: no links, no hidden ones. Sorted paths.
QStringList walk(const QString &folder, const std::function<bool(const Entry &)> &accepts);

/// True if a name matches a shell pattern, whatever the case.
bool matches(const Entry &entry, const char *pattern);

/// True if the entry is one of the three kinds of reports and a run of its text contains the phrase,
/// whatever the case.
bool containsPhrase(const Entry &entry, const QString &phrase);

} // namespace IndependentSearch
