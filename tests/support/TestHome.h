#pragma once

#include "tests/support/OwnPlaces.h"

#include <QString>
#include <QTemporaryDir>

/// A home of its own for a test program: settings, data folder, documents and trash lie in a temporary
/// folder that goes with the object. To be made before the application object.
class TestHome
{
public:
    TestHome();

    /// The one of this process.
    static TestHome *instance();

    QString path() const { return m_folder.path(); }
    QString path(const QString &relative) const { return m_folder.filePath(relative); }
    QString dataFolder() const { return m_folder.filePath(QStringLiteral("data")); }
    QString projectsRoot() const { return m_folder.filePath(QStringLiteral("projects")); }

    /// Empties settings, data folder and projects root; the language is English and the projects root
    /// is stored, unless `firstStart`.
    void reset(bool firstStart = false);

private:
    QTemporaryDir m_folder;
    OwnPlaces m_places;
};

/// Writes a file with its folders; fails the test when that is not possible.
void writeFile(const QString &path, const QByteArray &bytes);

/// The bytes of a file; fails the test when it cannot be read.
QByteArray readFile(const QString &path);
