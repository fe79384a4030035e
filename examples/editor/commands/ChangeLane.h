#pragma once

#include "commands/ChangeElements.h"

#include <QHash>

namespace Editor {

/// Puts nodes into a lane, between those that are there, or takes them out of one.
class ChangeLane : public ChangeElements
{
public:
    /// \a lane is 0 to take them out. They go before the node \a before of that lane; to the end
    /// when it is 0. \a rects are where the nodes shall be, and have to name every one of them.
    ChangeLane(Document &document, int lane, int before, const QHash<int, QRect> &rects,
               int series = noSeries);
};

} // namespace Editor
