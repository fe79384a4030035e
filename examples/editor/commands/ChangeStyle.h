#pragma once

#include "commands/ChangeElements.h"

#include <functional>

namespace Editor {

/// Changes colours, lines or font of nodes and edges.
class ChangeStyle : public ChangeElements
{
public:
    using Change = std::function<void(Style &)>;

    /// \a ids are those of nodes and edges alike.
    ChangeStyle(Document &document, const QList<int> &ids, const Change &change,
                int series = noSeries);
};

} // namespace Editor
