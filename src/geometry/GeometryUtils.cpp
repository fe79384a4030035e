#include <figura/geometry/GeometryUtils.h>

#include <figura/geometry/IPositionConstants.h>

#include <QPoint>
#include <QRect>

#include <cstdlib>

namespace Velmora::Figura {
namespace {

using Pos = IPositionConstants;

// Beyond the far edge means at least at position + size; an edge pixel itself is inside.
int sideBeyond(int value, int position, int size, int lower, int upper)
{
    if (value < position)
        return lower;
    return value >= position + size ? upper : Pos::NONE;
}

} // namespace

int GeometryUtils::orthogonalDistance(const QPoint &p, const QPoint &q)
{
    return (p - q).manhattanLength();
}

int GeometryUtils::relativePosition(const QPoint &p, const QPoint &q)
{
    const QPoint d = p - q;
    if (std::abs(d.x()) <= std::abs(d.y()))
        return d.y() < 0 ? Pos::NORTH : Pos::SOUTH;
    return d.x() < 0 ? Pos::WEST : Pos::EAST;
}

int GeometryUtils::relativePosition(const QPoint &p, const QRect &r)
{
    if (r.contains(p))
        return Pos::NONE;
    return sideBeyond(p.x(), r.x(), r.width(), Pos::WEST, Pos::EAST) |
           sideBeyond(p.y(), r.y(), r.height(), Pos::NORTH, Pos::SOUTH);
}

} // namespace Velmora::Figura
