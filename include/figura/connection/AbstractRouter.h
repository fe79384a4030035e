#pragma once

#include <figura/connection/IConnectionRouter.h>
#include <figura/export.h>

#include <QObject>
#include <QPoint>

namespace Velmora::Figura {

/// The base of the routers: end points from the anchors, and the step that sets what was computed.
class FIGURA_EXPORT AbstractRouter : public QObject, public IConnectionRouter
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IConnectionRouter)

public:
    explicit AbstractRouter(QObject *parent = nullptr); ///< \a parent owns the router as a QObject.
    ~AbstractRouter() override;

    // New virtual operations stand before the overrides: the order of the virtual table depends on
    // it.

protected:
    /// Where the target anchor meets the connection, seen from the source anchor, in absolute
    /// coordinates; (0, 0) when an anchor is missing.
    virtual QPoint getEndPoint(IConnection *connection);
    virtual QPoint getStartPoint(IConnection *connection); ///< The mirror image at the source.

public:
    QVariant getConstraint(IConnection *connection) override; ///< Invalid: keeps none.
    void invalidate(IConnection *connection) override;        ///< Does nothing.
    void remove(IConnection *connection) override;            ///< Does nothing.
    /// Sets what doRoute() gives. Fewer than two points are reported, and change nothing.
    void route(IConnection *connection) override;
    void routeF(IConnection *connection) override; ///< The same with doRouteF().
    void setConstraint(IConnection *connection, const QVariant &constraint) override; ///< Dropped.
};

} // namespace Velmora::Figura
