#include "bendrouter_p.h"

#include <figura/connection/AbsoluteBendpoint.h>
#include <figura/connection/IConnection.h>
#include <figura/connection/IConnectionAnchor.h>
#include <figura/figure/Figure.h>

namespace Velmora::Figura {
namespace {

constexpr int loopGap = 20;

Figure *ownerOf(const IConnectionAnchor *anchor)
{
    return anchor ? anchor->getOwner() : nullptr;
}

QVariant bendpoint(const QPoint &point)
{
    return QVariant::fromValue(AbsoluteBendpoint(point));
}

// Around the top right corner.
QList<QVariant> loopAt(const QRect &box)
{
    const int right = box.right() + loopGap;
    const int top = box.top() - loopGap;
    return {bendpoint({box.right() - box.width() / 4, top}), bendpoint({right, top}),
            bendpoint({right, box.top() + box.height() / 4})};
}

} // namespace

QList<QPoint> BendRouter::bendpoints(IConnection *connection)
{
    QList<QPoint> points;
    const QList<QVariant> given = BendpointConnectionRouter::getBendpointList(connection);
    for (const QVariant &bendpoint : given)
        points << getBendpointLocation(bendpoint);
    return points;
}

void BendRouter::setBendpoints(IConnection *connection, const QList<QPoint> &points)
{
    QList<QVariant> list;
    for (const QPoint &point : points)
        list << bendpoint(point);
    setConstraint(connection, list);
}

QList<QVariant> BendRouter::getBendpointList(IConnection *connection)
{
    const QList<QVariant> given = BendpointConnectionRouter::getBendpointList(connection);
    Figure *source = ownerOf(connection->getSourceAnchor());
    if (!given.isEmpty() || !source || source != ownerOf(connection->getTargetAnchor()))
        return given;
    QRect box = source->getBounds();
    source->translateToAbsolute(box);
    return loopAt(connection->translateToRelative(box));
}

} // namespace Velmora::Figura
