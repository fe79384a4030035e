#include "connectionobject_p.h"

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>

#include <typeinfo>

namespace Velmora::Figura {
namespace {

// By address: an object of an own class has the library's own table, and so its type information.
template<class... Own, class Interface>
QObject *among(Interface *target)
{
    if (!target)
        return nullptr;
    QObject *object = nullptr;
    const std::type_info *type = &typeid(*target);
    const bool isKnown = ((type == &typeid(Own) && (object = static_cast<Own *>(target))) || ...);
    return isKnown ? object : dynamic_cast<QObject *>(target);
}

} // namespace

QObject *objectOf(IConnection *connection)
{
    return among<PolylineConnection, PolylineFConnection>(connection);
}

QObject *objectOf(IConnectionAnchor *anchor)
{
    return among<ChopboxAnchor>(anchor);
}

QObject *objectOf(IAncestorListener *listener)
{
    return among<ChopboxAnchor>(listener);
}

QObject *objectOf(IAnchorListener *listener)
{
    return among<PolylineConnection, PolylineFConnection>(listener);
}

} // namespace Velmora::Figura
