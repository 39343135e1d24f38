#pragma once

#include "import/ResultsCsv.h"

#include <QAbstractItemModel>
#include <QHash>

class QIODevice;

/// The rows of a tester's results file as a table. The kind of test can be changed in it, because the
/// sign of an insulation test depends on how the user connected the leads.
class CsvResultsModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    /// Takes the separator of fields from the default locale, once and for all.
    explicit CsvResultsModel(QObject *parent = nullptr);

    /// Replaces the contents by those of a file. Always true: a short file has no rows.
    bool load(QIODevice *device);

    /// Serial number of the tester that wrote the file.
    QString serialNumber() const { return m_csv.serialNumber(); }
    /// The column with the kind of test, -1 if there is none.
    int testTypeColumn() const { return m_csv.testTypeColumn(); }
    /// The kind of test of a row as the number in the file; 0 if it is none.
    unsigned testType(const QModelIndex &index) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    using QObject::parent;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    /// A field as it stands now; invalid outside the row.
    QVariant field(int row, int column) const;
    QVariant foreground(int row) const;

    QChar m_separator;
    ResultsCsv m_csv;
    /// The kinds of test that were changed since loading, by row.
    QHash<int, QString> m_changedTestTypes;
};
