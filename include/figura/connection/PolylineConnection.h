#pragma once

#include <figura/connection/IAnchorListener.h>
#include <figura/connection/IConnection.h>
#include <figura/connection/Polyline.h>
#include <figura/export.h>

#include <memory>

namespace Velmora::Figura {

class ConnectionCore;
class IRotatableDecoration;

/// A connection with integer points: a polyline between two anchors, routed when it is validated.
///
/// Its children (arrow heads, labels) are placed by the locators that are their constraints. It
/// owns neither anchors nor router; one that is destroyed counts as not set. It owns its
/// decorations: they are deleted later when they are replaced, and with the connection when they
/// have no QObject parent.
class FIGURA_EXPORT PolylineConnection : public Polyline, public IConnection, public IAnchorListener
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Figura::IConnection Velmora::Figura::IAnchorListener)
    Q_MOC_INCLUDE("figura/connection/IConnectionAnchor.h")
    Q_MOC_INCLUDE("figura/connection/IConnectionRouter.h")
    Q_PROPERTY(QList<QPoint> points READ getPoints WRITE setPoints)
    Q_PROPERTY(QList<QPointF> pointsf READ getPointsF WRITE setPointsF)
    Q_PROPERTY(
        IConnectionRouter *connectionRouter READ getConnectionRouter WRITE setConnectionRouter)
    Q_PROPERTY(QVariant routingConstraint READ getRoutingConstraint WRITE setRoutingConstraint)
    Q_PROPERTY(IConnectionAnchor *sourceAnchor READ getSourceAnchor WRITE setSourceAnchor)
    Q_PROPERTY(IConnectionAnchor *targetAnchor READ getTargetAnchor WRITE setTargetAnchor)

public:
    /// Draws a line from (0, 0) to (100, 100) until it is routed.
    explicit PolylineConnection(QObject *parent = nullptr);
    ~PolylineConnection() override;

    // New virtual operations stand before the overrides: the order of the virtual table depends on
    // it.

protected:
    virtual IRotatableDecoration *getSourceDecoration(); ///< Null when there is none.
    virtual IRotatableDecoration *getTargetDecoration(); ///< Null when there is none.

public:
    using Polyline::getPoint; // the operation of the interface is not const

    IConnectionRouter *getConnectionRouter() const override; ///< Never null.
    QList<QPoint> getPoints() override;                   ///< Those of the last routing, or as set.
    void setPoints(const QList<QPoint> &points) override; ///< Until the next routing.
    QList<QPointF> getPointsF() override;                 ///< The integer points as floating ones.
    void setPointsF(const QList<QPointF> &points) override; ///< Rounded half away from zero.
    QPoint getPoint(int index) override;                    ///< (0, 0) when out of range.
    QPointF getPointF(int index) override;                  ///< (0, 0) when out of range.
    int getPointCount() const override;                     ///< How many points the line has.
    QVariant getRoutingConstraint() override; ///< What the router keeps for this connection.
    /// Hands \a constraint to the router; revalidates.
    void setRoutingConstraint(const QVariant &constraint) override;
    IConnectionAnchor *getSourceAnchor() const override;      ///< Null when there is none.
    IConnectionAnchor *getTargetAnchor() const override;      ///< Null when there is none.
    void setSourceAnchor(IConnectionAnchor *anchor) override; ///< Not owned; null for none.
    void setTargetAnchor(IConnectionAnchor *anchor) override; ///< Not owned; null for none.
    /// Null means the shared NullRouter. Announces PROPERTY_CONNECTION_ROUTER. Not owned.
    void setConnectionRouter(IConnectionRouter *router) override;

    /// Becomes a child at the first point, turned along the first segment. The previous one is
    /// deleted later. What is not a figure, and null too, is reported after that.
    void setSourceDecoration(IRotatableDecoration *decoration);
    void setTargetDecoration(IRotatableDecoration *decoration); ///< The same at the last point.

    QRect getBounds() override; ///< With the children, as of the last layout; null before.
    void addNotify() override;  ///< Begins to listen to the anchors.
    /// Stops listening to the anchors; the router forgets the connection.
    void removeNotify() override;
    void revalidate() override; ///< Also releases what the router keeps for the present route.

public Q_SLOTS:
    void anchorMoved(IConnectionAnchor *pAnchor) override; ///< Revalidates, whosever anchor it is.

protected:
    void layout() override;

private:
    std::unique_ptr<ConnectionCore> m_core; // what both connection classes share
};

} // namespace Velmora::Figura
