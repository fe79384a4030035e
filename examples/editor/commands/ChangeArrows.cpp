#include "commands/ChangeArrows.h"

#include "model/Document.h"

#include <QCoreApplication>

namespace Editor {
namespace {

Revision changed(const Document &document, const QList<int> &edges, ChangeArrows::End end,
                 Arrow arrow)
{
    Revision revision;
    for (const int id : edges) {
        Edge edge = *document.edge(id);
        (end == ChangeArrows::End::Source ? edge.sourceArrow : edge.targetArrow) = arrow;
        revision.edges << edge;
    }
    return revision;
}

} // namespace

ChangeArrows::ChangeArrows(Document &document, const QList<int> &edges, End end, Arrow arrow)
    : ChangeElements(QCoreApplication::translate("Editor", "Change arrow head"), document,
                     changed(document, edges, end, arrow))
{
}

} // namespace Editor
