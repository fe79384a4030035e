#pragma once

#include "commands/ChangeElements.h"

namespace Editor {

/// Brings nodes nearer to the front or to the back; they keep the order among themselves.
class ReorderNodes : public ChangeElements
{
public:
    enum class Step { ToFront, Forward, Backward, ToBack };

    ReorderNodes(Document &document, const QList<int> &nodes, Step step);
};

} // namespace Editor
