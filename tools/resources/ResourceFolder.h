#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <stdexcept>

/// What stops the building of resources: the text says which file and why.
class BuildError : public std::runtime_error
{
public:
    explicit BuildError(const QString &text) : std::runtime_error(text.toStdString()) {}
};

QByteArray readSource(const QString &path);

/// The folder that the resources are built into. It remembers what was put there: that, and nothing older
/// that may lie in it, is embedded.
class ResourceFolder
{
public:
    explicit ResourceFolder(const QString &path);

    /// Stores a file under its path in the resources, for example "toolButtons/save.png".
    void store(const QString &name, const QByteArray &bytes);

    /// Stores a file that is installed beside the program instead of being embedded.
    void storeUnlisted(const QString &name, const QByteArray &bytes) const;

    /// The folders of the languages that there are forms for, by what was stored so far.
    QStringList reportFolders() const;

    /// Lists the files for the resource compiler, beside the folder's files.
    void writeList(const QString &fileName) const;

private:
    QString m_path;
    QStringList m_names;
};
