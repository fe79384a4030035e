#include <figura/connection/PolylineConnection.h>

#include "connectioncore_p.h"
#include "figure/alive_p.h"
#include "points_p.h"

#include <figura/connection/IConnectionAnchor.h>
#include <figura/connection/IConnectionRouter.h>
#include <figura/decoration/IRotatableDecoration.h>
#include <figura/layout/DelegatingLayout.h>

namespace Velmora::Figura {

PolylineConnection::PolylineConnection(QObject *parent)
    : Polyline(parent)
    , m_core(std::make_unique<ConnectionCore>(this, this, this, "PolylineConnection"))
{
    PolylineConnection::setLayoutManager(new DelegatingLayout(this));
    addPoint(QPoint(0, 0));
    addPoint(QPoint(100, 100));
}

PolylineConnection::~PolylineConnection()
{
    Polyline::erase(); // while the bounds still include the decorations
}

IRotatableDecoration *PolylineConnection::getSourceDecoration()
{
    return m_core->source.decoration.get();
}

IRotatableDecoration *PolylineConnection::getTargetDecoration()
{
    return m_core->target.decoration.get();
}

void PolylineConnection::setSourceDecoration(IRotatableDecoration *decoration)
{
    m_core->setDecoration(m_core->source, decoration);
}

void PolylineConnection::setTargetDecoration(IRotatableDecoration *decoration)
{
    m_core->setDecoration(m_core->target, decoration);
}

QList<QPoint> PolylineConnection::getPoints()
{
    return getLinePoints();
}

void PolylineConnection::setPoints(const QList<QPoint> &points)
{
    setLinePoints(points);
}

QList<QPointF> PolylineConnection::getPointsF()
{
    return toFloating(getLinePoints());
}

void PolylineConnection::setPointsF(const QList<QPointF> &points)
{
    setPoints(toInteger(points));
}

QPoint PolylineConnection::getPoint(int index)
{
    return Polyline::getPoint(index);
}

QPointF PolylineConnection::getPointF(int index)
{
    return Polyline::getPoint(index);
}

int PolylineConnection::getPointCount() const
{
    return Polyline::getPointCount();
}

IConnectionRouter *PolylineConnection::getConnectionRouter() const
{
    return m_core->router();
}

void PolylineConnection::setConnectionRouter(IConnectionRouter *router)
{
    m_core->setRouter(router);
}

QVariant PolylineConnection::getRoutingConstraint()
{
    return m_core->router()->getConstraint(this);
}

void PolylineConnection::setRoutingConstraint(const QVariant &constraint)
{
    const Alive alive(this);
    m_core->router()->setConstraint(this, constraint);
    if (alive)
        revalidate();
}

IConnectionAnchor *PolylineConnection::getSourceAnchor() const
{
    return m_core->source.anchor.get();
}

IConnectionAnchor *PolylineConnection::getTargetAnchor() const
{
    return m_core->target.anchor.get();
}

void PolylineConnection::setSourceAnchor(IConnectionAnchor *anchor)
{
    m_core->setAnchor(m_core->source, anchor);
}

void PolylineConnection::setTargetAnchor(IConnectionAnchor *anchor)
{
    m_core->setAnchor(m_core->target, anchor);
}

void PolylineConnection::anchorMoved(IConnectionAnchor * /*pAnchor*/)
{
    revalidate();
}

QRect PolylineConnection::getBounds()
{
    return m_core->bounds();
}

void PolylineConnection::addNotify()
{
    const Alive alive(this);
    Polyline::addNotify();
    if (alive)
        m_core->hook(m_core->source);
    if (alive)
        m_core->hook(m_core->target);
}

void PolylineConnection::removeNotify()
{
    // Anchors and routers may be the application's own, and destroy whom they have served.
    const Alive alive(this);
    m_core->unhook(m_core->source);
    if (alive)
        m_core->unhook(m_core->target);
    if (alive)
        m_core->router()->remove(this);
    if (alive)
        Polyline::removeNotify();
}

void PolylineConnection::layout()
{
    // Routers, locators and slots are the application's code, which may destroy this connection.
    const Alive alive(this);
    if (m_core->isConnected())
        m_core->router()->route(this);
    if (alive)
        Polyline::layout();
    if (alive)
        Q_EMIT pathChanged(QRectF());
    if (alive)
        m_core->updateBounds(Polyline::getBounds());
}

void PolylineConnection::revalidate()
{
    const Alive alive(this);
    m_core->eraseBounds();
    if (alive)
        Polyline::revalidate();
    if (alive)
        m_core->router()->invalidate(this);
}

} // namespace Velmora::Figura
