#include "browser/FoundFilesModel.h"

#include "app/core/DocumentType.h"
#include "app/core/Folders.h"

#include <QDateTime>
#include <QDir>
#include <QIcon>

namespace {

/// The path as the user knows it, below the projects root. A file that lay in an earlier root keeps its
/// whole path.
QString pathBelowRoot(const QFileInfo &info)
{
    const QString path = info.absoluteFilePath();
    QString root = QDir(Folders::instance()->projectsRoot()).absolutePath();
    if (!root.endsWith(QLatin1Char('/')))
        root += QLatin1Char('/');
    return path.startsWith(root) ? path.mid(root.size()) : path;
}

qint64 kilobytes(qint64 bytes)
{
    return bytes / 1024 + (bytes % 1024 > 0 ? 1 : 0);
}

} // namespace

FoundFilesModel::FoundFilesModel(QObject *parent) : QAbstractTableModel(parent) {}

int FoundFilesModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid())
        return 0;
    return showsNoResults() ? 1 : m_files.size();
}

int FoundFilesModel::columnCount(const QModelIndex &) const
{
    return ColumnCount;
}

QVariant FoundFilesModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return QVariant();
    if (showsNoResults()) {
        if (role == Qt::DisplayRole && index.column() == NameColumn)
            return tr("Search is complete. There are no results to display.", "Search status");
        return QVariant();
    }
    const QFileInfo &info = m_files.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return displayText(info, index.column());
    case Qt::DecorationRole:
        return index.column() == NameColumn ? documentIcon(info.absoluteFilePath()) : QVariant();
    case filePathRole:
        return info.absoluteFilePath();
    default:
        return QVariant();
    }
}

QVariant FoundFilesModel::displayText(const QFileInfo &info, int column)
{
    switch (column) {
    case NameColumn:
        return pathBelowRoot(info);
    case SizeColumn:
        return info.isDir() ? QVariant() : tr("%L1 KB").arg(kilobytes(info.size()));
    case LastModifiedColumn:
        return info.lastModified().toString(QStringLiteral("dd/MM/yyyy hh:mm"));
    default:
        return QVariant();
    }
}

QVariant FoundFilesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
        switch (section) {
        case NameColumn:
            return tr("Name", "Column header");
        case SizeColumn:
            return tr("Size", "Column header");
        case LastModifiedColumn:
            return tr("Last Modified", "Column header");
        default:
            break;
        }
    }
    return QAbstractTableModel::headerData(section, orientation, role);
}

void FoundFilesModel::clearResults()
{
    // The row of a search without a find goes like any other row.
    const bool rowsGo = rowCount() > 0;
    if (rowsGo)
        beginResetModel();
    m_searching = true;
    m_noResults = false;
    m_files.clear();
    if (rowsGo)
        endResetModel();
}

void FoundFilesModel::addFile(const QFileInfo &info)
{
    beginInsertRows(QModelIndex(), m_files.size(), m_files.size());
    m_files.append(info);
    endInsertRows();
}

void FoundFilesModel::searchDone()
{
    m_searching = false;
    if (!m_files.isEmpty())
        return;
    beginResetModel();
    m_noResults = true;
    endResetModel();
}
