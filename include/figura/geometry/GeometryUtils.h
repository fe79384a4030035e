#pragma once

#include <figura/export.h>

class QPoint;
class QRect;

namespace Velmora::Figura {

/// Pure functions on integer points and rectangles. Directions are compass codes of
/// IPositionConstants; y grows downwards, so NORTH is the smaller y.
class FIGURA_EXPORT GeometryUtils
{
public:
    GeometryUtils() = delete;

    /// The Manhattan distance |p.x - q.x| + |p.y - q.y|.
    static int orthogonalDistance(const QPoint &p, const QPoint &q);

    /// The one direction in which \a p lies from \a q.
    ///
    /// A tie between both axes goes to the vertical answer; equal points give SOUTH.
    static int relativePosition(const QPoint &p, const QPoint &q);

    /// The side or corner of \a r beyond which \a p lies; NONE when \a r contains \a p.
    static int relativePosition(const QPoint &p, const QRect &r);
};

} // namespace Velmora::Figura
