#pragma once

#include "model/Content.h"

namespace Editor {

class Document;

/// Nodes and edges as they are at one moment, and perhaps the order of all nodes.
struct Revision
{
    QList<Node> nodes;
    QList<Edge> edges;
    QList<int> order; ///< Empty: whatever it is.

    void applyTo(Document &document) const;

    /// What \a document says now about that which is in \a other.
    static Revision now(const Document &document, const Revision &other);

    bool operator==(const Revision &other) const = default;
};

} // namespace Editor
