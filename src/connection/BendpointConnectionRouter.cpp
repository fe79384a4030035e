#include <figura/connection/BendpointConnectionRouter.h>

#include "points_p.h"
#include "routing_p.h"

#include <figura/connection/AbsoluteBendpoint.h>
#include <figura/connection/IConnectionAnchor.h>
#include <figura/connection/RelativeBendpoint.h>

namespace Velmora::Figura {
namespace {

// One of them may destroy the other when it is asked.
using Anchor = InterfacePointer<IConnectionAnchor>;

QPoint referencePoint(const Anchor &anchor)
{
    return anchor ? anchor->getReferencePoint() : QPoint();
}

QPoint location(const Anchor &anchor, const QPoint &reference)
{
    return anchor ? anchor->getLocation(reference) : QPoint();
}

} // namespace

BendpointConnectionRouter::BendpointConnectionRouter(QObject *parent)
    : AbstractRouter(parent)
{
}

BendpointConnectionRouter::~BendpointConnectionRouter() = default;

QPoint BendpointConnectionRouter::getBendpointLocation(const QVariant &bendpoint)
{
    if (bendpoint.canConvert<AbsoluteBendpoint>())
        return bendpoint.value<AbsoluteBendpoint>().getLocation();
    if (bendpoint.canConvert<RelativeBendpoint>())
        return bendpoint.value<RelativeBendpoint>().getLocation();
    return QPoint();
}

QList<QVariant> BendpointConnectionRouter::getBendpointList(IConnection *connection)
{
    const QVariant constraint = getConstraint(connection);
    return constraint.isValid() ? constraint.toList() : QList<QVariant>();
}

QVariant BendpointConnectionRouter::getConstraint(IConnection *connection)
{
    return m_constraints.value(connection).constraint;
}

void BendpointConnectionRouter::setConstraint(IConnection *connection, const QVariant &constraint)
{
    if (!connection)
        return;
    if (!constraint.isValid()) {
        remove(connection);
        return;
    }

    Entry &entry = m_constraints[connection];
    entry.constraint = constraint;
    // Another connection may be made at the address of a destroyed one; it must not inherit.
    auto *object = dynamic_cast<QObject *>(connection);
    if (object && !entry.watch) {
        entry.watch = connect(object, &QObject::destroyed, this,
                              [this, connection]() { m_constraints.remove(connection); });
    }
}

void BendpointConnectionRouter::remove(IConnection *connection)
{
    disconnect(m_constraints.take(connection).watch);
}

QList<QPoint> BendpointConnectionRouter::doRoute(IConnection *connection)
{
    const Anchor source(connection ? connection->getSourceAnchor() : nullptr);
    const Anchor target(connection ? connection->getTargetAnchor() : nullptr);
    if (!source || !target)
        return {};

    const Routing goesOn(this, connection);
    QList<QPoint> inner;
    const QList<QVariant> bendpoints = getBendpointList(connection);
    for (const QVariant &bendpoint : bendpoints) {
        if (goesOn)
            inner.append(getBendpointLocation(bendpoint));
    }
    if (!goesOn)
        return {};

    // Bendpoints are in the connection's coordinates; anchors answer and are asked in absolute
    // ones.
    QPoint startReference = inner.isEmpty() ? referencePoint(target) : inner.constFirst();
    QPoint endReference = inner.isEmpty() ? referencePoint(source) : inner.constLast();
    if (!inner.isEmpty()) {
        connection->translateToAbsolute(startReference);
        connection->translateToAbsolute(endReference);
    }
    QPoint start = location(source, startReference);
    QPoint end = location(target, endReference);
    if (!goesOn)
        return {};
    inner.prepend(connection->translateToRelative(start));
    inner.append(connection->translateToRelative(end));
    return inner;
}

QList<QPointF> BendpointConnectionRouter::doRouteF(IConnection *connection)
{
    return toFloating(doRoute(connection));
}

} // namespace Velmora::Figura
