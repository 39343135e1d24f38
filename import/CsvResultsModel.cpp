#include "import/CsvResultsModel.h"

#include "app/core/NumberText.h"

#include <QColor>
#include <QIODevice>

CsvResultsModel::CsvResultsModel(QObject *parent)
    : QAbstractItemModel(parent), m_separator(NumberText::listSeparator())
{
}

bool CsvResultsModel::load(QIODevice *device)
{
    beginResetModel();
    m_changedTestTypes.clear();
    m_csv = ResultsCsv::parse(device->readAll(), m_separator);
    endResetModel();
    return true;
}

unsigned CsvResultsModel::testType(const QModelIndex &index) const
{
    return index.isValid() ? field(index.row(), testTypeColumn()).toString().toUInt() : 0;
}

int CsvResultsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_csv.rowCount();
}

int CsvResultsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_csv.headers().size();
}

QModelIndex CsvResultsModel::index(int row, int column, const QModelIndex &parent) const
{
    return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
}

QModelIndex CsvResultsModel::parent(const QModelIndex &) const
{
    return QModelIndex();
}

QVariant CsvResultsModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return field(index.row(), index.column());
    case Qt::ForegroundRole:
        return foreground(index.row());
    default:
        return QVariant();
    }
}

bool CsvResultsModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole || index.column() != testTypeColumn())
        return false;
    m_changedTestTypes.insert(index.row(), value.toString());
    emit dataChanged(index, index);
    return true;
}

QVariant CsvResultsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= columnCount())
        return QVariant();
    return m_csv.headers().at(section);
}

Qt::ItemFlags CsvResultsModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return index.column() == testTypeColumn() ? flags | Qt::ItemIsEditable : flags;
}

QVariant CsvResultsModel::field(int row, int column) const
{
    if (row >= m_csv.rowCount() || column < 0 || column >= m_csv.fieldCount(row))
        return QVariant();
    if (column == testTypeColumn()) {
        const auto changed = m_changedTestTypes.constFind(row);
        if (changed != m_changedTestTypes.constEnd())
            return *changed;
    }
    return m_csv.field(row, column);
}

QVariant CsvResultsModel::foreground(int row) const
{
    // The status stands second from the end of a row whatever comes before, as a curve takes up any
    // number of fields.
    const int status = field(row, m_csv.fieldCount(row) - 2).toString().toInt();
    return status > 0 ? QVariant(QColor(Qt::red)) : QVariant();
}
