#include "commands/ChangeBends.h"

#include "model/Document.h"

#include <QCoreApplication>

namespace Editor {
namespace {

Revision changed(const Document &document, int id, const QList<QPoint> &bends)
{
    Edge edge = *document.edge(id);
    edge.routing = Routing::Bendpoint;
    edge.bends.clear();
    for (const QPoint &bend : bends)
        edge.bends << fitted(bend);
    return {{}, {edge}, {}};
}

} // namespace

ChangeBends::ChangeBends(Document &document, int edge, const QList<QPoint> &bends, int series)
    : ChangeElements(QCoreApplication::translate("Editor", "Bend"), document,
                     changed(document, edge, bends), series)
{
}

} // namespace Editor
