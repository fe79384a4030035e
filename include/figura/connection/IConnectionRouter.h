#pragma once

#include <figura/export.h>

#include <QList>
#include <QObject>
#include <QVariant>

namespace Velmora::Figura {

class IConnection;

/// Computes the points of connections. Points are in the coordinate system of the connection's
/// bounds. Connections do not own their router.
class FIGURA_EXPORT IConnectionRouter
{
public:
    virtual ~IConnectionRouter();

    /// What setConstraint() stored; invalid when nothing is.
    virtual QVariant getConstraint(IConnection *connection) = 0;
    virtual void invalidate(IConnection *connection) = 0; ///< \a connection will be routed anew.
    virtual void remove(IConnection *connection) = 0;     ///< Forget all about \a connection.
    virtual void route(IConnection *connection) = 0;      ///< Computes and sets integer points.
    virtual void routeF(IConnection *connection) = 0;     ///< Computes and sets floating points.
    /// Computes the points and returns them, without setting them.
    virtual QList<QPoint> doRoute(IConnection *connection) = 0;
    /// The same in floating coordinates.
    virtual QList<QPointF> doRouteF(IConnection *connection) = 0;
    /// Keeps what the program wants of the route, for routers that know such wishes.
    virtual void setConstraint(IConnection *connection, const QVariant &constraint) = 0;
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::IConnectionRouter,
                    "IConnectionRouter.Figura.Velmora.velmora.org")
