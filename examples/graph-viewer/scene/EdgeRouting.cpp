#include "EdgeRouting.h"

#include "EdgeConnection.h"
#include "ElementFigure.h"

#include <figura/connection/AbsoluteBendpoint.h>
#include <figura/connection/IConnectionAnchor.h>
#include <figura/connection/RelativeBendpoint.h>

#include <QLineF>

using Velmora::Figura::AbsoluteBendpoint;
using Velmora::Figura::RelativeBendpoint;

namespace GraphViewer {
namespace {

constexpr double laneWidth = 16;

QSize asSize(const QPoint &way)
{
    return {way.x(), way.y()};
}

QVariant relative(EdgeConnection *edge, const QSize &fromTail, const QSize &fromHead)
{
    RelativeBendpoint bend(edge);
    bend.setRelativeDimensions(fromTail, fromHead);
    return QVariant::fromValue(bend);
}

} // namespace

QStringList EdgeRouting::names()
{
    return {QStringLiteral("engine"), QStringLiteral("straight"), QStringLiteral("manhattan")};
}

Routing EdgeRouting::fromName(const QString &name)
{
    return static_cast<Routing>(qMax<qsizetype>(0, names().indexOf(name)));
}

void EdgeRouting::apply(EdgeConnection *edge, Routing routing, double lane)
{
    edge->showEngineDrawing(routing == Routing::Engine);
    if (edge->isLoop())
        bend(edge, loopBends(edge)); // there is no straight way from a node to itself
    else if (routing == Routing::Engine)
        bend(edge, engineBends(edge));
    else if (lane != 0)
        bend(edge, laneBend(edge, lane)); // of several equal ways only one could be seen
    else if (routing == Routing::Manhattan)
        edge->setConnectionRouter(&m_manhattan);
    else
        edge->setConnectionRouter(nullptr);
}

void EdgeRouting::bend(EdgeConnection *edge, const QVariantList &bends)
{
    edge->setConnectionRouter(&m_bendpoints);
    edge->setRoutingConstraint(bends);
}

QVariantList EdgeRouting::engineBends(EdgeConnection *edge) const
{
    QVariantList bends;
    const QList<QPoint> points = edge->engineBends();
    for (const QPoint &point : points)
        bends << QVariant::fromValue(AbsoluteBendpoint(point));
    return bends;
}

// Relative ones: when the node moves, its loops come along.
QVariantList EdgeRouting::loopBends(EdgeConnection *edge) const
{
    QVariantList bends;
    ElementFigure *node = edge->tail();
    const QPoint moved = node->getBounds().topLeft() - node->home().topLeft();
    const QPoint reference = edge->getSourceAnchor()->getReferencePoint() - moved;
    const QList<QPoint> points = edge->engineBends();
    for (const QPoint &point : points) {
        const QSize way = asSize(point - reference);
        bends << relative(edge, way, way);
    }
    return bends;
}

QVariantList EdgeRouting::laneBend(EdgeConnection *edge, double lane) const
{
    const QPoint from = edge->getSourceAnchor()->getReferencePoint();
    const QPoint to = edge->getTargetAnchor()->getReferencePoint();
    if (from == to)
        return {};
    const QPointF side = QLineF(from, to).normalVector().unitVector().p2() - QPointF(from);
    const QSize way = asSize((side * lane * laneWidth).toPoint());
    return {relative(edge, way, way)};
}

} // namespace GraphViewer
