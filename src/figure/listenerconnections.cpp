#include "listenerconnections_p.h"

namespace Velmora::Figura {

void ListenerConnections::add(QObject *listener, const QMetaObject::Connection &connection)
{
    if (m_connections.size() >= m_nextSweep)
        sweep();
    m_connections.insert(listener, connection);
}

void ListenerConnections::removeAll(QObject *listener)
{
    const QList<QMetaObject::Connection> connections = m_connections.values(listener);
    m_connections.remove(listener);
    for (const QMetaObject::Connection &connection : connections)
        QObject::disconnect(connection);
}

// Listeners that were destroyed leave dead entries behind. Sweeping at doubled sizes only keeps the
// cost of an addition constant on average.
void ListenerConnections::sweep()
{
    m_connections.removeIf([](const auto &entry) { return !entry.value(); });
    m_nextSweep = qMax(firstSweep, m_connections.size() * 2);
}

} // namespace Velmora::Figura
