#include "tools/Snapper.h"

#include "edit/Workbench.h"

#include <figura/diagram/DiagramView.h>

namespace Editor {
namespace {

constexpr qsizetype tooMany = 400;
constexpr double tolerance = 5; // pixels

bool catches(const QList<QLine> &guides, bool vertical)
{
    return std::any_of(guides.cbegin(), guides.cend(),
                       [vertical](const QLine &guide) { return (guide.dx() == 0) == vertical; });
}

} // namespace

QList<QRect> Snapper::othersInView(Workbench &bench, const QList<int> &except)
{
    const QRect view = bench.view()->getViewRect();
    const QSet<int> moved(except.cbegin(), except.cend());
    QList<QRect> rects;
    for (const int id : bench.document().nodeOrder()) {
        if (moved.contains(id) || moved.contains(bench.document().node(id)->lane))
            continue;
        if (const QRect rect = bench.scene().rect(id); rect.intersects(view))
            rects << rect;
    }
    return rects.size() > tooMany ? QList<QRect>() : rects;
}

Snap Snapper::snap(const Workbench &bench, const QRect &rect, const SnapLines &lines,
                   const QList<QRect> &others)
{
    Snap snap;
    if (bench.options.snapToOthers)
        snap = snapToOthers(rect, lines, others, bench.units(tolerance));
    if (!bench.options.snapToGrid)
        return snap;
    const Snap grid = snapToGrid(lines, bench.options.gridStep);
    if (!catches(snap.guides, true))
        snap.offset.setX(grid.offset.x());
    if (!catches(snap.guides, false))
        snap.offset.setY(grid.offset.y());
    return snap;
}

QPoint Snapper::snapped(const Workbench &bench, const QPoint &point)
{
    return bench.options.snapToGrid ? toGrid(point, bench.options.gridStep) : point;
}

} // namespace Editor
