#pragma once

#include "app/batch/StringSelection.h"
#include "curve/data/CurveDatabase.h"
#include "curve/ui/CurveGraph.h"

#include <QItemSelectionModel>

/// A curve file as a document shows it, without the window: the selection of its tree, and the graph that
/// follows it.
class CurveSheet
{
public:
    /// Throws std::exception, after a message, when the file's tree cannot be read.
    explicit CurveSheet(const QString &curveFile);

    /// Opens the file's strings. False, after telling, if the file cannot be opened or a string is not there.
    bool select(const StringSelection &strings);
    /// The selected rows in the order of the selection.
    QModelIndexList rows() const { return m_tree->selectedRows(0); }
    const IVCurve::CurveDatabase &file() const { return m_file; }
    IVCurve::CurveGraph &graph() { return *m_graph; }

private:
    IVCurve::CurveDatabase m_file;
    std::unique_ptr<QItemSelectionModel> m_tree;
    std::unique_ptr<IVCurve::CurveGraph> m_graph;
};
