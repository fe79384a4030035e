#include "commands/ChangeFlow.h"

#include "model/Document.h"

#include <QCoreApplication>

namespace Editor {
namespace {

Revision changed(const Document &document, const QList<int> &lanes, Qt::Orientation flow)
{
    Revision revision;
    for (const int id : lanes) {
        revision.nodes << *document.node(id);
        revision.nodes.last().flow = flow;
    }
    return revision;
}

} // namespace

ChangeFlow::ChangeFlow(Document &document, const QList<int> &lanes, Qt::Orientation flow)
    : ChangeElements(QCoreApplication::translate("Editor", "Turn lane"), document,
                     changed(document, lanes, flow))
{
}

} // namespace Editor
