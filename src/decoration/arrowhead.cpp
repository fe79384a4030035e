#include "arrowhead_p.h"

#include <cmath>

namespace Velmora::Figura {
namespace {

constexpr double length = 7.0;
constexpr double halfWidth = 3.0;

} // namespace

ArrowHead::ArrowHead()
    : m_template{QPoint(-1, 1), QPoint(0, 0), QPoint(-1, -1)}
{
    m_transform.setScale(length, halfWidth);
}

void ArrowHead::setLocation(const QPointF &location)
{
    m_location = location;
    m_transform.setTranslation(location.x(), location.y());
}

// The template's positive x axis points from the reference to the location.
void ArrowHead::setReferencePoint(const QPointF &reference)
{
    setRotation(std::atan2(m_location.y() - reference.y(), m_location.x() - reference.x()));
}

void ArrowHead::setRotation(double radians)
{
    m_transform.setRotation(radians);
}

void ArrowHead::setScale(double x, double y)
{
    m_transform.setScale(x, y);
}

bool ArrowHead::setTemplate(const QList<QPoint> &points)
{
    if (points == m_template)
        return false;
    m_template = points;
    return true;
}

QPoint ArrowHead::location() const
{
    return m_location.toPoint();
}

const Transform &ArrowHead::transform() const
{
    return m_transform;
}

QList<QPoint> ArrowHead::points() const
{
    QList<QPoint> points;
    points.reserve(m_template.size());
    for (const QPoint &point : m_template)
        points.append(m_transform.getTransformed(point));
    return points;
}

} // namespace Velmora::Figura
