#pragma once

#include "commands/ChangeElements.h"

namespace Editor {

/// Puts the label of an edge to another place, which it keeps while the edge is routed anew.
class MoveLabel : public ChangeElements
{
public:
    /// See Edge for \a percent and \a offset.
    MoveLabel(Document &document, int edge, int percent, const QPoint &offset,
              int series = noSeries);
};

} // namespace Editor
