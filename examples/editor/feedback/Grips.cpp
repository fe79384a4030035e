#include "feedback/Grips.h"

#include "arrange/Handle.h"
#include "edit/Workbench.h"

namespace Editor {
namespace {

QPoint middle(const QPoint &a, const QPoint &b)
{
    return (a + b) / 2;
}

QList<Grip> resizeGrips(Workbench &bench, int node)
{
    const QRect rect = bench.scene().rect(node);
    QList<Grip> grips;
    const QList<Qt::Edges> handles = resizeHandles();
    for (const Qt::Edges edges : handles)
        grips << Grip{Grip::Kind::Resize, node, handlePoint(rect, edges), edges};
    return grips;
}

// Between two points of the way lies the grip that makes a bend there. A way in horizontal and
// vertical segments has none: its corners are found by the router.
QList<Grip> edgeGrips(Workbench &bench, int id)
{
    const QList<QPoint> way = bench.scene().points(id);
    QList<Grip> grips;
    if (way.size() < 2)
        return grips;
    if (bench.document().edge(id)->routing != Routing::Manhattan) {
        for (int i = 1; i + 1 < way.size(); ++i)
            grips << Grip{Grip::Kind::Bend, id, way.at(i), {}, i - 1};
        for (int i = 1; i < way.size(); ++i)
            grips << Grip{Grip::Kind::Segment, id, middle(way.at(i - 1), way.at(i)), {}, i - 1};
    }
    grips << Grip{Grip::Kind::Source, id, way.first(), {}}
          << Grip{Grip::Kind::Target, id, way.last(), {}};
    return grips;
}

QPoint outwards(Qt::Edges edges, int distance)
{
    if (edges == Qt::LeftEdge)
        return {-distance, 0};
    if (edges == Qt::RightEdge)
        return {distance, 0};
    return {0, edges == Qt::TopEdge ? -distance : distance};
}

Mark::Kind kindOf(Grip::Kind kind)
{
    switch (kind) {
    case Grip::Kind::Bend:
        return Mark::Kind::Bend;
    case Grip::Kind::Segment:
        return Mark::Kind::Segment;
    case Grip::Kind::Port:
        return Mark::Kind::Port;
    default:
        return Mark::Kind::Handle;
    }
}

} // namespace

QList<Grip> Grips::ofSelection(Workbench &bench)
{
    if (const int node = bench.selection().singleNode())
        return resizeGrips(bench, node);
    if (const int edge = bench.selection().singleEdge())
        return edgeGrips(bench, edge);
    return {};
}

QList<Grip> Grips::ofPorts(Workbench &bench, int node)
{
    const QRect rect = bench.scene().rect(node);
    const int distance = bench.units(portDistance);
    QList<Grip> grips;
    for (const Qt::Edges edges : {Qt::TopEdge, Qt::RightEdge, Qt::BottomEdge, Qt::LeftEdge})
        grips << Grip{Grip::Kind::Port, node, handlePoint(rect, edges) + outwards(edges, distance),
                      edges};
    return grips;
}

const Grip *Grips::at(const QList<Grip> &grips, const QPoint &point, int tolerance)
{
    for (const Grip &grip : grips) {
        const QPoint offset = point - grip.at;
        if (qAbs(offset.x()) <= tolerance && qAbs(offset.y()) <= tolerance)
            return &grip;
    }
    return nullptr;
}

Mark Grips::markOf(const Grip &grip, const Workbench &bench)
{
    const int size = bench.units(grip.kind == Grip::Kind::Port ? portSize : handleSize);
    QRect rect(0, 0, size, size);
    rect.moveCenter(grip.at);
    return {kindOf(grip.kind), rect};
}

} // namespace Editor
