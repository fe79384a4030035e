#include "tools/MoveDrag.h"

#include "commands/ChangeLane.h"
#include "commands/MoveNodes.h"
#include "edit/Workbench.h"
#include "feedback/Feedback.h"
#include "scene/LaneFigure.h"
#include "tools/Snapper.h"

namespace Editor {
namespace {

QPoint alongAxis(const QPoint &offset)
{
    return qAbs(offset.x()) >= qAbs(offset.y()) ? QPoint(offset.x(), 0) : QPoint(0, offset.y());
}

// What is in a selected lane moves with it.
QList<int> movable(Workbench &bench)
{
    QList<int> nodes = bench.selection().nodes();
    nodes.removeIf([&bench](int id) {
        const int lane = bench.document().node(id)->lane;
        return lane != 0 && bench.selection().contains(lane);
    });
    return nodes;
}

} // namespace

MoveDrag::MoveDrag(Workbench &bench, const Pointer &start)
    : Drag(bench, start)
    , m_nodes(movable(bench))
    , m_places(bench.scene().rects(m_nodes))
    , m_others(Snapper::othersInView(bench, m_nodes))
{
    for (const QRect &place : std::as_const(m_places))
        m_box |= place;
}

QPoint MoveDrag::offsetFor(const Pointer &pointer) const
{
    QPoint offset = pointer.at - start();
    if (pointer.modifiers.testFlag(Qt::ShiftModifier))
        offset = alongAxis(offset);
    const bool snaps = !pointer.modifiers.testFlag(Qt::AltModifier);
    const QRect moved = m_box.translated(offset);
    const Snap snap =
        snaps ? Snapper::snap(bench(), moved, SnapLines::ofMoved(moved), m_others) : Snap();
    bench().feedback().setGuides(snap.guides);
    return offset + snap.offset;
}

void MoveDrag::moveTo(const Pointer &pointer)
{
    leaveLanes();
    moveBy(offsetFor(pointer));
    showLane(pointer.at);
}

// Only now, so that a click leaves a node where it is.
void MoveDrag::leaveLanes()
{
    if (m_isOutOfLanes)
        return;
    m_isOutOfLanes = true;
    QHash<int, QRect> leaving;
    for (const int id : std::as_const(m_nodes)) {
        if (bench().document().node(id)->lane != 0)
            leaving.insert(id, m_places.value(id));
    }
    if (!leaving.isEmpty())
        bench().push(new ChangeLane(bench().document(), 0, 0, leaving, series()));
}

void MoveDrag::moveBy(const QPoint &offset)
{
    if (offset == m_offset)
        return;
    bench().push(new MoveNodes(bench().document(), m_nodes, offset - m_offset, series()));
    m_offset = offset;
}

bool MoveDrag::canEnterLane() const
{
    return std::none_of(m_nodes.cbegin(), m_nodes.cend(), [this](int id) {
        return bench().document().node(id)->kind == NodeKind::Lane;
    });
}

int MoveDrag::laneUnder(const QPoint &point) const
{
    return canEnterLane() ? bench().scene().laneAt(point, m_nodes) : 0;
}

void MoveDrag::showLane(const QPoint &point)
{
    const LaneFigure *lane = bench().scene().lane(laneUnder(point));
    bench().feedback().setBar(lane ? lane->gapAt(lane->indexAt(point)) : QRect());
}

void MoveDrag::finish(const Pointer &pointer)
{
    const int lane = laneUnder(pointer.at);
    if (lane == 0)
        return;
    const int index = bench().scene().lane(lane)->indexAt(pointer.at);
    const int before = bench().document().nodesIn(lane).value(index);
    bench().push(
        new ChangeLane(bench().document(), lane, before, bench().scene().rects(m_nodes), series()));
}

} // namespace Editor
