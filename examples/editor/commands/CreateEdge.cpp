#include "commands/CreateEdge.h"

#include <QCoreApplication>

namespace Editor {

CreateEdge::CreateEdge(Document &document, const Edge &edge)
    : InsertElements(QCoreApplication::translate("Editor", "Connect"), document, {{}, {edge}})
{
}

} // namespace Editor
