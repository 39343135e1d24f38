#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// One C++ source or header of the tree.
struct SourceFile
{
    QString path;         ///< from the source root
    QString code;         ///< without comments and without what stands between quotation marks
    QStringList includes; ///< what `#include "..."` names
    int lines = 0;

    QString folder() const;
    /// X.h and X.cpp are one component: the path without its suffix.
    QString component() const;
    bool isHeader() const { return path.endsWith(QLatin1String(".h")); }
};

/// The sources under some folders of a source root.
class SourceTree
{
public:
    SourceTree(const QString &root, const QStringList &folders);

    const QVector<SourceFile> &files() const { return m_files; }
    bool holds(const QString &path) const;
    QString root() const { return m_root; }

    /// Takes comments out of C++ text, and what stands between quotation marks too unless `keepStrings`.
    static QString codeOf(const QString &text, bool keepStrings);

private:
    QString m_root;
    QVector<SourceFile> m_files;
};
