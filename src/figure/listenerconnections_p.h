#pragma once

#include <QMultiHash>
#include <QObject>

namespace Velmora::Figura {

/// The connections of a figure to its listeners, to be undone by handle.
///
/// Undoing a connection by its signature searches all connections of the sender, which makes taking
/// down a diagram quadratic where thousands listen to one layer.
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

} // namespace Velmora::Figura
