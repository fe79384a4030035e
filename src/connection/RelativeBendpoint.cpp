#include <figura/connection/RelativeBendpoint.h>

#include <figura/connection/IConnection.h>
#include <figura/connection/IConnectionAnchor.h>

namespace Velmora::Figura {
namespace {

// Only the target's share is reckoned in single precision; the result depends on it.
int weighted(float weight, int source, int target)
{
    const float targetShare = weight * static_cast<float>(target);
    return static_cast<int>((1.0 - static_cast<double>(weight)) * source +
                            static_cast<double>(targetShare));
}

} // namespace

RelativeBendpoint::RelativeBendpoint(IConnection *connection, QObject *parent)
    : Bendpoint(parent)
    , m_connection(connection)
{
}

RelativeBendpoint::RelativeBendpoint(QObject *parent)
    : Bendpoint(parent)
{
}

RelativeBendpoint::RelativeBendpoint(std::nullptr_t)
    : RelativeBendpoint(static_cast<QObject *>(nullptr))
{
}

RelativeBendpoint::RelativeBendpoint(const RelativeBendpoint &other)
    : Bendpoint(nullptr)
{
    *this = other;
}

RelativeBendpoint::~RelativeBendpoint() = default;

RelativeBendpoint &RelativeBendpoint::operator=(const RelativeBendpoint &other)
{
    m_connection = other.m_connection;
    m_weight = other.m_weight;
    m_relativeDim1 = other.m_relativeDim1;
    m_relativeDim2 = other.m_relativeDim2;
    return *this;
}

IConnection *RelativeBendpoint::getConnection() const
{
    return m_connection.get();
}

void RelativeBendpoint::setConnection(IConnection *connection)
{
    m_connection = connection;
}

float RelativeBendpoint::getWeight() const
{
    return m_weight;
}

void RelativeBendpoint::setWeight(float weight)
{
    m_weight = weight;
}

QSize RelativeBendpoint::getRelativeDim1() const
{
    return m_relativeDim1;
}

QSize RelativeBendpoint::getRelativeDim2() const
{
    return m_relativeDim2;
}

void RelativeBendpoint::setRelativeDimensions(const QSize &dim1, const QSize &dim2)
{
    m_relativeDim1 = dim1;
    m_relativeDim2 = dim2;
}

QPoint RelativeBendpoint::getLocation()
{
    using Anchor = InterfacePointer<IConnectionAnchor>;
    const InterfacePointer<IConnection> connection = m_connection;
    const Anchor source(connection ? connection->getSourceAnchor() : nullptr);
    const Anchor target(connection ? connection->getTargetAnchor() : nullptr);
    if (!source || !target)
        return QPoint();

    // Anchors may be the application's own, and destroy one another, or who asks.
    const QPointer<RelativeBendpoint> alive(this);
    const QPoint a1 = source->getReferencePoint();
    const QPoint a2 = target ? target->getReferencePoint() : QPoint();
    if (!alive || !connection)
        return QPoint();
    QPoint location(
        weighted(m_weight, a1.x() + m_relativeDim1.width(), a2.x() + m_relativeDim2.width()),
        weighted(m_weight, a1.y() + m_relativeDim1.height(), a2.y() + m_relativeDim2.height()));
    return connection->translateToRelative(location);
}

void RelativeBendpoint::setLocation(const QPoint & /*location*/) {}

bool RelativeBendpoint::isNull() const
{
    return !m_connection;
}

} // namespace Velmora::Figura
