#pragma once

class QRect;

namespace Editor {

struct Edge;

/// Makes \a edge, which begins and ends at a node with this rectangle, visible: with fewer than two
/// bends it would run inside the node.
void bendLoop(Edge &edge, const QRect &node);

} // namespace Editor
