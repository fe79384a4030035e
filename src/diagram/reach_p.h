#pragma once

#include <QRect>

namespace Velmora::Figura {

class Figure;

/// How far a figure itself may paint beyond its bounds: a shape by its line, since polylines do not
/// count it and others only once they get new bounds; and smooth edges by a unit.
int reachOf(const Figure *figure);

/// The same for the figure and all that lies inside it.
int reachOfTree(Figure *figure);

/// The bounding rectangle of \a figure, with what a polyline paints beyond; invalid when that is.
QRect paintedRect(Figure *figure);

} // namespace Velmora::Figura
