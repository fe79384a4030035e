#include "commands/PlaceNodes.h"

#include "model/Document.h"

#include <QCoreApplication>

namespace Editor {
namespace {

Revision placed(const Document &document, const QHash<int, QRect> &rects)
{
    Revision revision;
    for (const int id : document.nodeOrder()) {
        const auto rect = rects.constFind(id);
        if (rect == rects.cend())
            continue;
        revision.nodes << *document.node(id);
        revision.nodes.last().rect = fitted(*rect);
    }
    return revision;
}

} // namespace

PlaceNodes::PlaceNodes(const QString &text, Document &document, const QHash<int, QRect> &rects,
                       int series)
    : ChangeElements(text, document, placed(document, rects), series)
{
}

} // namespace Editor
