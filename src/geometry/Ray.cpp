#include <figura/geometry/Ray.h>

#include <QPoint>

#include <cmath>
#include <cstdlib>

namespace Velmora::Figura {

Ray::Ray(QObject *parent)
    : QObject(parent)
{
}

Ray::Ray(int x, int y, QObject *parent)
    : QObject(parent)
    , m_x(x)
    , m_y(y)
{
}

Ray::Ray(const QPoint &point, QObject *parent)
    : Ray(point.x(), point.y(), parent)
{
}

Ray::Ray(const QPoint &from, const QPoint &to, QObject *parent)
    : Ray(to - from, parent)
{
}

Ray::Ray(const Ray &from, const Ray &to, QObject *parent)
    : Ray(to.m_x - from.m_x, to.m_y - from.m_y, parent)
{
}

Ray::Ray(const Ray &other)
    : Ray(other.m_x, other.m_y) // the owner is not copied
{
}

Ray::~Ray() = default;

Ray &Ray::operator=(const Ray &other)
{
    m_x = other.m_x;
    m_y = other.m_y;
    return *this;
}

bool Ray::operator==(const Ray &other) const
{
    return m_x == other.m_x && m_y == other.m_y;
}

int Ray::dotProduct(const Ray &r) const
{
    return m_x * r.m_x + m_y * r.m_y;
}

int Ray::similarity(const Ray &r) const
{
    return std::abs(dotProduct(r));
}

int Ray::assimilarity(const Ray &r) const
{
    return std::abs(m_x * r.m_y - m_y * r.m_x);
}

Ray Ray::getAdded(const Ray &r) const
{
    return {m_x + r.m_x, m_y + r.m_y};
}

Ray Ray::getAveraged(const Ray &r) const
{
    return {(m_x + r.m_x) / 2, (m_y + r.m_y) / 2};
}

Ray Ray::getScaled(int s) const
{
    return {s * m_x, s * m_y};
}

bool Ray::isHorizontal() const
{
    return m_x != 0; // a diagonal ray counts as horizontal, on purpose
}

double Ray::length() const
{
    const double x = m_x;
    const double y = m_y;
    return std::sqrt(x * x + y * y);
}

} // namespace Velmora::Figura
