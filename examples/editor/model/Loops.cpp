#include "model/Loops.h"

#include "model/Content.h"

namespace Editor {

void bendLoop(Edge &edge, const QRect &node)
{
    constexpr int reach = 30;
    edge.routing = Routing::Bendpoint;
    if (edge.bends.size() > 1)
        return;
    const QPoint corner = node.topRight();
    const QPoint aside(corner.x() + reach, node.center().y());
    const QPoint above(node.center().x(), corner.y() - reach);
    edge.bends = {fitted(above), fitted(corner + QPoint(reach, -reach)), fitted(aside)};
}

} // namespace Editor
