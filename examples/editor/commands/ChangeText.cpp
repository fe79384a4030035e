#include "commands/ChangeText.h"

#include "model/Document.h"

#include <QCoreApplication>

namespace Editor {
namespace {

Revision changed(const Document &document, int id, const QString &text)
{
    Revision revision;
    if (const Node *node = document.node(id)) {
        revision.nodes << *node;
        revision.nodes.last().text = text;
    } else {
        revision.edges << *document.edge(id);
        revision.edges.last().label = text;
    }
    return revision;
}

} // namespace

ChangeText::ChangeText(Document &document, int id, const QString &text, int series)
    : ChangeElements(QCoreApplication::translate("Editor", "Change text"), document,
                     changed(document, id, text.left(Limits::text)), series)
{
}

} // namespace Editor
