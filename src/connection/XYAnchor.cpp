#include <figura/connection/XYAnchor.h>

namespace Velmora::Figura {

XYAnchor::XYAnchor(const QPoint &location, QObject *parent)
    : ConnectionAnchorBase(parent)
    , m_location(location)
{
}

XYAnchor::~XYAnchor() = default;

QPoint XYAnchor::getLocation(const QPoint & /*reference*/)
{
    return m_location;
}

Figure *XYAnchor::getOwner() const
{
    return nullptr;
}

QPoint XYAnchor::getReferencePoint()
{
    return m_location;
}

void XYAnchor::setLocation(const QPoint &location)
{
    m_location = location;
    Q_EMIT anchorMoved(this);
}

} // namespace Velmora::Figura
