#include "app/batch/CurveSheet.h"

#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveTreeModel.h"

using namespace IVCurve;

CurveSheet::CurveSheet(const QString &curveFile) : m_file(curveFile)
{
    if (!m_file.isOpen())
        return;
    m_tree = std::make_unique<QItemSelectionModel>(m_file.treeModel());
    m_graph = std::make_unique<CurveGraph>(m_file.graphModel());
    QObject::connect(m_tree.get(), &QItemSelectionModel::selectionChanged, m_file.graphModel(),
                     &CurveGraphModel::slotTreeSelectionChanged);
    m_graph->follow();
}

bool CurveSheet::select(const StringSelection &strings)
{
    return m_file.isOpen() && selectStrings(strings, *m_tree);
}
