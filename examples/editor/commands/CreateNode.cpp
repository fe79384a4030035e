#include "commands/CreateNode.h"

#include <QCoreApplication>

namespace Editor {

CreateNode::CreateNode(Document &document, const Node &node)
    : InsertElements(QCoreApplication::translate("Editor", "Create"), document, {{node}, {}})
{
}

} // namespace Editor
