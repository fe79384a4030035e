#pragma once

#include <figura/connection/AbstractRouter.h>
#include <figura/export.h>

namespace Velmora::Figura {

/// Routes a straight line from anchor to anchor: the default of every connection.
class FIGURA_EXPORT NullRouter : public AbstractRouter
{
    Q_OBJECT

public:
    explicit NullRouter(QObject *parent = nullptr);
    ~NullRouter() override;

    /// The one that connections share. Made on the first call, from any thread, and never
    /// destroyed.
    static NullRouter *instance();

    QList<QPoint> doRoute(IConnection *connection) override;
    QList<QPointF> doRouteF(IConnection *connection) override;
};

} // namespace Velmora::Figura
