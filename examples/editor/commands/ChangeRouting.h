#pragma once

#include "commands/ChangeElements.h"

#include <QHash>

namespace Editor {

/// Chooses how edges run.
class ChangeRouting : public ChangeElements
{
public:
    /// \a corners are where the edges have their corners now: routed by bendpoints, one without
    /// bends takes them over.
    ChangeRouting(Document &document, const QList<int> &edges, Routing routing,
                  const QHash<int, QList<QPoint>> &corners = {});
};

} // namespace Editor
