#include <figura/connection/NullRouter.h>

#include "points_p.h"
#include "routing_p.h"

namespace Velmora::Figura {

NullRouter::NullRouter(QObject *parent)
    : AbstractRouter(parent)
{
}

NullRouter::~NullRouter() = default;

NullRouter *NullRouter::instance()
{
    // Never destroyed: connections that outlive everything else still fall back to it.
    static auto *const shared = new NullRouter(nullptr);
    return shared;
}

QList<QPoint> NullRouter::doRoute(IConnection *connection)
{
    if (!connection)
        return {};
    const Routing goesOn(this, connection);
    QPoint start = getStartPoint(connection);
    if (!goesOn)
        return {};
    connection->translateToRelative(start);
    QPoint end = getEndPoint(connection);
    if (!goesOn)
        return {};
    connection->translateToRelative(end);
    return {start, end};
}

QList<QPointF> NullRouter::doRouteF(IConnection *connection)
{
    return toFloating(doRoute(connection));
}

} // namespace Velmora::Figura
