#pragma once

#include "commands/ChangeElements.h"

namespace Editor {

/// Moves nodes by an offset, with the bends of the edges between them; what is in a lane that moves
/// goes with it.
class MoveNodes : public ChangeElements
{
public:
    MoveNodes(Document &document, const QList<int> &nodes, const QPoint &offset,
              int series = noSeries);
};

} // namespace Editor
