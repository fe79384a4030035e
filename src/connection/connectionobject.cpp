#include "connectionobject_p.h"

#include <figura/connection/ChopboxAnchor.h>
#include <figura/connection/PolylineConnection.h>
#include <figura/connection/PolylineFConnection.h>

#include <typeinfo>

namespace Velmora::Figura {
namespace {

// By address: an object of an own class has the library's own table, and so its type information.
template<class Own, class Interface>
bool isExactly(Interface *object)
{
    return &typeid(*object) == &typeid(Own);
}

} // namespace

QObject *objectOf(IConnection *connection)
{
    if (!connection)
        return nullptr;
    if (isExactly<PolylineConnection>(connection))
        return static_cast<PolylineConnection *>(connection);
    if (isExactly<PolylineFConnection>(connection))
        return static_cast<PolylineFConnection *>(connection);
    return dynamic_cast<QObject *>(connection);
}

QObject *objectOf(IConnectionAnchor *anchor)
{
    if (!anchor)
        return nullptr;
    if (isExactly<ChopboxAnchor>(anchor))
        return static_cast<ChopboxAnchor *>(anchor);
    return dynamic_cast<QObject *>(anchor);
}

} // namespace Velmora::Figura
