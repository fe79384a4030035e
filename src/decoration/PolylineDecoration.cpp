#include <figura/decoration/PolylineDecoration.h>

#include "arrowhead_p.h"

namespace Velmora::Figura {

PolylineDecoration::PolylineDecoration(QObject *parent)
    : Polyline(parent)
    , m_head(std::make_unique<ArrowHead>())
{
    PolylineDecoration::recalculatePoints();
}

PolylineDecoration::~PolylineDecoration() = default;

void PolylineDecoration::recalculatePoints()
{
    setLinePoints(m_head->points());
}

void PolylineDecoration::setLocation(const QPointF &location)
{
    m_head->setLocation(location);
    recalculatePoints();
}

void PolylineDecoration::setLocation(const QPoint &location)
{
    setLocation(QPointF(location));
}

void PolylineDecoration::setReferencePoint(const QPointF &reference)
{
    m_head->setReferencePoint(reference);
    recalculatePoints();
}

void PolylineDecoration::setReferencePoint(const QPoint &reference)
{
    setReferencePoint(QPointF(reference));
}

void PolylineDecoration::setRotation(double radians)
{
    m_head->setRotation(radians);
    recalculatePoints();
}

void PolylineDecoration::setScale(double x, double y)
{
    m_head->setScale(x, y);
    recalculatePoints();
}

void PolylineDecoration::setTemplate(const QList<QPoint> &points)
{
    if (m_head->setTemplate(points))
        recalculatePoints();
}

QPoint PolylineDecoration::getLocation() const
{
    return m_head->location();
}

const Transform &PolylineDecoration::getTransform() const
{
    return m_head->transform();
}

} // namespace Velmora::Figura
