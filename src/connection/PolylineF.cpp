#include <figura/connection/PolylineF.h>

#include "connection/polyline_p.h"
#include "figure/figureguard_p.h"

namespace Velmora::Figura {

int PolylineF::M_tolerance = 2; // smaller than that of Polyline, on purpose

PolylineF::PolylineF(QObject *parent)
    : Shape(parent)
{
    setFill(false);
}

// Figure's destructor no longer knows the bounds that come from the points.
PolylineF::~PolylineF()
{
    Figure::erase();
}

QList<QPointF> PolylineF::getLinePoints()
{
    return m_points;
}

void PolylineF::setLinePoints(const QList<QPointF> &points)
{
    PolylineAccess::setLinePoints(this, points);
}

void PolylineF::addPoint(const QPointF &point)
{
    PolylineAccess::addPoint(this, point);
}

void PolylineF::insertPoint(const QPointF &point, int index)
{
    PolylineAccess::insertPoint(this, point, index);
}

void PolylineF::setPoint(const QPointF &point, int index)
{
    PolylineAccess::setPoint(this, point, index, "PolylineF::setPoint(): index out-of-bounds");
}

void PolylineF::removePoint(int index)
{
    PolylineAccess::removePoint(this, index, "PolylineF::removePoint(): index out-of-bounds");
}

void PolylineF::removeAllPoints()
{
    PolylineAccess::removeAllPoints(this);
}

QPoint PolylineF::getPoint(int index) const
{
    return getPointF(index).toPoint();
}

QPointF PolylineF::getPointF(int index) const
{
    return m_points.value(index);
}

int PolylineF::getPointCount() const
{
    return static_cast<int>(m_points.size());
}

QPointF PolylineF::getStart() const
{
    return getPointF(0);
}

QPointF PolylineF::getEnd() const
{
    return getPointF(getPointCount() - 1);
}

void PolylineF::setStart(const QPointF &point)
{
    PolylineAccess::setStart(this, point);
}

void PolylineF::setEnd(const QPointF &point)
{
    PolylineAccess::setEnd(this, point);
}

void PolylineF::setEndPoints(const QPointF &start, const QPointF &end)
{
    const FigureGuard alive(this);
    setStart(start);
    if (alive)
        setEnd(end);
}

QRect PolylineF::resolveBounds(const QRect &rect)
{
    return rect;
}

QRect PolylineF::getBounds()
{
    return PolylineAccess::pathBounds(this);
}

void PolylineF::setBounds(const QRect & /*rect*/) {}

bool PolylineF::contains(const QPoint &point) const
{
    return PolylineAccess::contains(this, point);
}

void PolylineF::setLineWidth(int width)
{
    PolylineAccess::setLineWidth(this, width);
}

void PolylineF::primTranslate(int /*dx*/, int /*dy*/) {}

void PolylineF::regeneratePath(const QRectF & /*rect*/)
{
    PolylineAccess::regeneratePath<QPointF>(this);
}

bool PolylineF::lineContainsPoint(const QPointF &a, const QPointF &b, const QPointF &p,
                                  int tolerance) const
{
    return PolylineAccess::segmentContains<QRectF>(a, b, p, tolerance);
}

} // namespace Velmora::Figura
