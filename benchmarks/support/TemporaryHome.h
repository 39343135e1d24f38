#pragma once

#include <QString>
#include <QTemporaryDir>

/// A home of its own for a benchmark program, so that no settings and documents of the user change what is
/// measured. To be made before the application object.
class TemporaryHome
{
public:
    TemporaryHome();

    /// The path of a file in a folder that goes with the object.
    QString path(const QString &relative) const { return m_folder.filePath(relative); }

private:
    QTemporaryDir m_folder;
};
