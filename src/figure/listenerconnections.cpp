#include "listenerconnections_p.h"

namespace Velmora::Figura {

void ListenerConnections::add(QObject *listener, const QMetaObject::Connection &connection)
{
    sweep();
    if (m_many)
        m_many->insert(listener, connection);
    else
        m_few.push_back({listener, connection});
}

void ListenerConnections::removeAll(QObject *listener)
{
    QList<QMetaObject::Connection> connections;
    if (m_many) {
        connections = m_many->values(listener);
        m_many->remove(listener);
    }
    std::erase_if(m_few, [listener, &connections](const Entry &entry) {
        if (entry.listener == listener)
            connections.prepend(entry.connection);
        return entry.listener == listener;
    });
    for (const QMetaObject::Connection &connection : std::as_const(connections))
        QObject::disconnect(connection);
}

// Listeners that were destroyed leave dead entries behind. Sweeping at doubled sizes only keeps the
// cost of an addition constant on average.
void ListenerConnections::sweep()
{
    if (!m_many && m_few.size() >= fewEntries) {
        std::erase_if(m_few, [](const Entry &entry) { return !entry.connection; });
        if (m_few.size() >= fewEntries)
            spread();
    }
    if (m_many && m_many->size() >= m_nextSweep) {
        m_many->removeIf([](const auto &entry) { return !entry.value(); });
        m_nextSweep = qMax(firstSweep, m_many->size() * 2);
    }
}

void ListenerConnections::spread()
{
    m_many = std::make_unique<Hash>();
    for (const Entry &entry : m_few)
        m_many->insert(entry.listener, entry.connection);
    m_few.clear();
}

} // namespace Velmora::Figura
