#pragma once

#include <QTreeView>

namespace IVCurve {

/// The view of the tree of strings. Its rows are moved by dragging.
class CurveTree : public QTreeView
{
    Q_OBJECT

public:
    explicit CurveTree(QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;

private:
    bool m_shown = false;
};

} // namespace IVCurve
