#include "commands/ChangeStyle.h"

#include "model/Document.h"

#include <QCoreApplication>

namespace Editor {
namespace {

Revision changed(const Document &document, const QList<int> &ids, const ChangeStyle::Change &change)
{
    Revision revision;
    for (const int id : ids) {
        if (const Node *node = document.node(id)) {
            revision.nodes << *node;
            change(revision.nodes.last().style);
        } else {
            revision.edges << *document.edge(id);
            change(revision.edges.last().style);
        }
    }
    return revision;
}

} // namespace

ChangeStyle::ChangeStyle(Document &document, const QList<int> &ids, const Change &change,
                         int series)
    : ChangeElements(QCoreApplication::translate("Editor", "Change style"), document,
                     changed(document, ids, change), series)
{
}

} // namespace Editor
