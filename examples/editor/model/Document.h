#pragma once

#include "model/Content.h"

#include <QHash>
#include <QObject>

namespace Editor {

/// The diagram that is edited: its nodes and edges, and word of each change.
///
/// The operations are the small steps that commands are made of; they are told what is possible and
/// check nothing. Knows no figure and no widget.
class Document : public QObject
{
    Q_OBJECT

public:
    explicit Document(QObject *parent = nullptr);

    Content content() const;
    void setContent(const Content &content); ///< Replaces all; announces reset() alone.

    const Node *node(int id) const; ///< Null when there is none. Valid until the next change.
    const Edge *edge(int id) const;
    const QList<int> &nodeOrder() const { return m_nodeOrder; } ///< The last one is on top.
    const QList<int> &edgeOrder() const { return m_edgeOrder; }

    QList<int> nodesIn(int lane) const;                    ///< In their order.
    QList<int> edgesOf(int node) const;                    ///< Those that begin or end there.
    QList<int> edgesWithin(const QList<int> &nodes) const; ///< Those that begin and end there.
    int newId(); ///< One that no node or edge has or, as long as there are others, ever had.

    void insertNode(const Node &node, qsizetype index); ///< Beyond the last: on top.
    void removeNode(int id);
    void replaceNode(const Node &node); ///< The one of the same id.
    void setNodeOrder(const QList<int> &order);
    void insertEdge(const Edge &edge, qsizetype index);
    void removeEdge(int id);
    void replaceEdge(const Edge &edge);

Q_SIGNALS:
    void reset();
    void nodeInserted(int id);
    void nodeRemoved(int id);
    void nodeChanged(int id);
    void nodesReordered();
    void edgeInserted(int id);
    void edgeRemoved(int id);
    void edgeChanged(int id);

private:
    QHash<int, Node> m_nodes;
    QHash<int, Edge> m_edges;
    QList<int> m_nodeOrder;
    QList<int> m_edgeOrder;
    int m_lastId = 0;
};

} // namespace Editor
