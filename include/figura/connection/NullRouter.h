#pragma once

#include <figura/connection/AbstractRouter.h>
#include <figura/export.h>

namespace Velmora::Figura {

/// Routes a straight line from anchor to anchor: the default of every connection.
class FIGURA_EXPORT NullRouter : public AbstractRouter
{
    Q_OBJECT

public:
    explicit NullRouter(QObject *parent = nullptr); ///< \a parent owns the router as a QObject.
    ~NullRouter() override;

    /// The one that connections share. Made on the first call, from any thread, and never
    /// destroyed.
    static NullRouter *instance();

    /// The two end points: absolute (0, 0) where an anchor is missing.
    QList<QPoint> doRoute(IConnection *connection) override;
    /// The points of doRoute() as floating ones.
    QList<QPointF> doRouteF(IConnection *connection) override;
};

} // namespace Velmora::Figura
