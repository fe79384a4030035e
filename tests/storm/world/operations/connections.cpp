#include "../probe.h"

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/EllipseAnchor.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>
#include <figura/connection/XYAnchor.h>

// Connections and their anchors.

namespace Velmora::Figura::Storm {
namespace {

constexpr int mostFigures = 70;

ConnectionAnchorBase *makeAnchor(World &world, Numbers &numbers)
{
    Figure *owner = world.figures.pick(numbers);
    QObject *parent = numbers.coin() ? owner : nullptr;
    ConnectionAnchorBase *anchor = nullptr;
    switch (numbers.below(3)) {
    case 0:
        anchor = new ChopboxAnchor(owner, parent);
        break;
    case 1:
        anchor = new EllipseAnchor(owner, parent);
        break;
    default:
        anchor = new XYAnchor(numbers.point(), parent);
    }
    world.anchors.add(anchor);
    QObject::connect(anchor, &ConnectionAnchorBase::anchorMoved, anchor,
                     [&world]() { world.happens(Moment::AnchorMoved); });
    return anchor;
}

template<class Connection>
void attach(World &world, Connection *connection, Numbers &numbers)
{
    connection->setSourceAnchor(makeAnchor(world, numbers));
    connection->setTargetAnchor(makeAnchor(world, numbers));
}

Figure *makeConnection(World &world, QObject *owner, Numbers &numbers)
{
    if (numbers.coin()) {
        auto *connection = new Probed<PolylineFConnection>(world, owner);
        attach(world, connection, numbers);
        return connection;
    }
    auto *connection = new Probed<PolylineConnection>(world, owner);
    attach(world, connection, numbers);
    return connection;
}

void connectFigures(World &world, Numbers &numbers)
{
    world.ensureContent();
    auto *layer = world.pick<FreeformLayer>(numbers);
    if (!layer || world.figures.isFull(mostFigures))
        return;
    QObject *owner = numbers.coin() ? layer : nullptr;
    Figure *connection = world.adopt(makeConnection(world, owner, numbers));
    layer->add(connection);
}

void setAnchor(World &world, Numbers &numbers)
{
    auto *connection = world.pick<IConnection>(numbers);
    if (!connection)
        return;
    const bool atSource = numbers.coin();
    ConnectionAnchorBase *anchor = numbers.oneIn(6) ? nullptr : makeAnchor(world, numbers);
    if (atSource)
        connection->setSourceAnchor(anchor);
    else
        connection->setTargetAnchor(anchor);
}

// One that may serve another connection already, which is unwise but allowed.
void shareAnchor(World &world, Numbers &numbers)
{
    auto *connection = world.pick<IConnection>(numbers);
    ConnectionAnchorBase *anchor = world.anchors.pick(numbers);
    if (connection && anchor)
        connection->setTargetAnchor(anchor);
}

void moveAnchor(World &world, Numbers &numbers)
{
    ConnectionAnchorBase *anchor = world.anchors.pick(numbers);
    if (auto *fixed = qobject_cast<XYAnchor *>(anchor))
        fixed->setLocation(numbers.point());
    else if (auto *owned = qobject_cast<AbstractConnectionAnchor *>(anchor))
        owned->setOwner(world.figures.pick(numbers));
}

void setConnectionPoints(World &world, Numbers &numbers)
{
    auto *connection = world.pick<IConnection>(numbers);
    if (!connection)
        return;
    const QPoint a = numbers.point();
    const QPoint b = numbers.point();
    if (numbers.coin())
        connection->setPoints({a, b});
    else
        connection->setPointsF({QPointF(a) / 3, QPointF(b), QPointF(a)});
}

} // namespace

QList<Entry> connectionOperations()
{
    return {
        {"connect", 15, 45, Place::Anywhere, connectFigures},
        {"setAnchor", 8, 15, Place::Anywhere, setAnchor},
        {"shareAnchor", 2, 3, Place::Anywhere, shareAnchor},
        {"moveAnchor", 3, 15, Place::Anywhere, moveAnchor},
        {"setConnectionPoints", 6, 5, Place::Anywhere, setConnectionPoints},
    };
}

} // namespace Velmora::Figura::Storm
