#include "tools/ReconnectDrag.h"

#include "edit/Workbench.h"
#include "feedback/Feedback.h"

namespace Editor {

ReconnectDrag::ReconnectDrag(Workbench &bench, const Pointer &start, int edge, Reconnect::End end)
    : Drag(bench, start)
    , m_edge(edge)
    , m_end(end)
{
    const QList<QPoint> way = bench.scene().points(edge);
    m_otherEnd = end == Reconnect::End::Source ? way.last() : way.first();
}

void ReconnectDrag::moveTo(const Pointer &pointer)
{
    const int target = bench().scene().nodeAt(pointer.at);
    bench().feedback().setLine(QLine(m_otherEnd, pointer.at));
    bench().feedback().setTarget(bench().scene().rect(target));
}

void ReconnectDrag::finish(const Pointer &pointer)
{
    if (const int node = bench().scene().nodeAt(pointer.at))
        bench().push(new Reconnect(bench().document(), m_edge, m_end, node));
}

} // namespace Editor
