#include <figura/decoration/ConnectionLocator.h>

#include "midpoint_p.h"

#include <figura/connection/IConnection.h>

namespace Velmora::Figura {
namespace {

QPoint middleOf(const QList<QPoint> &points)
{
    const qsizetype count = points.size();
    if (count % 2 == 1)
        return points.at((count - 1) / 2);
    return midpoint(points.at(count / 2 - 1), points.at(count / 2));
}

} // namespace

ConnectionLocator::ConnectionLocator(IConnection *connection, QObject *parent)
    : ConnectionLocator(connection, MIDDLE, parent)
{
}

ConnectionLocator::ConnectionLocator(IConnection *connection, Alignment alignment, QObject *parent)
    : Locator(parent)
    , m_connection(connection)
    , m_alignment(alignment)
{
}

ConnectionLocator::~ConnectionLocator() = default;

QPoint ConnectionLocator::getReferencePoint()
{
    IConnection *connection = getConnection();
    if (!connection)
        return QPoint();
    QPoint point = getLocation(connection->getPoints());
    return connection->translateToAbsolute(point);
}

IConnection *ConnectionLocator::getConnection() const
{
    return m_connection.get();
}

void ConnectionLocator::setConnection(IConnection *connection)
{
    m_connection = connection;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): by value in the interface
QPoint ConnectionLocator::getLocation(QList<QPoint> points)
{
    if (points.isEmpty())
        return QPoint();
    switch (m_alignment) {
    case MIDDLE:
        return middleOf(points);
    case SOURCE:
        return points.constFirst();
    case TARGET:
        return points.constLast();
    }
    return QPoint();
}

ConnectionLocator::Alignment ConnectionLocator::getAlignment() const
{
    return m_alignment;
}

void ConnectionLocator::setAlignment(Alignment alignment)
{
    m_alignment = alignment;
}

int ConnectionLocator::getLocationIndex(int count) const
{
    switch (m_alignment) {
    case MIDDLE:
        return count > 0 ? (count - 1) / 2 : -1;
    case SOURCE:
        return 0;
    case TARGET:
        return count - 1;
    }
    return -1;
}

} // namespace Velmora::Figura
