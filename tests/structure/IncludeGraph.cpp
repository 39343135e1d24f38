#include "tests/structure/IncludeGraph.h"

#include "tests/structure/SourceTree.h"

IncludeGraph::IncludeGraph(const SourceTree &tree, const std::function<QString(const SourceFile &)> &nodeOf)
{
    QHash<QString, QString> nodes;
    for (const SourceFile &file : tree.files()) {
        nodes.insert(file.path, nodeOf(file));
        m_edges.insert(nodeOf(file), m_edges.value(nodeOf(file)));
    }
    for (const SourceFile &file : tree.files()) {
        const QString from = nodes.value(file.path);
        for (const QString &include : file.includes) {
            const QString to = nodes.value(include, from);
            if (to != from)
                m_edges[from].insert(to);
        }
    }
}

QSet<QString> IncludeGraph::reachableFrom(const QString &node) const
{
    QSet<QString> reached;
    QStringList open{node};
    while (!open.isEmpty()) {
        for (const QString &next : m_edges.value(open.takeLast())) {
            if (!reached.contains(next)) {
                reached.insert(next);
                open.append(next);
            }
        }
    }
    return reached;
}

QStringList IncludeGraph::cycles() const
{
    QHash<QString, QSet<QString>> reached;
    for (const QString &node : m_edges.keys())
        reached.insert(node, reachableFrom(node));
    // Two nodes lie on one cycle when each can be reached from the other.
    QStringList found;
    for (const QString &node : m_edges.keys()) {
        if (!reached.value(node).contains(node))
            continue;
        QStringList together;
        for (const QString &other : m_edges.keys()) {
            if (reached.value(node).contains(other) && reached.value(other).contains(node))
                together.append(other);
        }
        const QString cycle = together.join(QLatin1Char(' '));
        if (!found.contains(cycle))
            found.append(cycle);
    }
    return found;
}

int IncludeGraph::nodesInCycles() const
{
    int count = 0;
    for (const QString &cycle : cycles())
        count += cycle.count(QLatin1Char(' ')) + 1;
    return count;
}
