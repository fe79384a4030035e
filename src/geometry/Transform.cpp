#include <figura/geometry/Transform.h>

#include <QPoint>

#include <cmath>

namespace Velmora::Figura {

Transform::Transform(QObject *parent)
    : QObject(parent)
{
}

Transform::~Transform() = default;

void Transform::setScale(double scale)
{
    setScale(scale, scale);
}

void Transform::setScale(double sx, double sy)
{
    m_scaleX = sx;
    m_scaleY = sy;
}

void Transform::setTranslation(double dx, double dy)
{
    m_dx = dx;
    m_dy = dy;
}

void Transform::setRotation(double radians)
{
    m_cos = std::cos(radians);
    m_sin = std::sin(radians);
}

QPoint Transform::getTransformed(const QPoint &p) const
{
    const double a = p.x() * m_scaleX;
    const double b = p.y() * m_scaleY;
    return {qRound(m_cos * a - m_sin * b + m_dx), qRound(m_sin * a + m_cos * b + m_dy)};
}

} // namespace Velmora::Figura
