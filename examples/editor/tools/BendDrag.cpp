#include "tools/BendDrag.h"

#include "commands/ChangeBends.h"
#include "edit/Workbench.h"
#include "scene/Way.h"
#include "tools/Snapper.h"

namespace Editor {

BendDrag::BendDrag(Workbench &bench, const Pointer &start, int edge, int index, Bend bend)
    : Drag(bench, start)
    , m_edge(edge)
    , m_index(index)
{
    const Edge &shown = *bench.document().edge(edge);
    if (shown.routing == Routing::Bendpoint)
        m_bends = shown.bends;
    if (bend == Bend::Present)
        m_bends.removeAt(index);
}

QList<QPoint> BendDrag::with(const QPoint &point) const
{
    QList<QPoint> bends = m_bends;
    bends.insert(m_index, point);
    return bends;
}

void BendDrag::moveTo(const Pointer &pointer)
{
    const bool snaps = !pointer.modifiers.testFlag(Qt::AltModifier);
    const QPoint point = snaps ? Snapper::snapped(bench(), pointer.at) : pointer.at;
    bench().push(new ChangeBends(bench().document(), m_edge, with(point), series()));
}

// A loop keeps what makes it visible.
void BendDrag::finish(const Pointer &pointer)
{
    bench().scene().validate();
    const QList<QPoint> way = bench().scene().points(m_edge);
    constexpr double pixels = 4;
    const bool isLoop = bench().document().edge(m_edge)->isLoop();
    if (way.size() < 3 || (isLoop && m_bends.size() < 2))
        return;
    if (Way::isOnLine(pointer.at, way.at(m_index), way.at(m_index + 2), bench().units(pixels)))
        bench().push(new ChangeBends(bench().document(), m_edge, m_bends, series()));
}

} // namespace Editor
