#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>

class SourceTree;
struct SourceFile;

/// Who includes whom, as an acyclic graph should be: the nodes are folders or components.
class IncludeGraph
{
public:
    /// Draws an edge for each include of one file of the tree by another whose nodes differ.
    IncludeGraph(const SourceTree &tree, const std::function<QString(const SourceFile &)> &nodeOf);

    int size() const { return m_edges.size(); }
    /// The nodes of each cycle, a sorted list joined by blanks for each.
    QStringList cycles() const;
    /// How many nodes lie on a cycle.
    int nodesInCycles() const;

private:
    /// All nodes that can be reached from `node`; itself only through a cycle.
    QSet<QString> reachableFrom(const QString &node) const;

    QMap<QString, QSet<QString>> m_edges;
};
