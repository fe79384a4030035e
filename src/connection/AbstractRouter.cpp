#include <figura/connection/AbstractRouter.h>

#include "watched_p.h"

#include <figura/connection/IConnection.h>
#include <figura/connection/IConnectionAnchor.h>

namespace Velmora::Figura {
namespace {

// Where anchor \a from meets a line that comes from anchor \a to.
QPoint locationTowards(IConnectionAnchor *from, IConnectionAnchor *to)
{
    if (!to)
        return QPoint();
    const Watched asked(from);
    const QPoint reference = to->getReferencePoint();
    return asked ? from->getLocation(reference) : QPoint();
}

template<typename Point>
bool isRoute(const QList<Point> &points)
{
    if (points.size() >= 2)
        return true;
    QMessageLogger().warning("AbstractRouter::route(): invalid route");
    return false;
}

} // namespace

AbstractRouter::AbstractRouter(QObject *parent)
    : QObject(parent)
{
}

AbstractRouter::~AbstractRouter() = default;

QPoint AbstractRouter::getEndPoint(IConnection *connection)
{
    if (!connection)
        return QPoint();
    return locationTowards(connection->getTargetAnchor(), connection->getSourceAnchor());
}

QPoint AbstractRouter::getStartPoint(IConnection *connection)
{
    if (!connection)
        return QPoint();
    return locationTowards(connection->getSourceAnchor(), connection->getTargetAnchor());
}

QVariant AbstractRouter::getConstraint(IConnection * /*connection*/)
{
    return QVariant();
}

void AbstractRouter::invalidate(IConnection * /*connection*/) {}

void AbstractRouter::remove(IConnection * /*connection*/) {}

void AbstractRouter::route(IConnection *connection)
{
    if (!connection)
        return;
    const Watched alive(connection);
    const QList<QPoint> points = doRoute(connection);
    if (alive && isRoute(points))
        connection->setPoints(points);
}

// The message names route() for both forms, on purpose.
void AbstractRouter::routeF(IConnection *connection)
{
    if (!connection)
        return;
    const Watched alive(connection);
    const QList<QPointF> points = doRouteF(connection);
    if (alive && isRoute(points))
        connection->setPointsF(points);
}

void AbstractRouter::setConstraint(IConnection * /*connection*/, const QVariant & /*constraint*/) {}

} // namespace Velmora::Figura
