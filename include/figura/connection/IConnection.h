#pragma once

#include <figura/export.h>
#include <figura/figure/IFigure.h>

namespace Velmora::Figura {

class IConnectionAnchor;
class IConnectionRouter;

/// A line figure between two anchors, as routers, locators and bendpoints see it. The order of the
/// operations is part of the binary interface; PolylineConnection documents them.
class FIGURA_EXPORT IConnection : public virtual IFigure
{
public:
    static const QString PROPERTY_CONNECTION_ROUTER; ///< "connectionRouter"
    static const QString PROPERTY_POINTS;  ///< "points": for applications, never announced here.
    static const QString PROPERTY_POINTSF; ///< "pointsf": for applications, never announced here.

    ~IConnection(); // takes no slot of its own: the virtual one is that of IFigure

    /// Who computes the points; never null.
    virtual IConnectionRouter *getConnectionRouter() const = 0;
    /// In the coordinate system of the bounds, source first.
    virtual QList<QPoint> getPoints() = 0;
    virtual QPoint getPoint(int index) = 0;      ///< (0, 0) when \a index is out of range.
    virtual int getPointCount() const = 0;       ///< How many points the line has.
    virtual QList<QPointF> getPointsF() = 0;     ///< The points in floating coordinates.
    virtual QPointF getPointF(int index) = 0;    ///< (0, 0) when \a index is out of range.
    virtual QVariant getRoutingConstraint() = 0; ///< What the router keeps for this connection.
    virtual IConnectionAnchor *getSourceAnchor() const = 0; ///< Null when there is none.
    virtual IConnectionAnchor *getTargetAnchor() const = 0; ///< Null when there is none.
    /// Null means the shared NullRouter. Not owned.
    virtual void setConnectionRouter(IConnectionRouter *router) = 0;
    /// Called by routers; the next routing replaces the points.
    virtual void setPoints(const QList<QPoint> &points) = 0;
    virtual void setPointsF(const QList<QPointF> &points) = 0; ///< As setPoints().
    /// Hands \a constraint to the router.
    virtual void setRoutingConstraint(const QVariant &constraint) = 0;
    virtual void setSourceAnchor(IConnectionAnchor *anchor) = 0; ///< Not owned; null for none.
    virtual void setTargetAnchor(IConnectionAnchor *anchor) = 0; ///< Not owned; null for none.
};

} // namespace Velmora::Figura

Q_DECLARE_INTERFACE(Velmora::Figura::IConnection, "IConnection.Figura.Velmora.velmora.org")
