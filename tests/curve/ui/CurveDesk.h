#pragma once

#include "curve/ui/CurveDocument.h"

#include <QItemSelectionModel>
#include <QStringList>

namespace IVCurve {
class CurveGraph;
class CurveTree;
class CurveTreeModel;
} // namespace IVCurve

class QAction;
class QMenu;

/// A curve file that is open in its document, as a user has it on the desk.
class CurveDesk
{
public:
    /// Makes a file with a folder "Roof" of so many strings, called "String 1" and so on, and an empty folder
    /// "Wall" behind it. The strings' ids are their numbers.
    static QString makeFile(int strings, const QString &name = QStringLiteral("roof.kelcrv"));

    explicit CurveDesk(const QString &path);
    ~CurveDesk();

    /// Shows the document as a window that has the keyboard.
    void show();
    /// The node that this path of names leads to.
    QModelIndex at(const QStringList &names, int column = 0) const;
    QModelIndex string(int number, int column = 0) const;
    void select(const QList<QModelIndex> &indexes) const;
    void selectStrings(const QVector<int> &numbers) const;
    /// Clicks a node with the right button, or the empty space below all nodes if the index is invalid. The
    /// menu that comes up is left, or its entry chosen.
    void rightClick(const QModelIndex &index, const QString &choice = QString()) const;
    QAction *action(const char *name) const;
    bool isEnabled(const char *name) const;
    QStringList namesBelow(const QModelIndex &parent = QModelIndex()) const;
    /// What the probe for outside automation tells of the graph.
    int lines(const char *property) const;

    IVCurve::CurveDocument document;
    IVCurve::CurveTree *tree;
    IVCurve::CurveTreeModel *model;
    IVCurve::CurveGraph *graph;
};
