#include "tools/ConnectDrag.h"

#include "commands/CreateEdge.h"
#include "edit/Workbench.h"
#include "feedback/Feedback.h"
#include "model/Loops.h"

namespace Editor {

ConnectDrag::ConnectDrag(Workbench &bench, const Pointer &start, int source)
    : Drag(bench, start)
    , m_source(source)
    , m_hasLeft(!bench.scene().rect(source).contains(start.at))
{
}

int ConnectDrag::targetAt(const QPoint &point) const
{
    const int node = bench().scene().nodeAt(point);
    return node == m_source && !m_hasLeft ? 0 : node;
}

void ConnectDrag::moveTo(const Pointer &pointer)
{
    m_hasLeft = m_hasLeft || !bench().scene().rect(m_source).contains(pointer.at);
    const int target = targetAt(pointer.at);
    bench().feedback().setLine(QLine(bench().scene().rect(m_source).center(), pointer.at));
    bench().feedback().setTarget(bench().scene().rect(target));
}

void ConnectDrag::finish(const Pointer &pointer)
{
    const int target = targetAt(pointer.at);
    if (target == 0)
        return;
    Edge edge;
    edge.id = bench().document().newId();
    edge.source = m_source;
    edge.target = target;
    edge.routing = bench().options.routing;
    if (edge.isLoop())
        bendLoop(edge, bench().scene().rect(m_source));
    bench().push(new CreateEdge(bench().document(), edge));
    bench().selection().set({edge.id});
}

} // namespace Editor
