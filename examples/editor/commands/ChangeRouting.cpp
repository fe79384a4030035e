#include "commands/ChangeRouting.h"

#include "model/Document.h"

#include <QCoreApplication>

namespace Editor {
namespace {

Revision changed(const Document &document, const QList<int> &edges, Routing routing,
                 const QHash<int, QList<QPoint>> &corners)
{
    Revision revision;
    for (const int id : edges) {
        Edge edge = *document.edge(id);
        edge.routing = edge.isLoop() ? Routing::Bendpoint : routing; // a loop needs its bends
        if (routing == Routing::Bendpoint && edge.bends.isEmpty())
            edge.bends = corners.value(id);
        revision.edges << edge;
    }
    return revision;
}

} // namespace

ChangeRouting::ChangeRouting(Document &document, const QList<int> &edges, Routing routing,
                             const QHash<int, QList<QPoint>> &corners)
    : ChangeElements(QCoreApplication::translate("Editor", "Change routing"), document,
                     changed(document, edges, routing, corners))
{
}

} // namespace Editor
