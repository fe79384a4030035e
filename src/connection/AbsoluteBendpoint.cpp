#include <figura/connection/AbsoluteBendpoint.h>

namespace Velmora::Figura {

AbsoluteBendpoint::AbsoluteBendpoint(QObject *parent)
    : Bendpoint(parent)
{
}

AbsoluteBendpoint::AbsoluteBendpoint(int x, int y, QObject *parent)
    : AbsoluteBendpoint(QPoint(x, y), parent)
{
}

AbsoluteBendpoint::AbsoluteBendpoint(const QPoint &location, QObject *parent)
    : Bendpoint(parent)
    , m_location(location)
{
}

// The other's location is asked for, so that a subclass may compute it.
AbsoluteBendpoint::AbsoluteBendpoint(const AbsoluteBendpoint &other)
    : AbsoluteBendpoint(const_cast<AbsoluteBendpoint &>(other).getLocation(), nullptr)
{
}

AbsoluteBendpoint::~AbsoluteBendpoint() = default;

AbsoluteBendpoint &AbsoluteBendpoint::operator=(const AbsoluteBendpoint &other)
{
    m_location = other.m_location;
    return *this;
}

QPoint AbsoluteBendpoint::getLocation()
{
    return m_location;
}

void AbsoluteBendpoint::setLocation(const QPoint &location)
{
    m_location = location;
}

bool AbsoluteBendpoint::isNull() const
{
    return m_location.isNull();
}

} // namespace Velmora::Figura
