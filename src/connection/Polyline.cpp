#include <figura/connection/Polyline.h>

#include "connection/polyline_p.h"
#include "figure/figureguard_p.h"

namespace Velmora::Figura {

int Polyline::M_tolerance = 6; // larger than that of PolylineF, on purpose

Polyline::Polyline(QObject *parent)
    : Shape(parent)
{
    setFill(false);
}

// Figure's destructor no longer knows the bounds that come from the points.
Polyline::~Polyline()
{
    Figure::erase();
}

QList<QPoint> Polyline::getLinePoints()
{
    return m_points;
}

void Polyline::setLinePoints(const QList<QPoint> &points)
{
    PolylineAccess::setLinePoints(this, points);
}

void Polyline::addPoint(const QPoint &point)
{
    PolylineAccess::addPoint(this, point);
}

void Polyline::insertPoint(const QPoint &point, int index)
{
    PolylineAccess::insertPoint(this, point, index);
}

void Polyline::setPoint(const QPoint &point, int index)
{
    PolylineAccess::setPoint(this, point, index, "Polyline::setPoint(): index out-of-bounds");
}

void Polyline::removePoint(int index)
{
    PolylineAccess::removePoint(this, index, "Polyline::removePoint(): index out-of-bounds");
}

void Polyline::removeAllPoints()
{
    PolylineAccess::removeAllPoints(this);
}

QPoint Polyline::getPoint(int index) const
{
    return m_points.value(index);
}

int Polyline::getPointCount() const
{
    return static_cast<int>(m_points.size());
}

QPoint Polyline::getStart() const
{
    return getPoint(0);
}

QPoint Polyline::getEnd() const
{
    return getPoint(getPointCount() - 1);
}

void Polyline::setStart(const QPoint &point)
{
    PolylineAccess::setStart(this, point);
}

void Polyline::setEnd(const QPoint &point)
{
    PolylineAccess::setEnd(this, point);
}

void Polyline::setEndPoints(const QPoint &start, const QPoint &end)
{
    const FigureGuard alive(this);
    setStart(start);
    if (alive)
        setEnd(end);
}

QRect Polyline::resolveBounds(const QRect &rect)
{
    return rect;
}

QRect Polyline::getBounds()
{
    QRect bounds = PolylineAccess::pathBounds(this);
    // Only a single segment gets a box of its own; a straight line of more points stays flat.
    if (m_points.size() == 2) {
        if (bounds.width() == 0)
            bounds.setWidth(1);
        if (bounds.height() == 0)
            bounds.setHeight(1);
    }
    return bounds;
}

void Polyline::setBounds(const QRect & /*rect*/) {}

bool Polyline::contains(const QPoint &point) const
{
    return PolylineAccess::contains(this, point);
}

void Polyline::setLineWidth(int width)
{
    PolylineAccess::setLineWidth(this, width);
}

void Polyline::primTranslate(int /*dx*/, int /*dy*/) {}

void Polyline::regeneratePath(const QRectF & /*rect*/)
{
    PolylineAccess::regeneratePath<QPoint>(this);
}

bool Polyline::lineContainsPoint(const QPoint &a, const QPoint &b, const QPoint &p,
                                 int tolerance) const
{
    return PolylineAccess::segmentContains<QRect>(a, b, p, tolerance);
}

} // namespace Velmora::Figura
