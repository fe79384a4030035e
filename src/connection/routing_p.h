#pragma once

#include "watched_p.h"

#include <figura/connection/AbstractRouter.h>
#include <figura/connection/IConnection.h>

#include <QPointer>

namespace Velmora::Figura {

/// A route under way: true while both the router and the connection live.
///
/// Routers ask anchors, which may be the application's own and destroy either of them.
class Routing
{
public:
    Routing(AbstractRouter *router, IConnection *connection)
        : m_router(router)
        , m_connection(connection)
    {
    }

    explicit operator bool() const { return m_router && m_connection; }

private:
    QPointer<AbstractRouter> m_router;
    Watched m_connection;
};

} // namespace Velmora::Figura
