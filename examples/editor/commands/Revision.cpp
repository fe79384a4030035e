#include "commands/Revision.h"

#include "model/Document.h"

namespace Editor {

void Revision::applyTo(Document &document) const
{
    for (const Node &node : nodes) {
        if (*document.node(node.id) != node)
            document.replaceNode(node);
    }
    for (const Edge &edge : edges) {
        if (*document.edge(edge.id) != edge)
            document.replaceEdge(edge);
    }
    if (!order.isEmpty() && order != document.nodeOrder())
        document.setNodeOrder(order);
}

Revision Revision::now(const Document &document, const Revision &other)
{
    Revision revision;
    for (const Node &node : other.nodes)
        revision.nodes << *document.node(node.id);
    for (const Edge &edge : other.edges)
        revision.edges << *document.edge(edge.id);
    if (!other.order.isEmpty())
        revision.order = document.nodeOrder();
    return revision;
}

} // namespace Editor
