#pragma once

#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/StringRecord.h"
#include "curve/ui/CurveGraph.h"

#include <QItemSelectionModel>
#include <QStringList>
#include <QVector>

/// A curve file with the graph of the strings that are selected in its tree, as in a document.
class GraphDesk
{
public:
    GraphDesk();

    /// A string measured at standard test conditions, so that correcting it changes no point.
    quint32 add(const QString &name, const QVector<QPointF> &points,
                const QString &irradiance = QStringLiteral("1000"));
    /// So many strings with a plausible curve.
    QVector<quint32> addSeveral(int count);

    void select(const QVector<quint32> &ids);
    void selectAll();
    IVCurve::StringRecord &record(quint32 id) { return m_database.graphModel()->record(id); }
    /// Gives a loaded string a module whose nominal curve can be drawn.
    void giveModule(quint32 id);

    IVCurve::CurveGraphModel *model() const { return m_database.graphModel(); }
    QItemSelectionModel &tree() { return m_tree; }
    IVCurve::CurveGraph &graph() { return m_graph; }
    QString path() const { return m_path; }
    /// Puts the graph on the screen and waits until it is painted.
    void show();

    /// The texts of the legend, sorted.
    QStringList legend() const;
    /// Upper end of a scale.
    double upperEnd(int axis) const;

private:
    QModelIndex indexOf(quint32 id) const;

    QString m_path;
    IVCurve::CurveDatabase m_database;
    QItemSelectionModel m_tree;
    IVCurve::CurveGraph m_graph;
};

/// A plausible curve: from (10, 5) down to (40, 1), with the highest power at (30, 4).
const QVector<QPointF> &plainCurve();
