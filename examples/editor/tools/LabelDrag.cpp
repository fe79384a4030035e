#include "tools/LabelDrag.h"

#include "commands/MoveLabel.h"
#include "edit/Workbench.h"
#include "scene/Way.h"

namespace Editor {

LabelDrag::LabelDrag(Workbench &bench, const Pointer &start, int edge)
    : Drag(bench, start)
    , m_edge(edge)
    , m_grip(bench.scene().labelRect(edge).center() - start.at)
{
}

// Near the line it is caught by it.
void LabelDrag::moveTo(const Pointer &pointer)
{
    const QList<QPoint> way = bench().scene().points(m_edge);
    const QPoint middle = pointer.at + m_grip;
    const int percent = Way::percentNear(way, middle);
    QPoint offset = middle - Way::pointAt(way, percent);
    constexpr double pixels = 6;
    if (offset.manhattanLength() <= bench().units(pixels))
        offset = QPoint();
    bench().push(new MoveLabel(bench().document(), m_edge, percent, offset, series()));
}

} // namespace Editor
