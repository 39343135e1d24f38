#pragma once

#include <QAbstractTableModel>
#include <QFileInfo>
#include <QVector>

/// The rows that a search has found so far: name, size and time of the last change. A search that ended
/// without a find shows one row that says so.
class FoundFilesModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        NameColumn,
        SizeColumn,
        LastModifiedColumn,
        ColumnCount
    };
    /// The absolute path of a row's file, in any column.
    static constexpr int filePathRole = Qt::UserRole;

    explicit FoundFilesModel(QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    /// Begins a search: all rows go.
    void clearResults();
    void addFile(const QFileInfo &info);
    /// Ends a search.
    void searchDone();

signals:
    void searchStarted();
    void searchFinished();

private:
    bool showsNoResults() const { return !m_searching && m_noResults; }
    static QVariant displayText(const QFileInfo &info, int column);

    QVector<QFileInfo> m_files;
    bool m_searching = false;
    bool m_noResults = false;
};
