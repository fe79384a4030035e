#pragma once

#include <QMultiHash>
#include <QObject>

#include <memory>
#include <vector>

namespace Velmora::Figura {

/// The connections of a figure or an anchor to its listeners, to be undone by handle.
///
/// Undoing a connection by its signature searches all connections of the sender, which makes taking
/// down a diagram quadratic where thousands listen to one layer or to one anchor. Most have a few
/// listeners only, which take far less room in a plain list than in a hash.
class ListenerConnections
{
public:
    void add(QObject *listener, const QMetaObject::Connection &connection);
    void removeAll(QObject *listener); ///< Disconnects \a listener, however often it was added.

private:
    struct Entry
    {
        QObject *listener;
        QMetaObject::Connection connection;
    };
    using Hash = QMultiHash<QObject *, QMetaObject::Connection>;

    void sweep();
    void spread();

    static constexpr std::size_t fewEntries = 24;
    static constexpr qsizetype firstSweep = 64;

    std::vector<Entry> m_few;
    std::unique_ptr<Hash> m_many;
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
