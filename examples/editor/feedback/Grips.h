#pragma once

#include "feedback/MarkFigure.h"

namespace Editor {

class Workbench;

/// A place where something selected, or hovered over, can be taken.
struct Grip
{
    enum class Kind { Resize, Bend, Segment, Source, Target, Port };

    Kind kind;
    int id = 0;      ///< Of the node or edge.
    QPoint at;       ///< In content coordinates.
    Qt::Edges edges; ///< Of resize grips and ports: which sides.
    int index = 0;   ///< Of bends, and of the bend that a segment would get.
};

/// Where grips are, and which one is meant.
namespace Grips {

/// Those of the selection: they show when one node or one edge is selected.
QList<Grip> ofSelection(Workbench &bench);

/// The four ports of \a node, a little outside.
QList<Grip> ofPorts(Workbench &bench, int node);

/// The grip that a press at \a point takes; null for none. A bend comes before the ends.
const Grip *at(const QList<Grip> &grips, const QPoint &point, int tolerance);

Mark markOf(const Grip &grip, const Workbench &bench);

/// In pixels.
constexpr int handleSize = 9;
constexpr int portSize = 14;
constexpr int portDistance = 16; ///< From the side of the node to the middle of the port.

} // namespace Grips

} // namespace Editor
