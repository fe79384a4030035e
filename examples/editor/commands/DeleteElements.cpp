#include "commands/DeleteElements.h"

#include "model/Document.h"

#include <QCoreApplication>
#include <QSet>

namespace Editor {

DeleteElements::DeleteElements(Document &document, const QList<int> &ids, const QString &text)
    : QUndoCommand(text.isEmpty() ? QCoreApplication::translate("Editor", "Delete") : text)
    , m_document(document)
{
    const QSet<int> doomed(ids.cbegin(), ids.cend());
    QSet<int> nodes;
    for (qsizetype i = 0; i < document.nodeOrder().size(); ++i) {
        const Node &node = *document.node(document.nodeOrder().at(i));
        if (!doomed.contains(node.id) && !doomed.contains(node.lane))
            continue;
        nodes << node.id;
        m_nodes.append({i, node});
    }
    for (qsizetype i = 0; i < document.edgeOrder().size(); ++i) {
        const Edge &edge = *document.edge(document.edgeOrder().at(i));
        if (doomed.contains(edge.id) || nodes.contains(edge.source) || nodes.contains(edge.target))
            m_edges.append({i, edge});
    }
}

void DeleteElements::redo()
{
    for (auto edge = m_edges.crbegin(); edge != m_edges.crend(); ++edge)
        m_document.removeEdge(edge->item.id);
    for (auto node = m_nodes.crbegin(); node != m_nodes.crend(); ++node)
        m_document.removeNode(node->item.id);
}

void DeleteElements::undo()
{
    for (const Place<Node> &node : std::as_const(m_nodes))
        m_document.insertNode(node.item, node.index);
    for (const Place<Edge> &edge : std::as_const(m_edges))
        m_document.insertEdge(edge.item, edge.index);
}

} // namespace Editor
