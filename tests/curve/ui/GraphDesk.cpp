#include "tests/curve/ui/GraphDesk.h"

#include "curve/data/CurveTreeModel.h"
#include "tests/curve/data/CurveSample.h"
#include "tests/support/Patience.h"

#include <QtTest>
#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_canvas.h>
#include <qwt_scale_div.h>

using namespace IVCurve;

GraphDesk::GraphDesk()
    : m_path(CurveSample::newFile())
    , m_database(m_path)
    , m_tree(m_database.treeModel())
    , m_graph(m_database.graphModel())
{
    QObject::connect(&m_tree, &QItemSelectionModel::selectionChanged, model(),
                     &CurveGraphModel::slotTreeSelectionChanged);
    QObject::connect(m_database.treeModel(), &QAbstractItemModel::rowsAboutToBeRemoved, model(),
                     &CurveGraphModel::slotRowRemoved);
    m_graph.follow();
    m_graph.resize(800, 600);
}

quint32 GraphDesk::add(const QString &name, const QVector<QPointF> &points, const QString &irradiance)
{
    CurveTrace trace;
    for (const QPointF &point : points)
        trace.addPoint(point.x(), point.y(), 1000.0, 0);
    StringHeader header;
    header.irradiance = irradiance;
    header.cellTemp = QStringLiteral("25");
    const quint32 id = model()->insertString(StringRecord(header, trace));
    TreeItem *node = m_database.treeModel()->insertNewRow(QModelIndex());
    node->setData(TreeItem::NodeDesc, name);
    node->setData(TreeItem::CurveID, id);
    return id;
}

QVector<quint32> GraphDesk::addSeveral(int count)
{
    m_database.database().transaction();
    QVector<quint32> ids;
    for (int i = 0; i < count; ++i)
        ids.append(add(QStringLiteral("S%1").arg(i + 1), plainCurve()));
    m_database.database().commit();
    return ids;
}

QModelIndex GraphDesk::indexOf(quint32 id) const
{
    CurveTreeModel *tree = m_database.treeModel();
    for (int row = 0; row < tree->rowCount(); ++row) {
        const QModelIndex index = tree->index(row, 0);
        if (tree->item(index)->data.at(TreeItem::CurveID).toUInt() == id)
            return index;
    }
    return QModelIndex();
}

void GraphDesk::select(const QVector<quint32> &ids)
{
    QItemSelection rows;
    for (const quint32 id : ids)
        rows.append(QItemSelectionRange(indexOf(id)));
    m_tree.select(rows, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void GraphDesk::selectAll()
{
    CurveTreeModel *tree = m_database.treeModel();
    m_tree.select(QItemSelection(tree->index(0, 0), tree->index(tree->rowCount() - 1, 0)),
                  QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void GraphDesk::giveModule(quint32 id)
{
    record(id).module() = ModuleBinding(0, 2, 1, 25.0, 6.0, 20.0, 5.5);
}

void GraphDesk::show()
{
    m_graph.show();
    QVERIFY(QTest::qWaitForWindowExposed(&m_graph, patience));
    m_graph.activateWindow();
    m_graph.canvas()->setFocus();
    QTRY_VERIFY(m_graph.canvas()->hasFocus());
    QCoreApplication::processEvents();
}

QStringList GraphDesk::legend() const
{
    QStringList texts;
    for (const QwtLegendLabel *label : m_graph.legend()->findChildren<QwtLegendLabel *>()) {
        if (!label->isHidden())
            texts.append(label->text().text());
    }
    texts.sort();
    return texts;
}

double GraphDesk::upperEnd(int axis) const
{
    return m_graph.axisScaleDiv(axis).upperBound();
}

const QVector<QPointF> &plainCurve()
{
    static const QVector<QPointF> points{{10, 5}, {20, 4.8}, {30, 4}, {40, 1}};
    return points;
}
