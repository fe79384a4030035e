#include <figura/decoration/PolygonDecoration.h>

#include "arrowhead_p.h"

namespace Velmora::Figura {

PolygonDecoration::PolygonDecoration(QObject *parent)
    : Polygon(parent)
    , m_head(std::make_unique<ArrowHead>())
{
    PolygonDecoration::recalculatePoints();
    setFill(true);
    setEnabledBGColor(Qt::black);
    setDisabledBGColor(Qt::black);
}

PolygonDecoration::~PolygonDecoration() = default;

void PolygonDecoration::recalculatePoints()
{
    setLinePoints(m_head->points());
}

void PolygonDecoration::setLocation(const QPointF &location)
{
    m_head->setLocation(location);
    recalculatePoints();
}

void PolygonDecoration::setLocation(const QPoint &location)
{
    setLocation(QPointF(location));
}

void PolygonDecoration::setReferencePoint(const QPointF &reference)
{
    m_head->setReferencePoint(reference);
    recalculatePoints();
}

void PolygonDecoration::setReferencePoint(const QPoint &reference)
{
    setReferencePoint(QPointF(reference));
}

void PolygonDecoration::setRotation(double radians)
{
    m_head->setRotation(radians);
    recalculatePoints();
}

void PolygonDecoration::setScale(double x, double y)
{
    m_head->setScale(x, y);
    recalculatePoints();
}

void PolygonDecoration::setTemplate(const QList<QPoint> &points)
{
    if (m_head->setTemplate(points))
        recalculatePoints();
}

} // namespace Velmora::Figura
