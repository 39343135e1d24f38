#pragma once

#include "curve/data/CurveTable.h"
#include "curve/data/StringRecord.h"

#include <QItemSelection>
#include <QObject>

#include <map>
#include <memory>

namespace IVCurve {

class CurveDatabase;

/// The strings that are selected in the tree, with their curves. A string is loaded when it is selected and
/// dropped when it no longer is.
class CurveGraphModel : public QObject
{
    Q_OBJECT

public:
    /// The loaded strings by their ids. A string that could not be read has no record.
    using Records = std::map<quint32, std::unique_ptr<StringRecord>>;

    /// `tree` is the model whose selection is followed.
    CurveGraphModel(const QSqlDatabase &database, CurveDatabase *curveDatabase, QAbstractItemModel *tree);
    ~CurveGraphModel() override;

    /// The record of a loaded string. Throws std::out_of_range if the string is not loaded, and
    /// std::runtime_error if it could not be.
    StringRecord &record(quint32 id) const;
    bool isLoaded(quint32 id) const { return m_records.find(id) != m_records.end(); }

    const Records &records() const { return m_records; }

    /// Stores a string in the file; its id, or 0.
    quint32 insertString(const StringRecord &record);
    /// Reads a string from the file; null if it cannot be had.
    std::unique_ptr<StringRecord> loadString(quint32 id) const;
    /// Stores settings, module and conditions of a loaded string.
    void saveStringSettings(quint32 id);
    /// Takes over a string that was edited in a copy, and shows its conditions in the tree.
    void applyDetails(const StringRecord &editedCopy, const QModelIndex &treeIndex);
    /// Gives a string, loaded or not, a module of the catalogue, as many as that in series.
    void assignModule(quint32 id, const CurveModuleRow &moduleRow, int seriesCount);
    /// The names of the selected nodes.
    QString selectedNames() const;

    CurveDatabase *curveDatabase() const { return m_curveDatabase; }
    /// Brings the table of curves up to date.
    void upgrade() const;

signals:
    void signalStringSelected(unsigned StringID);
    void signalStringDeselected(unsigned StringID);
    void signalUpdateLegend(QString newTitle);
    void modified(bool dirty);

public slots:
    void slotTreeSelectionChanged(QItemSelection selected, QItemSelection deselected);
    void slotRowRemoved(QModelIndex parent, int first, int last);

private:
    void load(const QPersistentModelIndex &index, CurveTable::Reader &reader);
    void loadNode(const QPersistentModelIndex &index, CurveTable::Reader &reader);
    void unload(const QModelIndex &index);
    void unloadNode(const QModelIndex &index);
    void redraw(quint32 id);

    QSqlDatabase m_database;
    CurveDatabase *m_curveDatabase;
    CurveTable m_table;
    QAbstractItemModel *m_tree;
    Records m_records;
    QItemSelection m_selection;
};

} // namespace IVCurve
