#pragma once

#include "commands/ChangeElements.h"

namespace Editor {

/// Lets one end of an edge go to another node.
class Reconnect : public ChangeElements
{
public:
    enum class End { Source, Target };

    Reconnect(Document &document, int edge, End end, int node);
};

} // namespace Editor
