#include "browser/ProjectModel.h"

#include "app/core/DocumentType.h"
#include "app/core/Messages.h"
#include "app/core/Shell.h"
#include "app/platform/Platform.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace {

/// True if one of the folders around `path` is in `paths`.
bool liesInOneOf(const QSet<QString> &paths, const QString &path)
{
    for (int slash = path.lastIndexOf(QLatin1Char('/')); slash > 0;
         slash = path.lastIndexOf(QLatin1Char('/'), slash - 1)) {
        if (paths.contains(path.left(slash)))
            return true;
    }
    return false;
}

/// The paths that do not lie inside another one of the list: what is inside goes with its folder.
QStringList outermost(const QStringList &paths)
{
    const QSet<QString> all(paths.cbegin(), paths.cend());
    QStringList outer;
    for (const QString &path : paths) {
        if (!liesInOneOf(all, path))
            outer.append(path);
    }
    return outer;
}

} // namespace

ProjectModel::ProjectModel(QObject *parent) : QFileSystemModel(parent)
{
    setReadOnly(false);
}

int ProjectModel::columnCount(const QModelIndex &) const
{
    return 1;
}

QVariant ProjectModel::data(const QModelIndex &index, int role) const
{
    if (role == Qt::DecorationRole && index.isValid()) {
        const QIcon icon = documentIcon(filePath(index));
        if (!icon.isNull())
            return icon;
    }
    return QFileSystemModel::data(index, role);
}

void ProjectModel::removeFiles(const QModelIndexList &indexes)
{
    QStringList paths;
    for (const QModelIndex &index : indexes)
        paths.append(filePath(index));
    if (paths.isEmpty())
        return;
    if (Platform::recycleBinAsks()) {
        Platform::moveToRecycleBin(paths, true);
        return;
    }

    paths = outermost(paths);
    Message question;
    question.parent = Shell::parentWindow();
    question.icon = QMessageBox::Question;
    question.buttons = QMessageBox::Yes | QMessageBox::No;
    question.text =
        paths.size() > 1
            ? tr("Do you want to move these %1 items to the trash?", "User prompt").arg(paths.size())
            : tr("Do you want to move \"%1\" to the trash?", "User prompt")
                  .arg(QFileInfo(paths.first()).fileName());
    if (!askYesNo(question))
        return;
    const QStringList refused = Platform::moveToRecycleBin(paths, true);
    if (refused.isEmpty())
        return;
    QStringList names;
    for (const QString &path : refused)
        names.append(QDir::toNativeSeparators(path));
    Message warning;
    warning.parent = Shell::parentWindow();
    warning.icon = QMessageBox::Warning;
    warning.text =
        tr("Could not move to the trash:\n%1", "Warning Message").arg(names.join(QLatin1Char('\n')));
    showMessage(warning);
}
