#include <figura/shape/Polygon.h>

#include "connection/polyline_p.h"

namespace Velmora::Figura {

Polygon::Polygon(QObject *parent)
    : Polyline(parent)
{
}

Polygon::~Polygon() = default;

bool Polygon::contains(const QPoint &point) const
{
    return getPainterPath().contains(QPointF(point)) || anyChildContains(this, point);
}

void Polygon::regeneratePath(const QRectF &rect)
{
    Polyline::regeneratePath(rect);
    painterPath().closeSubpath();
}

} // namespace Velmora::Figura
