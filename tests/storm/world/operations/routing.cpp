#include "../watchedrouter.h"
#include "../world.h"

#include <figura/connection/AbsoluteBendpoint.h>
#include <figura/connection/BendpointConnectionRouter.h>
#include <figura/connection/ConnectionLayer.h>
#include <figura/connection/NullRouter.h>
#include <figura/connection/RelativeBendpoint.h>

// Routers and what they are told.

namespace Velmora::Figura::Storm {
namespace {

constexpr int mostRouters = 6;

AbstractRouter *makeRouter(World &world, Numbers &numbers)
{
    if (world.routers.isFull(mostRouters))
        return world.routers.pick(numbers);
    AbstractRouter *router = nullptr;
    if (numbers.oneIn(3))
        router = new BendpointConnectionRouter(nullptr);
    else
        router = new WatchedRouter(nullptr);
    world.routers.add(router);
    return router;
}

void setRouter(World &world, Numbers &numbers)
{
    auto *connection = world.pick<IConnection>(numbers);
    if (!connection)
        return;
    AbstractRouter *router = nullptr;
    if (!numbers.oneIn(5))
        router = numbers.coin() ? makeRouter(world, numbers) : world.routers.pick(numbers);
    connection->setConnectionRouter(router);
}

void setLayerRouter(World &world, Numbers &numbers)
{
    if (auto *layer = world.pick<ConnectionLayer>(numbers))
        layer->setConnectionRouter(numbers.oneIn(4) ? nullptr : makeRouter(world, numbers));
}

QVariant bendpoint(World &world, Numbers &numbers)
{
    if (numbers.coin())
        return QVariant::fromValue(AbsoluteBendpoint(numbers.point()));
    RelativeBendpoint point(world.pick<IConnection>(numbers));
    const QSize first = numbers.size();
    point.setRelativeDimensions(first, numbers.size());
    point.setWeight(static_cast<float>(numbers.below(5)) / 4.0F);
    return QVariant::fromValue(point);
}

void bend(World &world, Numbers &numbers)
{
    auto *connection = world.pick<IConnection>(numbers);
    if (!connection)
        return;
    QList<QVariant> points;
    for (int i = numbers.below(4); i > 0; --i)
        points.append(bendpoint(world, numbers));
    connection->setRoutingConstraint(numbers.oneIn(8) ? QVariant() : QVariant(points));
}

} // namespace

QList<Entry> routingOperations()
{
    return {
        {"setRouter", 5, 30, Place::Anywhere, setRouter},
        {"setLayerRouter", 4, 8, Place::Anywhere, setLayerRouter},
        {"bend", 24, 15, Place::Anywhere, bend},
    };
}

} // namespace Velmora::Figura::Storm
