#pragma once

#include "commands/InsertElements.h"

namespace Editor {

/// Adds one node on top.
class CreateNode : public InsertElements
{
public:
    CreateNode(Document &document, const Node &node);
};

} // namespace Editor
