#pragma once

#include <QRect>

namespace Velmora::Figura {

class Figure;

/// How far a figure and its children may paint beyond the bounds: lines do, by their width, and
/// smooth edges by a unit.
int reachOf(Figure *figure);

/// The bounding rectangle of \a figure, with what a line paints beyond; invalid when that is.
QRect paintedRect(Figure *figure);

} // namespace Velmora::Figura
