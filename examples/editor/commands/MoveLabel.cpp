#include "commands/MoveLabel.h"

#include "model/Document.h"

#include <QCoreApplication>

namespace Editor {
namespace {

Revision changed(const Document &document, int id, int percent, const QPoint &offset)
{
    Edge edge = *document.edge(id);
    edge.labelPercent = qBound(0, percent, 100);
    edge.labelOffset = fitted(offset);
    return {{}, {edge}, {}};
}

} // namespace

MoveLabel::MoveLabel(Document &document, int edge, int percent, const QPoint &offset, int series)
    : ChangeElements(QCoreApplication::translate("Editor", "Move label"), document,
                     changed(document, edge, percent, offset), series)
{
}

} // namespace Editor
