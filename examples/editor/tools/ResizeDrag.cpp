#include "tools/ResizeDrag.h"

#include "arrange/Handle.h"
#include "commands/PlaceNodes.h"
#include "edit/Workbench.h"
#include "feedback/Feedback.h"
#include "tools/Snapper.h"

namespace Editor {

ResizeDrag::ResizeDrag(Workbench &bench, const Pointer &start, int node, Qt::Edges edges)
    : Drag(bench, start)
    , m_node(node)
    , m_edges(edges)
    , m_rect(bench.scene().rect(node))
    , m_others(Snapper::othersInView(bench, {node}))
{
}

void ResizeDrag::moveTo(const Pointer &pointer)
{
    const bool keepsShape = pointer.modifiers.testFlag(Qt::ShiftModifier);
    const auto resizedBy = [&](const QPoint &offset) {
        return resized(m_rect, m_edges, offset, Limits::smallestSize, keepsShape);
    };
    const QPoint offset = pointer.at - start();
    Snap snap;
    if (!keepsShape && !pointer.modifiers.testFlag(Qt::AltModifier)) {
        const QRect rect = resizedBy(offset);
        snap = Snapper::snap(bench(), rect, SnapLines::ofResized(rect, m_edges), m_others);
    }
    bench().feedback().setGuides(snap.guides);
    bench().push(new PlaceNodes(Workbench::tr("Resize"), bench().document(),
                                {{m_node, resizedBy(offset + snap.offset)}}, series()));
}

} // namespace Editor
