#include <figura/connection/ConnectionAnchorBase.h>

#include "connectionobject_p.h"
#include "figure/listenerconnections_p.h"
#include "figure/signals_p.h"

#include <figura/connection/IAnchorListener.h>

namespace Velmora::Figura {
namespace {

constexpr auto anchorMovedSignature = "anchorMoved(IConnectionAnchor*)";

QObject *asObject(IAnchorListener *listener, const char *operation)
{
    QObject *object = objectOf(listener);
    if (!object) {
        QMessageLogger().warning("ConnectionAnchorBase::%s(): listener not a QObject", operation);
    }
    return object;
}

} // namespace

ConnectionAnchorBase::ConnectionAnchorBase(QObject *parent)
    : QObject(parent)
{
}

ConnectionAnchorBase::~ConnectionAnchorBase() = default;

// Connected by the text of the signatures, so that any QObject with the slot can listen.
void ConnectionAnchorBase::addAnchorListener(IAnchorListener *listener)
{
    if (QObject *object = asObject(listener, "addAnchorListener"))
        ensure(m_listeners)
            .add(object,
                 connectNormalized(this, anchorMovedSignature, object, anchorMovedSignature));
}

void ConnectionAnchorBase::removeAnchorListener(IAnchorListener *listener)
{
    if (QObject *object = asObject(listener, "removeAnchorListener"))
        ensure(m_listeners).removeAll(object);
}

} // namespace Velmora::Figura
