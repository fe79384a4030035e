#include "endpoint_reference.h"

#include <algorithm>
#include <cmath>

namespace Velmora::Figura::Test {
namespace {

// How much the line rises for each step along; 1 for one that goes straight across.
double slope(int along, int across)
{
    return along == 0 ? 1.0 : std::clamp(double(across) / along, -1.0, 1.0);
}

} // namespace

EndpointReference::Side EndpointReference::sideOf(const QPoint &start, const QPoint &next)
{
    const QPoint way = next - start;
    if (std::abs(way.x()) > std::abs(way.y()))
        return way.x() > 0 ? Right : Left;
    return way.y() > 0 ? Down : Up;
}

EndpointReference::Side EndpointReference::sideOf(const QPoint &start, const QRect &box)
{
    const QPoint centre = box.center();
    const qint64 toCornerX = std::abs(box.x() - centre.x());
    const qint64 toCornerY = std::abs(box.y() - centre.y());
    const qint64 toStartX = std::abs(start.x() - centre.x());
    const qint64 toStartY = std::abs(start.y() - centre.y());

    // A box of a single point has no diagonal, and a point in line with the centre no slope.
    const bool comparable = toStartX != 0 && (toCornerX != 0 || toCornerY != 0);
    if (comparable && toStartY * toCornerX <= toCornerY * toStartX)
        return start.x() < centre.x() ? Left : Right;
    return start.y() < centre.y() ? Up : Down;
}

QRect EndpointReference::place(const QSize &label, const QPoint &start, const QPoint &next,
                               Side side) const
{
    const int width = label.width();
    const int height = label.height();
    const QPoint way = next - start;
    const double rise = slope(way.x(), way.y());
    const double shift = slope(way.y(), way.x());

    QPoint corner;
    switch (side) {
    case Right:
        corner.setX(start.x() + uDistance);
        corner.setY(across(start.y(), rise, uDistance, height));
        break;
    case Left:
        corner.setX(start.x() - uDistance - width);
        corner.setY(across(start.y(), rise, -uDistance, height));
        break;
    case Down:
        corner.setY(start.y() + uDistance);
        corner.setX(across(start.x(), shift, uDistance, width));
        break;
    case Up:
        corner.setY(start.y() - uDistance - height);
        corner.setX(across(start.x(), shift, -uDistance, width));
        break;
    }
    return QRect(corner, label);
}

// Where the label begins across the line, when its extent there is \a extent.
int EndpointReference::across(int from, double rise, int along, int extent) const
{
    int shift = 0;
    if (vDistance < 0)
        shift = -extent;
    else if (vDistance == 0)
        shift = -(extent / 2);
    return int(std::trunc(along * rise + from + vDistance + shift));
}

} // namespace Velmora::Figura::Test
