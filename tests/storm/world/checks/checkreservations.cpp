#include "../checks.h"
#include "../watchedrouter.h"
#include "../world.h"

namespace Velmora::Figura::Storm {
namespace {

constexpr int lastLine = 1200; // the storm leaves figures well within

/// What one router keeps, line by line, held against what the living connections say.
class ReservationCheck
{
public:
    ReservationCheck(World &world, WatchedRouter *router, const QList<IConnection *> &connections)
        : m_world(world)
        , m_router(router)
        , m_connections(connections)
    {
    }

    void run()
    {
        for (int line = 0; line <= lastLine; line += 2) { // only even ones are ever kept
            check("column", line, !m_router->colUsable(nullptr, line),
                  &WatchedRouter::isColumnReservedBy);
            check("row", line, !m_router->rowUsable(nullptr, line),
                  &WatchedRouter::isRowReservedBy);
        }
    }

private:
    using Query = bool (WatchedRouter::*)(IConnection *, int) const;

    void check(const QByteArray &kind, int line, bool isTaken, Query query)
    {
        int owners = 0;
        for (IConnection *connection : m_connections) {
            if (!(m_router->*query)(connection, line))
                continue;
            ++owners;
            if (connection->getConnectionRouter() != m_router)
                report(kind, line, "is kept for a connection of another router");
        }
        if (isTaken && !owners)
            report(kind, line, "is taken, but not by a living connection");
        if (!isTaken && owners)
            report(kind, line, "is free, but a connection has it");
    }

    void report(const QByteArray &kind, int line, const char *text)
    {
        m_world.report("reservations", kind + ' ' + QByteArray::number(line) + ' ' + text);
    }

    World &m_world;
    WatchedRouter *m_router;
    const QList<IConnection *> m_connections;
};

QList<IConnection *> livingConnections(const World &world)
{
    QList<IConnection *> connections;
    for (Figure *figure : world.figures.all()) {
        if (auto *connection = qobject_cast<IConnection *>(figure))
            connections.append(connection);
    }
    return connections;
}

} // namespace

void checkReservations(World &world)
{
    const QList<IConnection *> connections = livingConnections(world);
    for (AbstractRouter *router : world.routers.all()) {
        if (auto *watched = qobject_cast<WatchedRouter *>(router))
            ReservationCheck(world, watched, connections).run();
    }
}

} // namespace Velmora::Figura::Storm
