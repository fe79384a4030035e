#include "commands/ChangeLane.h"

#include "model/Document.h"

#include <QCoreApplication>

namespace Editor {
namespace {

Revision changed(const Document &document, int lane, int before, const QHash<int, QRect> &rects)
{
    Revision revision;
    QList<int> rest;
    QList<int> chosen;
    for (const int id : document.nodeOrder()) {
        const auto rect = rects.constFind(id);
        if (rect == rects.cend()) {
            rest << id;
            continue;
        }
        chosen << id;
        Node node = *document.node(id);
        node.lane = lane;
        node.rect = fitted(*rect);
        revision.nodes << node;
    }
    const qsizetype place = rest.indexOf(before);
    revision.order = place < 0 ? rest + chosen : rest.mid(0, place) + chosen + rest.mid(place);
    return revision;
}

} // namespace

ChangeLane::ChangeLane(Document &document, int lane, int before, const QHash<int, QRect> &rects,
                       int series)
    : ChangeElements(QCoreApplication::translate("Editor", "Change lane"), document,
                     changed(document, lane, before, rects), series)
{
}

} // namespace Editor
