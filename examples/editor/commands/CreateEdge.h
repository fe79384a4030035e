#pragma once

#include "commands/InsertElements.h"

namespace Editor {

/// Connects two nodes.
class CreateEdge : public InsertElements
{
public:
    CreateEdge(Document &document, const Edge &edge);
};

} // namespace Editor
