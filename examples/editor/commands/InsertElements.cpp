#include "commands/InsertElements.h"

#include "model/Document.h"

namespace Editor {

InsertElements::InsertElements(const QString &text, Document &document, const Content &content)
    : QUndoCommand(text)
    , m_document(document)
    , m_content(content)
{
}

void InsertElements::redo()
{
    for (const Node &node : std::as_const(m_content.nodes))
        m_document.insertNode(node, m_document.nodeOrder().size());
    for (const Edge &edge : std::as_const(m_content.edges))
        m_document.insertEdge(edge, m_document.edgeOrder().size());
}

void InsertElements::undo()
{
    for (auto edge = m_content.edges.crbegin(); edge != m_content.edges.crend(); ++edge)
        m_document.removeEdge(edge->id);
    for (auto node = m_content.nodes.crbegin(); node != m_content.nodes.crend(); ++node)
        m_document.removeNode(node->id);
}

} // namespace Editor
