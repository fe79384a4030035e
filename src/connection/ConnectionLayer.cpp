#include <figura/connection/ConnectionLayer.h>

#include "figure/figureguard_p.h"

#include <figura/connection/IConnection.h>
#include <figura/connection/IConnectionRouter.h>

#include <QPainter>

namespace Velmora::Figura {

ConnectionLayer::ConnectionLayer(QObject *parent, bool contentMonitored)
    : FreeformLayer(parent, contentMonitored)
{
}

ConnectionLayer::~ConnectionLayer() = default;

bool ConnectionLayer::add(Figure *child, const QVariant &constraint, int index)
{
    const QPointer<ConnectionLayer> alive(this);
    const FigureGuard guarded(child);
    const bool added = FreeformLayer::add(child, constraint, index);
    if (alive)
        handRouterTo(guarded);
    return added;
}

bool ConnectionLayer::add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index)
{
    const QPointer<ConnectionLayer> alive(this);
    const FigureGuard guarded(child);
    const bool added = FreeformLayer::add(child, vStretch, hStretch, index);
    if (alive)
        handRouterTo(guarded);
    return added;
}

// Whatever became of the addition, on purpose.
void ConnectionLayer::handRouterTo(Figure *child)
{
    IConnectionRouter *router = m_router.get();
    auto *connection = qobject_cast<IConnection *>(child);
    if (router && connection)
        connection->setConnectionRouter(router);
}

bool ConnectionLayer::remove(Figure *child)
{
    const QPointer<ConnectionLayer> alive(this);
    const FigureGuard guarded(child);
    if (auto *connection = qobject_cast<IConnection *>(child))
        connection->setConnectionRouter(nullptr);
    return alive && FreeformLayer::remove(guarded);
}

void ConnectionLayer::render(QPainter *painter, const QStyleOptionViewItem &option)
{
    if (!painter)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, m_antialias);
    FreeformLayer::render(painter, option);
    painter->restore();
}

void ConnectionLayer::setAntialias(bool on)
{
    m_antialias = on;
}

void ConnectionLayer::setConnectionRouter(IConnectionRouter *router)
{
    m_router = router;
}

IConnectionRouter *ConnectionLayer::getConnectionRouter() const
{
    return m_router.get();
}

} // namespace Velmora::Figura
