#include <figura/connection/PolylineFConnection.h>

#include "connectioncore_p.h"
#include "figure/alive_p.h"
#include "points_p.h"

#include <figura/connection/IConnectionAnchor.h>
#include <figura/connection/IConnectionRouter.h>
#include <figura/decoration/IRotatableDecoration.h>
#include <figura/layout/DelegatingLayout.h>

namespace Velmora::Figura {

PolylineFConnection::PolylineFConnection(QObject *parent)
    : PolylineF(parent)
    , m_core(std::make_unique<ConnectionCore>(this, this, this, "PolylineFConnection"))
{
    PolylineFConnection::setLayoutManager(new DelegatingLayout(this));
    addPoint(QPointF(0, 0));
    addPoint(QPointF(100, 100));
}

PolylineFConnection::~PolylineFConnection()
{
    PolylineF::erase(); // while the bounds still include the decorations
}

IRotatableDecoration *PolylineFConnection::getSourceDecoration()
{
    return m_core->source.decoration.get();
}

IRotatableDecoration *PolylineFConnection::getTargetDecoration()
{
    return m_core->target.decoration.get();
}

void PolylineFConnection::setSourceDecoration(IRotatableDecoration *decoration)
{
    m_core->setDecoration(m_core->source, decoration);
}

void PolylineFConnection::setTargetDecoration(IRotatableDecoration *decoration)
{
    m_core->setDecoration(m_core->target, decoration);
}

QList<QPoint> PolylineFConnection::getPoints()
{
    return toInteger(getLinePoints());
}

void PolylineFConnection::setPoints(const QList<QPoint> &points)
{
    setPointsF(toFloating(points));
}

QList<QPointF> PolylineFConnection::getPointsF()
{
    return getLinePoints();
}

void PolylineFConnection::setPointsF(const QList<QPointF> &points)
{
    setLinePoints(points);
}

QPoint PolylineFConnection::getPoint(int index)
{
    return PolylineF::getPoint(index);
}

QPointF PolylineFConnection::getPointF(int index)
{
    return PolylineF::getPointF(index);
}

int PolylineFConnection::getPointCount() const
{
    return PolylineF::getPointCount();
}

IConnectionRouter *PolylineFConnection::getConnectionRouter() const
{
    return m_core->router();
}

void PolylineFConnection::setConnectionRouter(IConnectionRouter *router)
{
    m_core->setRouter(router);
}

QVariant PolylineFConnection::getRoutingConstraint()
{
    return m_core->router()->getConstraint(this);
}

void PolylineFConnection::setRoutingConstraint(const QVariant &constraint)
{
    const Alive alive(this);
    m_core->router()->setConstraint(this, constraint);
    if (alive)
        revalidate();
}

IConnectionAnchor *PolylineFConnection::getSourceAnchor() const
{
    return m_core->source.anchor.get();
}

IConnectionAnchor *PolylineFConnection::getTargetAnchor() const
{
    return m_core->target.anchor.get();
}

void PolylineFConnection::setSourceAnchor(IConnectionAnchor *anchor)
{
    m_core->setAnchor(m_core->source, anchor);
}

void PolylineFConnection::setTargetAnchor(IConnectionAnchor *anchor)
{
    m_core->setAnchor(m_core->target, anchor);
}

void PolylineFConnection::anchorMoved(IConnectionAnchor * /*pAnchor*/)
{
    revalidate();
}

QRect PolylineFConnection::getBounds()
{
    return m_core->bounds();
}

void PolylineFConnection::addNotify()
{
    const Alive alive(this);
    PolylineF::addNotify();
    if (alive)
        m_core->hook(m_core->source);
    if (alive)
        m_core->hook(m_core->target);
}

void PolylineFConnection::removeNotify()
{
    // Anchors and routers may be the application's own, and destroy whom they have served.
    const Alive alive(this);
    m_core->unhook(m_core->source);
    if (alive)
        m_core->unhook(m_core->target);
    if (alive)
        m_core->router()->remove(this);
    if (alive)
        PolylineF::removeNotify();
}

void PolylineFConnection::layout()
{
    // Routers, locators and slots are the application's code, which may destroy this connection.
    const Alive alive(this);
    if (m_core->isConnected())
        m_core->router()->routeF(this);
    if (alive)
        PolylineF::layout();
    if (alive)
        Q_EMIT pathChanged(QRectF());
    if (alive)
        m_core->updateBounds(PolylineF::getBounds());
}

void PolylineFConnection::revalidate()
{
    const Alive alive(this);
    m_core->eraseBounds();
    if (alive)
        PolylineF::revalidate();
    if (alive)
        m_core->router()->invalidate(this);
}

} // namespace Velmora::Figura
