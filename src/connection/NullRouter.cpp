#include <figura/connection/NullRouter.h>

#include "points_p.h"

#include <figura/connection/IConnection.h>

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
    QPoint start = getStartPoint(connection);
    connection->translateToRelative(start);
    QPoint end = getEndPoint(connection);
    connection->translateToRelative(end);
    return {start, end};
}

QList<QPointF> NullRouter::doRouteF(IConnection *connection)
{
    return toFloating(doRoute(connection));
}

} // namespace Velmora::Figura
