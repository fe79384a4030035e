#include "commands/Reconnect.h"

#include "model/Document.h"
#include "model/Loops.h"

#include <QCoreApplication>

namespace Editor {
namespace {

Revision changed(const Document &document, int id, Reconnect::End end, int node)
{
    Edge edge = *document.edge(id);
    (end == Reconnect::End::Source ? edge.source : edge.target) = node;
    if (edge.isLoop())
        bendLoop(edge, document.node(node)->rect);
    return {{}, {edge}, {}};
}

} // namespace

Reconnect::Reconnect(Document &document, int edge, End end, int node)
    : ChangeElements(QCoreApplication::translate("Editor", "Reconnect"), document,
                     changed(document, edge, end, node))
{
}

} // namespace Editor
