#include "files/Clip.h"

#include "files/DocumentReader.h"
#include "model/Document.h"

#include <QMimeData>
#include <QSet>

namespace Editor {
namespace {

QRect united(const QList<Node> &nodes)
{
    QRect all;
    for (const Node &node : nodes)
        all |= node.rect;
    return all;
}

// Out of its lane, a node lies where it is seen.
void leaveLane(Node &node, const QHash<int, QRect> &rects)
{
    node.lane = 0;
    node.rect = fitted(rects.value(node.id, node.rect));
}

} // namespace

Content Clip::copied(const Document &document, const QList<int> &ids,
                     const QHash<int, QRect> &rects)
{
    const QSet<int> chosen(ids.cbegin(), ids.cend());
    QList<int> nodes;
    Content content;
    for (const int id : document.nodeOrder()) {
        Node node = *document.node(id);
        if (!chosen.contains(id) && !chosen.contains(node.lane))
            continue;
        if (!chosen.contains(node.lane))
            leaveLane(node, rects);
        nodes << id;
        content.nodes << node;
    }
    const QList<int> edges = document.edgesWithin(nodes);
    for (const int id : edges)
        content.edges << *document.edge(id);
    return content;
}

void Clip::write(QMimeData *data, const Content &content)
{
    data->setData(mimeType, DocumentWriter::write(content));
}

bool Clip::isIn(const QMimeData *data)
{
    return data && data->hasFormat(mimeType);
}

Content Clip::read(const QMimeData *data)
{
    return isIn(data) ? DocumentReader::read(data->data(mimeType)).content : Content();
}

Content Clip::renewed(Content content, Document &document, const QPoint &wanted)
{
    const QPoint offset = fittedOffset(united(content.nodes), wanted);
    QHash<int, int> ids;
    for (Node &node : content.nodes) {
        ids.insert(node.id, document.newId());
        node.id = ids.value(node.id);
        node.rect.translate(offset);
    }
    for (Node &node : content.nodes)
        node.lane = ids.value(node.lane);
    for (Edge &edge : content.edges) {
        edge.id = document.newId();
        edge.source = ids.value(edge.source);
        edge.target = ids.value(edge.target);
        for (QPoint &bend : edge.bends)
            bend = fitted(bend + offset);
    }
    return content;
}

} // namespace Editor
