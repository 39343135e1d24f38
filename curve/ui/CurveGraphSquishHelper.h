#pragma once

#include <QObject>

namespace IVCurve {

class CurveGraph;

/// Tells programs that drive the user interface from outside what a graph shows. A child of the graph.
class CurveGraphSquishHelper : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int MEASLineCount READ measLineCount)
    Q_PROPERTY(int STCLineCount READ stcLineCount)
    Q_PROPERTY(int NOMLineCount READ nomLineCount)
    Q_PROPERTY(int MEASPWRLineCount READ measPwrLineCount)
    Q_PROPERTY(int STCPWRLineCount READ stcPwrLineCount)
    Q_PROPERTY(int NOMPWRLineCount READ nomPwrLineCount)
    Q_PROPERTY(int VisibleLineCount READ visibleLineCount)

public:
    explicit CurveGraphSquishHelper(CurveGraph *graph);

    int measLineCount() const;
    int stcLineCount() const;
    int nomLineCount() const;
    int measPwrLineCount() const;
    int stcPwrLineCount() const;
    int nomPwrLineCount() const;
    /// The lines that have points.
    int visibleLineCount() const;

private:
    CurveGraph *m_graph;
};

} // namespace IVCurve
