#include <figura/decoration/ConnectionEndpointLocator.h>

#include "figure/figureguard_p.h"

#include <figura/connection/IConnection.h>
#include <figura/connection/IConnectionAnchor.h>
#include <figura/figure/Figure.h>

#include <cmath>

namespace Velmora::Figura {
namespace {

// The side on which the connection leaves.
constexpr int below = 1;
constexpr int right = 2;
constexpr int above = 3;
constexpr int left = 4;

double slope(const QPoint &from, const QPoint &to)
{
    return static_cast<double>(to.y() - from.y()) / (to.x() - from.x());
}

} // namespace

ConnectionEndpointLocator::ConnectionEndpointLocator(IConnection *connection, bool end,
                                                     QObject *parent)
    : QObject(parent)
    , m_connection(connection)
    , m_end(end)
{
}

ConnectionEndpointLocator::~ConnectionEndpointLocator() = default;

int ConnectionEndpointLocator::getUDistance() const
{
    return m_uDistance;
}

void ConnectionEndpointLocator::setUDistance(int distance)
{
    m_uDistance = distance;
}

int ConnectionEndpointLocator::getVDistance() const
{
    return m_vDistance;
}

void ConnectionEndpointLocator::setVDistance(int distance)
{
    m_vDistance = distance;
}

IConnection *ConnectionEndpointLocator::getConnection() const
{
    return m_connection.get();
}

bool ConnectionEndpointLocator::isEnd() const
{
    return m_end;
}

Figure *ConnectionEndpointLocator::getConnectionOwner() const
{
    IConnection *connection = getConnection();
    if (!connection)
        return nullptr;
    IConnectionAnchor *anchor =
        isEnd() ? connection->getTargetAnchor() : connection->getSourceAnchor();
    return anchor ? anchor->getOwner() : nullptr;
}

int ConnectionEndpointLocator::calculateConnectionLocation(const QPoint &start,
                                                           const QPoint &next) const
{
    if (qAbs(next.y() - start.y()) < qAbs(next.x() - start.x()))
        return start.x() < next.x() ? right : left;
    return start.y() < next.y() ? below : above;
}

// A box too narrow for a diagonal gives an infinite slope or none at all: every slope is at most
// infinite, while a comparison with no number fails.
int ConnectionEndpointLocator::calculateConnectionLocation(const QPoint &start,
                                                           const QPoint &topLeft,
                                                           const QPoint &centre) const
{
    const double diagonal = slope(centre, topLeft);
    if (start.x() != centre.x() && std::abs(slope(centre, start)) <= std::abs(diagonal))
        return start.x() < centre.x() ? left : right;
    return start.y() < centre.y() ? above : below;
}

double ConnectionEndpointLocator::calculateTan(const QPoint &start, const QPoint &next) const
{
    return next.x() == start.x() ? 1.0 : qBound(-1.0, slope(start, next), 1.0);
}

int ConnectionEndpointLocator::calculateYShift(int /*labelWidth*/, int labelHeight) const
{
    if (m_vDistance < 0)
        return -labelHeight;
    return m_vDistance == 0 ? -(labelHeight / 2) : 0;
}

QPoint ConnectionEndpointLocator::transposed(const QPoint &point) const
{
    return m_transposer.isEnabled() ? point.transposed() : point;
}

QSize ConnectionEndpointLocator::transposed(const QSize &size) const
{
    return m_transposer.isEnabled() ? size.transposed() : size;
}

int ConnectionEndpointLocator::sideOf(const QPoint &start, const QPoint &next) const
{
    Figure *owner = getConnectionOwner();
    if (!owner)
        return calculateConnectionLocation(start, next);
    QRect box = owner->getBounds();
    owner->translateToAbsolute(box);
    getConnection()->translateToRelative(box);
    return calculateConnectionLocation(start, box.topLeft(), box.center());
}

void ConnectionEndpointLocator::relocate(Figure *target)
{
    IConnection *connection = getConnection();
    if (!target || !target->isVisible() || !connection)
        return;
    const QList<QPoint> points = connection->getPoints();
    if (points.size() < 2)
        return;

    QPoint start = isEnd() ? points.constLast() : points.constFirst();
    QPoint next = isEnd() ? points.at(points.size() - 2) : points.at(1);
    const int side = sideOf(start, next);

    // Beside a vertical segment all is reckoned with x and y exchanged.
    m_transposer.setEnabled(side == below || side == above);
    const int sign = side == above || side == left ? -1 : 1;
    const QPointer<ConnectionEndpointLocator> alive(this);
    const FigureGuard guarded(target);
    const QSize preferred = target->getPreferredSize();
    if (!alive || !guarded) // figures are measured by the application's code
        return;
    const QSize size = transposed(preferred);
    start = transposed(start);
    next = transposed(next);

    const int u = sign * m_uDistance;
    const int farEdge = sign < 0 ? size.width() : 0;
    const double y = u * calculateTan(start, next) + start.y() + m_vDistance +
                     calculateYShift(size.width(), size.height());
    const QPoint corner(start.x() + u - farEdge, static_cast<int>(y));
    target->setBounds(QRect(transposed(corner), transposed(size)));
}

} // namespace Velmora::Figura
