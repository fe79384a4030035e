#pragma once

#include <QMultiHash>
#include <QObject>

#include <memory>

namespace Velmora::Figura {

/// The connections of a figure or an anchor to its listeners, to be undone by handle.
///
/// Undoing a connection by its signature searches all connections of the sender, which makes taking
/// down a diagram quadratic where thousands listen to one layer or to one anchor.
class ListenerConnections
{
public:
    void add(QObject *listener, const QMetaObject::Connection &connection);
    void removeAll(QObject *listener); ///< Disconnects \a listener, however often it was added.

private:
    void sweep();

    static constexpr qsizetype firstSweep = 16;

    QMultiHash<QObject *, QMetaObject::Connection> m_connections;
    qsizetype m_nextSweep = firstSweep;
};

/// Most figures and anchors have no listener: what holds them is made for the first one.
inline ListenerConnections &ensure(std::unique_ptr<ListenerConnections> &connections)
{
    if (!connections)
        connections = std::make_unique<ListenerConnections>();
    return *connections;
}

} // namespace Velmora::Figura
