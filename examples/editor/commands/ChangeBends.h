#pragma once

#include "commands/ChangeElements.h"

namespace Editor {

/// Adds, moves or removes bends of an edge, which is routed by them from then on.
class ChangeBends : public ChangeElements
{
public:
    ChangeBends(Document &document, int edge, const QList<QPoint> &bends, int series = noSeries);
};

} // namespace Editor
