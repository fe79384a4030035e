#pragma once

#include <figura/connection/AbstractRouter.h>
#include <figura/export.h>

#include <QMap>

namespace Velmora::Figura {

/// Routes through the bendpoints of a connection: its constraint, a QVariant that holds a
/// QList<QVariant> of AbsoluteBendpoint and RelativeBendpoint values.
///
/// A connection that is removed or destroyed loses its bendpoints.
class FIGURA_EXPORT BendpointConnectionRouter : public AbstractRouter
{
    Q_OBJECT

public:
    /// \a parent owns the router as a QObject.
    explicit BendpointConnectionRouter(QObject *parent = nullptr);
    ~BendpointConnectionRouter() override;

    // New virtual operations stand before the overrides: the order of the virtual table depends on
    // it.

protected:
    /// (0, 0) for a value that is not a bendpoint.
    virtual QPoint getBendpointLocation(const QVariant &bendpoint);
    /// From source to target; empty when the connection has none.
    virtual QList<QVariant> getBendpointList(IConnection *connection);

public:
    /// The stored bendpoints; invalid when there are none.
    QVariant getConstraint(IConnection *connection) override;
    void remove(IConnection *connection) override; ///< Forgets the connection's bendpoints.
    /// From anchor through the bendpoints to anchor; empty when an anchor is missing.
    QList<QPoint> doRoute(IConnection *connection) override;
    /// The points of doRoute() as floating ones.
    QList<QPointF> doRouteF(IConnection *connection) override;
    /// An invalid \a constraint removes the connection's bendpoints.
    void setConstraint(IConnection *connection, const QVariant &constraint) override;

private:
    struct Entry
    {
        QVariant constraint;
        QMetaObject::Connection watch; // over the connection's life
    };

    QMap<IConnection *, Entry> m_constraints;
};

} // namespace Velmora::Figura
