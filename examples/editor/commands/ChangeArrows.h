#pragma once

#include "commands/ChangeElements.h"

namespace Editor {

/// Chooses the arrow head at one end of edges.
class ChangeArrows : public ChangeElements
{
public:
    enum class End { Source, Target };

    ChangeArrows(Document &document, const QList<int> &edges, End end, Arrow arrow);
};

} // namespace Editor
