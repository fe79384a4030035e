#include "commands/MoveNodes.h"

#include "model/Document.h"

#include <QCoreApplication>

namespace Editor {
namespace {

QList<int> withLanesContents(const Document &document, const QList<int> &nodes)
{
    QList<int> all = nodes;
    for (const int id : nodes) {
        if (document.node(id)->kind == NodeKind::Lane)
            all << document.nodesIn(id);
    }
    return all;
}

Revision moved(const Document &document, const QList<int> &nodes, const QPoint &wanted)
{
    Revision revision;
    QRect all;
    for (const int id : nodes)
        all |= document.node(id)->rect;
    const QPoint offset = fittedOffset(all, wanted);
    for (const int id : nodes) {
        revision.nodes << *document.node(id);
        revision.nodes.last().rect.translate(offset);
    }
    const QList<int> edges = document.edgesWithin(withLanesContents(document, nodes));
    for (const int id : edges) {
        Edge edge = *document.edge(id);
        for (QPoint &bend : edge.bends)
            bend = fitted(bend + offset);
        if (!edge.bends.isEmpty())
            revision.edges << edge;
    }
    return revision;
}

} // namespace

MoveNodes::MoveNodes(Document &document, const QList<int> &nodes, const QPoint &offset, int series)
    : ChangeElements(QCoreApplication::translate("Editor", "Move"), document,
                     moved(document, nodes, offset), series)
{
}

} // namespace Editor
