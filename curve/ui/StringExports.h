#pragma once

#include "curve/ui/PointExport.h"

#include <QCoreApplication>
#include <QModelIndex>

class QWidget;

namespace IVCurve {

class CurveDatabase;
class CurveGraph;

/// What is written of the strings that are selected in the tree, after the user has said where to. Throws
/// std::out_of_range for a row whose string is not loaded.
class StringExports
{
    Q_DECLARE_TR_FUNCTIONS(IVCurve::StringExports)

public:
    /// `parent` is that of the dialogs.
    StringExports(QWidget *parent, const CurveDatabase &file) : m_parent(parent), m_file(file) {}

    /// Writes one report on all rows, with the graph as it stands on the screen, and opens it.
    void report(const QModelIndexList &rows, CurveGraph &graph) const;
    /// Writes the points of each row to a file of its own.
    void points(const QModelIndexList &rows, PointExport::Kind kind) const;

private:
    QWidget *m_parent;
    const CurveDatabase &m_file;
};

} // namespace IVCurve
