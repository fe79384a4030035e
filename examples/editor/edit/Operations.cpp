#include "edit/Operations.h"

#include "commands/ChangeLane.h"
#include "commands/ChangeRouting.h"
#include "commands/CreateNode.h"
#include "commands/DeleteElements.h"
#include "commands/MoveNodes.h"
#include "commands/PlaceNodes.h"
#include "edit/Workbench.h"
#include "scene/LaneFigure.h"

#include <figura/diagram/DiagramView.h>

#include <functional>

// The clipboard has a file of its own: ClipboardOperations.cpp.

namespace Editor {
namespace {

// What lies in a lane is placed by that.
QList<int> freeNodes(Workbench &bench)
{
    QList<int> nodes = bench.selection().nodes();
    nodes.removeIf([&bench](int id) { return bench.document().node(id)->lane != 0; });
    return nodes;
}

void arrange(Workbench &bench, const QString &text,
             const std::function<QList<QRect>(const QList<QRect> &)> &arranged)
{
    const QList<int> nodes = freeNodes(bench);
    QList<QRect> rects;
    for (const int id : nodes)
        rects << bench.document().node(id)->rect;
    const QList<QRect> places = arranged(rects);
    QHash<int, QRect> result;
    for (qsizetype i = 0; i < nodes.size(); ++i)
        result.insert(nodes.at(i), places.at(i));
    bench.push(new PlaceNodes(text, bench.document(), result));
}

QList<QPoint> cornersOf(const QList<QPoint> &way)
{
    return way.size() > 2 ? way.mid(1, way.size() - 2) : QList<QPoint>();
}

} // namespace

void Operations::removeSelected(Workbench &bench)
{
    if (!bench.selection().isEmpty())
        bench.push(new DeleteElements(bench.document(), bench.selection().ids()));
}

void Operations::nudge(Workbench &bench, const QPoint &offset, int series)
{
    bench.push(new MoveNodes(bench.document(), freeNodes(bench), offset, series));
}

void Operations::reorder(Workbench &bench, ReorderNodes::Step step)
{
    bench.push(new ReorderNodes(bench.document(), bench.selection().nodes(), step));
}

void Operations::align(Workbench &bench, Side side)
{
    arrange(bench, Workbench::tr("Align"),
            [side](const QList<QRect> &rects) { return aligned(rects, side); });
}

void Operations::distribute(Workbench &bench, Qt::Orientation orientation)
{
    arrange(bench, Workbench::tr("Distribute"),
            [orientation](const QList<QRect> &rects) { return distributed(rects, orientation); });
}

void Operations::setRouting(Workbench &bench, Routing routing)
{
    bench.options.routing = routing;
    const QList<int> edges = bench.selection().edges();
    bench.scene().validate();
    QHash<int, QList<QPoint>> corners;
    for (const int edge : edges)
        corners.insert(edge, cornersOf(bench.scene().points(edge)));
    bench.push(new ChangeRouting(bench.document(), edges, routing, corners));
}

void Operations::walk(Workbench &bench, int step)
{
    const QList<int> &order = bench.document().nodeOrder();
    if (order.isEmpty())
        return;
    const QList<int> nodes = bench.selection().nodes();
    const qsizetype now = nodes.isEmpty() ? -1 : order.indexOf(nodes.last());
    const qsizetype start = now < 0 && step < 0 ? 0 : now;
    const int next = order.at((start + step + order.size()) % order.size());
    bench.selection().set({next});
    bench.view()->reveal(bench.scene().rect(next));
}

int Operations::create(Workbench &bench, Node node)
{
    Document &document = bench.document();
    node.id = document.newId();
    node.rect = fitted(node.rect);
    const int lane = node.kind == NodeKind::Lane ? 0 : bench.scene().laneAt(node.rect.center(), {});
    if (lane == 0) {
        bench.push(new CreateNode(document, node));
    } else {
        const int index = bench.scene().lane(lane)->indexAt(node.rect.center());
        const int before = document.nodesIn(lane).value(index);
        bench.history().beginMacro(Workbench::tr("Create"));
        bench.push(new CreateNode(document, node));
        bench.push(new ChangeLane(document, lane, before, {{node.id, node.rect}}));
        bench.history().endMacro();
    }
    bench.selection().set({node.id});
    return node.id;
}

} // namespace Editor
