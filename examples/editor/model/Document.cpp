#include "model/Document.h"

#include <QSet>

namespace Editor {
namespace {

template<class Item>
QList<Item> inOrder(const QHash<int, Item> &items, const QList<int> &order)
{
    QList<Item> result;
    result.reserve(order.size());
    for (const int id : order)
        result << items.value(id);
    return result;
}

template<class Item>
const Item *find(const QHash<int, Item> &items, int id)
{
    const auto found = items.constFind(id);
    return found == items.cend() ? nullptr : &found.value();
}

template<class Item>
void adopt(const QList<Item> &list, QHash<int, Item> &items, QList<int> &order)
{
    items.clear();
    order.clear();
    for (const Item &item : list) {
        items.insert(item.id, item);
        order << item.id;
    }
}

} // namespace

Document::Document(QObject *parent)
    : QObject(parent)
{
}

Content Document::content() const
{
    return {inOrder(m_nodes, m_nodeOrder), inOrder(m_edges, m_edgeOrder)};
}

void Document::setContent(const Content &content)
{
    adopt(content.nodes, m_nodes, m_nodeOrder);
    adopt(content.edges, m_edges, m_edgeOrder);
    m_lastId = 0;
    for (const QList<int> &order : {m_nodeOrder, m_edgeOrder}) {
        for (const int id : order)
            m_lastId = qMax(m_lastId, id);
    }
    Q_EMIT reset();
}

const Node *Document::node(int id) const
{
    return find(m_nodes, id);
}

const Edge *Document::edge(int id) const
{
    return find(m_edges, id);
}

QList<int> Document::nodesIn(int lane) const
{
    QList<int> result;
    for (const int id : m_nodeOrder) {
        if (m_nodes.constFind(id)->lane == lane)
            result << id;
    }
    return result;
}

QList<int> Document::edgesOf(int node) const
{
    QList<int> result;
    for (const int id : m_edgeOrder) {
        const auto edge = m_edges.constFind(id);
        if (edge->source == node || edge->target == node)
            result << id;
    }
    return result;
}

QList<int> Document::edgesWithin(const QList<int> &nodes) const
{
    const QSet<int> inside(nodes.cbegin(), nodes.cend());
    QList<int> result;
    for (const int id : m_edgeOrder) {
        const auto edge = m_edges.constFind(id);
        if (inside.contains(edge->source) && inside.contains(edge->target))
            result << id;
    }
    return result;
}

int Document::newId()
{
    do
        m_lastId = m_lastId < Limits::id ? m_lastId + 1 : 1;
    while (m_nodes.contains(m_lastId) || m_edges.contains(m_lastId));
    return m_lastId;
}

void Document::insertNode(const Node &node, qsizetype index)
{
    m_nodes.insert(node.id, node);
    m_nodeOrder.insert(qBound(0, index, m_nodeOrder.size()), node.id);
    m_lastId = qMax(m_lastId, node.id);
    Q_EMIT nodeInserted(node.id);
}

void Document::removeNode(int id)
{
    m_nodes.remove(id);
    m_nodeOrder.removeOne(id);
    Q_EMIT nodeRemoved(id);
}

void Document::replaceNode(const Node &node)
{
    m_nodes.insert(node.id, node);
    Q_EMIT nodeChanged(node.id);
}

void Document::setNodeOrder(const QList<int> &order)
{
    m_nodeOrder = order;
    Q_EMIT nodesReordered();
}

void Document::insertEdge(const Edge &edge, qsizetype index)
{
    m_edges.insert(edge.id, edge);
    m_edgeOrder.insert(qBound(0, index, m_edgeOrder.size()), edge.id);
    m_lastId = qMax(m_lastId, edge.id);
    Q_EMIT edgeInserted(edge.id);
}

void Document::removeEdge(int id)
{
    m_edges.remove(id);
    m_edgeOrder.removeOne(id);
    Q_EMIT edgeRemoved(id);
}

void Document::replaceEdge(const Edge &edge)
{
    m_edges.insert(edge.id, edge);
    Q_EMIT edgeChanged(edge.id);
}

} // namespace Editor
