#pragma once

#include "arrange/Snapping.h"

namespace Editor {

class Workbench;

/// Snapping as the options have it: to other figures first, and where none is near to the grid.
namespace Snapper {

/// The rectangles of the visible nodes except these. More than a few hundred are too many to be of
/// use: then it is none.
QList<QRect> othersInView(Workbench &bench, const QList<int> &except);

Snap snap(const Workbench &bench, const QRect &rect, const SnapLines &lines,
          const QList<QRect> &others);

QPoint snapped(const Workbench &bench, const QPoint &point); ///< To the grid alone.

} // namespace Snapper

} // namespace Editor
