#include "tools/resources/ResourceFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

void writeOutput(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw BuildError(QStringLiteral("cannot write %1: %2").arg(path, file.errorString()));
}

QString listed(const QString &name, const QString &alias)
{
    return QStringLiteral("    <file alias=\"%1\">%2</file>\n")
        .arg(alias.toHtmlEscaped(), name.toHtmlEscaped());
}

} // namespace

QByteArray readSource(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw BuildError(QStringLiteral("cannot read %1: %2").arg(path, file.errorString()));
    return file.readAll();
}

ResourceFolder::ResourceFolder(const QString &path) : m_path(path) {}

void ResourceFolder::store(const QString &name, const QByteArray &bytes)
{
    writeOutput(m_path + QLatin1Char('/') + name, bytes);
    m_names.append(name);
}

void ResourceFolder::storeUnlisted(const QString &name, const QByteArray &bytes) const
{
    writeOutput(m_path + QLatin1Char('/') + name, bytes);
}

QStringList ResourceFolder::reportFolders() const
{
    QStringList folders;
    for (const QString &name : m_names) {
        if (name.startsWith(QLatin1String("reports_")))
            folders.append(name.left(name.indexOf(QLatin1Char('/'))));
    }
    folders.removeDuplicates();
    return folders;
}

void ResourceFolder::writeList(const QString &fileName) const
{
    QStringList names = m_names;
    names.sort();
    QString list = QStringLiteral("<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n  <qresource prefix=\"/res\">\n");
    for (const QString &name : qAsConst(names))
        list += listed(name, name);
    list += QStringLiteral("  </qresource>\n  <qresource prefix=\"/images\">\n");
    // The dock's style sheet looks for the tool bar's background here.
    for (const QString &name : qAsConst(names)) {
        if (name.startsWith(QLatin1String("images/toolbar_bg")))
            list += listed(name, QFileInfo(name).fileName());
    }
    list += QStringLiteral("  </qresource>\n</RCC>\n");
    writeOutput(m_path + QLatin1Char('/') + fileName, list.toUtf8());
}
